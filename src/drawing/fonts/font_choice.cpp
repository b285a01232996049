#include "drawing/fonts/font_choice.h"

#include <algorithm>
#include <array>
#include <optional>

#include "drawing/fonts/font_files.h"
#include "drawing/fonts/lower_case.h"
#include "drawing/fonts/outline_font.h"
#include "drawing/fonts/stroke_font.h"

namespace velmar::drawing {
namespace {

/// A family of outline fonts with its files, and what stands for it: files that begin with
/// `stand_in`, scaled with the family's own capital height (in parts of the em).
struct FontFamily {
  std::string_view name;
  std::array<std::string_view, 4> files;  // regular, bold, italic, both
  std::string_view stand_in;
  double capital;
};
constexpr std::array families{
    FontFamily{"arial",
               {"arial.ttf", "arialbd.ttf", "ariali.ttf", "arialbi.ttf"},
               "LiberationSans",
               0.716},
    FontFamily{"arial narrow",
               {"arialn.ttf", "arialnb.ttf", "arialni.ttf", "arialnbi.ttf"},
               "LiberationSansNarrow",
               0.716},
    FontFamily{"times new roman",
               {"times.ttf", "timesbd.ttf", "timesi.ttf", "timesbi.ttf"},
               "LiberationSerif",
               0.655},
    FontFamily{"courier new",
               {"cour.ttf", "courbd.ttf", "couri.ttf", "courbi.ttf"},
               "LiberationMono",
               0.571},
    FontFamily{"verdana",
               {"verdana.ttf", "verdanab.ttf", "verdanai.ttf", "verdanaz.ttf"},
               "DejaVuSans",
               0.727},
    FontFamily{"tahoma",
               {"tahoma.ttf", "tahomabd.ttf", "tahoma.ttf", "tahomabd.ttf"},
               "DejaVuSansCondensed",
               0.727},
    FontFamily{"calibri",
               {"calibri.ttf", "calibrib.ttf", "calibrii.ttf", "calibriz.ttf"},
               "Carlito",
               0.632},
    // The stand-in is wider: it is scaled so that widths agree.
    FontFamily{"consolas",
               {"consola.ttf", "consolab.ttf", "consolai.ttf", "consolaz.ttf"},
               "LiberationMono",
               0.696},
};
constexpr std::array last_resorts{"LiberationSans", "DejaVuSans"};

std::size_t style_of(const FontName& name) {
  return (name.bold ? 1u : 0u) + (name.italic ? 2u : 0u);
}

FontPointer opened(std::string_view file, double capital = 0) {
  const auto path = find_font_file(file);
  return path ? open_outline_font(*path, capital) : nullptr;
}

/// A family whose files are called as free fonts are: "LiberationSans-Bold.ttf", "DejaVuSans.ttf".
FontPointer opened_family(std::string_view family, std::size_t style, double capital = 0) {
  constexpr std::array<std::array<std::string_view, 2>, 4> endings{
      {{"-Regular", ""}, {"-Bold", ""}, {"-Italic", "-Oblique"}, {"-BoldItalic", "-BoldOblique"}}};
  std::string stem;
  std::ranges::copy_if(family, std::back_inserter(stem), [](char c) { return c != ' '; });
  for (const std::string_view ending : endings[style]) {
    for (const std::string_view extension : {".ttf", ".otf", ".ttc"}) {
      const std::string file = stem + std::string(ending) + std::string(extension);
      if (FontPointer font = opened(file, capital)) return font;
    }
  }
  return style == 0 ? nullptr : opened_family(family, 0, capital);
}

struct Found {
  const FontFamily* family = nullptr;
  std::size_t style = 0;
};

Found family_of(const FontName& name) {
  const std::string file = lower_case(name.file), family_name = lower_case(name.family);
  for (const FontFamily& family : families) {
    const auto listed = std::ranges::find(family.files, file);
    if (!file.empty() && listed != family.files.end()) {
      const auto style = static_cast<std::size_t>(listed - family.files.begin());
      return {&family, style | style_of(name)};
    }
    if (file.empty() && family.name == family_name) return {&family, style_of(name)};
  }
  return {nullptr, style_of(name)};
}

FontPointer outline_font(const FontName& name) {
  const Found found = family_of(name);
  const bool as_listed = !found.family || found.family->files[found.style] == lower_case(name.file);
  if (!name.file.empty() && as_listed) {
    if (FontPointer font = opened(name.file)) return font;
  }
  if (found.family) {
    if (FontPointer font = opened(found.family->files[found.style])) return font;
    const auto& [family, files, stand_in, capital] = *found.family;
    if (FontPointer font = opened_family(stand_in, found.style, capital)) return font;
  } else if (!name.family.empty()) {
    if (FontPointer font = opened_family(name.family, found.style)) return font;
  }
  for (const std::string_view family : last_resorts) {
    if (FontPointer font = opened_family(family, found.style)) return font;
  }
  return stroke_font();
}

bool is_outline(const FontName& name) {
  const std::string file = lower_case(name.file);
  if (file.empty()) return !name.family.empty();
  return file.ends_with(".ttf") || file.ends_with(".otf") || file.ends_with(".ttc");
}

/// Looks for the font when it is first needed: most drawings are read for other things.
class DeferredFont final : public Font {
 public:
  explicit DeferredFont(FontName name) : name_(std::move(name)) {}

  Glyph glyph(char32_t character) const override { return chosen().glyph(character); }
  GlyphShape shape(char32_t character) const override { return chosen().shape(character); }
  double descent() const override { return chosen().descent(); }
  bool aligns_by_advance() const override { return chosen().aligns_by_advance(); }
  std::string file() const override { return chosen().file(); }

 private:
  const Font& chosen() const {
    if (!chosen_) chosen_ = choose_font(name_);
    return *chosen_;
  }

  FontName name_;
  mutable FontPointer chosen_;
};

}  // namespace

FontPointer choose_font(const FontName& name) {
  FontName bare = name;
  bare.file = name.file.substr(name.file.find_last_of("/\\") + 1);
  return is_outline(bare) ? outline_font(bare) : stroke_font(bare.file);
}

FontPointer FontShelf::font(const FontName& name) {
  FontPointer& font = fonts_[name];
  if (!font) font = std::make_shared<DeferredFont>(name);
  return font;
}

}  // namespace velmar::drawing
