#include "system/settings_file.h"

#include "basic/strings.h"

namespace velmar::system {
namespace {

std::string escaped(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c == '\\') {
      line += "\\\\";
    } else if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else {
      line += c;
    }
  }
  return line;
}

std::string unescaped(std::string_view line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '\\' || i + 1 == line.size()) {
      text += line[i];
      continue;
    }
    ++i;
    text += line[i] == 'n' ? '\n' : line[i] == 'r' ? '\r' : line[i];
  }
  return text;
}

std::string section_line(const SettingName& name) {
  return "[" + escaped(name.application) + "\\" + escaped(name.section) + "]";
}

std::string key_part(const SettingName& name) { return escaped(name.key) + "="; }

}  // namespace

SettingsFile::SettingsFile(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, length);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines_.emplace_back(line);
    text.remove_prefix(std::min(length + 1, text.size()));
  }
}

SettingsFile::Place SettingsFile::find(const SettingName& name) const {
  const std::string section = section_line(name), key = key_part(name);
  Place place{lines_.size(), false, false};
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const std::string& line = lines_[i];
    if (line.starts_with('[')) {
      if (place.section_found) break;
      place.section_found = basic::equal_ignoring_case(line, section);
    }
    if (!place.section_found) continue;
    if (basic::equal_ignoring_case(line.substr(0, key.size()), key)) return {i, true, true};
    if (!line.empty()) place.line = i + 1;
  }
  return place;
}

std::string SettingsFile::get(const SettingName& name) const {
  const Place place = find(name);
  return place.found ? unescaped(std::string_view(lines_[place.line]).substr(key_part(name).size()))
                     : std::string();
}

void SettingsFile::set(const SettingName& name, std::string_view value) {
  const Place place = find(name);
  const std::string line = key_part(name) + escaped(value);
  if (place.found) {
    lines_[place.line] = line;
    return;
  }
  std::vector<std::string> added{line};
  if (!place.section_found) added.insert(added.begin(), section_line(name));
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.line), added.begin(),
                added.end());
}

std::string SettingsFile::text() const {
  std::string all;
  for (const std::string& line : lines_) all += line + "\n";
  return all;
}

}  // namespace velmar::system
