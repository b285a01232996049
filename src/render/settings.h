#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "drawing/drawing.h"
#include "render/canvas.h"

namespace velmar::render {

enum class Background { light, dark };
Color paper_color(Background background);

/// What an entity's colour, linetype and lineweight come to, and what the content of a block
/// reference takes over from it.
struct Setting {
  drawing::LayerId layer = drawing::LayerId::none;
  Color color = {};
  const DashPattern* pattern = nullptr;
  double pattern_scale = 1;
  std::int32_t lineweight = 25;  // hundredths of a millimetre
  bool in_block = false;
};

struct SettingOptions {
  Background background = Background::light;
  bool lineweights = false;               // else all lines are hairlines
  bool all_layers = false;                // those that are off or frozen too
  double hairline = 1;                    // in picture units
  double units_per_inch = 96;             // of the picture
  std::optional<Color> tint = {};         // of everything, in place of its own colour
  std::size_t most_entities = 2'000'000;  // that are drawn, those within blocks counted each time
};

/// Looks up what layers, blocks and the tables of a drawing say of how entities look.
class Settings {
 public:
  Settings(const drawing::Drawing& drawing, const SettingOptions& options);

  /// Of what stands in a space by itself.
  Setting outermost() const;
  /// What is on layer 0 in a block is on the layer of the reference.
  drawing::LayerId layer_of(const drawing::Record& record, const Setting& outer) const;
  Setting of(const drawing::Record& record, const drawing::Common& common,
             const Setting& outer) const;
  /// By index or, where it is not -1, as 0xRRGGBB; `otherwise` for colours that are of others.
  Color color(std::int32_t index, std::int32_t rgb, Color otherwise) const;
  /// `pattern_scale` is of the place: paper shows patterns in its own size.
  Look look(const Setting& setting, double pattern_scale) const;

  /// On and thawed.
  bool shows(drawing::LayerId layer) const;
  bool is_frozen(drawing::LayerId layer) const;
  Color background() const { return paper_color(options_.background); }
  void tint(std::optional<Color> color) { options_.tint = color; }
  bool is_tinted() const { return options_.tint.has_value(); }
  /// Lines without the dashes of their linetype, for their number.
  std::size_t drawn_through() const { return dashes_.drawn_through; }

 private:
  struct LayerSetting {
    Color color;
    const DashPattern* pattern;
    std::int32_t lineweight;
    bool is_zero;
  };
  const LayerSetting& layer(drawing::LayerId id) const;
  const DashPattern* pattern(const std::string& linetype) const;

  const drawing::Drawing& drawing_;
  SettingOptions options_;
  double linetype_scale_ = 1;
  std::int32_t default_weight_ = 25;
  std::map<std::string, DashPattern> patterns_;  // by folded name
  std::vector<LayerSetting> layers_;
  LayerSetting no_layer_;
  mutable DashBudget dashes_;  // spent by the looks
};

}  // namespace velmar::render
