#include <CLI/CLI.hpp>
#include <memory>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/contact_sheet.h"
#include "cli/picture_options.h"
#include "cli/printable.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"
#include "drawing/name.h"
#include "drawing/utf8_path.h"
#include "render/scene.h"
#include "render/units.h"

namespace velmar::cli {
namespace {

struct RenderOptions {
  std::vector<std::string> drawings;
  std::string layout;
  PictureOptions picture;
};

drawing::SpaceId space_of(const drawing::Drawing& drawing, const RenderOptions& options) {
  if (options.layout.empty()) return drawing::SpaceId::model;
  std::string known;
  for (const drawing::Layout& layout : drawing.layouts()) {
    const bool is_there = layout.space != drawing::SpaceId::none;
    if (is_there && drawing::same_name(layout.name, options.layout)) return layout.space;
    if (is_there) known += (known.empty() ? "" : ", ") + layout.name;
  }
  throw UsageError("there is no layout \"" + options.layout + "\" in " + options.drawings[0] +
                   "; it has " + printable(known));
}

ExitCode render_drawing(const RenderOptions& options) {
  const PictureFile file(options.picture);
  const std::string& path = options.drawings[0];
  const drawing::Drawing drawing = drawing::Drawing::open(drawing::utf8_path(path));
  const drawing::SpaceId space = space_of(drawing, options);
  render::Scene scene(drawing, file.settings());
  const drawing::Box all = scene.extents(space);
  if (all.empty() && options.picture.window.empty()) {
    throw drawing::Error(path + ": there is nothing to see in " +
                         (options.layout.empty() ? "model space" : "\"" + options.layout + "\"") +
                         ": choose another --layout, or say which --window to show");
  }
  const render::Frame frame = file.frame(all, render::millimetres_per_unit(drawing, space));
  file.write(frame, [&](render::Painter& painter) {
    scene.draw(space, {painter, frame.window(), frame.place});
  });
  for (const std::string& warning : scene.warnings()) {
    complain(printable(path + ": " + warning));
  }
  return ExitCode::done;
}

}  // namespace

void add_render(CLI::App& program, Action& action) {
  const auto options = std::make_shared<RenderOptions>();
  CLI::App* const render =
      program.add_subcommand("render", "A picture of model space or a layout, as PNG, SVG or PDF");
  render->footer(
      "Layers that are off or frozen are not drawn. What cannot be drawn is told on standard "
      "error.");
  render
      ->add_option("DRAWING", options->drawings,
                   "The drawing; of several, a sheet with their model spaces side by side")
      ->required();
  render->add_option("-o,--output", options->picture.output, "OUT.png, OUT.svg or OUT.pdf")
      ->required();
  render->add_option("--layout", options->layout, "Of this layout in place of model space");
  options->picture.add_to(*render);
  render->callback([options, &action] {
    action = [options] {
      if (options->drawings.size() == 1) return render_drawing(*options);
      if (!options->layout.empty() || !options->picture.window.empty()) {
        throw UsageError("--layout and --window are for one drawing");
      }
      return render_contact_sheet(options->drawings, options->picture);
    };
  });
}

}  // namespace velmar::cli
