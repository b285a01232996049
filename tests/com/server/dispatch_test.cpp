#include "com/server/server_scene.h"

namespace velmar::com {
namespace {

using basic::Value;

TEST_F(ServerScene, NamesAreFoundInAnyLetterCase) {
  EXPECT_EQ(id_of("RotateAllText"), 0x60030000);
  EXPECT_EQ(id_of("reversecase"), 0x60030048);
  EXPECT_EQ(id_of("EXPLODEBLOCK"), 0x6003004B);  // two numbers are no methods
  EXPECT_EQ(id_of("SlowDown"), 0x6003004F);
  EXPECT_EQ(id_of("Handle"), DISPID_UNKNOWN);

  std::wstring method = L"rup", first = L"NMBR", second = L"dvdr", wrong = L"step";
  std::vector<LPOLESTR> names{method.data(), second.data(), wrong.data(), first.data()};
  std::vector<DISPID> ids(names.size(), 77);
  EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names.data(), 4, 0, ids.data()), DISP_E_UNKNOWNNAME);
  EXPECT_THAT(ids, testing::ElementsAre(id_of("RUP"), 1, DISPID_UNKNOWN, 0));
}

TEST_F(ServerScene, VariablesOfEveryTypeAreReadAndWrittenInTheirOwnType) {
  double wide = 11.4;
  EXPECT_EQ(call("RUP", {reference_to(wide, VT_R8), number(5)}).result, Value(15.0));
  EXPECT_EQ(wide, 11);

  float narrow = 11.4F;
  call("RUP", {reference_to(narrow, VT_R4), number(5)});
  EXPECT_EQ(narrow, 11);

  DECIMAL decimal{};
  ASSERT_EQ(VarDecFromR8(11.4, &decimal), S_OK);
  call("RUP", {reference_to(decimal, VT_DECIMAL), number(5)});
  double back = 0;
  VarR8FromDec(&decimal, &back);
  EXPECT_EQ(back, 11);

  BSTR text = SysAllocString(L"11,4");
  const Answer of_text = call("RUP", {reference_to(text, VT_BSTR), number(5)});
  EXPECT_EQ(of_text.result, Value(115.0)) << "the comma groups digits where the point is decimal";
  EXPECT_EQ(to_utf8(text), "114");
  SysFreeString(text);
}

TEST_F(ServerScene, AVariableOfAVariantIsWrittenThroughWhateverItRefersTo) {
  double inner = 7.4;
  VARIANT refers = reference_to(inner, VT_R8);
  EXPECT_EQ(call("RDN", {reference_to(refers, VT_VARIANT), number(5)}).result, Value(5.0));
  EXPECT_EQ(inner, 7);
  EXPECT_EQ(refers.vt, VT_BYREF | VT_R8);

  VARIANT text;
  text.vt = VT_BSTR;
  text.bstrVal = SysAllocString(L"7.4");
  call("RDN", {reference_to(text, VT_VARIANT), number(5)});
  EXPECT_EQ(text.vt, VT_R8);
  EXPECT_EQ(text.dblVal, 7);

  VARIANT currency;  // which the method leaves as it is
  currency.vt = VT_CY;
  currency.cyVal.int64 = 70000;
  EXPECT_EQ(call("MAX", {reference_to(currency, VT_VARIANT), number(5)}).result, Value(7.0));
  EXPECT_EQ(currency.vt, VT_CY);
}

TEST_F(ServerScene, NamedArgumentsComeInAnyOrder) {
  EXPECT_EQ(call("RUP", {number(5), number(11)}, {1, 0}).result, Value(15.0));
  // By position first, then by name; automation puts the named ones in front.
  DISPID named = 1;
  VARIANT arguments[] = {number(5), number(11)};
  DISPPARAMS given{arguments, &named, 2, 1};
  Variant result;
  EXPECT_EQ(object_->Invoke(id_of("RUP"), IID_NULL, 0, DISPATCH_METHOD, &given, &result.fresh(),
                            nullptr, nullptr),
            S_OK);
  EXPECT_EQ(result.get().dblVal, 15);

  const Answer unknown = call("RUP", {number(5), number(11)}, {2, 0});
  EXPECT_EQ(unknown.code, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(unknown.wrong_argument, 1U);
  EXPECT_EQ(call("RUP", {number(5), number(11)}, {0, 0}).code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(call("RUP", {number(5)}, {1}).code, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(ServerScene, WrongArgumentsAreNamedBeforeAnythingHappens) {
  EXPECT_EQ(call("MAX", {}).code, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(call("MAX", {left_out(), number(1)}).code, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(call("MAX", {number(1), number(2), number(3)}).code, DISP_E_BADPARAMCOUNT);

  double untouched = 11.4;
  BSTR word = SysAllocString(L"abc");
  const Answer mismatch =
      call("RUP", {reference_to(untouched, VT_R8), reference_to(word, VT_BSTR)});
  SysFreeString(word);
  EXPECT_EQ(mismatch.code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(mismatch.wrong_argument, 0U) << "the last argument is the caller's first";
  EXPECT_EQ(untouched, 11.4);

  const Answer overflow = call("ColDel", {number(70000), left_out()});
  EXPECT_EQ(overflow.code, DISP_E_OVERFLOW);
  EXPECT_EQ(overflow.wrong_argument, 1U);

  VARIANT circle;
  circle.vt = VT_BYREF | VT_VARIANT;
  circle.pvarVal = &circle;
  EXPECT_EQ(call("MAX", {circle, number(1)}).code, DISP_E_TYPEMISMATCH);
  VARIANT nowhere;
  nowhere.vt = VT_BYREF | VT_R8;
  nowhere.byref = nullptr;
  EXPECT_EQ(call("MAX", {nowhere, number(1)}).code, DISP_E_TYPEMISMATCH);
}

TEST_F(ServerScene, AFailureHasNumberSourceAndTextAndLeavesWhatWasWritten) {
  double written = 7.4;
  const Answer answer = call("RUP", {reference_to(written, VT_R8), number(0)});
  EXPECT_EQ(answer.code, DISP_E_EXCEPTION);
  EXPECT_EQ(static_cast<unsigned>(answer.error), 0x800A000BU);
  EXPECT_EQ(answer.source, "VelmarMenu");
  EXPECT_EQ(answer.description, "Division by zero");
  EXPECT_EQ(answer.result, Value());
  EXPECT_EQ(written, 7);
}

TEST_F(ServerScene, OnlyCallsAreServed) {
  DISPPARAMS none{};
  EXPECT_EQ(object_->Invoke(id_of("IDLast"), IID_NULL, 0, DISPATCH_PROPERTYPUT, &none, nullptr,
                            nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(
      object_->Invoke(0x60030049, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
      DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(object_->Invoke(id_of("IDLast"), IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr,
                            nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

}  // namespace
}  // namespace velmar::com
