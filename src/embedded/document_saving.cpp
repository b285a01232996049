#include "embedded/document_saving.h"

namespace velmar::embedded {

std::vector<drawing::Loss> save_document(DocumentState& document, const std::filesystem::path& path,
                                         const std::string& version) {
  if (version.empty() || version == document.drawing.version()) {
    document.drawing.save(path);
    document.save_version.clear();
    return {};
  }
  drawing::Conversion conversion = document.drawing.convert({version, {}});
  document.drawing.save(path, conversion);
  document.save_version = version;
  std::erase_if(conversion.losses, [](const drawing::Loss& loss) { return loss.harmless; });
  return std::move(conversion.losses);
}

}  // namespace velmar::embedded
