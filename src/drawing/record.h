#pragma once

#include <cstddef>
#include <cstdint>

#include "drawing/error.h"
#include "drawing/kind.h"

namespace velmar::drawing {

/// Positions in the lists of a drawing; they stay what they are as long as the drawing is open.
enum class RecordId : std::uint32_t { none = 0xFFFFFFFF };
enum class SpaceId : std::uint32_t { model = 0, none = 0xFFFFFFFF };
enum class LayerId : std::uint32_t { none = 0xFFFFFFFF };

constexpr std::size_t index(RecordId id) { return static_cast<std::size_t>(id); }
constexpr std::size_t index(SpaceId id) { return static_cast<std::size_t>(id); }
constexpr std::size_t index(LayerId id) { return static_cast<std::size_t>(id); }
constexpr RecordId operator+(RecordId id, std::uint32_t n) {
  return static_cast<RecordId>(static_cast<std::uint32_t>(id) + n);
}

/// What every walk needs of a record; its body is decoded when it is asked for. A drawing has one
/// for each group 0 of the file, in the order of the file, then those added since.
struct Record {
  enum Flag : std::uint16_t {
    part = 1,             // a VERTEX, ATTRIB or SEQEND, which belongs to the entity before it
    erased = 2,           // erased since opening
    added = 4,            // not in the file it was read from
    patched = 8,          // has bytes of its own in place of the file's
    damaged = 16,         // a line of it is no DXF; kept as it is
    handle_is_ours = 32,  // the file gives none, or one that another record has
    moved = 64,           // of the source, but saved at another place of it
    // Of the history's open step.
    remembered = 128,  // as it was before
    edited = 256       // in bytes of its own, or of a part
  };

  std::size_t begin = 0;  // offset of its group 0 in the source
  Handle handle = 0;
  LayerId layer = LayerId::none;
  SpaceId space = SpaceId::none;  // where it is drawn; none for what is no entity
  Kind kind{};
  std::int16_t color = 256;
  std::uint16_t flags = 0;
  mutable std::uint16_t class_number =
      0;  // of Drawing::object_name, where it depends on the record; 0: not known yet

  bool is(Flag flag) const { return (flags & flag) != 0; }
  /// Saved before some record of the source, not where the source has it.
  bool is_placed() const { return (flags & (added | moved)) != 0; }
};
static_assert(sizeof(Record) == 32);

}  // namespace velmar::drawing
