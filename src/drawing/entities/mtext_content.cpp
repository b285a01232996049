#include "drawing/entities/mtext_content.h"

#include <algorithm>
#include <charconv>
#include <numbers>
#include <optional>

#include "drawing/entities/percent_codes.h"

namespace velmar::drawing {
namespace {

constexpr double radians_of_degree = std::numbers::pi / 180;

/// The number at the front of `text`, taken off.
std::optional<double> take_number(std::string_view& text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
  return number;
}

/// "Arial|b1|i0|c0|p34"; of `\F`, a file.
FontName font_named(std::string_view argument, bool is_file) {
  FontName name;
  const auto part_end = [&] { return std::min(argument.find('|'), argument.size()); };
  const std::string first(argument.substr(0, part_end()));
  const bool has_extension = first.find('.') != first.npos;
  (is_file || has_extension ? name.file : name.family) = first;
  while (part_end() < argument.size()) {
    argument.remove_prefix(part_end() + 1);
    if (argument.starts_with("b1")) name.bold = true;
    if (argument.starts_with("i1")) name.italic = true;
  }
  return name;
}

class Parser {
 public:
  Parser(std::string_view text, const CharacterFormat& format, FontShelf& fonts)
      : rest_(text), format_(format), fonts_(fonts) {}

  std::vector<Piece> pieces() {
    while (!rest_.empty()) step();
    end_paragraph();
    return std::move(pieces_);
  }

 private:
  void step() {
    const char c = rest_.front();
    if (c == '\\' && rest_.size() > 1) return code();
    if (const auto percent = percent_code(rest_)) return take(*percent);
    rest_.remove_prefix(1);
    switch (c) {
      case '{':
        return open_group();
      case '}':
        return close_group();
      case '\n':
        return end_paragraph();
      case '\r':
        return;
      case '\t':
        return add(Tab{format_});
      default:
        words_ += c;
    }
  }

  void take(const PercentCode& percent) {
    if (percent.switches == 'u') change(format_.underline, !format_.underline);
    if (percent.switches == 'o') change(format_.overline, !format_.overline);
    if (percent.switches == 'k') change(format_.strike, !format_.strike);
    words_ += percent.drawn;
    rest_.remove_prefix(percent.size);
  }

  void code() {
    const char letter = rest_[1];
    rest_.remove_prefix(2);
    switch (letter) {
      case 'P':
      case 'N':
      case 'X':
        return end_paragraph();
      case '~':
        words_ += "\u00A0";
        return;
      case '\\':
      case '{':
      case '}':
        words_ += letter;
        return;
      case 'L':
      case 'l':
        return change(format_.underline, letter == 'L');
      case 'O':
      case 'o':
        return change(format_.overline, letter == 'O');
      case 'K':
      case 'k':
        return change(format_.strike, letter == 'K');
      default:
        return code_with_argument(letter);
    }
  }

  void code_with_argument(char letter) {
    constexpr std::string_view known = "CcFfHWQTASp";
    const bool is_known = known.find(letter) != known.npos;
    const std::size_t end = is_known ? argument_end() : rest_.npos;
    if (end == rest_.npos) {
      words_ += '\\';
      words_ += letter;
      return;
    }
    const std::string_view argument = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    if (letter == 'S') return stack(argument);
    if (letter == 'p') return paragraph_codes(argument);
    finish_words();
    if (letter == 'F' || letter == 'f') {
      format_.font = fonts_.font(font_named(argument, letter == 'F'));
    } else {
      number_code(letter, argument);
    }
  }

  /// The semicolon that is not escaped. Where once none was found, none follows.
  std::size_t argument_end() {
    if (no_more_ends_) return rest_.npos;
    for (std::size_t i = 0; i < rest_.size(); ++i) {
      if (rest_[i] == ';') return i;
      if (rest_[i] == '\\') ++i;
    }
    no_more_ends_ = true;
    return rest_.npos;
  }

  void number_code(char letter, std::string_view argument) {
    const auto number = take_number(argument);
    if (!number) return;
    const bool relative = argument.starts_with('x');
    switch (letter) {
      case 'C':
        format_.color = whole(*number);
        format_.true_color = -1;
        return;
      case 'c':
        return true_color(whole(*number));
      case 'H':
        return scale(format_.height, *number, relative);
      case 'W':
        return scale(format_.width_factor, *number, relative);
      case 'Q':
        format_.oblique = *number * radians_of_degree;
        return;
      case 'T':
        return scale(format_.tracking, *number, relative);
      default:
        if (*number >= 0 && *number <= 2) format_.valign = static_cast<std::int32_t>(*number);
    }
  }

  static std::int32_t whole(double number) {
    constexpr double largest = 0xFFFFFF;
    return static_cast<std::int32_t>(std::clamp(number, 0.0, largest));
  }

  static void scale(double& value, double number, bool relative) {
    const double scaled = relative ? value * number : number;
    constexpr double largest = 1e9;
    if (scaled > 0 && scaled < largest) value = scaled;
  }

  /// Kept: blue is the highest byte there.
  void true_color(std::int32_t bgr) {
    format_.true_color = (bgr & 0xFF) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 0xFF);
  }

  void stack(std::string_view argument) {
    Stack made{{}, {}, '\0', format_};
    for (std::size_t i = 0; i < argument.size(); ++i) {
      const bool is_kind = argument[i] == '^' || argument[i] == '/' || argument[i] == '#';
      std::string& side = made.kind == '\0' ? made.above : made.below;
      if (made.kind == '\0' && is_kind) {
        made.kind = argument[i];
        continue;
      }
      if (argument[i] == '\\' && i + 1 < argument.size()) ++i;
      if (!(made.kind != '\0' && side.empty() && argument[i] == ' ')) side += argument[i];
    }
    if (made.kind == '\0') {
      words_ += made.above;
    } else {
      add(std::move(made));
    }
  }

  /// "xi-3,l4,r1,qc,t4": `*` sets back, tab stops are passed over.
  void paragraph_codes(std::string_view argument) {
    while (!argument.empty()) {
      const char letter = argument.front();
      argument.remove_prefix(1);
      if (letter == 'q') {
        align(argument);
      } else if (letter == 'i' || letter == 'l' || letter == 'r') {
        const bool set_back = argument.starts_with('*');
        const auto number = set_back ? std::optional(0.0) : take_number(argument);
        double& length = letter == 'i'   ? paragraph_.first_indent
                         : letter == 'l' ? paragraph_.left
                                         : paragraph_.right;
        if (number) length = *number;
      }
    }
  }

  void align(std::string_view argument) {
    using Align = ParagraphFormat::Align;
    paragraph_.align = argument.starts_with('c')   ? Align::center
                       : argument.starts_with('r') ? Align::right
                       : argument.starts_with('l') || argument.starts_with('j')
                           ? Align::left
                           : Align::as_attached;
  }

  void change(bool& flag, bool value) {
    finish_words();
    flag = value;
  }

  /// Far deeper than any program nests them, groups mean nothing.
  void open_group() {
    constexpr std::size_t deepest = 1000;
    if (groups_.size() < deepest) groups_.push_back(format_);
  }

  void close_group() {
    if (groups_.empty()) return;  // one too many closes nothing
    finish_words();
    format_ = groups_.back();
    groups_.pop_back();
  }

  void finish_words() {
    if (!words_.empty()) pieces_.emplace_back(Words{std::move(words_), format_});
    words_.clear();
  }

  void add(Piece piece) {
    finish_words();
    pieces_.push_back(std::move(piece));
  }

  void end_paragraph() { add(ParagraphEnd{paragraph_, format_}); }

  std::string_view rest_;
  CharacterFormat format_;
  ParagraphFormat paragraph_;
  FontShelf& fonts_;
  bool no_more_ends_ = false;
  std::vector<CharacterFormat> groups_;
  std::string words_;
  std::vector<Piece> pieces_;
};

}  // namespace

std::vector<Piece> take_apart(std::string_view text, const CharacterFormat& format,
                              FontShelf& fonts) {
  return Parser(text, format, fonts).pieces();
}

}  // namespace velmar::drawing
