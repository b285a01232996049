#include <string_view>

#include "basic/strings.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

/// Unloads the first external reference whose name contains the word, and loads it with the next
/// call.
void toggle(bool& unloaded, std::string_view word) {
  for (const host::Block& block : active_document().Blocks()) {
    if (!block.IsXRef() || !basic::contains_ignoring_case(block.Name(), word)) continue;
    unloaded = !unloaded;
    if (unloaded) {
      block.Unload();
    } else {
      block.Reload();
    }
    return;
  }
}

}  // namespace

Empty Velmar16::Unload_TB() {
  toggle(title_block_unloaded, "TB");
  return {};
}

Empty Velmar16::Unload_Xref() {
  toggle(xref_unloaded, "ref");
  return {};
}

}  // namespace velmar
