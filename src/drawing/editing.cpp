#include <algorithm>

#include "drawing/dimension/drawn_block.h"
#include "drawing/drawing.h"
#include "drawing/dxf/field_reader.h"
#include "drawing/dxf/field_writer.h"
#include "drawing/dxf/reactors.h"
#include "drawing/dxf/record_edit.h"
#include "drawing/erasing.h"
#include "drawing/kind_bodies.h"
#include "drawing/store.h"
#include "drawing/tolerance_style.h"

namespace velmar::drawing {
namespace {

void refuse_problem(const Store& store, RecordId id, const std::optional<dxf::Problem>& problem) {
  if (problem) throw Error(store.where(id, problem->offset) + ": " + problem->text);
}

template <class... Lists>
void read_record(const Store& store, RecordId id, Lists&... lists) {
  const dxf::RecordTags record(store.bytes(id), store.format);
  dxf::FieldReader reader(record);
  (fields(reader, lists), ...);
  refuse_problem(store, id, reader.problem());
}

/// A text value of a subclass without reading the record further than that, with the pieces of it
/// in groups `before`; empty inside where the subclass has no such group, and outside where the
/// record has no such subclass.
std::optional<std::optional<std::string>> text_in_subclass(const Store& store, RecordId id,
                                                           std::string_view subclass, int code,
                                                           int before = 0) {
  constexpr int marker_code = 100, embedded_code = 101, group_code = 102;
  const std::string_view bytes = store.bytes(id);
  dxf::TagCursor cursor(bytes, store.format);
  dxf::Tag tag;
  std::string joined;
  bool is_inside = false, in_group = false;
  while (cursor.next(tag)) {
    if (tag.code == group_code) in_group = tag.text(bytes).starts_with('{');
    if (is_inside && !in_group && tag.code == before) joined += tag.text(bytes);
    if (is_inside && !in_group && tag.code == code) {
      return dxf::decode_text(joined.append(tag.text(bytes)), store.format);
    }
    if (tag.code != marker_code && tag.code != embedded_code) continue;
    if (is_inside) break;
    is_inside = tag.text(bytes) == subclass;
  }
  if (!is_inside) return std::nullopt;
  return std::optional<std::string>();
}
/// Whether a record is one that was just begun, which gets all its subclass markers, or one that
/// has what it needs.
enum class State { begun, complete };

/// Brings a record to the values of the lists; false if they are the same.
template <class... Lists>
bool write_record(Store& store, RecordId id, State state, const Lists&... lists) {
  const std::string_view before = store.bytes(id);
  const dxf::RecordTags record(before, store.format);
  dxf::FieldWriter writer(record, state == State::begun);
  (fields(writer, const_cast<Lists&>(lists)), ...);
  if (!writer.changed()) return false;
  std::string bytes = writer.result();
  if (store.at(id).is(Record::handle_is_ours) && store.format.has_subclasses()) {
    store.remember(id);
    bytes = dxf::with_handle(bytes, store.at(id).handle, store.format);
    store.at(id).flags &= static_cast<std::uint16_t>(~Record::handle_is_ours);
    store.gave_handles = true;
  }
  store.patch(id, std::move(bytes));
  return true;
}

void follow_common(Store& store, RecordId id, const Common& common) {
  store.remember(id);
  store.at(id).layer = store.layer_named(common.layer);
  store.at(id).color = static_cast<std::int16_t>(common.color);
}

/// The owner that entities of a space name; nothing where the format has no owners.
std::optional<Handle> owner_of(const Store& store, SpaceId space) {
  const Handle owner = store.spaces[index(space)].owner;
  if (!store.format.has_subclasses() || owner == 0) return std::nullopt;
  return owner;
}

bool is_paper(const Store& store, SpaceId space) {
  return space != SpaceId::model && store.spaces.at(index(space)).is_layout;
}

/// Where a new record goes, and what it says of that.
struct Place {
  RecordId before;
  SpaceId space;
  std::optional<Handle> owner;
  bool in_paper_space;
};

/// The head of a new record, for the field writer to complete.
std::string new_bytes(const Store& store, const NewRecord& names, Handle handle, const Place& place,
                      const std::string& layer) {
  const dxf::Format& format = store.format;
  std::string bytes;
  dxf::append_text(bytes, 0, names.kind, format);
  if (store.has_handles) dxf::append_text(bytes, 5, handle_text(handle), format);
  if (place.owner) dxf::append_text(bytes, 330, handle_text(*place.owner), format);
  if (format.has_subclasses()) dxf::append_text(bytes, 100, "AcDbEntity", format);
  if (place.in_paper_space) dxf::append_integer(bytes, 67, 1, format);
  dxf::append_text(bytes, 8, layer, format);
  for (const std::string_view marker : {names.marker, names.second_marker}) {
    if (format.has_subclasses() && !marker.empty()) dxf::append_text(bytes, 100, marker, format);
  }
  return bytes;
}

/// Where a new entity of the space goes: it stands before this record.
RecordId end_of(const Store& store, SpaceId id) {
  const Space& space = store.spaces[index(id)];
  const bool in_entities = id == SpaceId::model || same_name(space.name, "*Paper_Space") ||
                           same_name(space.name, "$PAPER_SPACE");
  const RecordId end = in_entities ? store.landmarks.end_of_entities : space.endblk;
  if (end == RecordId::none) {
    throw Error(store.name + ": nothing can be added to " + space.name +
                ": the file has no place for its entities");
  }
  return end;
}

Record record_for(Kind kind, SpaceId space) {
  Record record;
  record.kind = kind;
  record.space = space;
  return record;
}

template <class T>
RecordId add_record(Store& store, const Place& place, const NewRecord& names, const Common& common,
                    const T& fields_of, std::uint16_t flags = 0) {
  Record record = record_for(store.kind_named(names.kind), place.space);
  record.flags = flags;
  const RecordId id = store.add(place.before, record, {});
  const Handle handle = store.give_handle(id);
  store.added_since_save.insert(static_cast<std::uint32_t>(id));
  store.patches[static_cast<std::uint32_t>(id)] =
      new_bytes(store, names, handle, place, common.layer);
  write_record(store, id, State::begun, common, fields_of);
  follow_common(store, id, common);
  // A part is no entity of its own in what is told of changes.
  if (record.is(Record::part)) store.added_since_save.erase(static_cast<std::uint32_t>(id));
  return id;
}

/// Parts have nothing of their own but the layer of the entity they belong to.
Common common_of_part(const Common& whole) {
  Common common;
  common.layer = whole.layer;
  return common;
}

void add_vertex(Store& store, const Place& place, const Common& common,
                const PolylineVertex& vertex, bool is_2d) {
  const NewRecord names{"VERTEX", "AcDbVertex", is_2d ? "AcDb2dVertex" : "AcDb3dPolylineVertex"};
  add_record(store, place, names, common_of_part(common), vertex, Record::part);
}

void add_seqend(Store& store, const Place& place, const Common& common) {
  add_record(store, place, {"SEQEND"}, common_of_part(common), Opaque{}, Record::part);
}

/// Writes the vertices of a polyline into its VERTEX records; adds or erases some at the end where
/// the number differs.
void write_vertices(Store& store, RecordId id, const std::vector<RecordId>& parts,
                    const Polyline& polyline) {
  for (std::size_t i = 0; i < std::min(parts.size(), polyline.vertices.size()); ++i) {
    write_record(store, parts[i], State::complete, polyline.vertices[i]);
  }
  for (std::size_t i = polyline.vertices.size(); i < parts.size(); ++i) {
    store.patch(parts[i], std::string(store.bytes(parts[i])));
    mark_erased(store, parts[i]);
  }
  RecordId behind = store.next(parts.empty() ? id : parts.back());
  const Record whole = store.at(id);
  Common common;
  common.layer = store.layers[index(whole.layer)].name;
  const bool owned_by_polyline = store.format.has_subclasses();
  const Place place{behind, whole.space,
                    owned_by_polyline ? std::optional(whole.handle) : std::nullopt, false};
  for (std::size_t i = parts.size(); i < polyline.vertices.size(); ++i) {
    add_vertex(store, place, common, polyline.vertices[i], polyline.is_2d());
  }
}

/// In R12 there are no lightweight polylines.
Polyline heavy(const LwPolyline& light) {
  Polyline polyline;
  polyline.flags = light.flags;
  polyline.elevation_point.z = light.elevation;
  polyline.thickness = light.thickness;
  polyline.normal = light.normal;
  for (const BulgeVertex& vertex : light.vertices) {
    PolylineVertex& made = polyline.vertices.emplace_back();
    made.position = {vertex.x, vertex.y, light.elevation};
    made.start_width = light.constant_width != 0 ? light.constant_width : vertex.start_width;
    made.end_width = light.constant_width != 0 ? light.constant_width : vertex.end_width;
    made.bulge = vertex.bulge;
  }
  return polyline;
}

/// Kinds that R12 has not, though it has others like them.
void refuse_in_r12(const Store& store, const Body& body) {
  constexpr std::string_view newer[] = {"ELLIPSE", "MTEXT", "TOLERANCE", "HATCH",    "SPLINE",
                                        "LEADER",  "RAY",   "XLINE",     "OLE2FRAME"};
  const std::string_view kind = new_record(body).kind;
  if (std::ranges::find(newer, kind) != std::end(newer)) {
    const bool is_vowel = kind == "ELLIPSE" || kind == "OLE2FRAME";
    throw Error(store.name + ": an R12 drawing cannot hold " + (is_vowel ? "an " : "a ") +
                std::string(kind));
  }
}

/// What a copy of a hatch is where the original follows its boundaries: they know that one alone.
std::optional<Body> detached(const Drawing& drawing, RecordId id) {
  if (drawing.record(id).kind != Kind::hatch) return std::nullopt;
  Body body = drawing.read_body(id);
  if (std::get<Hatch>(body).associative == 0) return std::nullopt;
  detach(std::get<Hatch>(body));
  return body;
}

}  // namespace

Entity Drawing::read(RecordId id) const { return {read_common(id), read_body(id)}; }

Common Drawing::read_common(RecordId id) const {
  Common common;
  read_record(*store_, id, common);
  const LayerId on = store_->at(id).layer;
  if (on != LayerId::none) common.layer = layer(on).name;
  return common;
}

std::string Drawing::read_linetype_name(RecordId id) const {
  constexpr int linetype_code = 6;
  constexpr std::size_t ahead = 3;  // who walks will ask for these soon
  if (const std::size_t next = index(id) + ahead; next < store_->records.size()) {
    prefetch(static_cast<RecordId>(next));
  }
  const auto found = text_in_subclass(*store_, id, "AcDbEntity", linetype_code);
  if (!found) return read_common(id).linetype;
  return found->value_or(Common().linetype);
}

std::string Drawing::read_text_string(RecordId id) const {
  constexpr int text_code = 1, pieces_code = 3;
  const bool is_line = store_->at(id).kind == Kind::text;
  auto found = is_line ? text_in_subclass(*store_, id, "AcDbText", text_code)
                       : text_in_subclass(*store_, id, "AcDbMText", text_code, pieces_code);
  if (found && *found) return std::move(**found);
  const Body body = read_body(id);
  return is_line ? std::get<Text>(body).text : std::get<MText>(body).text;
}

Body Drawing::read_body(RecordId id) const {
  Body body = empty_body(store_->at(id).kind);
  std::visit([&](auto& shape) { read_record(*store_, id, shape); }, body);
  if (auto* polyline = std::get_if<Polyline>(&body)) {
    for (const RecordId part : parts(id)) {
      read_record(*store_, part, polyline->vertices.emplace_back());
    }
  }
  apply_style(body);
  if (auto* tolerance = std::get_if<Tolerance>(&body)) read_overrides(*tolerance, read_xdata(id));
  return body;
}

void Drawing::write(RecordId id, const Entity& entity) {
  write_body(id, entity.body);
  write_common(id, entity.common);
}

void Drawing::write_common(RecordId id, const Common& common) {
  write_record(*store_, id, State::complete, common);
  follow_common(*store_, id, common);
}

KeptDimension Drawing::read_kept_dimension(RecordId id) const {
  KeptDimension dimension;
  dimension.is_of_arc = store_->at(id).kind == Kind::arc_dimension;
  read_record(*store_, id, dimension);
  return dimension;
}

void Drawing::write_kept_dimension(RecordId id, const KeptDimension& dimension) {
  if (!write_record(*store_, id, State::complete, dimension)) return;
  store_->patch(id, dxf::without_preview(store_->bytes(id), store_->format));
}

void Drawing::write_body(RecordId id, const Body& body) {
  if (body.index() != empty_body(store_->at(id).kind).index()) {
    throw Error(store_->where(id, 0) + ": cannot become an entity of another kind");
  }
  std::visit([&](const auto& shape) { write_record(*store_, id, State::complete, shape); }, body);
  if (const auto* polyline = std::get_if<Polyline>(&body)) {
    write_vertices(*store_, id, parts(id), *polyline);
  }
  if (const auto* tolerance = std::get_if<Tolerance>(&body)) {
    const XData before = read_xdata(id), after = with_overrides(*store_, *this, *tolerance, before);
    if (after != before) write_xdata(id, after);
  }
}

RecordId Drawing::add(SpaceId space, const Entity& entity) {
  if (!store_->format.has_subclasses()) {
    if (const auto* light = std::get_if<LwPolyline>(&entity.body)) {
      return add(space, {entity.common, heavy(*light)});
    }
    refuse_in_r12(*store_, entity.body);
  }
  const NewRecord names = new_record(entity.body);
  if (names.kind.empty() || names.kind == "ATTRIB") {
    throw Error(store_->name + ": an entity of this kind cannot be added");
  }
  Place place{end_of(*store_, space), space, owner_of(*store_, space), is_paper(*store_, space)};
  const RecordId id = std::visit(
      [&](const auto& body) { return add_record(*store_, place, names, entity.common, body); },
      entity.body);
  if (const auto* polyline = std::get_if<Polyline>(&entity.body)) {
    if (!store_->format.has_subclasses()) {
      auto& bytes = store_->patches[static_cast<std::uint32_t>(id)];
      dxf::append_integer(bytes, 66, 1, store_->format);  // vertices follow
    } else {
      place.owner = store_->at(id).handle;
    }
    for (const PolylineVertex& vertex : polyline->vertices) {
      add_vertex(*store_, place, entity.common, vertex, polyline->is_2d());
    }
    add_seqend(*store_, place, entity.common);
  }
  store_->spaces[index(space)].entities.push_back(id);
  return id;
}

RecordId Drawing::add_reference(SpaceId space, const Common& common, Insert insert,
                                const std::vector<Entity>& attributes) {
  insert.attributes_follow = attributes.empty() ? 0 : 1;
  Place place{end_of(*store_, space), space, owner_of(*store_, space), is_paper(*store_, space)};
  const RecordId id = add_record(*store_, place, new_record(Body(insert)), common, insert);
  if (place.owner) place.owner = store_->at(id).handle;
  for (const Entity& attribute : attributes) {
    add_record(*store_, place, {"ATTRIB"}, attribute.common, std::get<Attrib>(attribute.body),
               Record::part);
  }
  if (!attributes.empty()) add_seqend(*store_, place, common);
  store_->spaces[index(space)].entities.push_back(id);
  return id;
}

void Drawing::erase(RecordId id) { erase_entity(*store_, id); }

RecordId Drawing::copy(RecordId id) { return copy_to(id, store_->at(id).space); }

RecordId Drawing::copy_to(RecordId id, SpaceId space) {
  const std::optional<Body> body = detached(*this, id);
  const RecordId before = end_of(*store_, space);
  std::vector<RecordId> originals{id};
  for (RecordId part = store_->next(id);
       index(part) < store_->records.size() && store_->at(part).is(Record::part);
       part = store_->next(part)) {
    if (!store_->at(part).is(Record::erased)) originals.push_back(part);
  }
  RecordId made = RecordId::none;
  std::optional<Handle> owner = owner_of(*store_, space);
  for (const RecordId original : originals) {
    Record record = store_->at(original);
    record.flags = record.flags & Record::part;
    const bool moves = record.space != space;
    record.space = space;
    std::string source(store_->bytes(original));
    if (moves) source = dxf::with_paper_mark(source, is_paper(*store_, space), store_->format);
    const RecordId id_of_copy = store_->add(before, record, {});
    const Handle handle = store_->give_handle(id_of_copy);
    store_->patches[static_cast<std::uint32_t>(id_of_copy)] =
        dxf::copied(source, store_->has_handles ? handle : 0, owner, store_->format);
    if (original == id) {
      made = id_of_copy;
      if (owner) owner = handle;  // parts name the entity as their owner
    }
  }
  store_->added_since_save.insert(static_cast<std::uint32_t>(made));
  store_->spaces[index(space)].entities.push_back(made);
  if (body) write_body(made, *body);
  if (store_->at(made).kind == Kind::dimension) copy_drawn_block(*this, made);
  return made;
}

void Drawing::add_reactor(RecordId id, Handle reactor) {
  if (!store_->format.has_subclasses()) return;
  store_->patch(id, dxf::with_reactor(store_->bytes(id), reactor, store_->format));
}

void Drawing::remove_reactor(RecordId id, Handle reactor) {
  std::string bytes = dxf::without_reactor(store_->bytes(id), reactor, store_->format);
  if (bytes != store_->bytes(id)) store_->patch(id, std::move(bytes));
}

}  // namespace velmar::drawing
