#include "basic/arithmetic.h"
#include "basic/conversion.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

double squared(const Value& side, basic::Separators separators) {
  return basic::power(basic::number(side, separators), 2);
}

}  // namespace

double Velmar16::Dis(Value& N1, Value& N2) {
  const basic::Separators separators = system().separators();
  const double square = squared(N1, separators) + squared(N2, separators);
  return basic::square_root(basic::in_range(square));
}

double Velmar16::DisF(Value& Watar, Value& Dla) {
  const basic::Separators separators = system().separators();
  return basic::square_root(squared(Watar, separators) - squared(Dla, separators));
}

}  // namespace velmar
