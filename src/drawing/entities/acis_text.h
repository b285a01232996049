#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::drawing {

/// A record of a solid model in text form (SAT): "edge $-1 $15 $16 $7 $17 forward #". Records refer
/// to one another by their place in the list, "$15".
struct AcisRecord {
  std::string kind;                // "edge", "straight-curve"
  std::vector<int> references;     // in order; -1 for none
  std::vector<double> numbers;     // behind the last reference, up to the first word
  std::vector<std::string> words;  // the others: "forward", "I"
};

/// The version and counts, then the producer, then the units.
inline constexpr std::size_t acis_header_lines = 3;

/// A line of a model as a DXF file disguises it, or the same revealed: all characters but blanks
/// are mirrored about the middle of the printable ones.
std::string mirrored(std::string_view line);

/// The records of a model from its disguised lines. Nothing where they are no such text.
std::optional<std::vector<AcisRecord>> acis_records(const std::vector<std::string>& disguised);

}  // namespace velmar::drawing
