#include "render/multileader.h"

#include <cmath>

#include "render/leaders.h"
#include "render/tag_reader.h"

namespace velmar::render {
namespace {

/// Reads the context data of a MULTILEADER: blocks of tags within blocks, begun by texts that end
/// with a brace and ended by one. (DXF reference, MULTILEADER.)
class ContextReader {
 public:
  ContextReader(const drawing::Drawing& drawing, drawing::RecordId id)
      : drawing_(drawing), tag_(drawing, id) {}

  KeptShape shape() {
    while (tag_.next()) {
      if (opens("CONTEXT_DATA{")) {
        part_ = Part::context;
      } else if (opens("LEADER{")) {
        part_ = Part::leader;
        landing_ = Landing{};
      } else if (opens("LEADER_LINE{")) {
        part_ = Part::line;
        way_.clear();
      } else if (tag_.text() == "}") {
        close();
      } else {
        take();
      }
    }
    return finished();
  }

 private:
  enum class Part { outside, context, leader, line };
  struct Landing {
    Point at, direction;
    double length = 0;
    std::vector<Chain> ways = {};
  };

  bool opens(const char* what) const {
    return tag_.code() >= 300 && tag_.code() <= 309 && tag_.text() == what;
  }

  void close() {
    if (part_ == Part::line) {
      landing_.ways.push_back(way_);
      part_ = Part::leader;
    } else if (part_ == Part::leader) {
      landings_.push_back(landing_);
      part_ = Part::context;
    } else {
      part_ = Part::outside;
    }
  }

  void take() {
    switch (part_) {
      case Part::context:
        return take_content();
      case Part::leader:
        if (tag_.code() == 10) landing_.at = tag_.point();
        if (tag_.code() == 11) landing_.direction = tag_.point();
        if (tag_.code() == 40) landing_.length = tag_.number();
        return;
      case Part::line:
        if (tag_.code() == 10) way_.push_back(tag_.point());
        return;
      case Part::outside:
        if (tag_.code() == 290) lands_ = tag_.integer() != 0;
        if (tag_.code() == 291) has_dogleg_ = tag_.integer() != 0;
        return;
    }
  }

  void take_content() {
    switch (tag_.code()) {
      case 41:
        note_.height = tag_.number();
        return;
      case 140:
        arrow_size_ = tag_.number();
        return;
      case 304:
        note_.text = tag_.text();
        return;
      case 11:
        note_.normal = tag_.point();
        return;
      case 12:
        note_.insertion = tag_.point();
        return;
      case 13:
        note_.direction = tag_.point();
        return;
      case 43:
        note_.width = tag_.number();
        return;
      case 171:
        note_.attachment = static_cast<std::int32_t>(tag_.integer());
        return;
      case 290:
        has_note_ = tag_.integer() != 0;
        return;
      case 340:
        style_ = tag_.handle();
        return;
      default:
        take_block();
    }
  }

  void take_block() {
    if (tag_.code() == 296) has_block_ = tag_.integer() != 0;
    if (tag_.code() == 341) block_ = tag_.handle();
    if (tag_.code() == 14) insert_.normal = tag_.point();
    if (tag_.code() == 15) insert_.insertion = tag_.point();
    if (tag_.code() == 46) insert_.rotation = tag_.number();
    if (tag_.code() != 16) return;
    const Point scale = tag_.point();
    insert_.x_scale = scale.x, insert_.y_scale = scale.y, insert_.z_scale = scale.z;
  }

  KeptShape finished() {
    KeptShape shape;
    for (const Landing& landing : landings_) add_leader(landing, shape);
    if (has_note_ && !note_.text.empty()) {
      const drawing::RecordId row = drawing_.find(style_);
      constexpr int name_code = 2;
      if (row != drawing::RecordId::none) note_.style = drawing_.row_text(row, name_code);
      note_.look = drawing_.look(note_.style);
      shape.texts.push_back(note_);
    }
    if (has_block_) insert_.block = block_name();
    if (!insert_.block.empty()) shape.block = insert_;
    return shape;
  }

  void add_leader(const Landing& landing, KeptShape& shape) const {
    const bool goes_on = lands_ && has_dogleg_ && landing.length > 0;
    for (Chain way : landing.ways) {
      if (way.empty()) continue;
      way.push_back(landing.at);
      const Chain tip = arrow(way[0], way[1], arrow_size_);
      if (!tip.empty()) shape.areas.push_back(tip);
      if (goes_on) way.push_back(landing.at + landing.direction * landing.length);
      shape.lines.push_back(std::move(way));
    }
  }

  std::string block_name() const {
    for (const drawing::Space& space : drawing_.spaces()) {
      if (space.owner == block_ && block_ != 0) return space.name;
    }
    return {};
  }

  const drawing::Drawing& drawing_;
  TagReader tag_;
  Part part_ = Part::outside;
  Chain way_;
  Landing landing_;
  std::vector<Landing> landings_;
  drawing::MText note_;
  drawing::Insert insert_;
  drawing::Handle style_ = 0, block_ = 0;
  double arrow_size_ = 0;
  bool has_note_ = false, has_block_ = false, lands_ = true, has_dogleg_ = true;
};

}  // namespace

KeptShape multileader_shape(const drawing::Drawing& drawing, drawing::RecordId id) {
  return ContextReader(drawing, id).shape();
}

}  // namespace velmar::render
