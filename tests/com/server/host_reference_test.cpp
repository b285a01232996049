#include <memory>
#include <thread>
#include <utility>

#include "basic/failure.h"
#include "com/scene_host.h"
#include "com/server/server_scene.h"

namespace velmar::com {
namespace {

/// A host that refuses everything but to be asked.
class RefusingHost final : public host::Object {
 public:
  basic::Value get(host::Member) override { return refuse(); }
  void put(host::Member, const basic::Value&) override { refuse(); }
  basic::Value call(host::Member, std::span<basic::Value>) override { return refuse(); }
  std::unique_ptr<host::Enumerator> enumerate() override {
    refuse();
    return {};
  }

 private:
  static basic::Value refuse() {
    throw basic::Failure(-2145320900, "Host", "Failed to get the Document object");
  }
};

class HostReference : public ServerScene {
 protected:
  /// On a thread of its own: two calls reach the host, then everything but the component lets go.
  void use_host_on_a_thread() {
    std::thread([this] {
      const Apartment apartment;
      {
        auto application = std::make_shared<RefusingHost>();
        host_ = application;
        const SceneHost scene(std::exchange(application, nullptr));
        object_ = server_.make_object();
        answer_ = call("IDLast", {});
        object_ = nullptr;
      }
      kept_between_objects_ = !host_.expired();
      let_go_ = then_ ? then_(server_) : S_OK;
    }).join();
  }

  HRESULT (*then_)(const LoadedServer&) = nullptr;
  std::weak_ptr<host::Object> host_;
  Answer answer_;
  bool kept_between_objects_ = false;
  HRESULT let_go_ = E_FAIL;
};

TEST_F(HostReference, EndsWhenItsThreadLeavesCom) {
  object_ = nullptr;
  use_host_on_a_thread();
  EXPECT_EQ(answer_.code, DISP_E_EXCEPTION);
  EXPECT_EQ(answer_.error, -2145320900) << "the host's own number";
  EXPECT_EQ(answer_.description, "Failed to get the Document object");
  EXPECT_TRUE(kept_between_objects_);
  EXPECT_TRUE(host_.expired());
  EXPECT_EQ(server_.call("DllCanUnloadNow"), S_OK);
}

TEST_F(HostReference, IsNoReasonForTheLibraryToStay) {
  object_ = nullptr;
  then_ = [](const LoadedServer& server) { return server.call("DllCanUnloadNow"); };
  use_host_on_a_thread();
  EXPECT_TRUE(kept_between_objects_);
  EXPECT_EQ(let_go_, S_OK);
  EXPECT_TRUE(host_.expired());
}

}  // namespace
}  // namespace velmar::com
