#include "render/scene.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "render/draw_order.h"
#include "render/leaders.h"

namespace velmar::render {
namespace {

using drawing::Kind;
using drawing::RecordId;
using drawing::SpaceId;

template <class Number>
Number header_number(const drawing::Drawing& drawing, std::string_view name, Number otherwise) {
  const auto text = drawing.header(name);
  if (!text) return otherwise;
  constexpr double most = 1e9;  // and what is no number is 0
  const double value = std::strtod(text->c_str(), nullptr);
  return static_cast<Number>(value >= -most && value <= most ? value : 0);
}

}  // namespace

Scene::Scene(const drawing::Drawing& drawing, const SettingOptions& options, const Marks* marks)
    : drawing_(drawing),
      settings_(drawing, options),
      marks_(marks),
      sizes_(drawing),
      texts_(settings_),
      hatches_(drawing, settings_),
      most_visits_(options.most_entities) {
  points_.mode = header_number<std::int32_t>(drawing, "$PDMODE", 0);
  points_.size = header_number<double>(drawing, "$PDSIZE", 0);
  patterns_on_paper_ = header_number<int>(drawing, "$PSLTSCALE", 1) != 0;
}

Scene::Place Scene::Place::within(const drawing::Matrix& inner, const Setting& setting) const {
  Place place = *this;
  place.canvas = canvas.within(inner);
  place.outer = setting;
  place.outer.in_block = true;
  ++place.depth;
  return place;
}

void Scene::draw(SpaceId space, const Canvas& canvas) {
  Place place{canvas, settings_.outermost()};
  place.points = points_;
  draw_entities(draw_order(drawing_, space), place);
}

void Scene::draw_entities(const std::vector<RecordId>& entities, const Place& place) {
  for (const RecordId id : entities) {
    if (++visits_ > most_visits_) {
      too_many_ = true;
      return;
    }
    draw_entity(id, place);
  }
}

bool Scene::is_hidden(const drawing::Record& record, const Setting& outer,
                      const std::vector<drawing::LayerId>* frozen) const {
  const drawing::LayerId layer = settings_.layer_of(record, outer);
  if (settings_.is_frozen(layer)) return true;
  if (frozen != nullptr && std::ranges::count(*frozen, layer) > 0) return true;
  // A reference on a layer that is off still shows what its block has on other layers.
  return record.kind != Kind::insert && !settings_.shows(layer);
}

/// Whether an entity with this mark is to be drawn now.
bool Scene::takes_mark(RecordId id, Place& place) {
  if (marks_ == nullptr) return true;
  const auto found = marks_->colors.find(id);
  if (found != marks_->colors.end()) place.mark = found->second;
  settings_.tint(place.mark ? *place.mark : marks_->rest);
  constexpr std::array by_block{Kind::insert, Kind::dimension, Kind::arc_dimension,
                                Kind::large_radial_dimension, Kind::acad_table};
  const bool holds_others = std::ranges::count(by_block, drawing_.record(id).kind) > 0;
  return holds_others || place.mark.has_value() == (marks_->show == Marks::Show::marked);
}

void Scene::draw_entity(RecordId id, Place place) {
  const drawing::Record& record = drawing_.record(id);
  if (is_hidden(record, place.outer, place.frozen) || !takes_mark(id, place)) return;
  const std::size_t depth = within_.size();
  try {
    if (record.kind == Kind::viewport) return draw_viewport(id, place);
    const drawing::Entity entity = drawing_.read(id);
    if (entity.common.invisible != 0) return;
    draw_known(id, entity, place, settings_.of(record, entity.common, place.outer));
  } catch (const drawing::Error& error) {
    within_.resize(depth);
    constexpr std::size_t most_told = 20;
    if (failures_.size() < most_told) failures_.emplace_back(error.what());
  }
}

void Scene::draw_known(RecordId id, const drawing::Entity& entity, const Place& place,
                       const Setting& setting) {
  if (const auto kept = kept_shape(drawing_, id)) {
    Place own = place;
    if (kept->is_dimension) own.points = PointStyle{};
    return draw_kept(*kept, own, setting);
  }
  if (std::holds_alternative<drawing::Opaque>(entity.body)) {
    ++not_drawn_[std::string(drawing_.kind_name(id))];
    return;
  }
  if (const auto* const insert = std::get_if<drawing::Insert>(&entity.body)) {
    draw_attributes(id, *insert, place, setting);
    return draw_reference(*insert, place, setting);
  }
  if (const auto* const dimension = std::get_if<drawing::Dimension>(&entity.body)) {
    return draw_dimension(id, *dimension, place, setting);
  }
  draw_body(id, entity.body, place, settings_.look(setting, place.pattern_scale));
}

void Scene::draw_body(RecordId id, const drawing::Body& body, const Place& place,
                      const Look& look) {
  const Canvas& canvas = place.canvas;
  if (const auto* const definition = std::get_if<drawing::Attdef>(&body)) {
    draw_definition(*definition, place, look);
  } else if (const auto* const attribute = std::get_if<drawing::Attrib>(&body)) {
    constexpr std::int32_t invisible_flag = 1;
    if ((attribute->flags & invisible_flag) == 0) texts_.draw(layout(*attribute), canvas, look);
  } else if (const auto* const text = std::get_if<drawing::Text>(&body)) {
    texts_.draw(layout(*text), canvas, look);
  } else if (const auto* const note = std::get_if<drawing::MText>(&body)) {
    texts_.draw(layout(*note), canvas, look);
  } else if (const auto* const frame = std::get_if<drawing::Tolerance>(&body)) {
    texts_.draw(layout(*frame), canvas, look);
  } else if (const auto* const hatch = std::get_if<drawing::Hatch>(&body)) {
    hatches_.draw(id, *hatch, canvas, look);
  } else if (const auto* const leader = std::get_if<drawing::Leader>(&body)) {
    draw_leader(drawing_, id, *leader, canvas, look);
  } else {
    draw_shape(body, canvas, look, place.points);
  }
}

/// In a block only a constant one is seen, by its value; elsewhere it shows its tag.
void Scene::draw_definition(const drawing::Attdef& definition, const Place& place,
                            const Look& look) {
  constexpr std::int32_t invisible_flag = 1, constant_flag = 2;
  const bool constant = (definition.flags & constant_flag) != 0;
  if (place.depth > 0 && (!constant || (definition.flags & invisible_flag) != 0)) return;
  const bool by_tag = place.depth == 0;
  texts_.draw(by_tag ? layout(shown_tag(definition)) : layout(definition), place.canvas, look);
}

void Scene::draw_kept(const KeptShape& shape, const Place& place, const Setting& setting) {
  const Look look = settings_.look(setting, place.pattern_scale);
  for (const Chain& mask : shape.masks) place.canvas.area({mask}, {settings_.background(), 1});
  for (const Chain& area : shape.areas) place.canvas.area({area}, look.ink);
  for (const Chain& line : shape.lines) place.canvas.curve(line, look);
  for (const drawing::MText& text : shape.texts) texts_.draw(layout(text), place.canvas, look);
  if (shape.block) draw_reference(*shape.block, place, setting);
}

/// Not a reference on a layer that is off whose block has nothing on other layers.
bool Scene::is_seen(RecordId id) const try {
  const drawing::Record& record = drawing_.record(id);
  if (record.kind != Kind::insert || settings_.shows(record.layer)) return true;
  const drawing::Body body = drawing_.read_body(id);
  const auto* const insert = std::get_if<drawing::Insert>(&body);
  const auto block = insert != nullptr ? shown_block(drawing_, insert->block) : std::nullopt;
  if (!block) return false;
  Setting outer = settings_.outermost();
  outer.layer = record.layer;
  outer.in_block = true;
  return std::ranges::any_of(drawing_.entities(*block), [&](RecordId inner) {
    const bool shown = drawing_.record(inner).kind != Kind::attdef;
    return shown && settings_.shows(settings_.layer_of(drawing_.record(inner), outer));
  });
} catch (const drawing::Error&) {
  return false;  // told when it is drawn
}

drawing::Box Scene::extents(SpaceId space) {
  drawing::Box box;
  const Setting outermost = settings_.outermost();
  for (const RecordId id : drawing_.entities(space)) {
    if (is_hidden(drawing_.record(id), outermost, nullptr)) continue;
    if (drawing_.record(id).kind == Kind::viewport) {
      if (const auto viewport = read_viewport(drawing_, id)) {
        for (const Point& p : viewport->border) box.add(p);
      }
      continue;
    }
    if (is_seen(id)) box.add(sizes_.entity_box(id));
  }
  return box;
}

std::vector<std::string> Scene::warnings() const {
  std::vector<std::string> lines = failures_;
  for (const auto& [kind, count] : not_drawn_) {
    lines.push_back(std::to_string(count) + " " + kind + " not drawn: this kind is not understood");
  }
  if (hatches_.too_dense() > 0) {
    lines.push_back(std::to_string(hatches_.too_dense()) +
                    " hatches drawn as an even tint: their patterns have too many lines");
  }
  if (settings_.drawn_through() > 0) {
    lines.push_back(std::to_string(settings_.drawn_through()) +
                    " lines drawn through: their linetypes have too many dashes");
  }
  if (too_many_) {
    lines.push_back("not all is drawn: the blocks come to more than " +
                    std::to_string(most_visits_) + " entities");
  }
  if (too_deep_)
    lines.emplace_back("not all is drawn: blocks are nested too deeply, perhaps in themselves");
  return lines;
}

}  // namespace velmar::render
