#pragma once

#include <optional>
#include <string>

#include "render/frame.h"
#include "render/picture.h"
#include "render/settings.h"

namespace CLI {
class App;
}

namespace velmar::cli {

/// How a picture is to look, as the command line says it. Lengths in pixels for PNG, else in
/// millimetres.
struct PictureOptions {
  std::string output, size, scale, window, background = "light";
  std::optional<double> margin;
  bool lineweights = false, all_layers = false;

  void add_to(CLI::App& command);
};

/// A picture file that is about to be made. Fails with UsageError for options that make no sense.
class PictureFile {
 public:
  explicit PictureFile(const PictureOptions& options);

  render::SettingOptions settings() const;
  /// The part of the drawing that is asked for, else all of it. A scale wants to know how many
  /// millimetres a drawing unit is.
  render::Frame frame(const drawing::Box& all, double millimetres) const;
  /// Has the picture drawn and puts it in place of an older one when it is complete.
  void write(const render::Frame& frame, const std::function<void(render::Painter&)>& draw) const;

 private:
  double units_per_inch() const { return format_ == render::Format::png ? 96 : 72; }
  /// From the unit of the options to the picture's.
  double length(double given) const;

  const PictureOptions& options_;
  render::Format format_;
  std::optional<render::Window> window_;
  std::optional<double> scale_;  // millimetres on paper to one of the drawing's
  std::optional<std::pair<double, double>> size_;
};

}  // namespace velmar::cli
