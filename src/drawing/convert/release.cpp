#include "drawing/convert/release.h"

#include <algorithm>
#include <array>

#include "drawing/name.h"

namespace velmar::drawing {
namespace {

constexpr std::array known_releases{
    Release{"R12", r12},    Release{"2000", r2000}, Release{"2004", r2004}, Release{"2007", r2007},
    Release{"2010", r2010}, Release{"2013", r2013}, Release{"2018", r2018}};

}  // namespace

std::span<const Release> releases() { return known_releases; }

const Release* find_release(std::string_view name) {
  const auto found = std::ranges::find_if(known_releases, [&](const Release& release) {
    return same_name(release.name, name) || same_name(release.version, name);
  });
  return found == known_releases.end() ? nullptr : &*found;
}

std::string_view release_name(std::string_view version) {
  const Release* const release = find_release(version);
  return release != nullptr ? release->name : version;
}

}  // namespace velmar::drawing
