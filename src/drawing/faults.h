#pragma once

#include <map>
#include <string>
#include <vector>

#include "drawing/store.h"

namespace velmar::drawing {

/// Faults that are found, in any order; listed with their lines in the order of the file.
class Faults {
 public:
  explicit Faults(const Store& store) : store_(store) {}

  /// `sort` bounds how many are kept of what looks alike; `offset` is within the record.
  void add(std::string_view sort, RecordId id, std::size_t offset, std::string text);
  /// Once for each text.
  void add_once(std::string_view sort, RecordId id, std::size_t offset, std::string text);

  std::vector<Warning> list() const;

 private:
  struct Fault {
    RecordId id;
    std::size_t offset;
    std::string text;
  };
  static constexpr std::size_t most_of_a_sort = 100;

  const Store& store_;
  std::vector<Fault> faults_;
  std::map<std::string, std::size_t, std::less<>> counts_;
  std::set<std::string> told_;
};

}  // namespace velmar::drawing
