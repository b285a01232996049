#include "com/adapter/running_host.h"

#include <array>
#include <cstdio>
#include <vector>

#include "basic/failure.h"
#include "com/automation/bstr.h"

namespace velmar::com {
namespace {

constexpr std::string_view usual_host = "AutoCAD.Application";

std::string in_hexadecimal(HRESULT code) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%08lX", static_cast<unsigned long>(code));
  return text.data();
}

basic::Failure not_found(const std::string& program, const std::string& why) {
  return {basic::cannot_create_object, "VelmarMenu",
          std::string(basic::run_time_text(basic::cannot_create_object)) + ": the drawing host \"" +
              program + "\" " + why};
}

std::string this_bitness() { return sizeof(void*) == 8 ? "64-bit" : "32-bit"; }

ComPtr<IDispatch> running(const CLSID& program) {
  ComPtr<IUnknown> active;
  if (FAILED(GetActiveObject(program, nullptr, active.put()))) return nullptr;
  return active.as<IDispatch>();
}

class RunningHost : public host::Object {
 public:
  explicit RunningHost(std::shared_ptr<DispatchObject> application)
      : application_(std::move(application)) {}

  Value get(Member member) override {
    if (member == Member::Application) return application();
    return application()->get(member);
  }
  void put(Member member, const Value& value) override { application()->put(member, value); }
  Value call(Member member, std::span<Value> arguments) override {
    return application()->call(member, arguments);
  }
  std::unique_ptr<host::Enumerator> enumerate() override { return application()->enumerate(); }

 private:
  const std::shared_ptr<DispatchObject>& application() {
    // One object alone can be gone too, with a drawing that was closed.
    if (application_->connection().gone && !application_->answers()) application_ = find_host();
    return application_;
  }

  std::shared_ptr<DispatchObject> application_;
};

}  // namespace

std::string host_program() {
  std::vector<wchar_t> value(256);
  for (;;) {
    const DWORD length =
        GetEnvironmentVariableW(L"VELMAR_HOST", value.data(), static_cast<DWORD>(value.size()));
    if (length == 0) return std::string(usual_host);
    if (length < value.size()) return to_utf8(std::wstring_view(value.data(), length));
    value.resize(length);
  }
}

std::shared_ptr<DispatchObject> find_host() {
  const std::string program = host_program();
  CLSID class_id{};
  if (FAILED(CLSIDFromProgID(to_wide(program).c_str(), &class_id))) {
    throw not_found(
        program,
        "is not registered on this computer (the variable VELMAR_HOST can name another one)");
  }
  ComPtr<IDispatch> application = running(class_id);
  if (!application) {
    void* created = nullptr;
    const HRESULT code =
        CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                         __uuidof(IDispatch), &created);
    if (FAILED(code)) {
      throw not_found(program, "is registered but is not running and cannot be started from a " +
                                   this_bitness() + " program (" + in_hexadecimal(code) + ")");
    }
    application = ComPtr<IDispatch>::taking(static_cast<IDispatch*>(created));
  }
  return std::make_shared<DispatchObject>(std::move(application), std::make_shared<Connection>());
}

std::function<std::shared_ptr<host::Object>()> host_factory() {
  return [] { return std::make_shared<RunningHost>(find_host()); };
}

}  // namespace velmar::com
