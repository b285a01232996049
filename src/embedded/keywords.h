#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::embedded {

/// The keywords that a question accepts, as given by one text with blanks between them. The capital
/// letters of a keyword are its abbreviation: "LType" is also answered by "lt". Letter case of what
/// is typed does not count.
class Keywords {
 public:
  Keywords() = default;
  explicit Keywords(std::string_view list);

  bool empty() const { return words_.empty(); }
  const std::vector<std::string>& words() const { return words_; }
  /// The keyword, as spelled in the list, whose whole or whose abbreviation this is.
  std::optional<std::string> find(std::string_view typed) const;
  /// The one keyword that begins so.
  std::optional<std::string> find_by_beginning(std::string_view typed) const;
  /// "U, L or T", for messages.
  std::string in_words() const;

 private:
  std::vector<std::string> words_;
};

}  // namespace velmar::embedded
