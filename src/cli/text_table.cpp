#include "cli/text_table.h"

#include <algorithm>

namespace velmar::cli {
namespace {

std::size_t width(std::string_view text) {
  const auto starts_character = [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  };
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), starts_character));
}

}  // namespace

std::string TextTable::text(std::size_t indent) const {
  std::vector<std::size_t> widths(sides_.size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
  }
  std::string all;
  for (const auto& row : rows_) {
    std::string line(indent, ' ');
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string gap(widths[i] - width(row[i]), ' ');
      if (i > 0) line += "  ";
      line += sides_[i] == Side::left ? row[i] + gap : gap + row[i];
    }
    line.erase(line.find_last_not_of(' ') + 1);
    all += line + "\n";
  }
  return all;
}

}  // namespace velmar::cli
