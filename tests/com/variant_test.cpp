#include "com/automation/variant.h"

#include <gtest/gtest.h>

#include <cstring>

#include "basic/failure.h"
#include "com/automation/bstr.h"
#include "com/automation/safe_array.h"
#include "com/failure_number.h"

namespace velmar::com {
namespace {

using basic::Doubles;
using basic::List;
using basic::Value;

template <class T>
VARIANT variant(VARTYPE type, T content) {
  VARIANT made{};
  std::memcpy(&made.llVal, &content, sizeof content);
  made.vt = type;
  return made;
}

VARIANT by_reference(VARIANT& held) {
  VARIANT made{};
  made.vt = static_cast<VARTYPE>(VT_BYREF | held.vt);
  made.byref = &held.llVal;
  return made;
}

TEST(Variant, EveryTypeOfNumberIsReadPlainAndBehindAReference) {
  DECIMAL decimal{};
  VarDecFromR8(2.5, &decimal);
  VARIANT whole{};
  whole.decVal = decimal;
  whole.vt = VT_DECIMAL;
  EXPECT_EQ(to_value(whole), Value(2.5));

  const std::pair<VARIANT, Value> rows[] = {
      {variant(VT_BOOL, VARIANT_TRUE), true},
      {variant(VT_I1, std::int8_t{-7}), std::int16_t{-7}},
      {variant(VT_UI1, std::uint8_t{200}), std::int16_t{200}},
      {variant(VT_I2, std::int16_t{-30000}), std::int16_t{-30000}},
      {variant(VT_UI2, std::uint16_t{60000}), std::int32_t{60000}},
      {variant(VT_I4, std::int32_t{-70000}), std::int32_t{-70000}},
      {variant(VT_INT, 70000), std::int32_t{70000}},
      {variant(VT_UI4, std::uint32_t{7}), std::int32_t{7}},
      {variant(VT_UI4, std::uint32_t{4000000000U}), 4e9},
      {variant(VT_I8, std::int64_t{-5000000000}), -5e9},
      {variant(VT_UI8, std::uint64_t{1}), std::int32_t{1}},
      {variant(VT_R4, 0.5F), 0.5},
      {variant(VT_R8, 1.25), 1.25},
      {variant(VT_DATE, 36526.5), 36526.5},
      {variant(VT_CY, std::int64_t{-12345}), -1.2345},
      {variant(VT_ERROR, SCODE{DISP_E_PARAMNOTFOUND}), basic::LeftOut{}},
      {variant(VT_EMPTY, 0), Value()},
      {variant(VT_NULL, 0), basic::Null{}},
  };
  for (auto [plain, value] : rows) {
    EXPECT_EQ(to_value(plain), value) << plain.vt;
    VARIANT reference = by_reference(plain);
    if (plain.vt <= VT_NULL) continue;
    EXPECT_EQ(to_value(reference), value) << plain.vt;
    EXPECT_EQ(to_value(variant(VT_BYREF | VT_VARIANT, &reference)), value) << plain.vt;
  }
}

TEST(Variant, ValuesComeBackAsTheyWent) {
  const Value rows[] = {Value(),
                        basic::Null{},
                        basic::LeftOut{},
                        true,
                        std::int16_t{5},
                        std::int32_t{-5},
                        1e-300,
                        "caf\xC3\xA9 \xF0\x9F\x93\x90",
                        "",
                        std::string("a\0b", 3),
                        Doubles{1, 2, 3},
                        Doubles{},
                        List{"a", 1.5, List{std::int32_t{1}}, Doubles{4, 5}},
                        List{std::int16_t{1001}, std::int16_t{1040}},
                        List{},
                        Value(basic::Reference())};
  for (const Value& value : rows) EXPECT_EQ(to_value(to_variant(value).get()), value);
  EXPECT_EQ(to_variant(List{std::int16_t{1}}).get().vt, VT_ARRAY | VT_I2);
  EXPECT_EQ(to_variant(List{std::int16_t{1}, "a"}).get().vt, VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(to_variant(Doubles{1}).get().vt, VT_ARRAY | VT_R8);
}

TEST(Variant, WhatIsNoValueIsATypeMismatch) {
  VARIANT circle{};
  circle.vt = VT_BYREF | VT_VARIANT;
  circle.pvarVal = &circle;
  SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
  Variant table;
  table.fresh().parray = SafeArrayCreate(VT_R8, 2, bounds);
  table.fresh().vt = VT_ARRAY | VT_R8;
  VARIANT nowhere{};
  nowhere.vt = VT_BYREF | VT_R8;
  const VARIANT rows[] = {circle, table.get(), nowhere, variant(VT_ERROR, SCODE{E_FAIL}),
                          variant(VT_RECORD, std::int64_t{0})};
  for (const VARIANT& row : rows) {
    EXPECT_EQ(failure_number([&] { to_value(row); }), basic::type_mismatch) << row.vt;
  }
}

/// What stands in a place of that type after a value was stored there.
Value stored(VARIANT place, const Value& value) {
  VARIANT reference = by_reference(place);
  store(value, reference);
  const Value found = to_value(place);
  VariantClear(&place);
  return found;
}

TEST(Store, ConvertsToTheTypeOfThePlaceAndFreesWhatWasThere) {
  EXPECT_EQ(stored(variant(VT_R8, 7.0), std::int32_t{2}), Value(2.0));
  EXPECT_EQ(stored(variant(VT_I2, std::int16_t{7}), 2.5), Value(std::int16_t{2}));
  EXPECT_EQ(stored(variant(VT_UI1, std::uint8_t{7}), 255.0), Value(std::int16_t{255}));
  EXPECT_EQ(stored(variant(VT_R4, 7.0F), 0.5), Value(0.5));
  EXPECT_EQ(stored(variant(VT_CY, std::int64_t{7}), 1.5), Value(1.5));
  EXPECT_EQ(stored(variant(VT_BOOL, VARIANT_FALSE), 3.0), Value(true));
  EXPECT_EQ(stored(variant(VT_BSTR, Bstr("old").release()), 1.5), Value("1.5"));
  SAFEARRAY* const old = SafeArrayCreateVector(VT_VARIANT, 0, 5);
  EXPECT_EQ(stored(variant(VT_ARRAY | VT_VARIANT, old), Doubles{1, 2}), Value(List{1.0, 2.0}));
  EXPECT_EQ(stored(variant(VT_ARRAY | VT_R8, SafeArrayCreateVector(VT_R8, 0, 1)), Doubles{1, 2}),
            Value(Doubles{1, 2}));

  VARIANT plain = variant(VT_R8, 7.0);
  store(2.0, plain);
  EXPECT_EQ(to_value(plain), Value(7.0)) << "an argument by value";

  VARIANT variable = to_variant("old").release();
  VARIANT argument = variant(VT_BYREF | VT_VARIANT, &variable);
  store(Doubles{1, 2, 3}, argument);
  EXPECT_EQ(variable.vt, VT_ARRAY | VT_R8);
  VariantClear(&variable);
}

TEST(Store, WhatCannotBeConvertedLeavesThePlaceAsItWas) {
  double number = 7;
  VARIANT real = variant(VT_BYREF | VT_R8, &number);
  EXPECT_EQ(failure_number([&] { store("seven", real); }), basic::type_mismatch);
  EXPECT_EQ(failure_number([&] { store(Doubles{1, 2}, real); }), basic::type_mismatch);
  EXPECT_EQ(number, 7);
  std::int16_t small = 7;
  VARIANT integer = variant(VT_BYREF | VT_I2, &small);
  EXPECT_EQ(failure_number([&] { store(40000.0, integer); }), basic::overflow);
  std::uint8_t byte = 7;
  VARIANT tiny = variant(VT_BYREF | VT_UI1, &byte);
  EXPECT_EQ(failure_number([&] { store(256.0, tiny); }), basic::overflow);
  EXPECT_EQ(small + byte, 14);
}

}  // namespace
}  // namespace velmar::com
