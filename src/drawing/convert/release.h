#pragma once

#include <span>
#include <string_view>

namespace velmar::drawing {

/// A release whose DXF can be written.
struct Release {
  std::string_view name;     // "2000"
  std::string_view version;  // "AC1015", as $ACADVER has it
};

std::span<const Release> releases();
/// By its name or version, letter case aside; null for none that can be written.
const Release* find_release(std::string_view name);
/// The name of a version, or the version itself where it is none of ours: for messages.
std::string_view release_name(std::string_view version);

// Versions that begin something new.
inline constexpr std::string_view r12 = "AC1009", r2000 = "AC1015", r2004 = "AC1018",
                                  r2007 = "AC1021", r2010 = "AC1024", r2013 = "AC1027",
                                  r2018 = "AC1032";

}  // namespace velmar::drawing
