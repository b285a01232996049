#include <cstdint>
#include <string>
#include <string_view>

#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

using host::BlockReference;

/// Where the two commands differ.
struct Removal {
  std::string_view prompt;
  bool keeps_contents;
  std::string_view done;
};

constexpr Removal explosion = {
    .prompt = "Select the Block you want to explode in all drawing ",
    .keeps_contents = true,
    .done = "Explod",
};
constexpr Removal deletion = {
    .prompt = "Select the Block you want to Delete in all drawing ",
    .keeps_contents = false,
    .done = "Erase",
};

/// Removes every insertion of the picked block from model space.
void remove_insertions(const Removal& removal) {
  const host::Entity picked = utility().GetEntity(new_line(removal.prompt));
  picked.Update();
  const std::string name = entity<BlockReference>(picked.Handle()).Name();

  std::int32_t count = 0;
  for (const host::Entity& candidate : model_space()) {
    if (!candidate.has_class(BlockReference::class_name)) continue;
    const auto reference = entity<BlockReference>(candidate.Handle());
    if (reference.Name() != name) continue;
    ++count;
    if (removal.keeps_contents) reference.Explode();
    reference.Delete();
  }
  utility().Prompt(new_line("Block Name {" + name + "} " + std::string(removal.done) + " " +
                            std::to_string(count) + " found"));
  utility().Prompt(new_line(autocad_ready));
}

}  // namespace

Empty Velmar16::ExplodeBlock() {
  remove_insertions(explosion);
  return {};
}

Empty Velmar16::DeleteBlock() {
  remove_insertions(deletion);
  return {};
}

}  // namespace velmar
