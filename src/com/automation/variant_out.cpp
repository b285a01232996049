#include <algorithm>
#include <cstring>

#include "com/automation/bstr.h"
#include "com/automation/safe_array.h"
#include "com/automation/variant.h"

namespace velmar::com {
namespace {

using basic::Value;

/// Fills an empty variant from each kind of value.
class Writer {
 public:
  Writer(VARIANT& target, const ObjectBorder& border) : target_(target), border_(border) {}

  void operator()(basic::Empty) const {}
  void operator()(basic::Null) const { target_.vt = VT_NULL; }
  void operator()(basic::LeftOut) const {
    target_.scode = DISP_E_PARAMNOTFOUND;
    target_.vt = VT_ERROR;
  }
  void operator()(bool truth) const {
    target_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    target_.vt = VT_BOOL;
  }
  void operator()(std::int16_t number) const {
    target_.iVal = number;
    target_.vt = VT_I2;
  }
  void operator()(std::int32_t number) const {
    target_.lVal = number;
    target_.vt = VT_I4;
  }
  void operator()(double number) const {
    target_.dblVal = number;
    target_.vt = VT_R8;
  }
  void operator()(const std::string& text) const {
    target_.bstrVal = Bstr(text).release();
    target_.vt = VT_BSTR;
  }
  void operator()(const basic::Doubles& numbers) const;
  void operator()(const basic::Reference& object) const {
    target_.pdispVal = object ? border_.outward(object).release() : nullptr;
    target_.vt = VT_DISPATCH;
  }
  void operator()(const basic::List& list) const;

 private:
  void hand_over(SafeArray& array, int item_type) const {
    target_.parray = array.release();
    target_.vt = static_cast<VARTYPE>(VT_ARRAY | item_type);
  }

  VARIANT& target_;
  const ObjectBorder& border_;
};

void Writer::operator()(const basic::Doubles& numbers) const {
  SafeArray array(VT_R8, numbers.size());
  if (!numbers.empty()) {
    std::memcpy(ArrayAccess(array.get()).item(0), numbers.data(), numbers.size() * sizeof(double));
  }
  hand_over(array, VT_R8);
}

template <class T>
bool all_are(const basic::List& list) {
  return !list.empty() && std::ranges::all_of(list, [](const Value& item) { return item.is<T>(); });
}

void Writer::operator()(const basic::List& list) const {
  const bool objects = all_are<basic::Reference>(list);
  const bool shorts = all_are<std::int16_t>(list);
  const VARTYPE item_type = objects ? VT_DISPATCH : shorts ? VT_I2 : VT_VARIANT;
  SafeArray array(item_type, list.size());
  {
    const ArrayAccess access(array.get());
    VARIANT item;
    item.vt = static_cast<VARTYPE>(VT_BYREF | item_type);
    for (std::size_t i = 0; i < list.size(); ++i) {
      item.byref = access.item(i);
      store(list[i], item, border_);
    }
  }
  hand_over(array, item_type);
}

}  // namespace

Variant to_variant(const Value& value, const ObjectBorder& border) {
  Variant variant;
  std::visit(Writer(variant.fresh(), border), value.content());
  return variant;
}

}  // namespace velmar::com
