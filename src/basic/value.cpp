#include "basic/value.h"

namespace velmar::basic {

bool operator==(const Value& left, const Value& right) { return left.content_ == right.content_; }

}  // namespace velmar::basic
