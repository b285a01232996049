#include <functional>
#include <map>
#include <string>
#include <thread>

#include "com/guid.h"
#include "com/registration/class_entries.h"
#include "com/server/server_scene.h"

// These change the registry of the Windows that the tests have to themselves.
namespace velmar::com {
namespace {

/// The names of the keys that hold classes, interfaces and libraries, with how often each occurs.
class Snapshot {
 public:
  Snapshot() {
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      for (const wchar_t* below : {L"", L"\\CLSID", L"\\Interface", L"\\TypeLib"}) {
        take(root, std::wstring(L"Software\\Classes") + below);
      }
    }
  }
  bool operator==(const Snapshot&) const = default;
  std::size_t size() const { return keys_.size(); }

 private:
  void take(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
      DWORD length = 256;
      if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != 0) break;
      // These stay when they are empty: they are the registry's own.
      if (path.ends_with(L"Classes") && std::wstring_view(name).size() < 10) continue;
      ++keys_[path + L"\\" + name];
    }
    RegCloseKey(key);
  }

  std::map<std::wstring, int> keys_;
};

std::wstring text_at(HKEY root, const std::wstring& key, const wchar_t* name) {
  wchar_t text[512] = {};
  DWORD size = sizeof text;
  const std::wstring path = L"Software\\Classes\\" + key;
  const LSTATUS code = RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
  return code == ERROR_SUCCESS ? text : L"(none)";
}

class Registration : public ServerScene {
 protected:
  ~Registration() override { SetEnvironmentVariableW(L"VELMAR_REGISTER", nullptr); }

  const Snapshot before_;
};

TEST_F(Registration, LeavesNothingBehindAndCanBeRepeated) {
  ASSERT_GT(before_.size(), 100U);
  EXPECT_EQ(server_.call("DllUnregisterServer"), S_OK) << "nothing is registered yet";
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(server_.call("DllRegisterServer"), S_OK);
    const std::wstring file =
        text_at(HKEY_LOCAL_MACHINE, class_key() + L"\\InprocServer32", nullptr);
    EXPECT_TRUE(std::filesystem::equivalent(file, VELMAR_DLL)) << to_utf8(file);
    EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, class_key() + L"\\InprocServer32", L"ThreadingModel"),
              L"Apartment");
  }
  EXPECT_NE(Snapshot(), before_);
  for (int time = 0; time < 2; ++time) EXPECT_EQ(server_.call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Snapshot(), before_);
}

TEST_F(Registration, ForOneUserLeavesTheMachineAlone) {
  SetEnvironmentVariableW(L"VELMAR_REGISTER", L"user");
  EXPECT_EQ(server_.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(text_at(HKEY_CURRENT_USER, program_id_key() + L"\\CLSID", nullptr),
            L"{" + to_wide(class_id) + L"}");
  EXPECT_EQ(text_at(HKEY_CURRENT_USER, interface_key() + L"\\TypeLib", L"Version"), L"1.0");
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, class_key(), nullptr), L"(none)");
  EXPECT_EQ(server_.call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Snapshot(), before_);
}

TEST_F(Registration, ForAllUsersReplacesTheOneOfThisUser) {
  SetEnvironmentVariableW(L"VELMAR_REGISTER", L"user");
  EXPECT_EQ(server_.call("DllRegisterServer"), S_OK);
  SetEnvironmentVariableW(L"VELMAR_REGISTER", nullptr);
  EXPECT_EQ(server_.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(text_at(HKEY_CURRENT_USER, class_key(), nullptr), L"(none)");
  EXPECT_EQ(server_.call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Snapshot(), before_);
}

// What both bitnesses share stays as long as the other one is registered.
TEST_F(Registration, KeepsWhatTheOtherBitnessNeeds) {
  const std::wstring other = library_systems_key() + (sizeof(void*) == 8 ? L"\\win32" : L"\\win64");
  write(Classes::of_machine, {{other, L"", L"C:\\other\\VelmarMenu.dll"}});
  EXPECT_EQ(server_.call("DllRegisterServer"), S_OK);
  EXPECT_EQ(server_.call("DllUnregisterServer"), S_OK);
  EXPECT_TRUE(has_key(Classes::of_machine, program_id_key()));
  EXPECT_TRUE(has_key(Classes::of_machine, other));
  EXPECT_FALSE(has_key(Classes::of_machine, class_key()));
  erase_key(Classes::of_machine, other);
  EXPECT_EQ(server_.call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Snapshot(), before_);
}

/// What a thread outside any apartment of its own gets from the class, through the marshaller.
void call_from_free_thread(int& step) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  {
    void* made = nullptr;
    CLSID found{};
    step = 1;
    if (FAILED(CLSIDFromProgID(L"VelmarMenu.Velmar16", &found))) return;
    step = 2;
    if (FAILED(CoCreateInstance(found, nullptr, CLSCTX_INPROC_SERVER, interface_guid, &made)))
      return;
    const auto object = ComPtr<IUnknown>::taking(static_cast<IUnknown*>(made));
    using Rup = HRESULT(STDMETHODCALLTYPE*)(void*, VARIANT*, double*, double*);
    auto* const slots = *reinterpret_cast<void (***)()>(object.get());
    VARIANT n = number(11.4);
    double interval = 5, result = 0;
    step = 3;
    if (FAILED(reinterpret_cast<Rup>(slots[7 + 12])(object.get(), &n, &interval, &result))) return;
    step = result == 15 && n.dblVal == 11 ? 4 : 5;
    interval = 0;
    const HRESULT failure =
        reinterpret_cast<Rup>(slots[7 + 12])(object.get(), &n, &interval, &result);
    if (step == 4 && static_cast<unsigned>(failure) == 0x800A000BU) step = 0;
  }
  CoUninitialize();
}

TEST_F(Registration, LetsOtherThreadsCallThroughTheMarshaller) {
  object_ = nullptr;
  const Registered registered(server_);
  ASSERT_TRUE(registered);
  int failed_step = -1;
  std::thread(call_from_free_thread, std::ref(failed_step)).join();
  EXPECT_EQ(failed_step, 0);
}

}  // namespace
}  // namespace velmar::com
