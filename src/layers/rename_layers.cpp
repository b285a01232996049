#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "basic/conversion.h"
#include "basic/letter_case.h"
#include "basic/strings.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::Entity;
using host::Layer;
using host::ResumeNext;

struct NamedLayer {
  Layer layer;
  std::string name;
  std::size_t entities_go_to;  // a layer's position; its own where they stay
};

/// The layers of the drawing, by position, and how their names change.
class LayerTable {
 public:
  explicit LayerTable(ResumeNext& step) : step_(step) {
    step_([&] {
      for (const Layer& layer : active_document().Layers()) {
        NamedLayer row{layer, {}, layers_.size()};
        step_([&] { row.name = layer.Name(); });
        if (!row.name.empty()) positions_[basic::folded(row.name)] = layers_.size();
        layers_.push_back(std::move(row));
      }
    });
  }

  void rename(const std::string& old_part, const std::string& new_part) {
    for (std::size_t i = 0; i < layers_.size(); ++i) {
      const std::string& name = layers_[i].name;
      if (has_fixed_name(name) || !basic::contains_ignoring_case(name, old_part)) continue;
      const int at = basic::in_str(name, old_part, basic::Compare::text);
      rename(i, basic::left(name, at - 1) + new_part + basic::mid(name, at + basic::len(old_part)));
    }
    // What went to a layer that was itself emptied later went on with what that one held.
    for (std::size_t i = layers_.size(); i-- > 0;) {
      std::size_t& target = layers_[i].entities_go_to;
      if (target > i) target = layers_[target].entities_go_to;
    }
  }

  void move_entities() const {
    const std::map<std::string, std::string> moves = emptied();
    if (moves.empty()) return;
    step_([&] {
      for (const Entity& candidate : model_space()) {
        step_([&] {
          const auto move = moves.find(candidate.Layer());
          if (move != moves.end()) candidate.Layer(move->second);
        });
      }
    });
  }

 private:
  static bool has_fixed_name(const std::string& name) {
    return name == "0" || basic::equal_ignoring_case(name, "Defpoints") ||
           name.find('|') != std::string::npos;
  }

  void rename(std::size_t i, const std::string& new_name) {
    NamedLayer& row = layers_[i];
    const auto present = positions_.find(basic::folded(new_name));
    if (present != positions_.end() && present->second != i) {
      row.entities_go_to = present->second;
      return;
    }
    step_([&] {
      row.layer.Name(new_name);
      positions_.erase(basic::folded(row.name));
      positions_[basic::folded(new_name)] = i;
      row.name = new_name;
    });
  }

  /// Each layer whose entities go to another, and that one, by name.
  std::map<std::string, std::string> emptied() const {
    std::map<std::string, std::string> moves;
    for (std::size_t i = 0; i < layers_.size(); ++i) {
      const NamedLayer& row = layers_[i];
      if (row.entities_go_to != i) moves[row.name] = layers_[row.entities_go_to].name;
    }
    return moves;
  }

  ResumeNext& step_;
  std::vector<NamedLayer> layers_;
  std::map<std::u16string, std::size_t> positions_;  // by name without its letter case
};

}  // namespace

Empty Velmar16::NmLayer(Value& StrB, std::string& StrA) {
  ResumeNext step;
  std::string old_part;
  step([&] { old_part = basic::text(StrB, system().separators()); });
  if (old_part.empty()) return {};

  LayerTable layers(step);
  layers.rename(old_part, StrA);
  layers.move_entities();
  return {};
}

}  // namespace velmar
