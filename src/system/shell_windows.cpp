#include <windows.h>
// After windows.h.
#include <oleauto.h>

#include "basic/failure.h"
#include "system/shell.h"
#include "system/wide_windows.h"

namespace velmar::system {
namespace {

/// COM on this thread for as long as it stands, whoever else has it.
class ComInUse {
 public:
  ComInUse() : entered_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ComInUse(const ComInUse&) = delete;
  ComInUse& operator=(const ComInUse&) = delete;
  ~ComInUse() {
    if (entered_) ::CoUninitialize();
  }

 private:
  bool entered_;
};

/// A value of automation that releases what it holds.
class Variant {
 public:
  Variant() { ::VariantInit(&value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { ::VariantClear(&value_); }
  VARIANT& value() { return value_; }
  /// Null for what is no object.
  IDispatch* object() const { return value_.vt == VT_DISPATCH ? value_.pdispVal : nullptr; }

 private:
  VARIANT value_;
};

/// Reads a member by its name, or calls it with one argument; `result` stays empty where there is
/// no such object or member, or where it fails.
void get(IDispatch* object, const wchar_t* member, VARIANT* argument, Variant& result) {
  if (object == nullptr) return;
  auto* name = const_cast<wchar_t*>(member);
  DISPID id = 0;
  if (FAILED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return;
  DISPPARAMS arguments{argument, nullptr, argument != nullptr ? 1u : 0u, 0};
  object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                 &arguments, &result.value(), nullptr, nullptr);
}

void create(const wchar_t* program, Variant& object) {
  CLSID id{};
  IDispatch* created = nullptr;
  if (FAILED(::CLSIDFromProgID(program, &id)) ||
      FAILED(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                IID_IDispatch, reinterpret_cast<void**>(&created)))) {
    return;
  }
  object.value().vt = VT_DISPATCH;
  object.value().pdispVal = created;
}

}  // namespace

std::string special_folder_path(std::int32_t number) {
  const ComInUse com;
  Variant shell, folder, item, path;
  create(L"Shell.Application", shell);
  VARIANT argument{};
  argument.vt = VT_I4;
  argument.lVal = number;
  get(shell.object(), L"Namespace", &argument, folder);
  get(folder.object(), L"Self", nullptr, item);
  get(item.object(), L"Path", nullptr, path);
  if (path.value().vt != VT_BSTR) return {};
  return narrow({path.value().bstrVal, ::SysStringLen(path.value().bstrVal)});
}

// The path is not quoted, as macros have always started the browser.
void show_folder(std::string_view folder) {
  std::wstring line = L"explorer " + wide(folder);
  STARTUPINFOW how{};
  how.cb = sizeof how;
  how.dwFlags = STARTF_USESHOWWINDOW;
  how.wShowWindow = SW_SHOWMAXIMIZED;
  PROCESS_INFORMATION process{};
  if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                        &process)) {
    throw basic::Failure(basic::file_not_found);
  }
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
}

}  // namespace velmar::system
