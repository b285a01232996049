// scripthost [--register DLL] FILE.vbs...: runs the scripts one after another in one engine, with
// the class of the DLL registered meanwhile. 0: all ran; 1: one failed; 2: wrong usage; 3: no
// engine, or the DLL cannot be registered.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>

#include "com/automation/apartment.h"
#include "com/automation/bstr.h"
#include "com/server/loaded_server.h"
#include "com/server/script_site.h"

namespace velmar::com {
namespace {

constexpr CLSID vbscript = {
    0xB54F3741, 0x5B07, 0x11CF, {0xA4, 0xB0, 0x00, 0xAA, 0x00, 0x4A, 0x55, 0xE8}};

class Engine {
 public:
  explicit Engine(ScriptSite& site) {
    void* made = nullptr;
    if (FAILED(
            CoCreateInstance(vbscript, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, &made))) {
      return;
    }
    script_ = ComPtr<IActiveScript>::taking(static_cast<IActiveScript*>(made));
    parse_ = script_.as<IActiveScriptParse>();
    script_->SetScriptSite(&site);
    parse_->InitNew();
    script_->AddNamedItem(L"Host", SCRIPTITEM_ISVISIBLE);
    script_->SetScriptState(SCRIPTSTATE_CONNECTED);
  }
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine() {
    if (script_) script_->Close();
  }

  explicit operator bool() const { return static_cast<bool>(parse_); }
  bool run(const std::wstring& text) {
    return SUCCEEDED(parse_->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                             SCRIPTTEXT_ISVISIBLE, nullptr, nullptr));
  }

 private:
  ComPtr<IActiveScript> script_;
  ComPtr<IActiveScriptParse> parse_;
};

int run_scripts(std::span<wchar_t*> files) {
  const Apartment apartment;
  ScriptSite site;
  Engine engine(site);
  if (!engine) {
    std::fputs("scripthost: there is no script engine\n", stderr);
    return 3;
  }
  for (const std::filesystem::path file : files) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
      std::fprintf(stderr, "scripthost: %ls cannot be read\n", file.c_str());
      return 2;
    }
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    site.begin(file.filename().string());
    if (!engine.run(to_wide(text)) || site.failed()) return 1;
  }
  return 0;
}

}  // namespace
}  // namespace velmar::com

int wmain(int argc, wchar_t** argv) {
  std::span<wchar_t*> arguments(argv + 1, static_cast<std::size_t>(argc - 1));
  const bool registering = arguments.size() > 2 && std::wstring(arguments[0]) == L"--register";
  if (!registering) return arguments.empty() ? 2 : velmar::com::run_scripts(arguments);

  const velmar::com::LoadedServer server(arguments[1]);
  const velmar::com::Registered registered(server);
  return registered ? velmar::com::run_scripts(arguments.subspan(2)) : 3;
}
