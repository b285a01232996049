#include "cli/contact_sheet.h"

#include <cmath>

#include "cli/console.h"
#include "cli/printable.h"
#include "cli/text_table.h"
#include "drawing/utf8_path.h"
#include "render/scene.h"

namespace velmar::cli {
namespace {

using drawing::Drawing;
using render::Canvas;
using render::Window;

/// A picture of four by three for each drawing.
constexpr double cell_width = 4, cell_height = 3;

/// The cells of the sheet, row by row.
struct Grid {
  std::size_t columns, rows;
  render::Frame frame;

  Grid(std::size_t count, const PictureFile& file)
      : columns(static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))))),
        rows((count + columns - 1) / columns) {
    drawing::Box all;
    all.add(drawing::Point{});
    all.add(drawing::Point{cell_width * static_cast<double>(columns),
                           cell_height * static_cast<double>(rows), 0});
    frame = file.frame(all, 1);
  }
  Window cell(std::size_t number) const {
    const double wide = frame.width / static_cast<double>(columns);
    const double high = frame.height / static_cast<double>(rows);
    const std::size_t column = number % columns, row = number / columns;
    const double left = wide * static_cast<double>(column), top = high * static_cast<double>(row);
    return {left, top, left + wide, top + high};
  }
};

/// At the lower edge of a cell, as wide as it at the most.
void draw_title(const std::string& title, const Window& cell, const Canvas& sheet,
                const render::SettingOptions& options) {
  const Drawing nothing = Drawing::empty();
  const render::Settings settings(nothing, options);
  drawing::Text text;
  text.text = title;
  text.height = cell.height() / 30;
  const double room = cell.width() * 0.9;
  if (const double width = measure(text).width; width > room) text.width_factor = room / width;
  const drawing::Matrix flip{drawing::x_axis,
                             -drawing::y_axis,
                             drawing::z_axis,
                             {cell.left + cell.width() * 0.05, cell.high - text.height, 0}};
  render::Look look;
  look.ink.color = settings.outermost().color;
  look.width = options.hairline;
  render::TextDrawer(settings).draw(layout(text), sheet.within(flip), look);
}

void draw_model(const Drawing& drawing, const Window& cell, const Canvas& sheet,
                const render::SettingOptions& options) {
  render::Scene scene(drawing, options);
  const drawing::Box all = scene.extents(drawing::SpaceId::model);
  if (all.empty()) return;
  Window shown;
  shown.add(all.min);
  shown.add(all.max);
  const double title = cell.height() / 12;
  const std::pair size(cell.width(), cell.height() - title);
  const render::Frame frame = make_frame(shown, {.size = size, .margin = title / 2});
  const Window part{cell.left, cell.low, cell.right, cell.high - title};
  const drawing::Matrix place = drawing::translation({cell.left, cell.low, 0}) * frame.place;
  sheet.painter().push_clip({part.corners()});
  scene.draw(drawing::SpaceId::model, {sheet.painter(), part, place});
  sheet.painter().pop_clip();
}

}  // namespace

ExitCode render_contact_sheet(const std::vector<std::string>& drawings,
                              const PictureOptions& options) {
  const PictureFile file(options);
  const Grid grid(drawings.size(), file);
  ExitCode result = ExitCode::done;
  file.write(grid.frame, [&](render::Painter& painter) {
    const Canvas sheet(painter, grid.frame.window(), drawing::Matrix{});
    for (std::size_t i = 0; i < drawings.size(); ++i) {
      const Window cell = grid.cell(i);
      draw_title(drawings[i], cell, sheet, file.settings());
      try {
        draw_model(Drawing::open(drawing::utf8_path(drawings[i])), cell, sheet, file.settings());
      } catch (const drawing::Error& error) {
        complain(printable(error.what()));
        result = ExitCode::some_failed;
      }
    }
  });
  return result;
}

}  // namespace velmar::cli
