#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "drawing/entities/mtext.h"
#include "drawing/entities/mtext_line.h"
#include "drawing/fonts/characters.h"
#include "drawing/fonts/stroke_font.h"
#include "drawing/geometry/ocs.h"

namespace velmar::drawing {
namespace {

using Align = ParagraphFormat::Align;

constexpr double line_pitch = 5.0 / 3;  // from baseline to baseline, in text heights
constexpr double tab_pitch = 4;

/// A line that is filled, and its paragraph.
struct FilledLine {
  MTextLine line;
  ParagraphFormat paragraph;
  double indent = 0;
};

/// A piece of a line that is not broken: characters between two blanks, a stack, or blanks.
struct Atom {
  std::variant<Words, Stack> content;
  bool blank = false, wide = false;

  WordWidth size() const {
    if (const auto* words = std::get_if<Words>(&content)) {
      return word_width(words->text, words->format);
    }
    return word_width(std::get<Stack>(content));
  }
};

/// Cuts at blanks, and before and behind wide characters. A hard blank is none of them.
std::vector<Atom> atoms(const Words& words) {
  constexpr char32_t hard_blank = 0xA0;
  std::vector<Atom> cut;
  for (std::string_view rest = words.text; !rest.empty();) {
    const std::string_view before = rest;
    const char32_t character = next_character(rest);
    const bool blank = is_blank(character) && character != hard_blank;
    const bool wide = !blank && is_wide(character);
    if (cut.empty() || cut.back().blank != blank || cut.back().wide || wide) {
      cut.push_back({Words{{}, words.format}, blank, wide});
    }
    std::get<Words>(cut.back().content).text += before.substr(0, before.size() - rest.size());
  }
  return cut;
}

/// Fills lines with pieces; a line is ended where the next word would go beyond its end.
class LineBreaker {
 public:
  LineBreaker(const MText& text)
      : unit_(text.height),
        limit_(text.width > 0 ? text.width : std::numeric_limits<double>::infinity()) {}

  std::vector<FilledLine> fill(const std::vector<Piece>& pieces) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      if (paragraph_begins_) begin_paragraph(pieces, i);
      std::visit([this](const auto& piece) { take(piece); }, pieces[i]);
    }
    return std::move(lines_);
  }

 private:
  void take(const Words& words) {
    for (Atom& atom : atoms(words)) {
      if (atom.blank) {
        finish_word();
        blanks_.push_back(std::move(atom));
      } else {
        if (atom.wide || (!word_.empty() && word_.back().wide)) finish_word();
        word_.push_back(std::move(atom));
      }
    }
  }
  void take(const Stack& stack) { word_.push_back({stack, false, false}); }
  void take(const Tab& tab) {
    finish_word();
    put(blanks_);
    const double pitch = tab_pitch * unit_;
    if (!(pitch > 0)) return;
    const double next = (std::floor(here_.line.pen() / pitch + 1e-9) + 1) * pitch;
    here_.line.skip(next - here_.line.pen());
    here_.line.reserve(tab.format.height);
  }
  void take(const ParagraphEnd& end) {
    finish_word();
    if (here_.line.empty()) here_.line.reserve(end.format.height);
    end_line();
    paragraph_begins_ = true;
  }

  /// What `\p` says within a paragraph holds for all of it.
  void begin_paragraph(const std::vector<Piece>& pieces, std::size_t from) {
    while (!std::holds_alternative<ParagraphEnd>(pieces[from])) ++from;
    paragraph_ = std::get<ParagraphEnd>(pieces[from]).paragraph;
    paragraph_begins_ = false;
    begin_line((paragraph_.left + paragraph_.first_indent) * unit_);
  }

  void begin_line(double indent) {
    here_ = {};
    here_.paragraph = paragraph_;
    here_.indent = indent;
  }
  /// Blanks at the end of a line are left out; a line of them alone is a line.
  void end_line() {
    for (const Atom& blank : blanks_) {
      here_.line.reserve(std::get<Words>(blank.content).format.height);
    }
    blanks_.clear();
    lines_.push_back(std::move(here_));
    begin_line(paragraph_.left * unit_);
  }

  void finish_word() {
    if (word_.empty()) return;
    double reach = here_.line.pen(), end = reach;
    for (const auto* part : {&blanks_, &word_}) {
      for (const Atom& atom : *part) {
        const WordWidth size = atom.size();
        end = reach + size.width;
        reach += size.advance;
      }
    }
    const double room = limit_ - here_.indent - paragraph_.right * unit_;
    if (end > room * (1 + 1e-9) && !(here_.line.empty() && blanks_.empty())) end_line();
    put(blanks_);
    put(word_);
  }

  void put(std::vector<Atom>& atoms_of_line) {
    for (const Atom& atom : atoms_of_line) {
      if (const auto* words = std::get_if<Words>(&atom.content)) {
        here_.line.add(words->text, words->format);
      } else {
        here_.line.add(std::get<Stack>(atom.content));
      }
    }
    atoms_of_line.clear();
  }

  double unit_, limit_;
  ParagraphFormat paragraph_;
  bool paragraph_begins_ = true;
  FilledLine here_;
  std::vector<Atom> blanks_, word_;  // not on the line yet
  std::vector<FilledLine> lines_;
};

/// How wide the frame is that lines are aligned in.
double frame_width(const MText& text, const std::vector<FilledLine>& lines) {
  if (text.width > 0) return text.width;
  double widest = 0;
  for (const FilledLine& each : lines) widest = std::max(widest, each.indent + each.line.width());
  return widest;
}

double left_end(const FilledLine& each, double frame, std::int32_t column) {
  constexpr std::array by_column{Align::left, Align::center, Align::right};
  Align align = each.paragraph.align;
  if (align == Align::as_attached) align = by_column[static_cast<std::size_t>(column)];
  const double free = frame - each.indent - each.line.width();
  if (align == Align::center) return each.indent + free / 2;
  return align == Align::right ? each.indent + free : each.indent;
}

double lowest(const TextLayout& layout) {
  const Box box = plane_extents(layout);
  return box.empty() ? 0 : box.min.y;
}

CharacterFormat first_format(const MText& text) {
  CharacterFormat format;
  format.font = text.look.font ? text.look.font : stroke_font();
  format.height = text.height;
  format.width_factor = text.look.width_factor;
  format.oblique = text.look.oblique;
  return format;
}

std::vector<FilledLine> filled_lines(const MText& text) {
  FontShelf own;
  FontShelf& fonts = text.look.fonts ? *text.look.fonts : own;
  return LineBreaker(text).fill(take_apart(text.text, first_format(text), fonts));
}

/// Column 0 to 2 from the left, row 0 to 2 from the top.
struct FramePoint {
  std::int32_t column, row;
};
FramePoint frame_point(std::int32_t attachment) {
  const std::int32_t place = std::clamp(attachment, 1, 9) - 1;
  return {place % 3, place / 3};
}

}  // namespace

TextLayout layout(const MText& text) {
  const std::vector<FilledLine> lines = filled_lines(text);
  const auto [column, row] = frame_point(text.attachment);
  const double frame = frame_width(text, lines);
  const bool exactly = text.spacing_style == 2;
  TextLayout made;
  double baseline = 0;
  for (const FilledLine& each : lines) {
    const double height = exactly ? text.height : each.line.height();
    const bool first = &each == &lines.front();
    baseline -= first ? each.line.height() : text.spacing_factor * line_pitch * height;
    each.line.place({left_end(each, frame, column) - frame * column / 2, baseline, 0}, made);
  }
  const double down = row * lowest(made) / 2;
  const Point along = direction(text), normal = unit_normal(text.normal);
  const Point up = cross(normal, along);
  made.world = {along, up, normal, text.insertion - up * down, {}};
  return made;
}

void attach(MText& text, std::int32_t attachment) {
  const auto before = frame_point(text.attachment), after = frame_point(attachment);
  const double across = frame_width(text, filled_lines(text)) * (after.column - before.column) / 2;
  const TextLayout made = layout(text);
  const double down = lowest(made) * (after.row - before.row) / 2;
  text.attachment = attachment;
  text.insertion = text.insertion + made.world.x * across + made.world.y * down;
}

}  // namespace velmar::drawing
