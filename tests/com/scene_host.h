#pragma once

#include <memory>
#include <optional>
#include <string>

#include "com/automation/bstr.h"
#include "com/guid.h"
#include "com/host_program/published_application.h"
#include "com/registration/registry.h"
#include "host/object.h"

namespace velmar::com {

/// The host that the component is to drive, as far as it concerns all threads: known by its name.
class SceneProgram {
 public:
  SceneProgram() {
    write(Classes::of_machine, {{name() + L"\\CLSID", L"", L"{" + to_wide(class_number) + L"}"}});
    SetEnvironmentVariableW(L"VELMAR_HOST", name().c_str());
  }
  SceneProgram(const SceneProgram&) = delete;
  SceneProgram& operator=(const SceneProgram&) = delete;
  ~SceneProgram() {
    SetEnvironmentVariableW(L"VELMAR_HOST", nullptr);
    erase_key(Classes::of_machine, name());
  }

  static std::wstring name() { return L"Velmar.Scene"; }

  static constexpr std::string_view class_number = "0D7E0F7A-6A0B-4B52-9C39-1E7A5C6B8D21";
  static constexpr GUID class_id = guid(class_number);
};

/// An application as the host of this apartment.
class ApartmentHost {
 public:
  explicit ApartmentHost(const std::shared_ptr<host::Object>& application) {
    published_.emplace(SceneProgram::class_id, CLSCTX_INPROC_SERVER, served->serve(application));
  }

  /// From now on it cannot be found; who holds it keeps it.
  void withdraw() { published_.reset(); }

  const std::shared_ptr<ServedObjects> served = std::make_shared<ServedObjects>();

 private:
  std::optional<PublishedApplication> published_;
};

/// A host published in this apartment as the one that the component is to drive.
class SceneHost : private SceneProgram, public ApartmentHost {
 public:
  using ApartmentHost::ApartmentHost;
};

}  // namespace velmar::com
