#include <cstring>
#include <utility>

#include "basic/conversion.h"
#include "basic/failure.h"
#include "com/automation/safe_array.h"
#include "com/automation/variant.h"

namespace velmar::com {
namespace {

using basic::Value;

std::size_t size_of(int type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return type & VT_ARRAY ? sizeof(void*) : 4;
  }
}

/// What a reference refers to, in the type that it refers to.
class Target {
 public:
  Target(const ObjectBorder& border, basic::Separators separators)
      : border_(border), separators_(separators) {}

  void write(const Value& value, int type, void* place) const {
    if (type == VT_VARIANT) return write(value, *static_cast<VARIANT*>(place));
    Variant content = type & VT_ARRAY ? array(value, type & VT_TYPEMASK) : scalar(value, type);
    if (type == VT_DECIMAL) {
      *static_cast<DECIMAL*>(place) = content.get().decVal;
      static_cast<DECIMAL*>(place)->wReserved = 0;
      return;
    }
    VARIANT written = content.release();
    VARIANT previous;
    VariantInit(&previous);
    previous.vt = static_cast<VARTYPE>(type);
    std::memcpy(&previous.llVal, place, size_of(type));
    std::memcpy(place, &written.llVal, size_of(type));
    VariantClear(&previous);
  }

 private:
  void write(const Value& value, VARIANT& target) const {
    const int type = target.vt & ~VT_BYREF;
    if (target.vt & VT_BYREF && type != VT_VARIANT) return write(value, type, target.byref);
    Variant content = to_variant(value, border_);
    if (FAILED(VariantClear(&target))) {
      throw basic::Failure(basic::type_mismatch, "VelmarMenu",
                           "Type mismatch: the variable that a result belongs in is locked");
    }
    target = content.release();
  }

  Value as_basic_converts(const Value& value, int type) const;
  Variant scalar(const Value& value, int type) const;
  Variant array(const Value& value, int item_type) const;

  const ObjectBorder& border_;
  basic::Separators separators_;
};

Value Target::as_basic_converts(const Value& value, int type) const {
  switch (type) {
    case VT_BOOL:
      return basic::convert<bool>(value, separators_);
    case VT_I2:
      return basic::convert<std::int16_t>(value, separators_);
    case VT_I4:
    case VT_INT:
      return basic::convert<std::int32_t>(value, separators_);
    case VT_BSTR:
      return basic::convert<std::string>(value, separators_);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      if (value.is<basic::Empty>()) return basic::Reference();
      return basic::convert<basic::Reference>(value, separators_);
    default:
      return basic::convert<double>(value, separators_);
  }
}

/// The rarer types of numbers are the system's to convert.
Variant Target::scalar(const Value& value, int type) const {
  Variant variant = to_variant(as_basic_converts(value, type), border_);
  if (variant.get().vt == type) return variant;
  Variant converted;
  const HRESULT changed =
      VariantChangeType(&converted.fresh(), &variant.fresh(), 0, static_cast<VARTYPE>(type));
  if (changed == DISP_E_OVERFLOW) throw basic::Failure(basic::overflow);
  if (FAILED(changed)) throw basic::Failure(basic::type_mismatch);
  return converted;
}

Variant Target::array(const Value& value, int item_type) const {
  basic::List items;
  if (const auto* list = value.if_is<basic::List>()) {
    items = *list;
  } else {
    const auto numbers = basic::convert<basic::Doubles>(value, separators_);
    items.assign(numbers.begin(), numbers.end());
  }
  SafeArray made(static_cast<VARTYPE>(item_type), items.size());
  {
    const ArrayAccess access(made.get());
    for (std::size_t i = 0; i < items.size(); ++i) write(items[i], item_type, access.item(i));
  }
  Variant variant;
  variant.fresh().parray = made.release();
  variant.fresh().vt = static_cast<VARTYPE>(VT_ARRAY | item_type);
  return variant;
}

}  // namespace

void store(const Value& value, VARIANT& argument, const ObjectBorder& border,
           basic::Separators separators) {
  if (!(argument.vt & VT_BYREF)) return;
  if (!argument.byref) throw basic::Failure(basic::type_mismatch);
  Target(border, separators).write(value, argument.vt & ~VT_BYREF, argument.byref);
}

}  // namespace velmar::com
