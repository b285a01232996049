#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "drawing/store.h"

namespace velmar::drawing {

/// What can be purged: rows of tables, and objects of dictionaries of styles.
enum class Purgeable : std::uint8_t {
  layer,
  linetype,
  text_style,
  dimension_style,
  application,
  block,
  multiline_style,
  leader_style,
  table_style,
  group
};
inline constexpr std::size_t purgeable_kinds = 10;

struct Candidate {
  Purgeable kind;
  RecordId record = RecordId::none;  // the row or object; of a block in R12 its BLOCK
  SpaceId space = SpaceId::none;     // of a block
  bool used = false;
};

/// All that may be purged if nothing uses it; found by name and by handle.
class Candidates {
 public:
  /// What stays whatever happens is no candidate: layer "0", Standard, layouts, what belongs to
  /// external references.
  explicit Candidates(const Store& store);

  std::vector<Candidate>& list() { return list_; }
  /// The number of the candidate, or -1.
  int named(Purgeable kind, const std::string& folded_name) const;
  int of_record(RecordId record) const;
  int of_space(SpaceId space) const;

 private:
  void add(const std::string& name, Candidate candidate);
  void add_rows(std::string_view table, Purgeable kind);
  void add_objects(std::string_view dictionary, Purgeable kind);
  void add_blocks();

  const Store& store_;
  std::vector<Candidate> list_;
  std::array<std::unordered_map<std::string, int>, purgeable_kinds> by_name_;
  std::unordered_map<std::uint32_t, int> by_record_;
  std::vector<int> by_space_;
};

}  // namespace velmar::drawing
