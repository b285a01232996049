#include <chrono>
#include <thread>

#include "basic/ansi.h"
#include "basic/failure.h"
#include "component/system.h"

namespace velmar {
namespace {

using basic::Failure;

std::tuple<std::string, std::string, std::string> key_of(const SettingName& name) {
  return {std::string(name.application), std::string(name.section), std::string(name.key)};
}

}  // namespace

char16_t PlainSystem::through_ansi(char16_t unit) const {
  return basic::ansi_character(basic::ansi_code(unit));
}

std::string PlainSystem::setting(const SettingName& name) const {
  const auto found = settings_.find(key_of(name));
  return found == settings_.end() ? std::string() : found->second;
}

void PlainSystem::save_setting(const SettingName& name, std::string_view value) {
  settings_[key_of(name)] = value;
}

std::vector<std::string> PlainSystem::files(std::string_view) const {
  throw Failure(basic::path_not_found);
}

std::vector<std::string> PlainSystem::subfolders(std::string_view) const {
  throw Failure(basic::path_not_found);
}

void PlainSystem::delete_file(std::string_view) { throw Failure(basic::file_not_found); }

void PlainSystem::move_file(std::string_view, std::string_view) {
  throw Failure(basic::file_not_found);
}

std::string PlainSystem::read_text(std::string_view) const { throw Failure(basic::file_not_found); }

void PlainSystem::write_text(std::string_view, std::string_view) {
  throw Failure(basic::path_not_found);
}

void PlainSystem::browse(std::string_view) { throw Failure(basic::file_not_found); }

std::int32_t PlainSystem::tick_count() const {
  using namespace std::chrono;
  const auto since_start = steady_clock::now().time_since_epoch();
  return static_cast<std::int32_t>(duration_cast<milliseconds>(since_start).count());
}

void PlainSystem::process_events() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

}  // namespace velmar
