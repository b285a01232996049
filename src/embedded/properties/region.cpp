#include <array>

#include "embedded/errors.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Region;

Value known(std::optional<double> size, const Region& region, std::string_view what) {
  if (size) return *size;
  throw not_supported(std::string(what) + " of REGION (" + why_unknown(region) + ")");
}

constexpr std::array region_rows{
    Property<Region>{Member::Area,
                     [](const Region& region) { return known(area(region), region, "Area"); }},
    Property<Region>{
        Member::Perimeter,
        [](const Region& region) { return known(perimeter(region), region, "Perimeter"); }},
};

}  // namespace

std::span<const Property<Region>> properties(const Region&) { return region_rows; }

}  // namespace velmar::embedded
