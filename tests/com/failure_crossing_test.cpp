#include "com/automation/failure_crossing.h"

#include <gtest/gtest.h>

#include "com/automation/bstr.h"
#include "com/automation/com_ptr.h"

namespace velmar::com {
namespace {

using basic::Failure;

EXCEPINFO exception(SCODE code, const char* description = nullptr) {
  EXCEPINFO info{};
  info.scode = code;
  if (description) info.bstrDescription = Bstr(description).release();
  info.bstrSource = Bstr("Host").release();
  return info;
}

TEST(Failures, CrossAndComeBack) {
  const Failure rows[] = {Failure(basic::overflow), {-2145386420, "AutoCAD", "Object was erased"}};
  for (const Failure& failure : rows) {
    EXCEPINFO info;
    EXPECT_EQ(describe(failure, &info), DISP_E_EXCEPTION);
    EXPECT_EQ(info.scode, static_cast<SCODE>(failure.hresult()));
    const Failure back = to_failure(info);
    EXPECT_EQ(back.number, failure.number);
    EXPECT_EQ(back.source, failure.source);
    EXPECT_EQ(back.description, failure.description);
    EXPECT_EQ(info.bstrDescription, nullptr) << "freed once";
  }
}

TEST(Failures, WhereTheHostSaysNothingTheStepIsNamed) {
  EXCEPINFO info = exception(0);
  const Failure silent = to_failure(info, "Method 'GetEntity' of object 'IAcadUtility'");
  EXPECT_EQ(silent.number, -2147352567);
  EXPECT_EQ(silent.source, "Host");
  EXPECT_EQ(silent.description, "Method 'GetEntity' of object 'IAcadUtility' failed");

  info = exception(0);
  info.wCode = 6;
  EXPECT_EQ(to_failure(info).number, basic::overflow);
  info = exception(E_INVALIDARG);
  EXPECT_EQ(to_failure(info).number, basic::bad_argument) << "translated without a text";
  info = exception(E_INVALIDARG, "Invalid argument Point in Move");
  EXPECT_EQ(to_failure(info).number, E_INVALIDARG) << "as it is with a text";
}

HRESULT WINAPI filled_in_later(EXCEPINFO* info) {
  info->scode = static_cast<SCODE>(0x80200053);
  info->bstrDescription = Bstr("On locked layer").release();
  return S_OK;
}

TEST(Failures, TextsThatAreFilledInLaterAreAskedFor) {
  EXCEPINFO info{};
  info.pfnDeferredFillIn = filled_in_later;
  EXPECT_EQ(to_failure(info).description, "On locked layer");
}

TEST(Failures, CodesOfAutomationBecomeRunTimeErrors) {
  const std::pair<HRESULT, std::int32_t> rows[] = {
      {DISP_E_TYPEMISMATCH, 13}, {DISP_E_UNKNOWNNAME, 438},      {DISP_E_MEMBERNOTFOUND, 438},
      {DISP_E_OVERFLOW, 6},      {DISP_E_BADINDEX, 9},           {DISP_E_BADPARAMCOUNT, 450},
      {E_OUTOFMEMORY, 7},        {DISP_E_PARAMNOTOPTIONAL, 449}, {REGDB_E_CLASSNOTREG, 429},
      {E_NOINTERFACE, 430},      {E_ACCESSDENIED, 70},           {RPC_E_DISCONNECTED, -2147417848},
  };
  for (const auto& [code, number] : rows) EXPECT_EQ(to_failure(code).number, number);
  EXPECT_EQ(to_failure(static_cast<HRESULT>(0x800706BA)).number, 462);
  EXPECT_EQ(to_failure(static_cast<HRESULT>(0x800A000D)).number, 13);
  EXPECT_EQ(to_failure(static_cast<HRESULT>(0x800A000D)).description, "Type mismatch");
  EXPECT_EQ(to_failure(static_cast<HRESULT>(0x8020004C), "Method 'Move' of object 'X'").description,
            "Method 'Move' of object 'X' failed");
}

TEST(Failures, ErrorInformationHasSourceAndDescription) {
  EXPECT_EQ(report(Failure(basic::division_by_zero)), static_cast<HRESULT>(0x800A000B));
  IErrorInfo* information = nullptr;
  ASSERT_EQ(GetErrorInfo(0, &information), S_OK);
  const auto held = ComPtr<IErrorInfo>::taking(information);
  Bstr text, source;
  held->GetDescription(text.put());
  held->GetSource(source.put());
  EXPECT_EQ(to_utf8(text.get()), "Division by zero");
  EXPECT_EQ(to_utf8(source.get()), "VelmarMenu");
}

}  // namespace
}  // namespace velmar::com
