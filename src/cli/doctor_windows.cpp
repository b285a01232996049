#include <ole2.h>
#include <windows.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "cli/doctor.h"
#include "com/adapter/running_host.h"
#include "com/automation/apartment.h"
#include "com/automation/bstr.h"
#include "com/automation/com_ptr.h"
#include "com/automation/variant.h"
#include "com/registration/class_entries.h"

namespace velmar::cli {
namespace {

/// Classes of both bitnesses can be seen by programs of either one.
struct Bitness {
  const char* name;
  REGSAM view;
  const wchar_t* system;
};
constexpr Bitness bitnesses[] = {{"64-bit", KEY_WOW64_64KEY, L"win64"},
                                 {"32-bit", KEY_WOW64_32KEY, L"win32"}};

struct Registered {
  std::string text;
  bool for_all_users;
};

std::optional<std::string> text_below(HKEY root, const std::wstring& key, REGSAM view) {
  HKEY opened = nullptr;
  const std::wstring path = L"Software\\Classes\\" + key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) return {};
  std::wstring text(32768, L'\0');
  auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  const LSTATUS code =
      RegGetValueW(opened, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
  RegCloseKey(opened);
  if (code != ERROR_SUCCESS) return {};
  return com::to_utf8(std::wstring_view(text.data(), size / sizeof(wchar_t) - 1));
}

/// What is registered for this user wins.
std::optional<Registered> registered(const std::wstring& key, REGSAM view) {
  if (auto text = text_below(HKEY_CURRENT_USER, key, view)) return Registered{*text, false};
  if (auto text = text_below(HKEY_LOCAL_MACHINE, key, view)) return Registered{*text, true};
  return {};
}

Finding file_at(const std::string& subject, const std::wstring& key, REGSAM view) {
  const auto found = registered(key, view);
  if (!found) return {subject, Finding::State::absent, "not registered"};
  const std::string scope = found->for_all_users ? "for all users: " : "for this user: ";
  std::error_code ignored;
  if (!std::filesystem::exists(com::to_wide(found->text), ignored)) {
    return {subject, Finding::State::wrong, scope + found->text + ", a file that is not there"};
  }
  return {subject, Finding::State::well, scope + found->text};
}

Finding host_for(const Bitness& bitness, const std::string& program, const std::wstring& id) {
  const std::string subject = "host, " + std::string(bitness.name);
  for (const wchar_t* kind : {L"\\LocalServer32", L"\\InprocServer32"}) {
    if (const auto server = registered(L"CLSID\\" + id + kind, bitness.view)) {
      return {subject, Finding::State::well, program + ": " + server->text};
    }
  }
  return {subject, Finding::State::absent, program + " is not registered in this bitness"};
}

/// The name that a running host gives itself; nothing is started.
Finding answer_of(const std::string& program, const CLSID& id) {
  const com::Apartment apartment;
  com::ComPtr<IUnknown> active;
  if (FAILED(GetActiveObject(id, nullptr, active.put()))) {
    return {"host", Finding::State::absent, program + " is not running"};
  }
  const com::ComPtr<IDispatch> application = active.as<IDispatch>();
  wchar_t name[] = L"Name";
  LPOLESTR names = name;
  DISPID member = DISPID_UNKNOWN;
  DISPPARAMS none{};
  com::Variant answer;
  if (!application ||
      FAILED(application->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member)) ||
      FAILED(application->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                 &answer.fresh(), nullptr, nullptr))) {
    return {"host", Finding::State::wrong, program + " is running but does not answer"};
  }
  const std::string said =
      answer.get().vt == VT_BSTR ? com::to_utf8(answer.get().bstrVal) : std::string();
  return {"host", Finding::State::well, program + " is running and answers: " + said};
}

void examine_host(std::vector<Finding>& findings) {
  const std::string program = com::host_program();
  CLSID id{};
  if (FAILED(CLSIDFromProgID(com::to_wide(program).c_str(), &id))) {
    findings.push_back({"host", Finding::State::absent,
                        program + " is not registered (VELMAR_HOST can name another program)"});
    return;
  }
  wchar_t text[64] = {};
  StringFromGUID2(id, text, 64);
  for (const Bitness& bitness : bitnesses) findings.push_back(host_for(bitness, program, text));
  findings.push_back(answer_of(program, id));
}

}  // namespace

std::vector<Finding> examine() {
  std::vector<Finding> findings;
  for (const Bitness& bitness : bitnesses) {
    const std::string name = bitness.name;
    findings.push_back(
        file_at("class, " + name, com::class_key() + L"\\InprocServer32", bitness.view));
    findings.push_back(file_at("type library, " + name,
                               com::library_systems_key() + L"\\" + bitness.system, bitness.view));
  }
  examine_host(findings);
  return findings;
}

}  // namespace velmar::cli
