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
Empty Velmar16::Unload_TB() { not_built("Unload_TB"); }
Empty Velmar16::Unload_Xref() { not_built("Unload_Xref"); }
Empty Velmar16::Tolerencee() { not_built("Tolerencee"); }
Empty Velmar16::SaveAllDrawings() { not_built("SaveAllDrawings"); }
Empty Velmar16::SaveAllCurrentDrawings() { not_built("SaveAllCurrentDrawings"); }
Empty Velmar16::LoadAllCurrentDrawings() { not_built("LoadAllCurrentDrawings"); }
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
Empty Velmar16::PurgeALLFolder(std::string&) { not_built("PurgeALLFolder"); }
Empty Velmar16::FolderDwgDxf(std::string&) { not_built("FolderDwgDxf"); }
Empty Velmar16::FolderDGN(std::string&) { not_built("FolderDGN"); }
Empty Velmar16::FolderDxfDwg(std::string&) { not_built("FolderDxfDwg"); }
Empty Velmar16::DelFilNam(std::string&, std::string&, std::string&) { not_built("DelFilNam"); }
Empty Velmar16::ChangeLetterCase() { not_built("ChangeLetterCase"); }
std::int16_t Velmar16::CountInText() { not_built("CountInText"); }
Empty Velmar16::Joint2Text() { not_built("Joint2Text"); }
Empty Velmar16::TextIndex() { not_built("TextIndex"); }
void Velmar16::Delete_OLE() { not_built("Delete_OLE"); }
Empty Velmar16::ColLayerObj(std::int16_t&, std::string&, std::string&) { not_built("ColLayerObj"); }
Empty Velmar16::ColDel(std::int16_t&, std::string&) { not_built("ColDel"); }
Empty Velmar16::ColDelLayer(std::int16_t&, Value&, std::string&) { not_built("ColDelLayer"); }
Empty Velmar16::NmLayer(Value&, std::string&) { not_built("NmLayer"); }
Empty Velmar16::ColorToLayer(std::int32_t&, std::string&, std::string&) {
  not_built("ColorToLayer");
}
Empty Velmar16::MLayer(std::string&, std::int32_t&) { not_built("MLayer"); }
Empty Velmar16::ExplodeBlock() { not_built("ExplodeBlock"); }
Empty Velmar16::DeleteBlock() { not_built("DeleteBlock"); }
Empty Velmar16::ZoomLayouts() { not_built("ZoomLayouts"); }
Empty Velmar16::DeleteLayouts(std::string&) { not_built("DeleteLayouts"); }
void Velmar16::SlowDown(std::int32_t&) { not_built("SlowDown"); }

}  // namespace velmar
