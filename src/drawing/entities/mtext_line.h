#pragma once

#include "drawing/entities/mtext_content.h"
#include "drawing/entities/text_layout.h"

namespace velmar::drawing {

/// A line that is being filled: what stands on it, from its own left end and baseline.
class MTextLine {
 public:
  bool empty() const { return runs_.empty(); }
  /// Where what is put on it next begins.
  double pen() const { return pen_; }
  /// As far as something is drawn, as alignment counts it.
  double width() const { return width_; }
  /// Of its highest character.
  double height() const { return height_; }

  void add(const std::string& text, const CharacterFormat& format);
  void add(const Stack& stack);
  void skip(double length) { pen_ += length; }
  /// A line with nothing on it is as high as its format says.
  void reserve(double height) { height_ = height_ > height ? height_ : height; }

  /// Puts the line's left end and baseline there.
  void place(Point at, TextLayout& layout) const;

 private:
  struct Placed {
    TextRun run;
    double free_height;   // of what is moved up with the run
    std::int32_t valign;  // -1: as it stands
  };
  struct Bar {
    Point from, to;
    double free_height;
    std::int32_t valign;
  };

  double rise(double height, std::int32_t valign) const;
  void put(TextRun run, double advance, double free_height, std::int32_t valign);

  std::vector<Placed> runs_;
  std::vector<Bar> bars_;
  double pen_ = 0, width_ = 0, height_ = 0;
};

/// How far a text of that format reaches, with and without blanks at its end.
struct WordWidth {
  double advance = 0, width = 0;
};
WordWidth word_width(const std::string& text, const CharacterFormat& format);
WordWidth word_width(const Stack& stack);

}  // namespace velmar::drawing
