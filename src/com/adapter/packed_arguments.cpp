#include "com/adapter/packed_arguments.h"

#include "com/adapter/out_arguments.h"

namespace velmar::com {
namespace {

using basic::Value;

std::size_t count_of_given(std::span<const Value> arguments) {
  std::size_t count = arguments.size();
  while (count > 0 && arguments[count - 1].is<basic::LeftOut>()) --count;
  return count;
}

VARTYPE type_of(Passing passing) { return passing == Passing::out_object ? VT_DISPATCH : VT_R8; }

}  // namespace

PackedArguments::PackedArguments(host::Member method, std::span<const Value> arguments,
                                 const ObjectBorder& border, bool out_as_variants)
    : places_(count_of_given(arguments)), reversed_(places_.size()), border_(border) {
  for (std::size_t i = 0; i < places_.size(); ++i) {
    VARIANT& passed = reversed_[reversed_.size() - 1 - i];
    VARIANT& place = places_[i].fresh();
    const Passing passing = passing_of(method, i);
    if (passing == Passing::in) {
      places_[i] = to_variant(arguments[i], border);
      passed = places_[i].get();
    } else if (passing == Passing::out_variant || out_as_variants) {
      passed.vt = VT_BYREF | VT_VARIANT;
      passed.pvarVal = &place;
    } else {
      place.vt = type_of(passing);
      place.llVal = 0;  // no object; zero
      passed.vt = static_cast<VARTYPE>(VT_BYREF | place.vt);
      passed.byref = &place.llVal;
      has_typed_out_ = true;
    }
  }
}

void PackedArguments::write_back(std::span<Value> arguments) const {
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const VARIANT& passed = reversed_[reversed_.size() - 1 - i];
    if (passed.vt & VT_BYREF) arguments[i] = to_value(passed, border_);
  }
}

}  // namespace velmar::com
