#include "com/guid.h"
#include "com/server/server_scene.h"

namespace velmar::com {
namespace {

bool is_loaded() { return GetModuleHandleW(L"VelmarMenu.dll") != nullptr; }

TEST(Lifetime, TheLibraryGoesWhenNothingUsesItAnyMore) {
  {
    const Apartment apartment;
    const LoadedServer server(VELMAR_DLL);
    EXPECT_EQ(server.call("DllCanUnloadNow"), S_OK);

    ComPtr<IDispatch> object = server.make_object();
    ASSERT_TRUE(object);
    const ComPtr<IProvideClassInfo> same = object.as<IProvideClassInfo>();
    object = nullptr;
    EXPECT_EQ(server.call("DllCanUnloadNow"), S_FALSE) << "one reference is left";
  }
  EXPECT_FALSE(is_loaded());
}

TEST(Lifetime, LocksAndClassFactory) {
  const Apartment apartment;
  const LoadedServer server(VELMAR_DLL);
  const ComPtr<IClassFactory> factory = server.factory();
  ASSERT_TRUE(factory);
  EXPECT_EQ(server.call("DllCanUnloadNow"), S_OK) << "a class factory alone is no reason to stay";
  factory->LockServer(TRUE);
  EXPECT_EQ(server.call("DllCanUnloadNow"), S_FALSE);
  factory->LockServer(FALSE);
  EXPECT_EQ(server.call("DllCanUnloadNow"), S_OK);

  void* made = &made;
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &made), E_NOINTERFACE);
  EXPECT_EQ(server.call("DllCanUnloadNow"), S_OK) << "an object without the interface is gone";
}

TEST_F(ServerScene, AThreadThatLeftComHoldsNothing) {
  object_ = nullptr;
  DWORD code = 99;
  const auto work = [](void* server) -> DWORD {
    const Apartment apartment;
    const ComPtr<IDispatch> object = static_cast<LoadedServer*>(server)->make_object();
    DISPPARAMS none{};
    // It needs a host: from then on the thread is watched.
    return object->Invoke(0x6003000F, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr,
                          nullptr) == DISP_E_EXCEPTION
               ? 0
               : 1;
  };
  HANDLE thread =
      CreateThread(nullptr, 0, static_cast<LPTHREAD_START_ROUTINE>(work), &server_, 0, nullptr);
  ASSERT_EQ(WaitForSingleObject(thread, 20000), WAIT_OBJECT_0);
  GetExitCodeThread(thread, &code);
  CloseHandle(thread);
  EXPECT_EQ(code, 0U);
  EXPECT_EQ(server_.call("DllCanUnloadNow"), S_OK);
}

}  // namespace
}  // namespace velmar::com
