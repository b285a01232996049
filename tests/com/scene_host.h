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

/// A host published in this process as the one that the component is to drive.
class SceneHost {
 public:
  explicit SceneHost(const std::shared_ptr<host::Object>& application) {
    write(Classes::of_machine,
          {{program() + L"\\CLSID", L"", L"{" + to_wide(class_number) + L"}"}});
    SetEnvironmentVariableW(L"VELMAR_HOST", program().c_str());
    published_.emplace(guid(class_number), CLSCTX_INPROC_SERVER, served->serve(application));
  }
  SceneHost(const SceneHost&) = delete;
  SceneHost& operator=(const SceneHost&) = delete;
  ~SceneHost() {
    withdraw();
    SetEnvironmentVariableW(L"VELMAR_HOST", nullptr);
    erase_key(Classes::of_machine, program());
  }

  /// From now on it cannot be found; who holds it keeps it.
  void withdraw() { published_.reset(); }

  static std::wstring program() { return L"Velmar.Scene"; }

  const std::shared_ptr<ServedObjects> served = std::make_shared<ServedObjects>();

 private:
  static constexpr std::string_view class_number = "0D7E0F7A-6A0B-4B52-9C39-1E7A5C6B8D21";

  std::optional<PublishedApplication> published_;
};

}  // namespace velmar::com
