#include <gtest/gtest.h>

#include "com/automation/bstr.h"
#include "com/failure_number.h"
#include "com/fake_dispatch.h"
#include "com/over_automation.h"
#include "host/document.h"

namespace velmar::com {
namespace {

struct FakeHost : OverAutomation {
  using Answer = FakeDispatch::Answer;

  host::View object(std::map<std::wstring, Answer> answers) {
    fake = new FakeDispatch(std::move(answers));
    return host::View(over(ComPtr<IDispatch>::taking(fake)));
  }

  FakeDispatch* fake = nullptr;
};

void give(VARIANT* result, const Value& value) { *result = to_variant(value).release(); }

TEST(Adapter, ArgumentsLeftOutAtTheEndAreDroppedAndOthersMarked) {
  FakeHost host;
  std::vector<VARTYPE> types;
  const host::View object =
      host.object({{L"Select", [&](WORD, DISPPARAMS& given, VARIANT*, EXCEPINFO*) {
                      types.clear();
                      for (UINT i = given.cArgs; i-- > 0;) types.push_back(given.rgvarg[i].vt);
                      return S_OK;
                    }}});
  object.call(Member::Select, std::int32_t{4}, basic::LeftOut{}, basic::LeftOut{});
  EXPECT_EQ(types, (std::vector<VARTYPE>{VT_I4}));
  object.call(Member::Select, basic::LeftOut{}, host::Point{1, 2, 3}, "prompt", true);
  EXPECT_EQ(types, (std::vector<VARTYPE>{VT_ERROR, VT_ARRAY | VT_R8, VT_BSTR, VT_BOOL}));
  EXPECT_EQ(host.fake->name_lookups, 1) << "a member's number is asked for once";
}

TEST(Adapter, AHostThatWantsAnObjectPutByReferenceGetsIt) {
  FakeHost host;
  std::vector<WORD> tried;
  const host::View object = host.object(
      {{L"ActiveLayer", [&](WORD flags, DISPPARAMS& given, VARIANT*, EXCEPINFO*) -> HRESULT {
          EXPECT_EQ(given.cNamedArgs, 1U);
          EXPECT_EQ(*given.rgdispidNamedArgs, DISPID_PROPERTYPUT);
          tried.push_back(flags);
          return flags == DISPATCH_PROPERTYPUTREF ? S_OK : DISP_E_MEMBERNOTFOUND;
        }}});
  object.put(Member::ActiveLayer, object);
  EXPECT_EQ(tried, (std::vector<WORD>{DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}));
  EXPECT_EQ(failure_number([&] { object.put(Member::ActiveLayer, 1.0); }), basic::no_such_member);
  EXPECT_EQ(tried.size(), 3U) << "only objects";
}

TEST(Adapter, AHostThatWantsVariantsForOutObjectsIsRemembered) {
  FakeHost host;
  int refused = 0;
  const host::View object =
      host.object({{L"Handle",
                    [](WORD, DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
                      give(result, "2F");
                      return S_OK;
                    }},
                   {L"GetEntity", [&](WORD, DISPPARAMS& given, VARIANT*, EXCEPINFO*) -> HRESULT {
                      VARIANT& entity = given.rgvarg[2];
                      if (entity.vt != (VT_BYREF | VT_VARIANT)) {
                        EXPECT_EQ(entity.vt, VT_BYREF | VT_DISPATCH);
                        ++refused;
                        return DISP_E_TYPEMISMATCH;
                      }
                      host.fake->AddRef();
                      entity.pvarVal->vt = VT_DISPATCH;
                      entity.pvarVal->pdispVal = host.fake;
                      give(given.rgvarg[1].pvarVal, basic::Doubles{1, 2, 3});
                      return S_OK;
                    }}});
  for (int i = 0; i < 2; ++i) {
    Value entity, point;
    object.call(Member::GetEntity, entity, point, "pick");
    EXPECT_EQ(point, Value(basic::Doubles{1, 2, 3}));
    EXPECT_EQ(host::to_object(entity)->get(Member::Handle), Value("2F"));
  }
  EXPECT_EQ(refused, 1);
}

TEST(Adapter, ATypeMismatchOfTheHostIsNoReasonToChangeHowItIsCalled) {
  FakeHost host;
  const host::View object =
      host.object({{L"GetEntity",
                    [](WORD, DISPPARAMS&, VARIANT*, EXCEPINFO*) { return DISP_E_TYPEMISMATCH; }}});
  Value entity, point;
  EXPECT_EQ(failure_number([&] { object.call(Member::GetEntity, entity, point, "pick"); }),
            basic::type_mismatch);
  EXPECT_FALSE(host.connection->out_as_variants);
}

TEST(Adapter, ABusyHostIsAskedAgainAndThenReported) {
  FakeHost host;
  int calls = 0, busy = 2;
  const host::View object =
      host.object({{L"Name", [&](WORD, DISPPARAMS&, VARIANT* result, EXCEPINFO*) -> HRESULT {
                      if (++calls <= busy) return RPC_E_CALL_REJECTED;
                      give(result, "plan");
                      return S_OK;
                    }}});
  EXPECT_EQ(object.get<std::string>(Member::Name), "plan");
  EXPECT_EQ(calls, 3);
  busy = 1000;
  const DWORD before = GetTickCount();
  EXPECT_EQ(failure_text([&] { object.get<std::string>(Member::Name); }),
            "Call was rejected by callee");
  EXPECT_LT(GetTickCount() - before, 10000U);
  EXPECT_FALSE(host.connection->gone);
}

TEST(Adapter, WhatAHostLacksIsNamed) {
  FakeHost host;
  const host::View object = host.object(
      {{L"Count", [](WORD, DISPPARAMS&, VARIANT*, EXCEPINFO*) { return DISP_E_EXCEPTION; }}});
  EXPECT_EQ(failure_text([&] { object.call(Member::Move); }),
            "Object doesn't support this property or method: Move");
  EXPECT_EQ(failure_text([&] { object.get<double>(Member::Count); }),
            "Method 'Count' of object 'IDispatch' failed");
  EXPECT_EQ(failure_number([&] { object.enumerate(); }), basic::no_such_member);
}

}  // namespace
}  // namespace velmar::com
