#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/dimension/arrowheads.h"
#include "drawing/dimension/drawn_block.h"
#include "drawing/dimension/layout.h"
#include "drawing/dimension/measured_text.h"
#include "drawing/dimension/styles.h"
#include "drawing/dxf/tag.h"
#include "drawing/geometry/angle.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

Point unit_vector(double angle) { return {std::cos(angle), std::sin(angle), 0}; }

/// An index; or a method in the highest byte, and the colour in the others, as newer programs
/// write.
void set_color(Common& common, std::int32_t color) {
  enum Method : std::uint32_t { by_layer = 0xC0, by_block = 0xC1, rgb = 0xC2, indexed = 0xC3 };
  constexpr std::int32_t of_layer = 256, low_bytes = 0xFFFFFF;
  common.color = 0;
  const std::uint32_t method = static_cast<std::uint32_t>(color) >> 24;
  if (color >= 0 && color <= of_layer) common.color = color;
  if (method == by_layer) common.color = of_layer;
  if (method == indexed) common.color = std::min(color & low_bytes, of_layer);
  if (method == rgb) common.true_color = color & low_bytes;
}

double number_in(const Drawing& drawing, RecordId row, int code, double otherwise) {
  if (row == RecordId::none) return otherwise;
  const std::string text = drawing.row_text(row, code);
  dxf::Tag tag;
  tag.value_end = static_cast<std::uint32_t>(text.size());
  return dxf::real_value(text, tag, {}).value_or(otherwise);
}

std::string_view mark_of(const Dimension& dimension) {
  if (dimension.type() == Dimension::radius) return "R";
  return dimension.type() == Dimension::diameter ? "%%c" : "";
}

/// Draws one dimension.
class Drawer {
 public:
  Drawer(const Drawing& drawing, RecordId id)
      : drawing_(drawing),
        dimension_(std::get<Dimension>(drawing.read_body(id))),
        v_(variables_of(drawing, id)),
        world_(ocs_to_world(dimension_.normal)),
        is_r12_(drawing.version() < "AC1012") {
    const RecordId style = drawing.find_row("STYLE", text_style());
    const double fixed = number_in(drawing, style, 40, 0);
    text_height_ = fixed > 0 ? fixed : v_.text_height * v_.factor();
    width_factor_ = std::max(number_in(drawing, style, 41, 1), 1e-6);
    const TextForm form = is_r12_ ? TextForm::plain : TextForm::mtext;
    const double size = measured(drawing, id);
    text_ = dimension_.is_angular()
                ? measured_angle_text(size, dimension_.text, v_, angle_format(drawing, id), form)
                : measured_text(size, dimension_.text, v_, form, mark_of(dimension_));
  }

  DimensionLayout layout() const {
    const auto trim = [&](bool second) {
      return v_.tick_size > 0 ? 0 : arrowhead_trim(arrow_name(second));
    };
    return lay_out(dimension_, v_, room(), {trim(false), trim(true)});
  }

  std::vector<Entity> content() {
    const DimensionLayout laid = layout();
    for (const Stretch& line : laid.extensions) {
      add_line(line, v_.extension_color, v_.extension_weight);
    }
    for (const Stretch& line : laid.lines) add_line(line, v_.line_color, v_.line_weight);
    for (const ArcStretch& arc : laid.arcs) add_arc(arc);
    if (laid.first_arrow) add_arrow(*laid.first_arrow, false);
    if (laid.second_arrow) add_arrow(*laid.second_arrow, true);
    if (!text_.empty()) add_text(laid);
    for (const Point& point : definition_points(laid)) add_definition_point(point);
    return std::move(content_);
  }

 private:
  std::string text_style() const { return v_.text_style.empty() ? "Standard" : v_.text_style; }

  std::string arrow_name(bool second) const {
    if (v_.separate_arrows == 0) return arrow_block(drawing_, v_.arrow);
    return arrow_block(drawing_, second ? v_.arrow2 : v_.arrow1);
  }

  Common look(std::int32_t color, std::int32_t weight) const {
    Common common;
    common.linetype = "ByBlock";
    set_color(common, color);
    if (drawing_.version() >= "AC1015") common.lineweight = weight;
    return common;
  }

  void add_line(const Stretch& line, std::int32_t color, std::int32_t weight) {
    content_.push_back({look(color, weight), Line{world_(line.from), world_(line.to)}});
  }

  void add_arc(const ArcStretch& stretch) {
    Arc arc;
    arc.center = stretch.center;
    arc.radius = stretch.radius;
    arc.start_angle = wrapped(stretch.start);
    arc.end_angle = wrapped(stretch.end);
    arc.normal = dimension_.normal;
    content_.push_back({look(v_.line_color, v_.line_weight), arc});
  }

  void add_arrow(const ArrowPlace& place, bool second) {
    const std::string name = arrow_name(second);
    const Common common = look(v_.line_color, v_.line_weight);
    if (v_.tick_size > 0) return add_tick(place);
    if (name.empty()) return add_closed_arrow(place);
    Insert insert;
    insert.block = name;
    insert.insertion = place.tip;
    insert.x_scale = insert.y_scale = insert.z_scale = v_.arrow_size * v_.factor();
    insert.rotation = place.angle;
    insert.normal = dimension_.normal;
    if (insert.x_scale > 0) content_.push_back({common, insert});
  }

  void add_tick(const ArrowPlace& place) {
    const Point half = unit_vector(place.angle + std::numbers::pi / 4) *
                       (v_.tick_size * v_.factor() * std::numbers::sqrt2);
    add_line({place.tip - half, place.tip + half}, v_.line_color, v_.line_weight);
  }

  void add_closed_arrow(const ArrowPlace& place) {
    constexpr double half_width = 1.0 / 6;
    const double size = v_.arrow_size * v_.factor();
    const Point along = unit_vector(place.angle) * size, across = Point{-along.y, along.x, 0};
    const Point base = place.tip - along;
    Solid solid;
    solid.corners = {base - across * half_width, base + across * half_width, place.tip, place.tip};
    solid.normal = dimension_.normal;
    if (size > 0) content_.push_back({look(v_.line_color, v_.line_weight), solid});
  }

  MText mtext() const {
    constexpr std::int32_t middle = 5;
    MText mtext;
    mtext.height = text_height_;
    mtext.attachment = middle;
    mtext.text = text_;
    mtext.style = text_style();
    mtext.look = drawing_.look(mtext.style);
    return mtext;
  }

  Text text() const {
    constexpr std::int32_t center = 1, vertical_middle = 2;
    Text text;
    text.height = text_height_;
    text.width_factor = width_factor_;
    text.text = text_;
    text.style = text_style();
    text.font = drawing_.look(text.style).font;
    text.horizontal = center;
    text.vertical = vertical_middle;
    return text;
  }

  TextRoom room() const {
    if (text_.empty()) return {};
    const Box box = is_r12_ ? extents(text()) : extents(mtext());
    if (box.empty()) return {};
    return {box.max.x - box.min.x, std::max(box.max.y - box.min.y, text_height_)};
  }

  void add_text(const DimensionLayout& laid) {
    const Common common = look(v_.text_color, -1);
    if (is_r12_) {
      Text placed = text();
      placed.alignment_point = laid.text_middle;
      placed.rotation = laid.text_angle;
      placed.normal = dimension_.normal;
      place(placed);
      content_.push_back({common, placed});
    } else {
      MText placed = mtext();
      placed.insertion = world_(laid.text_middle);
      placed.direction = world_.direction(unit_vector(laid.text_angle));
      placed.normal = dimension_.normal;
      content_.push_back({common, placed});
    }
    if (v_.text_gap < 0) add_frame(laid);
  }

  /// A negative gap asks for a box around the text.
  void add_frame(const DimensionLayout& laid) {
    const double gap = -v_.text_gap * v_.factor();
    const TextRoom size = room();
    const Point x = unit_vector(laid.text_angle) * (size.width / 2 + gap);
    const Point y = unit_vector(laid.text_angle + std::numbers::pi / 2) * (size.height / 2 + gap);
    const Point m = laid.text_middle;
    const Point corners[] = {m - x - y, m + x - y, m + x + y, m - x + y};
    for (std::size_t i = 0; i < 4; ++i) {
      add_line({corners[i], corners[(i + 1) % 4]}, v_.line_color, v_.line_weight);
    }
  }

  std::vector<Point> definition_points(const DimensionLayout& laid) const {
    const Point definition = world_(laid.definition);
    switch (dimension_.type()) {
      case Dimension::diameter:
      case Dimension::radius:
        return {definition, dimension_.third};
      case Dimension::angular_3_point:
        return {dimension_.first, dimension_.second, dimension_.third, definition};
      case Dimension::angular_2_line:
        return {dimension_.first, dimension_.second, dimension_.third, definition,
                world_(dimension_.arc_point)};
      default:
        return {dimension_.first, dimension_.second, definition};
    }
  }

  void add_definition_point(Point point) {
    Common common;
    common.layer = "Defpoints";
    common.color = 0;
    PointMark mark;
    mark.position = point;
    content_.push_back({common, mark});
  }

  const Drawing& drawing_;
  Dimension dimension_;
  DimVariables v_;
  Matrix world_;
  bool is_r12_;
  double text_height_ = 0, width_factor_ = 1;
  std::string text_;
  std::vector<Entity> content_;
};

}  // namespace

std::vector<Entity> drawn_content(const Drawing& drawing, RecordId id) {
  return Drawer(drawing, id).content();
}

DimensionLayout layout_of(const Drawing& drawing, RecordId id) {
  return Drawer(drawing, id).layout();
}

}  // namespace velmar::drawing
