#include "embedded/external_reference.h"

#include <array>

#include "drawing/utf8_path.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

namespace fs = std::filesystem;
using drawing::Space;

const Space& require_reference(const BlockObject& block) {
  const Space& space = block.document()->drawing.spaces()[index(block.id())];
  if (!space.is_xref()) {
    throw failure(HostError::not_that_class, "Block " + space.name + " is no external reference");
  }
  return space;
}

void write_flags(BlockObject& block, std::int32_t flags) {
  const Space& space = require_reference(block);
  block.document()->drawing.write_block(block.id(), space.base, flags, std::string(space.path));
}

/// The file says "resolved" of a reference that is loaded.
Value unload(BlockObject& block, Arguments&) {
  write_flags(block, require_reference(block).flags & ~resolved_flag);
  return {};
}

Value reload(BlockObject& block, Arguments&) {
  const Space& space = require_reference(block);
  require_referenced_file(*block.document(), space.path);
  write_flags(block, space.flags | resolved_flag);
  return {};
}

Value detach(BlockObject& block, Arguments&) {
  require_reference(block);
  block.document()->drawing.detach_reference(block.id());
  return {};
}

Value bind(BlockObject& block, Arguments&) {
  require_reference(block);
  throw not_supported("Bind of an external reference");
}

constexpr std::array external_reference_rows{
    Method<BlockObject>{Member::Unload, Effect::changes, 0, 0, unload},
    Method<BlockObject>{Member::Reload, Effect::changes, 0, 0, reload},
    Method<BlockObject>{Member::Detach, Effect::changes, 0, 0, detach},
    Method<BlockObject>{Member::Bind, Effect::changes, 1, 1, bind},
};

}  // namespace

std::span<const Method<BlockObject>> external_reference_methods() {
  return external_reference_rows;
}

fs::path require_referenced_file(const DocumentState& document, const std::string& path) {
  std::string with_slashes = path;
  std::ranges::replace(with_slashes, '\\', '/');
  const fs::path wanted = drawing::utf8_path(with_slashes);
  const fs::path folder = document.drawing.path().parent_path();
  std::error_code unreadable;
  if (!wanted.empty()) {
    for (const fs::path& place : {folder / wanted, folder / wanted.filename()}) {
      if (fs::is_regular_file(place, unreadable)) return place;
    }
  }
  throw failure(HostError::filer_error,
                "Filer error: the file of the external reference, \"" + path + "\", is not found");
}

}  // namespace velmar::embedded
