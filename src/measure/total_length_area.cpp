#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "basic/number_text.h"
#include "basic/rounding.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::Entity;

struct Measured {
  std::string_view class_name;
  double (*measure)(std::string_view handle);
};

/// Where the two commands differ, apart from their error style.
struct Total {
  std::string pick_prompt;
  std::array<Measured, 2> kinds;
  std::string_view message;
};

const Total length = {
    .pick_prompt = new_line("Select Layer"),
    .kinds = {{{host::Line::class_name,
                [](std::string_view handle) { return entity<host::Line>(handle).Length(); }},
               {host::Arc::class_name,
                [](std::string_view handle) { return entity<host::Arc>(handle).ArcLength(); }}}},
    .message = "Total Length For Lines & Arcs On Layer: ",
};

const Total area = {
    .pick_prompt = "Select Layer",
    .kinds = {{{host::LightweightPolyline::class_name,
                [](std::string_view handle) {
                  return entity<host::LightweightPolyline>(handle).Area();
                }},
               {host::Ellipse::class_name,
                [](std::string_view handle) { return entity<host::Ellipse>(handle).Area(); }}}},
    .message = "Total Area For PolyLine & Ellipse On Layer: ",
};

/// The row of the entity's kind, null for none.
const Measured* row_of(const Entity& candidate, const Total& total) {
  return candidate.with_text(host::Member::ObjectName, [&](std::string_view class_name) {
    const auto found = std::ranges::find(total.kinds, class_name, &Measured::class_name);
    return found == total.kinds.end() ? nullptr : &*found;
  });
}

/// Adds the entity's measure to `sum` if it counts, and says whether it does.
bool add(const Entity& candidate, const Total& total, std::string_view layer, double& sum) {
  const Measured* kind = row_of(candidate, total);
  if (!kind || !candidate.is_on(layer)) return false;
  sum += kind->measure(candidate.Handle());
  return true;
}

/// False when an entity failed: then there is no total to print.
template <class Step>
bool add_all(Step& step, const Total& total, std::string_view layer, double& sum) {
  for (const Entity& candidate : model_space()) {
    bool counts = true;  // also when the entity cannot be read
    step([&] { counts = add(candidate, total, layer, sum); });
    if (counts && step.pending()) return false;
  }
  return true;
}

/// `Step` is the error style: ResumeNext or NoTrap.
template <class Step>
void print_total(const Total& total, const basic::Separators& separators) {
  Step step;
  Entity picked;
  std::string layer;
  double sum = 0;
  bool complete = false;

  step([&] { picked = utility().GetEntity(total.pick_prompt); });
  if (step.pending()) return;
  step([&] { picked.Update(); });
  step([&] { layer = picked.Layer(); });
  step([&] { complete = add_all(step, total, layer, sum); });
  if (!complete) return;
  const std::string printed = basic::general(basic::round(sum, 3), separators);
  step([&] { utility().Prompt(new_line(std::string(total.message) + layer + " Is: " + printed)); });
}

}  // namespace

Empty Velmar16::GetTotalLength() {
  print_total<host::NoTrap>(length, system().separators());
  return {};
}

Empty Velmar16::GetTotalArea() {
  print_total<host::ResumeNext>(area, system().separators());
  return {};
}

}  // namespace velmar
