#include "render/settings.h"

#include <cmath>
#include <cstdlib>

#include "drawing/color_index.h"
#include "drawing/name.h"

namespace velmar::render {
namespace {

constexpr Color white{255, 255, 255}, black{0, 0, 0}, night{33, 33, 33};
constexpr std::int32_t by_block = 0, by_layer = 256, contrast = 7;
constexpr std::int32_t weight_by_layer = -1, weight_by_block = -2;

Color color_of(std::int32_t rgb) {
  return {static_cast<std::uint8_t>(rgb >> 16 & 0xFF), static_cast<std::uint8_t>(rgb >> 8 & 0xFF),
          static_cast<std::uint8_t>(rgb & 0xFF)};
}

double number(const std::optional<std::string>& text, double otherwise) {
  if (!text) return otherwise;
  const double value = std::strtod(text->c_str(), nullptr);
  return value > 0 && std::isfinite(value) ? value : otherwise;
}

DashPattern read_pattern(const drawing::Drawing& drawing, drawing::RecordId row) {
  constexpr int dash_code = 49;
  DashPattern pattern;
  for (const drawing::TagValue& tag : drawing.tags(row)) {
    const double* const dash = std::get_if<double>(&tag.value);
    if (tag.code == dash_code && dash != nullptr && std::isfinite(*dash)) pattern.push_back(*dash);
  }
  return pattern;
}

}  // namespace

Color paper_color(Background background) { return background == Background::dark ? night : white; }

Settings::Settings(const drawing::Drawing& drawing, const SettingOptions& options)
    : drawing_(drawing), options_(options) {
  linetype_scale_ = number(drawing.header("$LTSCALE"), 1);
  for (const drawing::RecordId row : drawing.rows("LTYPE")) {
    DashPattern pattern = read_pattern(drawing, row);
    if (!(period(pattern) > 0)) continue;
    patterns_.emplace(drawing::folded_name(drawing.read_linetype(row).name), std::move(pattern));
  }
  const Color own = color(contrast, -1, black);
  no_layer_ = {own, nullptr, default_weight_, true};
  constexpr int true_color_code = 420;
  for (const drawing::Layer& layer : drawing.layers()) {
    std::int32_t rgb = -1;
    if (layer.record != drawing::RecordId::none) {
      const std::string text = drawing.row_text(layer.record, true_color_code);
      if (!text.empty()) rgb = static_cast<std::int32_t>(std::strtol(text.c_str(), nullptr, 10));
    }
    layers_.push_back(
        {color(std::abs(std::max(layer.color, -by_layer)), rgb, own), pattern(layer.linetype),
         layer.lineweight >= 0 ? layer.lineweight : default_weight_, layer.name == "0"});
  }
}

const DashPattern* Settings::pattern(const std::string& linetype) const {
  const auto found = patterns_.find(drawing::folded_name(linetype));
  return found == patterns_.end() ? nullptr : &found->second;
}

const Settings::LayerSetting& Settings::layer(drawing::LayerId id) const {
  return index(id) < layers_.size() ? layers_[index(id)] : no_layer_;
}

Setting Settings::outermost() const {
  Setting setting;
  setting.color = color(contrast, -1, black);
  return setting;
}

drawing::LayerId Settings::layer_of(const drawing::Record& record, const Setting& outer) const {
  return outer.in_block && layer(record.layer).is_zero ? outer.layer : record.layer;
}

Color Settings::color(std::int32_t index, std::int32_t rgb, Color otherwise) const {
  if (options_.tint) return *options_.tint;
  if (rgb >= 0) return color_of(rgb);
  if (index == contrast) return options_.background == Background::dark ? white : black;
  if (index <= by_block || index >= by_layer) return otherwise;
  return color_of(drawing::rgb_of_index(index));
}

Setting Settings::of(const drawing::Record& record, const drawing::Common& common,
                     const Setting& outer) const {
  Setting setting;
  setting.in_block = outer.in_block;
  setting.layer = layer_of(record, outer);
  const LayerSetting& on = layer(setting.layer);
  setting.color =
      color(common.color, common.true_color, common.color == by_block ? outer.color : on.color);
  if (options_.tint) setting.color = *options_.tint;
  const bool of_layer = drawing::same_name(common.linetype, "ByLayer");
  setting.pattern = of_layer                                         ? on.pattern
                    : drawing::same_name(common.linetype, "ByBlock") ? outer.pattern
                                                                     : pattern(common.linetype);
  const double own_scale = common.linetype_scale;
  setting.pattern_scale = linetype_scale_ * (own_scale > 0 ? own_scale : 1);
  setting.lineweight = common.lineweight == weight_by_layer   ? on.lineweight
                       : common.lineweight == weight_by_block ? outer.lineweight
                       : common.lineweight < 0                ? default_weight_
                                                              : common.lineweight;
  return setting;
}

Look Settings::look(const Setting& setting, double pattern_scale) const {
  Look look;
  look.ink = {setting.color, 1};
  look.width = options_.hairline;
  if (options_.lineweights) {
    constexpr double hundredths_per_inch = 2540;
    const double width = setting.lineweight / hundredths_per_inch * options_.units_per_inch;
    look.width = std::max(width, options_.hairline / 2);
  }
  look.pattern = setting.pattern;
  look.pattern_scale = setting.pattern_scale * pattern_scale;
  look.dashes = &dashes_;
  return look;
}

bool Settings::is_frozen(drawing::LayerId layer) const {
  return !options_.all_layers && index(layer) < drawing_.layers().size() &&
         drawing_.layer(layer).frozen();
}

bool Settings::shows(drawing::LayerId layer) const {
  return !is_frozen(layer) && (options_.all_layers || index(layer) >= drawing_.layers().size() ||
                               drawing_.layer(layer).on());
}

}  // namespace velmar::render
