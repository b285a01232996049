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

Empty Velmar16::AlignDonut() { not_built("AlignDonut"); }
Empty Velmar16::OMove(std::string&, double&, bool&, double&, double&) { not_built("OMove"); }
Empty Velmar16::Alignement() { not_built("Alignement"); }
Empty Velmar16::AlignDimension() { not_built("AlignDimension"); }
Empty Velmar16::Unload_TB() { not_built("Unload_TB"); }
Empty Velmar16::Unload_Xref() { not_built("Unload_Xref"); }
Empty Velmar16::SaveAllDrawings() { not_built("SaveAllDrawings"); }
Empty Velmar16::SaveAllCurrentDrawings() { not_built("SaveAllCurrentDrawings"); }
Empty Velmar16::LoadAllCurrentDrawings() { not_built("LoadAllCurrentDrawings"); }
Empty Velmar16::Hatch(Value&, Value&, Value&, double&) { not_built("Hatch"); }
Empty Velmar16::HatchAligned(std::string&) { not_built("HatchAligned"); }
Empty Velmar16::Sc(Value&, Value&, Value&, double&) { not_built("Sc"); }
Empty Velmar16::DimAL(Value&, Value&, Value&, double&, std::string&, bool&, double&) {
  not_built("DimAL");
}
Empty Velmar16::PurgeALLFolder(std::string&) { not_built("PurgeALLFolder"); }
Empty Velmar16::ScaleXY(double&, double&) { not_built("ScaleXY"); }
Empty Velmar16::FolderDwgDxf(std::string&) { not_built("FolderDwgDxf"); }
Empty Velmar16::FolderDGN(std::string&) { not_built("FolderDGN"); }
Empty Velmar16::FolderDxfDwg(std::string&) { not_built("FolderDxfDwg"); }
Empty Velmar16::DelFilNam(std::string&, std::string&, std::string&) { not_built("DelFilNam"); }
void Velmar16::Delete_OLE() { not_built("Delete_OLE"); }
Empty Velmar16::ExplodeBlock() { not_built("ExplodeBlock"); }
Empty Velmar16::DeleteBlock() { not_built("DeleteBlock"); }
Empty Velmar16::ZoomLayouts() { not_built("ZoomLayouts"); }
Empty Velmar16::DeleteLayouts(std::string&) { not_built("DeleteLayouts"); }
void Velmar16::SlowDown(std::int32_t&) { not_built("SlowDown"); }

}  // namespace velmar
