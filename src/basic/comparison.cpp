#include "basic/comparison.h"

#include "basic/conversion.h"
#include "basic/failure.h"
#include "basic/utf16.h"

namespace velmar::basic {
namespace {

void require_comparable(const Value& value) {
  if (value.is<Reference>()) throw Failure(no_such_member);
  if (value.is<Doubles>() || value.is<List>() || value.is<LeftOut>()) throw Failure(type_mismatch);
}

std::partial_ordering compare_texts(const std::string& left, const std::string& right) {
  return to_utf16(left) <=> to_utf16(right);
}

}  // namespace

std::partial_ordering compare(const Value& left, const Value& right) {
  require_comparable(left);
  require_comparable(right);
  if (left.is<Null>() || right.is<Null>()) return std::partial_ordering::unordered;
  const bool left_is_text = left.is<std::string>(), right_is_text = right.is<std::string>();
  const bool beside_text =
      (left_is_text || left.is<Empty>()) && (right_is_text || right.is<Empty>());
  if (beside_text) return compare_texts(text(left), text(right));
  if (left_is_text) return std::partial_ordering::greater;
  if (right_is_text) return std::partial_ordering::less;
  return number(left) <=> number(right);
}

}  // namespace velmar::basic
