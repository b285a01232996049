#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "com/adapter/running_host.h"
#include "com/automation/apartment.h"
#include "com/failure_number.h"
#include "com/host_process.h"
#include "com/host_program/host_ids.h"
#include "com/registration/registry.h"
#include "com/server/loaded_server.h"
#include "host/document.h"

namespace velmar::com {
namespace {

namespace fs = std::filesystem;

constexpr const char* program = VELMAR_HOST_PROGRAM;

/// Whether a line of the drawing has that handle; records may still refer to it.
bool has_line(const fs::path& drawing, const std::string& handle) {
  std::ifstream file(drawing, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  return text.find("\nLINE\r\n  5\r\n" + handle + "\r\n") != std::string::npos;
}

/// velmar-host registered, as the host that is to be driven, with a drawing to work on.
class HostProgram : public testing::Test {
 protected:
  HostProgram() {
    fs::create_directory(folder_);
    fs::copy_file(VELMAR_CORPUS "/jscad/2Dellipses.dxf", drawing_);
    EXPECT_EQ(run(std::string(program) + " /RegServer"), 0);
    SetEnvironmentVariableW(L"VELMAR_HOST", L"Velmar.Application");
  }
  ~HostProgram() override {
    run(std::string(program) + " /Quit");
    EXPECT_EQ(run(std::string(program) + " /UnregServer"), 0);
    SetEnvironmentVariableW(L"VELMAR_HOST", nullptr);
    fs::remove_all(folder_);
  }

  static bool runs() {
    ComPtr<IUnknown> active;
    return SUCCEEDED(GetActiveObject(host_class_guid, nullptr, active.put()));
  }
  static bool comes_to(bool running, unsigned seconds) {
    const ULONGLONG end = GetTickCount64() + seconds * 1000ULL;
    while (runs() != running && GetTickCount64() < end) Sleep(50);
    return runs() == running;
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("velmar-host-" + std::to_string(GetCurrentProcessId()));
  const fs::path drawing_ = folder_ / "plan.dxf";
  LoadedServer server_{VELMAR_DLL};  // outlives COM, which tells it when it leaves the thread
  Apartment apartment_;
};

TEST_F(HostProgram, RunsACommandOnADrawingFromAnotherProcessSavesAndQuits) {
  {
    const host::HostApplication host(host_factory()());
    const host::Application app = host.Application();
    const host::Document plan = app.Documents().Open(drawing_.string());
    const int before = plan.ModelSpace().Count();
    int walked = 0;
    for (const host::Entity& entity : plan.ModelSpace()) walked += entity.Handle().empty() ? 0 : 1;
    EXPECT_EQ(walked, before);

    const DispatchObject velmar(server_.make_object(), std::make_shared<Connection>());
    const auto call = [&](const wchar_t* name, const Value& argument) {
      std::wstring spelled = name;
      LPOLESTR names = spelled.data();
      DISPID id = 0;
      ASSERT_EQ(velmar.dispatch()->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), S_OK);
      Variant given = to_variant(argument);
      DISPPARAMS parameters{&given.fresh(), nullptr, argument.is<basic::Empty>() ? 0U : 1U, 0};
      EXPECT_EQ(velmar.dispatch()->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                                          nullptr, nullptr),
                S_OK);
    };
    call(L"Del", "2E");
    app.call(Member::QueueInput, "#2F");
    call(L"GetTotalLength", Value());
    EXPECT_THAT(app.get<std::string>(Member::Transcript), testing::HasSubstr("Total Length"));
    EXPECT_EQ(plan.ModelSpace().Count(), before - 1);
    plan.Save();
    app.call(Member::Quit);
  }
  EXPECT_TRUE(comes_to(false, 60));
  EXPECT_TRUE(has_line(VELMAR_CORPUS "/jscad/2Dellipses.dxf", "2E"));
  EXPECT_FALSE(has_line(drawing_, "2E"));
}

TEST_F(HostProgram, OneStartedByAClientEndsWithIt) {
  {
    const host::HostApplication host(host_factory()());
    EXPECT_EQ(host.Application().Documents().Count(), 0);
    EXPECT_EQ(failure_number([&] { host.Application().ActiveDocument(); }), -2145320900);
    EXPECT_TRUE(runs());
  }
  EXPECT_TRUE(comes_to(false, 60));
}

TEST_F(HostProgram, OneThatNobodyCallsEndsThoughAClientHoldsIt) {
  const HostProcess process(std::string(program) + " /Automation /Idle:5");
  ASSERT_TRUE(comes_to(true, 60));
  const host::HostApplication host(host_factory()());
  EXPECT_EQ(host.Application().Documents().Count(), 0);
  EXPECT_TRUE(process.ends_within(60));
  EXPECT_EQ(process.exit_code(), 0);
  EXPECT_EQ(failure_number([&] { host.Application().Caption(); }), 462);
  EXPECT_EQ(host.Application().Documents().Count(), 0) << "of one that was started anew";
}

TEST_F(HostProgram, ThereIsOneOnADesktopAndAUserHandsItMoreDrawings) {
  const fs::path second = folder_ / "second.dxf";
  fs::copy_file(drawing_, second);
  const HostProcess process(std::string(program) + " " + drawing_.string());
  ASSERT_TRUE(comes_to(true, 60));
  EXPECT_EQ(run(std::string(program) + " " + second.string()), 0);
  const host::HostApplication host(host_factory()());
  EXPECT_EQ(host.Application().Documents().Count(), 2);
  EXPECT_EQ(host.Application().ActiveDocument().Name(), "second.dxf");
  EXPECT_EQ(run(std::string(program) + " " + (folder_ / "missing.dxf").string()), 1);
  EXPECT_EQ(run(std::string(program) + " /NoSuchOption"), 2);
  EXPECT_EQ(run(std::string(program) + " /Quit"), 0);
  EXPECT_TRUE(process.ends_within(60));
}

TEST_F(HostProgram, ScriptsDriveItAndTheComponent) {
  const HostProcess process(std::string(program) + " " + drawing_.string());
  ASSERT_TRUE(comes_to(true, 60));
  EXPECT_EQ(run(VELMAR_SCRIPT_HOST " --register " VELMAR_DLL " " VELMAR_SCRIPTS
                                   "/server/expect.vbs " VELMAR_SCRIPTS "/host_program.vbs"),
            0);
  EXPECT_EQ(run(std::string(program) + " /Quit"), 0);
  EXPECT_TRUE(process.ends_within(60));
}

TEST_F(HostProgram, UnregisteringLeavesNothing) {
  EXPECT_EQ(run(std::string(program) + " /UnregServer"), 0);
  for (const Classes classes : {Classes::of_machine, Classes::of_user}) {
    EXPECT_FALSE(has_key(classes, to_wide(host_program_id)));
    EXPECT_FALSE(has_key(classes, L"CLSID\\{" + to_wide(host_class_id) + L"}"));
  }
  EXPECT_EQ(failure_number([] { host_factory()(); }), 429);
}

}  // namespace
}  // namespace velmar::com
