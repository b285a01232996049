#include "basic/conversion.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {

Empty Velmar16::Sc(Value& PHndl, Value& Scl, Value& X, double& y) {
  const basic::Separators separators = system().separators();
  const host::Point base{basic::number(X, separators), y, 0};
  const host::Entity scaled = active_document().HandleToObject(basic::text(PHndl, separators));
  scaled.ScaleEntity(base, basic::number(Scl, separators));
  return {};
}

}  // namespace velmar
