#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace velmar::drawing {

/// A subclass that later releases divide a record into, and which group codes of R12 it holds.
struct R12Part {
  std::string_view marker;
  std::span<const std::int16_t> codes;
};

/// Flags (group 70) of a record, and of the POLYLINE that a VERTEX belongs to: they decide which
/// subclasses it has.
struct R12Flags {
  std::int64_t own = 0, polyline = 0;
  bool is_array = false;  // of an INSERT
};

/// The parts of an entity or a row of a table as R12 knows it; empty for kinds that R12 does not
/// have.
std::span<const R12Part> r12_parts(std::string_view kind, const R12Flags& flags = {});
/// Whether R12 has the kind of entity.
bool is_r12_kind(std::string_view kind);
/// Whether a record of that kind has the group code in R12, whichever its subclasses.
bool is_r12_code(std::string_view kind, int code);
/// Whether it is one that every entity has: layer, linetype, colour, paper space.
bool is_r12_common(int code);

}  // namespace velmar::drawing
