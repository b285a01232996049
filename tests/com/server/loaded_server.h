#pragma once

#include <oaidl.h>
#include <windows.h>

#include <filesystem>

#include "com/automation/com_ptr.h"

namespace velmar::com {

/// The component server, loaded as COM does it.
class LoadedServer {
 public:
  explicit LoadedServer(const std::filesystem::path& dll);
  LoadedServer(const LoadedServer&) = delete;
  LoadedServer& operator=(const LoadedServer&) = delete;
  ~LoadedServer();

  /// One of the functions without parameters, called. E_NOTIMPL where the DLL has no such function.
  HRESULT call(const char* function) const;
  ComPtr<IClassFactory> factory() const;
  /// Null where that fails.
  ComPtr<IDispatch> make_object() const;

 private:
  HMODULE module_;
};

/// Registers the class as long as it lives.
class Registered {
 public:
  explicit Registered(const LoadedServer& server)
      : server_(server), done_(SUCCEEDED(server.call("DllRegisterServer"))) {}
  Registered(const Registered&) = delete;
  Registered& operator=(const Registered&) = delete;
  ~Registered() { server_.call("DllUnregisterServer"); }

  explicit operator bool() const { return done_; }

 private:
  const LoadedServer& server_;
  bool done_;
};

}  // namespace velmar::com
