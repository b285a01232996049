#include "basic/conversion.h"
#include "basic/failure.h"
#include "basic/rounding.h"
#include "component/kind_code.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {

using host::Entity;

Empty Velmar16::GetBRec(Value& Hndl, std::string& ObjectName) {
  const KindCode* kind = find_kind_code(ObjectName);
  if (!kind) return {};

  const Entity found = active_document().HandleToObject(basic::text(Hndl, system().separators()));
  if (!host::accepts(kind->view, found.ObjectName())) throw basic::Failure(basic::type_mismatch);

  // Kept: an arc's corners are not emptied first, so they survive when it refuses its box.
  if (kind->view != host::Arc::class_name) BoxMinPoint = BoxMaxPoint = Empty{};
  found.GetBoundingBox(BoxMinPoint, BoxMaxPoint);
  return {};
}

Empty Velmar16::Del(Value& Handle) {
  active_document().HandleToObject(basic::text(Handle, system().separators())).Delete();
  return {};
}

double Velmar16::GetC(std::string& DouHndl) {
  const host::Box box = entity<host::LightweightPolyline>(DouHndl).GetBoundingBox();
  const double width = box.max.x - box.min.x;
  const double height = box.max.y - box.min.y;
  CentrePoint = {box.min.x + width / 2, box.min.y + height / 2, 0};
  return 2 * basic::fix(width);
}

double Velmar16::IDLast() {
  constexpr std::string_view set_name = "TEST_SSET7";
  const host::SelectionSet newest = selection_sets().Add(set_name);
  newest.Select(host::SelectionMode::last);
  newest.Update();
  double handle = 0;
  if (newest.Count() > 0) {
    // Kept: a handle with hexadecimal letters is no decimal number. It fails here and leaves the
    // set behind, which makes later calls fail until the set is removed.
    handle = basic::number(newest.Item(0).Handle(), system().separators());
  }
  selection_sets().Item(set_name).Delete();
  return handle;
}

}  // namespace velmar
