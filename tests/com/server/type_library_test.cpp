#include <string>
#include <vector>

#include "com/guid.h"
#include "com/server/server_scene.h"
#include "component/method_rows.h"

// The library inside the DLL says of every method what the method table says.
namespace velmar::com {
namespace {

/// The table's rows without their code, which is in the DLL.
constexpr auto methods = [] {
  auto rows = published::methods;
  for (Method& row : rows) row.invoke = nullptr;
  return rows;
}();

class TypeLibraryTest : public testing::Test {
 protected:
  TypeLibraryTest() {
    EXPECT_EQ(
        LoadTypeLibEx(std::filesystem::path(VELMAR_DLL).c_str(), REGKIND_NONE, library_.put()),
        S_OK);
    EXPECT_EQ(library_->GetTypeInfoOfGuid(interface_guid, dispatch_.put()), S_OK);
    HREFTYPE reference = 0;
    EXPECT_EQ(dispatch_->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(dispatch_->GetRefTypeInfo(reference, table_.put()), S_OK);
  }

  ComPtr<ITypeLib> library_;
  ComPtr<ITypeInfo> dispatch_, table_;  // the interface by name, and its virtual table
};

std::vector<std::string> names(ITypeInfo& info, MEMBERID id) {
  std::vector<BSTR> found(Method::most_parameters + 2);
  UINT count = 0;
  info.GetNames(id, found.data(), static_cast<UINT>(found.size()), &count);
  std::vector<std::string> texts;
  for (UINT i = 0; i < count; ++i) texts.push_back(to_utf8(Bstr::taking(found[i]).get()));
  return texts;
}

std::vector<std::string> expected_names(const Method& method) {
  std::vector<std::string> texts{std::string(method.name)};
  for (const Parameter& parameter : method.parameters()) texts.emplace_back(parameter.name);
  return texts;
}

VARTYPE automation_type(ValueType type) {
  constexpr VARTYPE types[] = {VT_VOID, VT_VARIANT, VT_BOOL, VT_I2, VT_I4, VT_R8, VT_BSTR};
  return types[static_cast<std::size_t>(type)];
}

/// A type as text: "R8", "R8*", or the name of a described type.
std::string described(ITypeInfo& info, const TYPEDESC& type) {
  if (type.vt == VT_PTR) return described(info, *type.lptdesc) + "*";
  if (type.vt != VT_USERDEFINED) return std::to_string(type.vt);
  ComPtr<ITypeInfo> other;
  info.GetRefTypeInfo(type.hreftype, other.put());
  TYPEATTR* attributes = nullptr;
  other->GetTypeAttr(&attributes);
  const std::string text = attributes->typekind == TKIND_ENUM ? "enumeration" : "another type";
  other->ReleaseTypeAttr(attributes);
  return text;
}

std::string expected_type(const Parameter& parameter) {
  const std::string plain =
      parameter.is_colour ? "enumeration" : std::to_string(automation_type(parameter.type));
  return plain + (parameter.by_reference ? "*" : "");
}

void expect_parameters(ITypeInfo& info, const FUNCDESC& function, const Method& method) {
  for (std::size_t i = 0; i < method.parameter_count; ++i) {
    const Parameter& parameter = method.parameter_list[i];
    const ELEMDESC& element = function.lprgelemdescParam[i];
    EXPECT_EQ(described(info, element.tdesc), expected_type(parameter)) << parameter.name;
    const int flags = element.paramdesc.wParamFlags & ~PARAMFLAG_FHASDEFAULT;
    EXPECT_EQ(flags, PARAMFLAG_FIN | (parameter.by_reference ? PARAMFLAG_FOUT : 0) |
                         (parameter.optional ? PARAMFLAG_FOPT : 0))
        << parameter.name;
  }
}

TEST_F(TypeLibraryTest, DescribesEveryMethodOfTheTableInItsOrder) {
  for (UINT i = 0; i < methods.size(); ++i) {
    const Method& method = methods[i];
    SCOPED_TRACE(method.name);
    FUNCDESC* function = nullptr;
    ASSERT_EQ(table_->GetFuncDesc(i, &function), S_OK);
    EXPECT_EQ(static_cast<std::uint32_t>(function->memid), method.dispatch_id);
    EXPECT_EQ(static_cast<std::size_t>(function->oVft), (7 + i) * sizeof(void*));
    EXPECT_EQ(function->callconv, CC_STDCALL);
    const bool returns = method.result != ValueType::none;
    ASSERT_EQ(static_cast<std::size_t>(function->cParams), method.parameter_count + returns);
    expect_parameters(*table_.get(), *function, method);
    if (returns) {
      const ELEMDESC& result = function->lprgelemdescParam[method.parameter_count];
      EXPECT_EQ(described(*table_.get(), result.tdesc),
                std::to_string(automation_type(method.result)) + "*");
      EXPECT_EQ(result.paramdesc.wParamFlags, PARAMFLAG_FOUT | PARAMFLAG_FRETVAL);
    }
    EXPECT_EQ(names(*dispatch_.get(), function->memid), expected_names(method));
    table_->ReleaseFuncDesc(function);
  }
}

TEST_F(TypeLibraryTest, NamesTheClassAndWhatKindOfInterfaceItHas) {
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(dispatch_->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
  EXPECT_EQ(attributes->wTypeFlags,
            TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDISPATCHABLE);
  dispatch_->ReleaseTypeAttr(attributes);
  ASSERT_EQ(table_->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->cFuncs, methods.size());
  table_->ReleaseTypeAttr(attributes);

  ComPtr<ITypeInfo> made;
  ASSERT_EQ(library_->GetTypeInfoOfGuid(class_guid, made.put()), S_OK);
  EXPECT_THAT(names(*made.get(), MEMBERID_NIL), testing::IsEmpty());
  Bstr name;
  ASSERT_EQ(made->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(to_utf8(name.get()), class_name);
  ASSERT_EQ(library_->GetDocumentation(-1, name.put(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(to_utf8(name.get()), library_name);

  ComPtr<ITypeInfo> colours;
  ASSERT_EQ(library_->GetTypeInfoOfGuid(guid(colour_type_id), colours.put()), S_OK);
  VARDESC* by_layer = nullptr;
  ASSERT_EQ(colours->GetVarDesc(8, &by_layer), S_OK);
  EXPECT_EQ(by_layer->lpvarValue->lVal, 256);
  colours->ReleaseVarDesc(by_layer);
}

TEST_F(TypeLibraryTest, IsWhatAnObjectTellsOfItself) {
  const Apartment apartment;
  const LoadedServer server(VELMAR_DLL);
  const ComPtr<IDispatch> object = server.make_object();
  UINT count = 0;
  ASSERT_EQ(object->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  ComPtr<ITypeInfo> own;
  ASSERT_EQ(object->GetTypeInfo(0, 0, own.put()), S_OK);
  EXPECT_EQ(names(*own.get(), 0x6003000C), (std::vector<std::string>{"RUP", "Nmbr", "dvdr"}));
  EXPECT_EQ(object->GetTypeInfo(1, 0, own.put()), DISP_E_BADINDEX);
  ComPtr<ITypeInfo> of_class;
  EXPECT_EQ(object.as<IProvideClassInfo>()->GetClassInfo(of_class.put()), S_OK);
}

}  // namespace
}  // namespace velmar::com
