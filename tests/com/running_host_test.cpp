#include "com/adapter/running_host.h"

#include <gmock/gmock.h>

#include "com/failure_number.h"
#include "com/fake_dispatch.h"
#include "com/over_automation.h"
#include "com/scene_host.h"
#include "host/bag_object.h"
#include "host/document.h"

namespace velmar::com {
namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST(RunningHost, OneThatIsNotRegisteredIsNamed) {
  const Apartment apartment;
  SetEnvironmentVariableW(L"VELMAR_HOST", L"Velmar.NoSuchHost");
  EXPECT_EQ(failure_number([] { host_factory()(); }), 429);
  EXPECT_THAT(failure_text([] { host_factory()(); }),
              AllOf(HasSubstr("ActiveX component can't create object"),
                    HasSubstr("\"Velmar.NoSuchHost\""), HasSubstr("not registered")));
  SetEnvironmentVariableW(L"VELMAR_HOST", nullptr);
  EXPECT_EQ(host_program(), "AutoCAD.Application");
}

TEST(RunningHost, OneThatIsRegisteredButDoesNotRunIsNamedWithTheBitness) {
  const Apartment apartment;
  SceneHost host(std::make_shared<BagObject>());
  host.withdraw();
  EXPECT_THAT(failure_text([] { host_factory()(); }),
              AllOf(HasSubstr("\"Velmar.Scene\""),
                    HasSubstr(sizeof(void*) == 8 ? "64-bit" : "32-bit"), HasSubstr("0x80040154")));
}

/// The host's process cannot be ended here: its object answers as one of a process that has ended.
TEST(RunningHost, IsFoundAnewAfterItsProcessHasEnded) {
  const Apartment apartment;
  auto* const object = new FakeDispatch(
      {{L"Caption", [](WORD, DISPPARAMS&, VARIANT*, EXCEPINFO*) {
          return HRESULT_FROM_WIN32(static_cast<unsigned long>(RPC_S_SERVER_UNAVAILABLE));
        }}});
  const auto fake = ComPtr<IDispatch>::taking(object);
  const auto bag = std::make_shared<BagObject>();
  bag->properties[Member::Caption] = "second";
  SceneHost second(bag);
  const CLSID id = SceneProgram::class_id;
  second.withdraw();
  std::optional<PublishedApplication> first(std::in_place, id, CLSCTX_INPROC_SERVER, fake);
  const host::HostApplication host(host_factory()());
  EXPECT_EQ(failure_number([&] { host.Application().Caption(); }), 462);
  EXPECT_EQ(failure_number([&] { host.Application().Caption(); }), 462) << "it is there";
  object->ended = true;
  first.reset();
  EXPECT_EQ(failure_number([&] { host.Application(); }), 429) << "none runs";
  const PublishedApplication published(id, CLSCTX_INPROC_SERVER, second.served->serve(bag));
  EXPECT_EQ(host.Application().Caption(), "second");
}

}  // namespace
}  // namespace velmar::com
