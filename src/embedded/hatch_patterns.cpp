#include "embedded/hatch_patterns.h"

#include "basic/letter_case.h"
#include "basic/val.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

using drawing::Hatch;

drawing::PatternUnits units(const drawing::Drawing& drawing) {
  const auto metric = drawing.header("$MEASUREMENT");
  const bool is_metric = metric && basic::val(*metric, basic::TypeCharacter::ignored) == 1;
  return is_metric ? drawing::PatternUnits::millimetres : drawing::PatternUnits::inches;
}

}  // namespace

void choose_pattern(Hatch& hatch, const drawing::Drawing& drawing, std::int32_t type,
                    const std::string& name) {
  if (type < Hatch::user_defined || type > Hatch::custom) throw failure(HostError::invalid_input);
  if (hatch.gradient != 0) throw not_supported("SetPattern of a gradient HATCH");
  Hatch changed = hatch;
  changed.pattern_type = type;
  changed.crossed = 0;
  if (!(changed.scale > 0) || changed.is_solid()) changed.scale = 1;
  if (type == Hatch::user_defined) {
    changed.pattern = Hatch::user_pattern_name;
    changed.solid = 0;
    changed.lines = drawing::user_pattern(changed.angle, changed.scale, false);
  } else {
    auto lines = drawing::standard_pattern(name, units(drawing), changed.scale, changed.angle);
    if (!lines) throw failure(HostError::invalid_input);
    changed.pattern = basic::upper(name);
    changed.solid = lines->empty() ? 1 : 0;
    changed.lines = std::move(*lines);
  }
  hatch = std::move(changed);
}

}  // namespace velmar::embedded
