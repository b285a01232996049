#pragma once

#include <concepts>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "embedded/entity_scene.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/document.h"
#include "host/entity_cast.h"
#include "scenes/caller.h"

namespace velmar {

/// A drawing open in the embedded host, in a folder of its own, and a user who has his answers
/// ready. A test builds one, runs methods by their published names, and looks at what was said and
/// at what the drawing has become.
class Scene {
 public:
  /// What comes between the methods and the host.
  using Between = std::function<std::shared_ptr<host::Object>(std::shared_ptr<host::Object>)>;

  /// With these entities, as lines "code value"; see embedded::drawing_text for what else there is.
  explicit Scene(const std::string& entities, const Between& between = std::identity());
  /// With a copy of this drawing.
  explicit Scene(const std::filesystem::path& drawing);
  ~Scene();
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  /// Answers from now on; those not used so far are forgotten, and so is what was said.
  Scene& answers(std::vector<std::string> answers);

  template <class... Arguments>
  Outcome run(std::string_view method, Arguments&&... arguments) {
    return call(method, {basic::Value(std::forward<Arguments>(arguments))...});
  }
  Outcome call(std::string_view method, std::vector<basic::Value> arguments);

  /// Since the answers were given.
  std::vector<std::string> asked() const;
  std::vector<std::string> said() const;
  std::size_t answers_left() const { return user_.left(); }

  System& system() { return caller_->system(); }
  /// The host's own objects, without COM between.
  host::Application application() const { return host::Application(application_); }
  host::Document document() const { return application().ActiveDocument(); }
  /// T may be host::Entity, for one of any kind.
  template <class T>
  T entity(std::string_view handle) const {
    const host::Entity found = document().HandleToObject(handle);
    if constexpr (std::same_as<T, host::Entity>) {
      return found;
    } else {
      return host::as<T>(found);
    }
  }
  bool has(std::string_view handle) const;
  drawing::Drawing& drawing() const { return application_->active()->drawing; }

  const std::filesystem::path& folder() const { return folder_; }
  /// Writes a file into the folder; its path.
  std::filesystem::path file(const std::string& name, const std::string& content) const;
  std::string content(const std::string& name) const;

 private:
  void open(const std::filesystem::path& drawing, const Between& between);

  std::filesystem::path folder_;
  embedded::ScriptedInput user_;
  std::shared_ptr<embedded::Application> application_;
  std::unique_ptr<Caller> caller_;
};

inline std::string text_string(const Scene& scene, const char* handle) {
  return scene.entity<host::Text>(handle).TextString();
}

}  // namespace velmar
