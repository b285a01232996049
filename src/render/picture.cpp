#include "render/picture.h"

#include "drawing/error.h"

#ifdef VELMAR_CAIRO
#include "render/cairo_library.h"
#endif

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>

namespace velmar::render {

std::optional<Format> format_of(const std::filesystem::path& path) {
  std::string extension = path.extension().string();
  std::ranges::transform(extension, extension.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  if (extension == ".png") return Format::png;
  if (extension == ".svg") return Format::svg;
  if (extension == ".pdf") return Format::pdf;
  return std::nullopt;
}

#ifdef VELMAR_CAIRO

namespace {

struct Close {
  void operator()(cairo_surface_t* surface) const { CairoLibrary::get().surface_destroy(surface); }
  void operator()(cairo_t* context) const { CairoLibrary::get().destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, Close>;
using Context = std::unique_ptr<cairo_t, Close>;

class CairoPainter final : public Painter {
 public:
  CairoPainter(const CairoLibrary& cairo, cairo_t* context) : cairo_(cairo), context_(context) {
    cairo_.set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
    cairo_.set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
  }

  /// A long line in pieces, whose round ends join them: all crossings of a line with itself are
  /// looked for at once, of which a hostile one has more than can be waited for.
  void stroke(const Chain& chain, const Ink& ink, double width) override {
    constexpr std::size_t longest = 1000;
    use(ink);
    cairo_.set_line_width(context_, width);
    for (std::size_t from = 0; from == 0 || from + 1 < chain.size(); from += longest) {
      trace(std::span(chain).subspan(from, std::min(longest + 1, chain.size() - from)));
      if (chain.size() == 1) cairo_.line_to(context_, chain[0].x, chain[0].y);
      cairo_.stroke(context_);
    }
  }
  void fill(const std::vector<Chain>& areas, const Ink& ink, Rule rule) override {
    use(ink);
    cairo_.set_fill_rule(
        context_, rule == Rule::nonzero ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
    trace_all(areas);
    cairo_.fill(context_);
  }
  void push_clip(const std::vector<Chain>& areas) override {
    cairo_.save(context_);
    trace_all(areas);
    cairo_.clip(context_);
  }
  void pop_clip() override { cairo_.restore(context_); }

 private:
  void use(const Ink& ink) {
    cairo_.set_source_rgba(context_, ink.color.red / 255.0, ink.color.green / 255.0,
                           ink.color.blue / 255.0, ink.opacity);
  }
  void trace(std::span<const Point> chain) {
    bool first = true;
    for (const Point& p : chain) {
      (first ? cairo_.move_to : cairo_.line_to)(context_, p.x, p.y);
      first = false;
    }
  }
  void trace_all(const std::vector<Chain>& areas) {
    for (const Chain& area : areas) {
      trace(area);
      cairo_.close_path(context_);
    }
  }

  const CairoLibrary& cairo_;
  cairo_t* context_;
};

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int size) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), size);
  return CAIRO_STATUS_SUCCESS;
}

Surface make_surface(const CairoLibrary& cairo, const Sheet& sheet, std::string& bytes) {
  switch (sheet.format) {
    case Format::svg: {
      Surface surface(
          cairo.svg_surface_create_for_stream(append, &bytes, sheet.width, sheet.height));
      cairo.svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PT);
      return surface;
    }
    case Format::pdf:
      return Surface(
          cairo.pdf_surface_create_for_stream(append, &bytes, sheet.width, sheet.height));
    case Format::png:
      break;
  }
  return Surface(cairo.image_surface_create(CAIRO_FORMAT_RGB24,
                                            static_cast<int>(std::lround(sheet.width)),
                                            static_cast<int>(std::lround(sheet.height))));
}

void check(const CairoLibrary& cairo, cairo_status_t status) {
  if (status == CAIRO_STATUS_SUCCESS) return;
  throw drawing::Error(std::string("the picture could not be drawn: ") +
                       cairo.status_to_string(status));
}

}  // namespace

std::string picture(const Sheet& sheet, const std::function<void(Painter&)>& draw) {
  const CairoLibrary& cairo = CairoLibrary::get();
  std::string bytes;
  const Surface surface = make_surface(cairo, sheet, bytes);
  check(cairo, cairo.surface_status(surface.get()));
  {
    const Context context(cairo.create(surface.get()));
    CairoPainter painter(cairo, context.get());
    painter.fill({{{0, 0}, {sheet.width, 0}, {sheet.width, sheet.height}, {0, sheet.height}}},
                 {sheet.paper, 1}, Rule::nonzero);
    draw(painter);
    check(cairo, cairo.status(context.get()));
  }
  if (sheet.format == Format::png) {
    check(cairo, cairo.surface_write_to_png_stream(surface.get(), append, &bytes));
  } else {
    cairo.surface_finish(surface.get());
  }
  check(cairo, cairo.surface_status(surface.get()));
  return bytes;
}

#else

std::string picture(const Sheet&, const std::function<void(Painter&)>&) {
  throw drawing::Error(
      "this velmar was built without cairo and draws no pictures: install libcairo2-dev and "
      "build it again");
}

#endif

}  // namespace velmar::render
