#include <string>
#include <string_view>

#include "basic/failure.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

[[noreturn]] void not_built(std::string_view name) {
  throw basic::Failure(basic::action_not_supported, "VelmarMenu",
                       std::string(name) + " is not built yet");
}

}  // namespace

Empty Velmar16::RotateAllText(std::string, double, bool&) { not_built("RotateAllText"); }
Empty Velmar16::Text(std::string&, Value&, Value&, double&, double&, std::string&, bool&,
                     std::int32_t&, std::string&) {
  not_built("Text");
}
Empty Velmar16::ReplaceT(std::string&, std::string&) { not_built("ReplaceT"); }
Empty Velmar16::ReplaceTL(std::string&, std::string&, std::string&) { not_built("ReplaceTL"); }
Empty Velmar16::ReplaceTag() { not_built("ReplaceTag"); }
Empty Velmar16::ReplaceInT(std::string&, std::string&, std::string&, bool&, bool&) {
  not_built("ReplaceInT");
}
Empty Velmar16::Tolerencee() { not_built("Tolerencee"); }
Empty Velmar16::Replace(std::string&, bool&) { not_built("Replace"); }
std::int16_t Velmar16::GetNOLayer(std::string) { not_built("GetNOLayer"); }
std::int16_t Velmar16::GetNType(std::string) { not_built("GetNType"); }
std::int16_t Velmar16::GetNTypeLayer(std::string, std::string) { not_built("GetNTypeLayer"); }
Empty Velmar16::Mo2Lr(double&, std::string&, std::string&) { not_built("Mo2Lr"); }
Empty Velmar16::TextBar(Value&, double&, Value&, Value&, std::int16_t&, Value&, Value&,
                        std::string&) {
  not_built("TextBar");
}
Empty Velmar16::ReplaceLineByType() { not_built("ReplaceLineByType"); }
Empty Velmar16::Hatch_Layer(std::string&) { not_built("Hatch_Layer"); }
Empty Velmar16::Dim_Layer(std::string&) { not_built("Dim_Layer"); }
Empty Velmar16::StrechText(std::string&, double&, bool&) { not_built("StrechText"); }
Empty Velmar16::ChangeLetterCase() { not_built("ChangeLetterCase"); }
std::int16_t Velmar16::CountInText() { not_built("CountInText"); }
Empty Velmar16::Joint2Text() { not_built("Joint2Text"); }
Empty Velmar16::TextIndex() { not_built("TextIndex"); }
Empty Velmar16::ColLayerObj(std::int16_t&, std::string&, std::string&) { not_built("ColLayerObj"); }
Empty Velmar16::ColDel(std::int16_t&, std::string&) { not_built("ColDel"); }
Empty Velmar16::ColDelLayer(std::int16_t&, Value&, std::string&) { not_built("ColDelLayer"); }
Empty Velmar16::NmLayer(Value&, std::string&) { not_built("NmLayer"); }
Empty Velmar16::ColorToLayer(std::int32_t&, std::string&, std::string&) {
  not_built("ColorToLayer");
}
Empty Velmar16::MLayer(std::string&, std::int32_t&) { not_built("MLayer"); }

}  // namespace velmar
