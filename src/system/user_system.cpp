#include "system/user_system.h"

#include "system/files.h"
#include "system/locale.h"
#include "system/settings.h"
#include "system/shell.h"
#include "system/waiting.h"

namespace velmar::system {
namespace {

using OnListed = std::function<void(const std::vector<std::string>&)>;

class UserSystem : public System {
 public:
  explicit UserSystem(OnListed on_listed) : on_listed_(std::move(on_listed)) {}

  basic::Separators separators() const override { return user_separators(); }
  char16_t through_ansi(char16_t unit) const override { return through_user_code_page(unit); }
  std::string setting(const SettingName& name) const override { return read_setting(name); }
  void save_setting(const SettingName& name, std::string_view value) override {
    write_setting(name, value);
  }
  std::string special_folder(std::int32_t number) const override {
    return special_folder_path(number);
  }
  char path_separator() const override { return separator_of_paths; }
  std::vector<std::string> files(std::string_view folder) const override {
    std::vector<std::string> listed = list_folder(folder, Listed::files);
    if (on_listed_) on_listed_(listed);
    return listed;
  }
  std::vector<std::string> subfolders(std::string_view folder) const override {
    return list_folder(folder, Listed::folders);
  }
  bool file_exists(std::string_view path) const override { return is_file(path); }
  void delete_file(std::string_view path) override { remove_file(path); }
  void move_file(std::string_view from, std::string_view to) override { rename_file(from, to); }
  std::string read_text(std::string_view path) const override { return read_text_file(path); }
  void write_text(std::string_view path, std::string_view text) override {
    write_text_file(path, text);
  }
  void browse(std::string_view folder) override { show_folder(folder); }
  std::int32_t tick_count() const override { return milliseconds_since_start(); }
  void process_events() override { let_events_be_handled(); }

 private:
  OnListed on_listed_;
};

}  // namespace

std::shared_ptr<System> user_system(OnListed on_listed) {
  return std::make_shared<UserSystem>(std::move(on_listed));
}

}  // namespace velmar::system
