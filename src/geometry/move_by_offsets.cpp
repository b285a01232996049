#include <string>

#include "basic/number_text.h"
#include "basic/val.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {

Empty Velmar16::OMove(std::string& Hndl, double& L, bool& Ver, double& H, double& zzz) {
  host::ResumeNext step;
  host::Entity moved;
  step([&] { moved = active_document().HandleToObject(Hndl); });

  host::Point offset{Ver ? H : L, Ver ? L : 0, 0};
  // Kept: z goes through its text, so that a decimal comma cuts the fraction off.
  step([&] { offset.z = basic::val(basic::general(zzz, system().separators())); });
  step([&] { moved.Move({}, offset); });
  return {};
}

}  // namespace velmar
