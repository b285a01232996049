#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmar::cli {

/// Columns of text, each as wide as its widest cell. Cells are UTF-8.
class TextTable {
 public:
  enum class Side { left, right };

  /// One side for each column.
  explicit TextTable(std::vector<Side> sides) : sides_(std::move(sides)) {}

  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  /// The rows, each after `indent` blanks and without blanks at its end.
  std::string text(std::size_t indent = 0) const;

 private:
  std::vector<Side> sides_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace velmar::cli
