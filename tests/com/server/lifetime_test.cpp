#include <thread>

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
  HRESULT code = S_OK;
  std::thread([&] {
    const Apartment apartment;
    const ComPtr<IDispatch> object = server_.make_object();
    DISPPARAMS none{};
    // It needs a host: from then on the thread is watched.
    code =
        object->Invoke(0x6003000F, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
  }).join();
  EXPECT_EQ(code, DISP_E_EXCEPTION);
  EXPECT_EQ(server_.call("DllCanUnloadNow"), S_OK);
}

}  // namespace
}  // namespace velmar::com
