#include <ocidl.h>

#include <string>

#include "com/guid.h"
#include "com/server/server_scene.h"

namespace velmar::com {
namespace {

/// Calls the function at a position of the method table as a compiled caller does: at its slot of
/// the virtual table, with arguments of exactly these types.
class VirtualTableTest : public ServerScene {
 protected:
  template <class... Arguments>
  HRESULT at(std::size_t position, Arguments... arguments) {
    using Function = HRESULT(STDMETHODCALLTYPE*)(void*, Arguments...);
    auto* const slots = *reinterpret_cast<void (***)()>(early_.get());
    return reinterpret_cast<Function>(slots[7 + position])(early_.get(), arguments...);
  }

  ComPtr<IUnknown> early_ = [this] {
    void* found = nullptr;
    object_->QueryInterface(interface_guid, &found);
    return ComPtr<IUnknown>::taking(static_cast<IUnknown*>(found));
  }();
};

enum Position : std::size_t {
  RotateAllText = 0,
  MAX = 3,
  Text = 5,
  RUP = 12,
  GetNOLayer = 30,
  TextBar = 40,
  GetFolder = 43,
  GetNs = 55,
  ColDel = 64,
  UpperCase = 69,
  SlowDown = 77,
};

VARIANT text(const wchar_t* content) {
  VARIANT variant;
  variant.vt = VT_BSTR;
  variant.bstrVal = SysAllocString(content);
  return variant;
}

std::string last_error() {
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, information.put()) != S_OK) return "none";
  Bstr source, description;
  information->GetSource(source.put());
  information->GetDescription(description.put());
  return to_utf8(source.get()) + ": " + to_utf8(description.get());
}

TEST_F(VirtualTableTest, ResultsAndWhatIsWrittenGoIntoTheCallersVariables) {
  VARIANT n = text(L"11.4");
  double step = 5, result = 0;
  EXPECT_EQ(at(RUP, &n, &step, &result), S_OK);
  EXPECT_EQ(result, 15);
  EXPECT_EQ(n.vt, VT_R8);  // and the text that was there is freed
  EXPECT_EQ(n.dblVal, 11);
  EXPECT_EQ(step, 5);

  double inner = 7.4;
  VARIANT refers = reference_to(inner, VT_R8);
  EXPECT_EQ(at(RUP, &refers, &step, &result), S_OK);
  EXPECT_EQ(result, 10);
  EXPECT_EQ(inner, 7);
  EXPECT_EQ(refers.vt, VT_BYREF | VT_R8);

  BSTR word = SysAllocString(L"straße"), result_text = nullptr;
  EXPECT_EQ(at(UpperCase, &word, &result_text), S_OK);
  EXPECT_EQ(to_utf8(result_text), "STRAßE");
  EXPECT_EQ(to_utf8(word), "STRAßE");
  SysFreeString(result_text);
  const BSTR before = word;
  EXPECT_EQ(at(GetFolder, &word, &result_text), S_OK);
  EXPECT_EQ(word, before) << "what was not changed stays where it is";
  SysFreeString(result_text);
  SysFreeString(word);

  BSTR plan = SysAllocString(L"plan 12");
  short year = 0;
  EXPECT_EQ(at(GetNs, &plan, &year), S_OK);
  EXPECT_EQ(year, 12);
  SysFreeString(plan);

  VARIANT a = number(9), b = number(10);
  EXPECT_EQ(at(MAX, &a, &b, &result), S_OK);
  EXPECT_EQ(result, 10);
}

TEST_F(VirtualTableTest, AFailureIsTheThreadsErrorInformation) {
  VARIANT n = number(7.4);
  double step = 0, result = 3;
  EXPECT_EQ(static_cast<unsigned>(at(RUP, &n, &step, &result)), 0x800A000BU);
  EXPECT_EQ(last_error(), "VelmarMenu: Division by zero");
  EXPECT_EQ(n.dblVal, 7) << "written before the failure";
  EXPECT_EQ(result, 0);

  VARIANT missing = left_out();
  EXPECT_EQ(static_cast<unsigned>(at(RUP, &missing, &step, &result)), 0x800A01C1U);
  EXPECT_EQ(last_error(), "VelmarMenu: Argument not optional");

  const auto support = object_.as<ISupportErrorInfo>();
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(interface_guid), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
}

// Without a host these fail; what counts is that arguments of every size are taken off the stack,
// and that pointers to nothing are where a parameter is optional.
TEST_F(VirtualTableTest, EveryShapeOfParametersCanBeCalled) {
  BSTR word = SysAllocString(L"L");
  VARIANT result = number(1), x = number(1), y = number(2);
  double angle = 0, height = 2.5;
  const auto fails = [](HRESULT code) { return FAILED(code) && code != E_POINTER; };
  EXPECT_TRUE(fails(at(Text, &word, &x, &y, &angle, &height, static_cast<BSTR*>(nullptr),
                       static_cast<VARIANT_BOOL*>(nullptr), static_cast<LONG*>(nullptr),
                       static_cast<BSTR*>(nullptr), &result)));
  EXPECT_EQ(result.vt, VT_EMPTY);
  short count = 1;
  EXPECT_TRUE(fails(at(GetNOLayer, static_cast<BSTR>(nullptr), &count)));
  EXPECT_EQ(count, 0);
  short spacing = 200;
  EXPECT_TRUE(fails(at(TextBar, &x, &angle, &y, &y, &spacing, &y, &y, &word, &result)));
  EXPECT_EQ(spacing, 200);
  VARIANT_BOOL all = VARIANT_TRUE;
  EXPECT_TRUE(fails(at(RotateAllText, word, 10.0, &all, &result)));
  EXPECT_EQ(all, VARIANT_TRUE);
  EXPECT_TRUE(fails(at(ColDel, &spacing, &word, &result)));
  SysFreeString(word);

  EXPECT_EQ(at(MAX, static_cast<VARIANT*>(nullptr), &x, &height), E_POINTER);
  EXPECT_EQ(at(MAX, &x, &y, static_cast<double*>(nullptr)), E_POINTER);
  EXPECT_EQ(at(SlowDown, static_cast<LONG*>(nullptr)), E_POINTER);
}

TEST_F(VirtualTableTest, AllInterfacesAreOneObject) {
  const auto one = early_.as<IUnknown>(), other = object_.as<IProvideClassInfo>().as<IUnknown>();
  EXPECT_EQ(one.get(), other.get());
  EXPECT_FALSE(object_.as<IMarshal>());
}

}  // namespace
}  // namespace velmar::com
