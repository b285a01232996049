#include "basic/arithmetic.h"
#include "basic/comparison.h"
#include "basic/conversion.h"
#include "basic/failure.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

// Kept: two texts are compared as texts, so that "9" is greater than "10", and a text is greater
// than any number.
bool is_greater(const Value& left, const Value& right) {
  const bool with_object = left.is<basic::Reference>() || right.is<basic::Reference>();
  if (with_object) throw basic::Failure(basic::type_mismatch);
  return basic::compare(left, right) > 0;
}

}  // namespace

double Velmar16::MAX(Value& N1, Value& N2) {
  return basic::number(is_greater(N1, N2) ? N1 : N2, system().separators());
}

double Velmar16::MIN(Value& N1, Value& N2) {
  return basic::number(is_greater(N1, N2) ? N2 : N1, system().separators());
}

double Velmar16::Avr(Value& N1, Value& N2) {
  const double larger = MAX(N1, N2);
  const double smaller = MIN(N1, N2);
  return smaller + basic::in_range(larger - smaller) / 2;
}

std::int16_t Velmar16::Bt(Value& Nc, Value& Nmin, Value& Nmax) {
  const double lower = MIN(Nmin, Nmax);
  const double upper = MAX(Nmin, Nmax);
  if (Nc.is<basic::Null>()) return 0;  // no condition holds for it
  const double number = basic::number(Nc, system().separators());
  // Kept: not Basic's true, which is -1.
  return lower <= number && number <= upper ? 1 : 0;
}

}  // namespace velmar
