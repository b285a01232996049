#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velmar {

/// A code that not all commands with a kind argument know.
struct MoreKind {
  std::string_view code, type_word;
};

/// The commands that count know none of these.
inline constexpr MoreKind relayered_kinds[] = {{"D", "DimAligned"}, {"d", "DimAligned"}};
inline constexpr MoreKind coloured_kinds[] = {{"", "Line"}};
// Kept: "D" in capitals alone, and a dimension of another kind than the one above.
inline constexpr MoreKind colour_to_layer_kinds[] = {{"", "Line"}, {"D", "RotatedDimension"}};

/// The host's class of a kind argument. What is no code is a class already.
std::string class_named(std::string_view kind, std::span<const MoreKind> more = {});

}  // namespace velmar
