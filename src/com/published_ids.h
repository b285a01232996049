#pragma once

#include <string_view>

/// Under which names and numbers the class is published. They never change: registered macros and
/// compiled callers hold them.
namespace velmar::com {

inline constexpr std::string_view library_name = "VelmarMenu";
inline constexpr std::string_view class_name = "Velmar16";
inline constexpr std::string_view program_id = "VelmarMenu.Velmar16";
inline constexpr std::string_view interface_name = "_Velmar16";
inline constexpr std::string_view class_description = "Velmar drawing commands";
// Not COLOR: a type library has one spelling for each name in any letter case, and parameters are
// called Color.
inline constexpr std::string_view colour_type = "VELMAR_COLOR";

inline constexpr int major_version = 1, minor_version = 0;
inline constexpr std::string_view version = "1.0";

inline constexpr std::string_view library_id = "6593CA62-27F3-4C1A-9E6B-40AF6BBCEF9E";
inline constexpr std::string_view class_id = "3129D1B1-F448-4351-85C4-426A3E75656D";
inline constexpr std::string_view interface_id = "9C826ACE-80E1-4D41-800C-BCCD4251CBC2";
inline constexpr std::string_view colour_type_id = "672572CD-05F3-4171-88AC-26349F3053DF";

}  // namespace velmar::com
