#include <gtest/gtest.h>

#include <algorithm>

#include "com/automation/apartment.h"
#include "com/automation/bstr.h"
#include "com/automation/failure_crossing.h"
#include "com/scene_host.h"
#include "com/server/loaded_server.h"
#include "scenes/caller.h"
#include "system/user_system.h"

namespace velmar {
namespace {

/// The way of a macro: the component's DLL, called by name; and the component's way to the host:
/// automation. Leaving COM makes the component forget the host, so that the DLL is there longer.
class ComCaller : public Caller {
 public:
  explicit ComCaller(const std::shared_ptr<host::Object>& host)
      : host_(host), object_(server_.make_object()) {
    stay_loaded();
    if (!object_) throw std::runtime_error("there is no object of the component: " VELMAR_DLL);
    // The user of a new scene has answered nothing yet.
    for (const char* key : {"CLT", "J2TA", "J2T", "TI"}) {
      system_->save_setting({"Velmar", "Key", key}, "");
    }
  }
  ~ComCaller() override {
    object_ = nullptr;
    EXPECT_EQ(server_.call("DllCanUnloadNow"), S_OK);  // and with that it forgets the host
    host_.withdraw();
    EXPECT_EQ(host_.served->alive(), 0u) << "references that nobody let go";
  }

  Outcome call(std::string_view method, std::vector<basic::Value> arguments) override;
  System& system() override { return *system_; }

 private:
  /// A sweep makes more callers than a process can load the DLL anew: docs/reliability.md, limits.
  static void stay_loaded() {
    [[maybe_unused]] static HMODULE const dll = LoadLibraryW(L"" VELMAR_DLL);
  }

  com::LoadedServer server_{VELMAR_DLL};
  com::Apartment apartment_;
  com::SceneHost host_;
  com::ComPtr<IDispatch> object_;
  std::shared_ptr<System> system_ = system::user_system();  // the component makes one like it
};

/// A variable of a macro that holds the value, by reference.
VARIANT variable(VARIANT& held) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_VARIANT;
  argument.pvarVal = &held;
  return argument;
}

Outcome ComCaller::call(std::string_view method, std::vector<basic::Value> arguments) {
  std::wstring name = com::to_wide(method);
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id))) {
    throw std::invalid_argument("no method " + std::string(method));
  }
  std::vector<com::Variant> variables;
  for (const basic::Value& value : arguments) variables.push_back(com::to_variant(value));
  std::vector<VARIANT> given;
  for (com::Variant& held : variables) given.push_back(variable(held.fresh()));
  std::ranges::reverse(given);

  DISPPARAMS parameters{given.data(), nullptr, static_cast<UINT>(given.size()), 0};
  com::Variant result;
  EXCEPINFO exception{};
  const HRESULT code =
      object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                      &parameters, &result.fresh(), &exception, nullptr);
  Outcome outcome;
  outcome.result = com::to_value(result.get());
  for (const com::Variant& held : variables) {
    outcome.arguments.push_back(com::to_value(held.get()));
  }
  if (code == DISP_E_EXCEPTION)
    outcome.failure = com::to_failure(exception);
  else if (FAILED(code))
    outcome.failure = com::to_failure(code);
  return outcome;
}

}  // namespace

std::unique_ptr<Caller> make_caller(std::shared_ptr<host::Object> host) {
  return std::make_unique<ComCaller>(host);
}

}  // namespace velmar
