#include <windows.h>

#include "basic/failure.h"
#include "com/adapter/running_host.h"
#include "com/automation/apartment.h"
#include "com/automation/bstr.h"
#include "com/automation/failure_crossing.h"
#include "com/host_program/command_line.h"
#include "com/host_program/host_ids.h"
#include "com/host_program/host_registration.h"
#include "com/host_program/lifetime.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/document.h"

namespace velmar::com {
namespace {

/// The program has no window and no console of its own: what it says goes where its caller told it
/// to, or to the console that it was started from.
void say(std::string text) {
  text += "\r\n";
  HANDLE output = GetStdHandle(STD_ERROR_HANDLE);
  if (!output && AttachConsole(ATTACH_PARENT_PROCESS)) {
    output = CreateFileW(L"CONOUT$", GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                         nullptr);
  }
  DWORD written = 0;
  WriteFile(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

std::vector<std::wstring> words_of_command_line() {
  int count = 0;
  LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> list(words + 1, words + count);
  LocalFree(words);
  return list;
}

std::filesystem::path this_program() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

/// The host that runs on this desktop; empty where there is none.
host::Application host_that_runs() {
  ComPtr<IUnknown> active;
  if (FAILED(GetActiveObject(host_class_guid, nullptr, active.put()))) return {};
  auto application = active.as<IDispatch>();
  if (!application) return {};
  return host::Application(
      std::make_shared<DispatchObject>(std::move(application), std::make_shared<Connection>()));
}

std::string utf8(const std::filesystem::path& path) { return to_utf8(path.wstring()); }

void serve(const CommandLine& line) {
  embedded::ScriptedInput input;
  const auto application = embedded::start(input, {line.drawings});
  application->on_quit([] { PostQuitMessage(0); });
  const auto objects = std::make_shared<ServedObjects>();
  const PublishedApplication published(host_class_guid, CLSCTX_LOCAL_SERVER,
                                       objects->serve(application));
  const Lifetime with_its_clients{line.idle_seconds};
  run_messages(*objects, published, line.for_automation ? &with_its_clients : nullptr);
}

void act(const CommandLine& line) {
  using Action = CommandLine::Action;
  if (line.action == Action::help) return say(command_line_help);
  if (line.action == Action::register_host) return register_host(this_program());
  if (line.action == Action::unregister_host) return unregister_host();

  const Apartment apartment;
  // A client that starts this program wants this one; a user wants the one that runs.
  const host::Application running = line.for_automation ? host::Application() : host_that_runs();
  if (line.action == Action::quit) {
    if (running.object()) running.call(host::Member::Quit);
    return;
  }
  if (!running.object()) return serve(line);
  for (const auto& drawing : line.drawings) running.Documents().Open(utf8(drawing));
}

int run() {
  try {
    act(read_command_line(words_of_command_line()));
    return 0;
  } catch (const std::invalid_argument& wrong) {
    say(std::string("velmar-host: ") + wrong.what() + "\r\n" + command_line_help);
    return 2;
  } catch (...) {
    say("velmar-host: " + caught().description);
    return 1;
  }
}

}  // namespace
}  // namespace velmar::com

int main() { return velmar::com::run(); }
