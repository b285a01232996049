// Calls per second of the component's own side: a method that needs no host, by name and through
// the virtual table, in process.
//
//   velmar_server_calls VelmarMenu.dll

#include <ole2.h>
#include <windows.h>

#include <chrono>
#include <cstdio>

#include "com/automation/apartment.h"
#include "com/automation/com_ptr.h"
#include "com/guid.h"

namespace {

using namespace velmar;
using Clock = std::chrono::steady_clock;

template <class Call>
bool measure(const char* what, Call call) {
  const auto begin = Clock::now();
  double seconds = 0;
  long done = 0;
  while (seconds < 1) {
    for (int i = 0; i < 1000; ++i) {
      if (FAILED(call())) return false;
    }
    done += 1000;
    seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  }
  std::printf("  %-44s %10.0f calls/s\n", what, static_cast<double>(done) / seconds);
  return true;
}

com::ComPtr<IUnknown> make_object(const wchar_t* dll) {
  const auto get = reinterpret_cast<LPFNGETCLASSOBJECT>(
      reinterpret_cast<void (*)()>(GetProcAddress(LoadLibraryW(dll), "DllGetClassObject")));
  void *found = nullptr, *made = nullptr;
  if (!get || FAILED(get(com::class_guid, IID_IClassFactory, &found))) return nullptr;
  const auto factory = com::ComPtr<IClassFactory>::taking(static_cast<IClassFactory*>(found));
  if (FAILED(factory->CreateInstance(nullptr, com::interface_guid, &made))) return nullptr;
  return com::ComPtr<IUnknown>::taking(static_cast<IUnknown*>(made));
}

/// RUP, with a variant and a double by reference.
bool measure_all(const com::ComPtr<IUnknown>& object) {
  const com::ComPtr<IDispatch> by_name = object.as<IDispatch>();
  VARIANT number;
  number.vt = VT_R8;
  number.dblVal = 11;
  double step = 5, result = 0;

  using Function = HRESULT(STDMETHODCALLTYPE*)(void*, VARIANT*, double*, double*);
  constexpr int slot_of_rup = 7 + 12;
  const auto rup =
      reinterpret_cast<Function>((*reinterpret_cast<void (***)()>(object.get()))[slot_of_rup]);

  VARIANT arguments[2], answer;
  arguments[0].vt = VT_BYREF | VT_R8;
  arguments[0].pdblVal = &step;
  arguments[1].vt = VT_BYREF | VT_VARIANT;
  arguments[1].pvarVal = &number;
  DISPPARAMS given{arguments, nullptr, 2, 0};
  wchar_t name[] = L"RUP";
  LPOLESTR names = name;
  DISPID id = DISPID_UNKNOWN;
  const auto invoke = [&] {
    return by_name->Invoke(id, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &given, &answer,
                           nullptr, nullptr);
  };
  const auto find = [&] { return by_name->GetIDsOfNames(IID_NULL, &names, 1, 0, &id); };
  return measure("virtual table", [&] { return rup(object.get(), &number, &step, &result); }) &&
         measure("name looked up", find) && measure("by number", invoke) &&
         measure("by name: looked up and called", [&] {
           const HRESULT found = find();
           return FAILED(found) ? found : invoke();
         });
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  const com::Apartment apartment;
  const auto object = argc == 2 ? make_object(argv[1]) : nullptr;
  if (!object || !measure_all(object)) {
    std::fputs("usage: velmar_server_calls VelmarMenu.dll\n", stderr);
    return 2;
  }
  return 0;
}
