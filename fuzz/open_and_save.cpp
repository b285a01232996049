#include "open_and_save.h"

#include <optional>

#include "drawing/drawing.h"
#include "target.h"

namespace velmar::fuzz {
namespace {

using drawing::Drawing;
using drawing::RecordId;
using drawing::SpaceId;

/// Handles of what is drawn; entities that are damaged count too.
std::size_t count(const Drawing& drawing) {
  std::size_t all = 0;
  for (std::size_t i = 0; i < drawing.spaces().size(); ++i) {
    all += drawing.entity_count(static_cast<SpaceId>(i));
  }
  return all;
}

void look_at_all(const Drawing& drawing) {
  for (std::size_t i = 0; i < drawing.spaces().size(); ++i) {
    for (const RecordId id : drawing.entities(static_cast<SpaceId>(i))) {
      where_allowed<drawing::Error>([&] { static_cast<void>(drawing.read(id)); });
      static_cast<void>(drawing.tags(id));
      static_cast<void>(drawing.object_name(id));
      static_cast<void>(drawing.read_xdata(id));
      static_cast<void>(drawing.parts(id));
    }
  }
  static_cast<void>(drawing.check());
  static_cast<void>(drawing.broken_references());
  static_cast<void>(drawing.header_extents());
}

/// Each entity once: relayered, written back, copied or erased.
void edit_all(Drawing& drawing) {
  int turn = 0;
  for (const RecordId id : drawing.entities(SpaceId::model)) {
    where_allowed<drawing::Error>([&] {
      switch (turn++ % 4) {
        case 0: {
          drawing::Common common = drawing.read_common(id);
          common.layer = "0";
          drawing.write_common(id, common);
          break;
        }
        case 1:
          drawing.write(id, drawing.read(id));
          break;
        case 2:
          drawing.copy(id);
          break;
        default:
          drawing.erase(id);
      }
    });
  }
  where_allowed<drawing::Error>([&] { drawing.purge(); });
}

/// Nothing is expected of a drawing that was damaged: it may be more so in another form.
void expect_opens(std::string bytes, const Drawing& drawing, const char* what) {
  if (!drawing.warnings().empty()) return;
  try {
    const Drawing again = Drawing::read(std::move(bytes), "saved.dxf");
    expect(count(again) == count(drawing), std::string(what) + " has another number of entities");
  } catch (const drawing::Error& error) {
    expect(false, std::string(what) + " does not open: " + error.what());
  }
}

}  // namespace

void open_and_save(std::string bytes) {
  std::optional<Drawing> opened;
  where_allowed<drawing::Error>([&] { opened = Drawing::read(bytes, "fuzzed.dxf"); });
  if (!opened) return;
  Drawing& drawing = *opened;
  look_at_all(drawing);
  expect(drawing.bytes() == bytes, "an untouched drawing is saved as other bytes");
  for (const bool binary : {false, true}) {
    where_allowed<drawing::Error>([&] {
      drawing::ConversionTarget target;
      target.binary = binary;
      const std::string converted = drawing.convert(target).bytes;
      expect_opens(converted, drawing, binary ? "the binary form" : "the text form");
    });
  }
  edit_all(drawing);
  expect_opens(drawing.bytes(), drawing, "the edited drawing");
}

}  // namespace velmar::fuzz
