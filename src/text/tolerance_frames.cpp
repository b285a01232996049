#include <optional>
#include <string>

#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {

using host::attempt;
using host::Point;

Empty Velmar16::Tolerencee() {
  const std::optional<std::string> text =
      attempt([] { return utility().GetString(true, new_line("Enter Tolerance Text: ")); });
  if (!text || text->empty()) return {};

  constexpr Point along_x{1, 0, 0};
  bool added = false;
  do {
    const std::optional<Point> at =
        attempt([] { return utility().GetPoint(new_line("Insertion point: ")); });
    if (!at) return {};
    added = attempt([&] { model_space().AddTolerance(*text, *at, along_x); });
  } while (added);
  attempt([] { utility().Prompt(new_line(autocad_ready)); });
  return {};
}

}  // namespace velmar
