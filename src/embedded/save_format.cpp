#include "embedded/save_format.h"

#include <algorithm>
#include <array>

namespace velmar::embedded {

const SaveFormat* find_save_format(std::int32_t type) {
  static constexpr auto formats = std::to_array<SaveFormat>({
      {1, ".dxf", "AC1009"},  {4, ".dwg", "AC1012"},  {5, ".dxf", "AC1012"},
      {8, ".dwg", "AC1014"},  {9, ".dxf", "AC1014"},  {12, ".dwg", "AC1015"},
      {13, ".dxf", "AC1015"}, {14, ".dwt", "AC1015"}, {15, ".dws", "AC1015"},
      {24, ".dwg", "AC1018"}, {25, ".dxf", "AC1018"}, {26, ".dwt", "AC1018"},
      {27, ".dws", "AC1018"}, {36, ".dwg", "AC1021"}, {37, ".dxf", "AC1021"},
      {38, ".dwt", "AC1021"}, {39, ".dws", "AC1021"}, {48, ".dwg", "AC1024"},
      {49, ".dxf", "AC1024"}, {50, ".dwt", "AC1024"}, {51, ".dws", "AC1024"},
      {60, ".dwg", "AC1027"}, {61, ".dxf", "AC1027"}, {62, ".dwt", "AC1027"},
      {63, ".dws", "AC1027"}, {64, ".dwg", "AC1032"}, {65, ".dxf", "AC1032"},
      {66, ".dwt", "AC1032"}, {67, ".dws", "AC1032"},
  });
  const auto found = std::ranges::find(formats, type, &SaveFormat::type);
  return found == formats.end() ? nullptr : &*found;
}

}  // namespace velmar::embedded
