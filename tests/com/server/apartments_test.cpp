// Objects of the component in several apartments at once.

#include <array>
#include <future>
#include <string>
#include <thread>

#include "com/guid.h"
#include "com/scene_host.h"
#include "com/server/server_scene.h"
#include "embedded/host_scene.h"

namespace velmar::com {
namespace {

using basic::Value;

/// As a program makes one: COM finds the DLL, and sees to it that calls come on the right thread.
ComPtr<IDispatch> made_by_com() {
  void* made = nullptr;
  if (FAILED(CoCreateInstance(class_guid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made))) {
    return nullptr;
  }
  return ComPtr<IDispatch>::taking(static_cast<IDispatch*>(made));
}

Variant text(const std::string& content) { return to_variant(Value(content)); }

/// Threads that are in COM with no message loop.
class FreeThreaded {
 public:
  FreeThreaded() { CoInitializeEx(nullptr, COINIT_MULTITHREADED); }
  FreeThreaded(const FreeThreaded&) = delete;
  FreeThreaded& operator=(const FreeThreaded&) = delete;
  ~FreeThreaded() { CoUninitialize(); }
};

/// Methods that need no host give everyone his own results.
void expect_own_results(IDispatch& object, int n) {
  const std::string name = "Thread" + std::to_string(n), reversed = "tHREAD" + std::to_string(n);
  for (int round = 0; round < 20; ++round) {
    EXPECT_EQ(call_on(object, "RUP", {number(10 * n + 1), number(5)}).result, Value(10.0 * n + 5));
    EXPECT_EQ(call_on(object, "ReverseCase", {text(name).get()}).result, Value(reversed));
    const Answer failed = call_on(object, "RUP", {number(n), number(0)});
    EXPECT_EQ(failed.error, static_cast<HRESULT>(0x800A000B));
    EXPECT_EQ(failed.description, "Division by zero");
  }
}

/// A thread with an object of its own, that does what it is told when it is told.
class Worker {
 public:
  Worker(int n, bool free_threaded) {
    thread_ = std::thread([this, n, free_threaded] {
      if (free_threaded) {
        work_freely(n);
      } else {
        work_in_apartment(n);
      }
    });
  }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  void work() { begin_.set_value(); }
  void wait() { worked_.get_future().wait(); }
  void release() {
    release_.set_value();
    released_.get_future().wait();
  }
  void leave() {
    leave_.set_value();
    thread_.join();
  }

 private:
  void work_in_apartment(int n) {
    const Apartment apartment;
    const embedded::HostScene scene;
    const ApartmentHost host(scene.application);
    ComPtr<IDispatch> object = made_by_com();
    begin_.get_future().wait();
    expect_own_results(*object.get(), n);
    const std::string own = "of thread " + std::to_string(n);
    const Answer answer = call_on(*object.get(), "ReplaceInT",
                                  {text("NOTE").get(), text(own).get(), text("0").get()});
    EXPECT_EQ(answer.code, S_OK) << answer.description;
    EXPECT_EQ(scene.document().HandleToObject("32").get<std::string>(host::Member::TextString),
              own);
    finish(object);
  }

  /// COM puts the object into an apartment that it makes for such; there is no host there.
  void work_freely(int n) {
    const FreeThreaded com;
    ComPtr<IDispatch> object = made_by_com();
    begin_.get_future().wait();
    std::thread another([&] {
      const FreeThreaded same;
      expect_own_results(*object.get(), n + 1);
    });
    expect_own_results(*object.get(), n);
    another.join();
    const Answer answer = call_on(*object.get(), "GetTotalLength", {});
    EXPECT_EQ(answer.error, static_cast<HRESULT>(0x800A01AD));
    EXPECT_THAT(answer.description, testing::HasSubstr("Velmar.Scene"));
    finish(object);
  }

  void finish(ComPtr<IDispatch>& object) {
    worked_.set_value();
    release_.get_future().wait();
    object = nullptr;
    released_.set_value();
    leave_.get_future().wait();
  }

  std::promise<void> begin_, worked_, release_, released_, leave_;
  std::thread thread_;
};

class Apartments : public ServerScene {
 protected:
  Apartments() { object_ = nullptr; }

  /// The thread that COM made for an object leaves it in its own time.
  bool can_be_unloaded_soon() const {
    const ULONGLONG end = GetTickCount64() + 10'000;
    while (server_.call("DllCanUnloadNow") != S_OK) {
      if (GetTickCount64() > end) return false;
      Sleep(5);
    }
    return true;
  }

  const Registered registered_{server_};
  const SceneProgram host_;
};

TEST_F(Apartments, WorkAtOnceEachWithItsHostAndTheLibraryStaysUntilTheLastHasLeft) {
  ASSERT_TRUE(registered_);
  constexpr std::array<std::array<std::size_t, 4>, 3> orders{
      {{0, 1, 2, 3}, {3, 2, 1, 0}, {2, 0, 3, 1}}};
  for (const auto& order : orders) {
    std::array<Worker, 4> workers{Worker(1, false), Worker(2, false), Worker(3, false),
                                  Worker(4, true)};
    for (Worker& worker : workers) worker.work();
    for (Worker& worker : workers) worker.wait();
    EXPECT_EQ(server_.call("DllCanUnloadNow"), S_FALSE);
    for (const std::size_t next : order) {
      workers[next].release();
      EXPECT_EQ(server_.call("DllCanUnloadNow"), S_FALSE) << "threads that know a host are left";
    }
    for (const std::size_t next : order) {
      EXPECT_EQ(server_.call("DllCanUnloadNow"), S_FALSE);
      workers[next].leave();
    }
    EXPECT_TRUE(can_be_unloaded_soon());
  }
}

/// Handles messages, with which calls from other apartments come, until the thread is at its end.
void serve_until(const std::future<void>& end) {
  while (end.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
}

TEST_F(Apartments, AnObjectThatIsLentToAnotherDrivesTheHostOfItsOwn) {
  const embedded::HostScene scene;
  const ApartmentHost host(scene.application);
  ComPtr<IDispatch> object = made_by_com();
  ASSERT_TRUE(object);
  ComPtr<IStream> lent;
  ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object.get(), lent.put()), S_OK);
  const std::future<void> borrower = std::async(std::launch::async, [&] {
    const Apartment apartment;
    void* found = nullptr;
    IStream* const taken = lent.release();
    ASSERT_EQ(CoGetInterfaceAndReleaseStream(taken, IID_IDispatch, &found), S_OK);
    const auto borrowed = ComPtr<IDispatch>::taking(static_cast<IDispatch*>(found));
    EXPECT_NE(borrowed.get(), object.get()) << "a proxy";
    expect_own_results(*borrowed.get(), 1);
    EXPECT_EQ(call_on(*borrowed.get(), "ReplaceInT",
                      {text("NOTE").get(), text("lent").get(), text("0").get()})
                  .code,
              S_OK);
  });
  serve_until(borrower);
  EXPECT_EQ(scene.document().HandleToObject("32").get<std::string>(host::Member::TextString),
            "lent");
  EXPECT_EQ(server_.call("DllCanUnloadNow"), S_FALSE);
  object = nullptr;
  EXPECT_EQ(server_.call("DllCanUnloadNow"), S_OK);
}

}  // namespace
}  // namespace velmar::com
