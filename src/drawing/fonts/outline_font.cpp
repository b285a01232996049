#include "drawing/fonts/outline_font.h"

#ifdef VELMAR_FREETYPE

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <unordered_map>

#include "drawing/fonts/characters.h"
#include "drawing/fonts/stroke_font.h"

namespace velmar::drawing {
namespace {

struct Close {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Library = std::unique_ptr<FT_LibraryRec_, Close>;
using OutlineFace = std::unique_ptr<FT_FaceRec_, Close>;

/// Takes an outline apart, curves by chords; in units of the font.
class Chains {
 public:
  static int move_to(const FT_Vector* to, void* chains) {
    of(chains).emplace_back().push_back(point(to));
    return 0;
  }
  static int line_to(const FT_Vector* to, void* chains) {
    of(chains).back().push_back(point(to));
    return 0;
  }
  static int conic_to(const FT_Vector* control, const FT_Vector* to, void* chains) {
    const Point a = of(chains).back().back(), b = point(control), c = point(to);
    return cubic(a + (b - a) * (2.0 / 3), c + (b - c) * (2.0 / 3), c, chains);
  }
  static int cubic_to(const FT_Vector* first, const FT_Vector* second, const FT_Vector* to,
                      void* chains) {
    return cubic(point(first), point(second), point(to), chains);
  }

 private:
  using List = std::vector<std::vector<Point>>;
  static constexpr int chords = 8;  // within a thousandth of a capital of the curve

  static List& of(void* chains) { return *static_cast<List*>(chains); }
  static Point point(const FT_Vector* v) {
    return {static_cast<double>(v->x), static_cast<double>(v->y), 0};
  }
  static int cubic(Point b, Point c, Point d, void* chains) {
    const Point a = of(chains).back().back();
    for (int i = 1; i <= chords; ++i) {
      const double t = double(i) / chords, s = 1 - t;
      of(chains).back().push_back(a * (s * s * s) + b * (3 * s * s * t) + c * (3 * s * t * t) +
                                  d * (t * t * t));
    }
    return 0;
  }
};

std::vector<std::vector<Point>> outline_chains(FT_Outline& outline) {
  std::vector<std::vector<Point>> chains;
  const FT_Outline_Funcs visit{
      Chains::move_to, Chains::line_to, Chains::conic_to, Chains::cubic_to, 0, 0};
  FT_Outline_Decompose(&outline, &visit, &chains);
  return chains;
}

class OutlineFont final : public Font {
 public:
  OutlineFont(Library library, OutlineFace face, std::string file, double capital)
      : library_(std::move(library)), face_(std::move(face)), file_(std::move(file)) {
    const double em = face_->units_per_EM > 0 ? face_->units_per_EM : 1000;
    constexpr double usual = 0.7;
    high_ = em * usual;
    if (load(U'H') && face_->glyph->metrics.horiBearingY > 0) {
      high_ = static_cast<double>(face_->glyph->metrics.horiBearingY);
    }
    units_ = capital > 0 ? em * capital : high_;
  }

  Glyph glyph(char32_t character) const override {
    const auto [known, is_new] = glyphs_.try_emplace(character);
    if (is_new) known->second = measured(character);
    return known->second;
  }
  GlyphShape shape(char32_t character) const override {
    if (is_weightless(character) || is_blank(character)) return {};
    if (!load(character)) return stand_in_->shape(character);
    GlyphShape shape{outline_chains(face_->glyph->outline), true};
    for (auto& chain : shape.chains) {
      for (Point& p : chain) p = {p.x / units_, p.y / high_, 0};
    }
    return shape;
  }
  double descent() const override { return glyph(U'p').bottom; }
  bool aligns_by_advance() const override { return true; }
  std::string file() const override { return file_; }

 private:
  bool load(char32_t character) const {
    const FT_UInt index = FT_Get_Char_Index(face_.get(), character);
    return index != 0 && FT_Load_Glyph(face_.get(), index, FT_LOAD_NO_SCALE) == 0;
  }

  Glyph measured(char32_t character) const {
    if (is_weightless(character)) return {0, 0, 0, 0, 0, false};
    if (!load(character)) return stand_in_->glyph(character);
    const FT_Glyph_Metrics& m = face_->glyph->metrics;
    const auto part = [this](FT_Pos units) { return static_cast<double>(units) / units_; };
    Glyph glyph{part(m.horiAdvance)};
    glyph.left = part(m.horiBearingX);
    glyph.right = part(m.horiBearingX + m.width);
    glyph.top = static_cast<double>(m.horiBearingY) / high_;
    glyph.bottom = part(m.height - m.horiBearingY);
    glyph.drawn = !is_blank(character) && m.width > 0;
    return glyph;
  }

  Library library_;
  OutlineFace face_;
  std::string file_;
  double units_ = 1;  // of the font to a capital, as the font it stands for has it
  double high_ = 1;   // of the font to its own capital
  FontPointer stand_in_ = stroke_font();
  mutable std::unordered_map<char32_t, Glyph> glyphs_;
};

}  // namespace

FontPointer open_outline_font(const std::filesystem::path& file, double capital) {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) return nullptr;
  Library owned_library(library);
  FT_Face face = nullptr;
  if (FT_New_Face(library, file.string().c_str(), 0, &face) != 0) return nullptr;
  OutlineFace owned_face(face);
  if (!FT_IS_SCALABLE(face)) return nullptr;
  return std::make_shared<OutlineFont>(std::move(owned_library), std::move(owned_face),
                                       file.string(), capital);
}

}  // namespace velmar::drawing

#else

namespace velmar::drawing {

FontPointer open_outline_font(const std::filesystem::path&, double) { return nullptr; }

}  // namespace velmar::drawing

#endif
