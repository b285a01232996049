#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "drawing/drawing.h"
#include "render/block_sizes.h"
#include "render/canvas.h"
#include "render/hatches.h"
#include "render/kept_kinds.h"
#include "render/settings.h"
#include "render/shapes.h"
#include "render/texts.h"
#include "render/viewports.h"

namespace velmar::render {

/// Entities that are drawn in colours of their own, in place of those of the drawing, and the
/// colour of all others. What stands in a marked block reference is marked with it.
struct Marks {
  enum class Show { rest, marked };

  std::map<drawing::RecordId, Color> colors;
  Color rest = {};
  Show show = Show::rest;
};

/// Draws spaces of a drawing: layers that are switched off or frozen are left out, as is what
/// cannot be seen at the size of the picture.
class Scene {
 public:
  Scene(const drawing::Drawing& drawing, const SettingOptions& options,
        const Marks* marks = nullptr);

  void draw(drawing::SpaceId space, const Canvas& canvas);
  /// What the space's visible entities cover, in world coordinates; empty where there are none.
  drawing::Box extents(drawing::SpaceId space);
  /// What was left out though it is there, and why; a line each.
  std::vector<std::string> warnings() const;

 private:
  /// Where something is drawn, and what it takes over from there.
  struct Place {
    Canvas canvas;
    Setting outer;
    int depth = 0;
    double pattern_scale = 1;
    const std::vector<drawing::LayerId>* frozen = nullptr;  // in a viewport
    std::optional<Color> mark = {};
    PointStyle points = {};

    Place within(const drawing::Matrix& inner, const Setting& setting) const;
  };

  void draw_entities(const std::vector<drawing::RecordId>& entities, const Place& place);
  void draw_entity(drawing::RecordId id, Place place);
  void draw_known(drawing::RecordId id, const drawing::Entity& entity, const Place& place,
                  const Setting& setting);
  void draw_body(drawing::RecordId id, const drawing::Body& body, const Place& place,
                 const Look& look);
  void draw_kept(const KeptShape& shape, const Place& place, const Setting& setting);
  void draw_reference(const drawing::Insert& insert, const Place& place, const Setting& setting);
  void draw_attributes(drawing::RecordId id, const drawing::Insert& insert, const Place& place,
                       const Setting& setting);
  void draw_cells(const drawing::Insert& insert, drawing::SpaceId block, const Place& place,
                  const Setting& setting);
  void draw_dimension(drawing::RecordId id, const drawing::Dimension& dimension, const Place& place,
                      const Setting& setting);
  void draw_definition(const drawing::Attdef& definition, const Place& place, const Look& look);
  void draw_viewport(drawing::RecordId id, Place& place);
  bool is_hidden(const drawing::Record& record, const Setting& outer,
                 const std::vector<drawing::LayerId>* frozen) const;
  bool is_seen(drawing::RecordId id) const;
  bool takes_mark(drawing::RecordId id, Place& place);
  bool may_enter(drawing::SpaceId block, const Place& place);

  const drawing::Drawing& drawing_;
  Settings settings_;
  const Marks* marks_;
  BlockSizes sizes_;
  TextDrawer texts_;
  HatchDrawer hatches_;
  PointStyle points_;
  bool patterns_on_paper_ = true;
  std::vector<drawing::SpaceId> within_;  // blocks that are being drawn, each in the one before
  std::size_t most_visits_, visits_ = 0;
  bool too_many_ = false, too_deep_ = false;
  std::map<std::string, std::size_t> not_drawn_;  // by kind
  std::vector<std::string> failures_;
};

}  // namespace velmar::render
