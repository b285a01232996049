#include "cli/picture_options.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdlib>

#include "cli/usage_error.h"
#include "drawing/file_writer.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

constexpr double millimetres_per_inch = 25.4;

/// Numbers with a separator between them; nothing where the text is something else.
std::optional<std::vector<double>> numbers(const std::string& text, char separator) {
  std::vector<double> list;
  const char* at = text.c_str();
  while (true) {
    char* end = nullptr;
    const double value = std::strtod(at, &end);
    if (end == at || !std::isfinite(value)) return std::nullopt;
    list.push_back(value);
    if (*end == '\0') return list;
    if (*end != separator) return std::nullopt;
    at = end + 1;
  }
}

std::optional<std::pair<double, double>> read_size(const std::string& text) {
  if (text.empty()) return std::nullopt;
  const auto list = numbers(text, 'x');
  if (!list || list->size() != 2 || (*list)[0] < 1 || (*list)[1] < 1) {
    throw UsageError("--size " + text + ": expected WIDTHxHEIGHT, such as 1600x1200");
  }
  return std::pair((*list)[0], (*list)[1]);
}

std::optional<double> read_scale(const std::string& text) {
  if (text.empty() || text == "fit") return std::nullopt;
  const auto list = numbers(text, ':');
  if (!list || list->size() != 2 || !((*list)[0] > 0) || !((*list)[1] > 0)) {
    throw UsageError("--scale " + text + ": expected PAPER:DRAWING, such as 1:50, or \"fit\"");
  }
  return (*list)[0] / (*list)[1];
}

std::optional<render::Window> read_window(const std::string& text) {
  if (text.empty()) return std::nullopt;
  const auto list = numbers(text, ',');
  if (!list || list->size() != 4) {
    throw UsageError("--window " + text + ": expected two corners, X1,Y1,X2,Y2");
  }
  render::Window window;
  window.add({(*list)[0], (*list)[1], 0});
  window.add({(*list)[2], (*list)[3], 0});
  if (!(window.width() > 0) || !(window.height() > 0)) {
    throw UsageError("--window " + text + ": the corners make no area");
  }
  return window;
}

render::Format read_format(const std::string& output) {
  const auto format = render::format_of(drawing::utf8_path(output));
  if (!format) {
    throw UsageError("\"" + output + "\" says no kind of picture: expected .png, .svg or .pdf");
  }
  return *format;
}

}  // namespace

void PictureOptions::add_to(CLI::App& command) {
  command.add_option("--size", size,
                     "WIDTHxHEIGHT of the picture: pixels of a .png, else millimetres");
  command.add_option("--scale", scale,
                     "Such as 1:50, in true size on paper (a .png has 96 pixels an inch); as large "
                     "as fits without it");
  command.add_option("--window", window, "X1,Y1,X2,Y2: show only this part of the drawing");
  command.add_option("--margin", margin, "Around the drawing: pixels of a .png (10), else mm (5)");
  command.add_option("--background", background, "light or dark")
      ->check(CLI::IsMember({"light", "dark"}));
  command.add_flag("--all-layers", all_layers, "Draw layers that are off or frozen too");
  command.add_flag("--lineweights", lineweights, "Draw lines as wide as they are plotted");
}

PictureFile::PictureFile(const PictureOptions& options)
    : options_(options),
      format_(read_format(options.output)),
      window_(read_window(options.window)),
      scale_(read_scale(options.scale)),
      size_(read_size(options.size)) {
  if (options.margin && *options.margin < 0) {
    throw UsageError("--margin " + std::to_string(*options.margin) + ": expected 0 or more");
  }
}

double PictureFile::length(double given) const {
  return format_ == render::Format::png ? given : given / millimetres_per_inch * units_per_inch();
}

render::SettingOptions PictureFile::settings() const {
  render::SettingOptions settings;
  settings.background =
      options_.background == "dark" ? render::Background::dark : render::Background::light;
  settings.lineweights = options_.lineweights;
  settings.all_layers = options_.all_layers;
  settings.hairline = format_ == render::Format::png ? 1 : 0.5;
  settings.units_per_inch = units_per_inch();
  // What is written as lines is held in memory until the end, at up to two kilobytes a line.
  constexpr std::size_t most_of_lines = 500'000;
  if (format_ != render::Format::png) settings.most_entities = most_of_lines;
  return settings;
}

render::Frame PictureFile::frame(const drawing::Box& all, double millimetres) const {
  const bool png = format_ == render::Format::png;
  constexpr double pixels = 1600, longest_paper = 297, pixel_margin = 10, paper_margin = 5;
  render::FrameOptions frame;
  frame.longest = length(png ? pixels : longest_paper);
  frame.margin = length(options_.margin.value_or(png ? pixel_margin : paper_margin));
  if (size_) frame.size = std::pair(length(size_->first), length(size_->second));
  if (scale_) frame.scale = *scale_ * millimetres / millimetres_per_inch * units_per_inch();
  render::Window shown;
  if (window_) {
    shown = *window_;
  } else {
    shown.add(all.min);
    shown.add(all.max);
  }
  return make_frame(shown, frame);
}

void PictureFile::write(const render::Frame& frame,
                        const std::function<void(render::Painter&)>& draw) const {
  const std::string bytes = render::picture(
      {format_, frame.width, frame.height, paper_color(settings().background)}, draw);
  drawing::FileWriter file(drawing::utf8_path(options_.output));
  file.write({bytes});
  file.finish();
}

}  // namespace velmar::cli
