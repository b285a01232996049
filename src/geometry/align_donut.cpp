#include <cstdint>

#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {

using host::Entity;

Empty Velmar16::AlignDonut() {
  constexpr std::string_view set_name = "TEST_SSET12";
  host::ResumeNext step;
  Entity picked;
  step([&] { picked = utility().GetEntity("Select Line"); });
  if (step.pending()) return {};

  double height = 0;  // stays 0 where the pick is no line
  step([&] { height = entity<host::Line>(picked.Handle()).StartPoint().y; });

  host::SelectionSet chosen;
  std::int32_t count = 0;
  step([&] { chosen = selection_sets().Add(set_name); });
  step([&] { chosen.SelectOnScreen(); });
  step([&] { count = chosen.Count(); });

  // Where a step fails, what it would have set is still that of the entity before.
  Entity item;
  host::Box box;
  for (std::int32_t i = 0; i < count; ++i) {
    step([&] { item = active_document().HandleToObject(chosen.Item(i).Handle()); });
    step([&] { box = item.GetBoundingBox(); });
    const double centre = (box.min.y + box.max.y) / 2;
    step([&] { item.Move({}, {0, height - centre, 0}); });
  }
  step([&] { selection_sets().Item(set_name).Delete(); });
  return {};
}

}  // namespace velmar
