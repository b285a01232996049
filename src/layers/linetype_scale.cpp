#include <map>
#include <string>

#include "basic/letter_case.h"
#include "basic/number_text.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::Entity;
using host::Line;
using host::Point;
using host::ResumeNext;

/// Names equal to one in any letter case. A drawing has few linetypes beside its entities: each is
/// looked at once.
class SameName {
 public:
  explicit SameName(const std::string& name) : in_capitals_(basic::upper(name)) {}

  bool as(const std::string& name) {
    const auto [known, is_new] = known_.try_emplace(name);
    if (is_new) known->second = basic::upper(name) == in_capitals_;
    return known->second;
  }

 private:
  std::string in_capitals_;
  std::map<std::string, bool> known_;
};

/// Draws the line anew at height 0. Kept: with layer and colour; all else that it had is lost.
void replace_line(ResumeNext& step, const Entity& found, const std::string& linetype,
                  double scale) {
  Line flat;
  std::string layer;
  std::int32_t colour = 0;
  step([&] {
    const Line line = entity<Line>(found.Handle());
    Point start = line.StartPoint(), end = line.EndPoint();
    start.z = end.z = 0;
    layer = line.Layer();
    colour = line.Color();
    line.Delete();  // One that is not deleted, as on a locked layer, gets no second.
    flat = model_space().AddLine(start, end);
  });
  if (!flat.object()) return;
  step([&] { flat.Layer(layer); });
  step([&] { flat.Linetype(linetype); });
  step([&] { flat.LinetypeScale(scale); });
  step([&] { flat.Color(colour); });
}

void rescale_all(ResumeNext& step, const std::string& linetype, double scale) {
  SameName same(linetype);
  for (const Entity& candidate : model_space()) {
    bool is_meant = false, is_line = false;
    step([&] { is_meant = same.as(candidate.Linetype()); });
    if (!is_meant) continue;
    step([&] { is_line = candidate.has_class(Line::class_name); });
    if (is_line) {
      replace_line(step, candidate, linetype, scale);
    } else {
      step([&] { candidate.LinetypeScale(scale); });
    }
  }
}

}  // namespace

Empty Velmar16::ReplaceLineByType() {
  ResumeNext step;
  Entity picked;
  std::string linetype;
  double current_scale = 0, scale = 0;

  step([&] { picked = utility().GetEntity(new_line("[Select LineType]")); });
  if (step.pending()) return {};
  step([&] { picked.Update(); });
  step([&] { linetype = picked.Linetype(); });
  step([&] { current_scale = picked.LinetypeScale(); });
  const std::string shown = basic::general(current_scale, system().separators());
  step([&] {
    scale = utility().GetReal(
        new_line("Specify LineTypeScale [" + linetype + "] Current <" + shown + ">: "));
  });
  if (scale == 0) scale = 1;  // Kept: Enter means 1, not the scale that is shown.

  step([&] { rescale_all(step, linetype, scale); });
  step([] { active_document().Regen(host::Viewports::active); });
  step([] { utility().Prompt(autocad_ready); });
  return {};
}

}  // namespace velmar
