#include "com/server/loaded_server.h"

#include "com/guid.h"

namespace velmar::com {

LoadedServer::LoadedServer(const std::filesystem::path& dll) : module_(LoadLibraryW(dll.c_str())) {}

LoadedServer::~LoadedServer() {
  if (module_ && call("DllCanUnloadNow") == S_OK) FreeLibrary(module_);
}

HRESULT LoadedServer::call(const char* function) const {
  const auto found = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
      reinterpret_cast<void (*)()>(GetProcAddress(module_, function)));
  return found ? found() : E_NOTIMPL;
}

ComPtr<IClassFactory> LoadedServer::factory() const {
  const auto get = reinterpret_cast<LPFNGETCLASSOBJECT>(
      reinterpret_cast<void (*)()>(GetProcAddress(module_, "DllGetClassObject")));
  void* made = nullptr;
  if (!get || FAILED(get(class_guid, IID_IClassFactory, &made))) return nullptr;
  return ComPtr<IClassFactory>::taking(static_cast<IClassFactory*>(made));
}

ComPtr<IDispatch> LoadedServer::make_object() const {
  const ComPtr<IClassFactory> maker = factory();
  void* made = nullptr;
  if (!maker || FAILED(maker->CreateInstance(nullptr, IID_IDispatch, &made))) return nullptr;
  return ComPtr<IDispatch>::taking(static_cast<IDispatch*>(made));
}

}  // namespace velmar::com
