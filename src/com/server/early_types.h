#pragma once

#include <oleauto.h>
#include <windows.h>

#include "basic/value.h"
#include "com/automation/bstr.h"
#include "com/automation/variant.h"
#include "component/method.h"

/// How values of the declared types pass through the virtual table.
namespace velmar::com {

template <ValueType type>
struct EarlyType;

template <>
struct EarlyType<ValueType::none> {
  using Type = void;
};

/// Types that are the same on both sides.
template <class Early, class Basic>
struct EarlyNumber {
  using Type = Early;
  static basic::Value in(Type given) { return static_cast<Basic>(given); }
  static void out(const basic::Value& value, Type& place) { place = *value.if_is<Basic>(); }
  static void clear(Type& place) { place = 0; }
};
template <>
struct EarlyType<ValueType::number> : EarlyNumber<double, double> {};
template <>
struct EarlyType<ValueType::int16> : EarlyNumber<SHORT, std::int16_t> {};
template <>
struct EarlyType<ValueType::int32> : EarlyNumber<LONG, std::int32_t> {};

template <>
struct EarlyType<ValueType::boolean> {
  using Type = VARIANT_BOOL;
  static basic::Value in(Type given) { return given != VARIANT_FALSE; }
  static void out(const basic::Value& value, Type& place) {
    place = *value.if_is<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
  }
  static void clear(Type& place) { place = VARIANT_FALSE; }
};

template <>
struct EarlyType<ValueType::text> {
  using Type = BSTR;
  static basic::Value in(Type given) { return to_utf8(given); }
  static void out(const basic::Value& value, Type& place) {
    Bstr text(*value.if_is<std::string>());
    SysFreeString(place);
    place = text.release();
  }
  static void clear(Type& place) { place = nullptr; }
};

template <>
struct EarlyType<ValueType::variant> {
  using Type = VARIANT;
  static basic::Value in(const Type& given) { return to_value(given); }
  static void out(const basic::Value& value, Type& place) {
    VARIANT reference;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &place;
    store(value, reference);
  }
  static void clear(Type& place) { VariantInit(&place); }
};

}  // namespace velmar::com
