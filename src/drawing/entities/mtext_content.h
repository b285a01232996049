#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "drawing/fonts/font_choice.h"

namespace velmar::drawing {

/// What the codes of a multiline text say of the characters behind them.
struct CharacterFormat {
  FontPointer font;
  double height = 1;
  double width_factor = 1;
  double oblique = 0;  // radians
  double tracking = 1;
  std::int32_t valign = 0;  // on the line: 0 bottom, 1 middle, 2 top
  bool underline = false, overline = false, strike = false;
  std::int32_t color = -1;       // an index; -1: as the entity
  std::int32_t true_color = -1;  // 0xRRGGBB, or -1
};

/// What `\p` says of a paragraph; lengths in text heights.
struct ParagraphFormat {
  enum class Align { as_attached, left, center, right };
  Align align = Align::as_attached;
  double first_indent = 0, left = 0, right = 0;
};

/// Characters of one format, blanks among them.
struct Words {
  std::string text;
  CharacterFormat format;
};
/// One text above another: `kind` '/' with a bar between, '#' with a slanted one, '^' without.
struct Stack {
  std::string above, below;
  char kind = '/';
  CharacterFormat format;
};
struct Tab {
  CharacterFormat format;
};
/// The end of a paragraph; it has the format of what it ends.
struct ParagraphEnd {
  ParagraphFormat paragraph;
  CharacterFormat format;
};
using Piece = std::variant<Words, Stack, Tab, ParagraphEnd>;

/// Takes a multiline text apart. Codes: \P \N \X (ends of paragraphs, of columns, of the text above
/// a dimension line), \~ \\ \{ \} {} \L \l \O \o \K \k \C \c \F \f \H \W \Q \T \A \S \p, and the
/// %% codes. Others are taken as they stand. \U+ and \M+ are resolved when a drawing is read. The
/// last piece is a ParagraphEnd.
std::vector<Piece> take_apart(std::string_view text, const CharacterFormat& format,
                              FontShelf& fonts);

}  // namespace velmar::drawing
