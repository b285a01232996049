#include "embedded/document_saving.h"

namespace velmar::embedded {

std::vector<drawing::Loss> save_document(DocumentState& document,
                                         const std::filesystem::path& path) {
  const bool converts = !document.save_version.empty() &&
                        document.save_version != document.drawing.version();
  if (!converts) {
    document.drawing.save(path);
    return {};
  }
  drawing::Conversion conversion = document.drawing.convert({document.save_version, {}});
  document.drawing.save(path, conversion);
  std::erase_if(conversion.losses, [](const drawing::Loss& loss) { return loss.harmless; });
  return std::move(conversion.losses);
}

}  // namespace velmar::embedded
