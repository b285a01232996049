#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "basic/separators.h"

namespace velmar {

/// Where a remembered answer of the user is kept.
struct SettingName {
  std::string_view application, section, key;
};

/// What the machine offers to the methods, apart from the host. Texts and paths are UTF-8. What
/// cannot be done fails with the run-time error that classic Basic has for it.
class System {
 public:
  virtual ~System() = default;

  /// The marks that the user's locale puts into numbers.
  virtual basic::Separators separators() const = 0;
  /// What becomes of a UTF-16 unit in the user's ANSI code page and back: itself, or a question
  /// mark where the page does not have it.
  virtual char16_t through_ansi(char16_t unit) const = 0;

  /// Empty where none was saved.
  virtual std::string setting(const SettingName& name) const = 0;
  virtual void save_setting(const SettingName& name, std::string_view value) = 0;

  /// The path of a special folder by its shell number; empty where there is none.
  virtual std::string special_folder(std::int32_t number) const = 0;
  /// What stands between a folder and what is in it.
  virtual char path_separator() const = 0;
  /// Full paths of what is directly in the folder, in the file system's order or by name; error 76
  /// where there is no such folder.
  virtual std::vector<std::string> files(std::string_view folder) const = 0;
  virtual std::vector<std::string> subfolders(std::string_view folder) const = 0;
  virtual bool file_exists(std::string_view path) const = 0;
  /// Errors 53 for a missing file, 70 for a read-only one.
  virtual void delete_file(std::string_view path) = 0;
  /// Errors 53 for a missing file, 58 where the target exists.
  virtual void move_file(std::string_view from, std::string_view to) = 0;
  /// The whole file, in the user's code page on Windows. Errors 53, 76.
  virtual std::string read_text(std::string_view path) const = 0;
  /// Creates or replaces the file. Errors 70, 75, 76.
  virtual void write_text(std::string_view path, std::string_view text) = 0;
  /// Shows the folder in the file browser, and does not wait for it. Error 53 where none starts.
  virtual void browse(std::string_view folder) = 0;

  /// Milliseconds since the machine started, as a signed number that turns negative.
  virtual std::int32_t tick_count() const = 0;
  /// Lets the calling thread's window messages be handled, then yields.
  virtual void process_events() = 0;
};

/// A machine in memory: numbers have a point, the ANSI code page is 1252 (Western European),
/// settings last as long as it does, there are no files.
class PlainSystem : public System {
 public:
  basic::Separators separators() const override { return {}; }
  char16_t through_ansi(char16_t unit) const override;
  std::string setting(const SettingName& name) const override;
  void save_setting(const SettingName& name, std::string_view value) override;
  std::string special_folder(std::int32_t) const override { return {}; }
  char path_separator() const override { return '/'; }
  std::vector<std::string> files(std::string_view folder) const override;
  std::vector<std::string> subfolders(std::string_view folder) const override;
  bool file_exists(std::string_view) const override { return false; }
  void delete_file(std::string_view path) override;
  void move_file(std::string_view from, std::string_view to) override;
  std::string read_text(std::string_view path) const override;
  void write_text(std::string_view path, std::string_view text) override;
  void browse(std::string_view folder) override;
  std::int32_t tick_count() const override;
  void process_events() override;

 private:
  std::map<std::tuple<std::string, std::string, std::string>, std::string> settings_;
};

}  // namespace velmar
