#include "drawing/dxf/text_reader.h"

#include "drawing/dxf/line_scan.h"
#include "drawing/dxf/lines.h"
#include "drawing/dxf/tag.h"

namespace velmar::drawing::dxf {
namespace {

/// The whole number at the front of a value; 0 for none.
std::int32_t leading_number(std::string_view text) {
  std::int32_t value = 0;
  const bool negative = text.starts_with('-');
  for (const char c : text.substr(negative ? 1 : 0)) {
    if (c < '0' || c > '9' || value > 99'999'999) break;
    value = value * 10 + (c - '0');
  }
  return negative ? -value : value;
}

void take(HeadCollector& collector, int code, std::string_view text) {
  collector.take(code, text, [&] { return leading_number(text); });
}

}  // namespace

TextReader::TextReader(std::string_view bytes, std::size_t from, const std::string& new_line)
    : bytes_(bytes),
      at_(from),
      line_end_(new_line.back()),
      usual_{KnownLines<1>("  0" + new_line), KnownLines<1>("  5" + new_line),
             KnownLines<1>("330" + new_line), KnownLines<1>("100" + new_line),
             KnownLines<3>("100" + new_line + "AcDbEntity" + new_line + "  8" + new_line)} {}

TextReader::Line TextReader::line(std::size_t from) const {
  const char* const end = bytes_.data() + bytes_.size();
  const char* const start = bytes_.data() + from;
  const char* const stop = find_byte(start, end, line_end_);
  return {trimmed(start, stop), static_cast<std::size_t>(stop - bytes_.data()) + (stop != end),
          stop != end};
}

bool TextReader::record_begins(std::size_t at) const {
  const Line code = line(at);
  return code.whole && code.text == "0" && plausible_name(line(code.next).text);
}

bool TextReader::first() {
  at_ = careful(at_);
  return at_ < bytes_.size() && !damage_;
}

/// Reads the head from its first line on as far as it is what most programs write: name, handle,
/// owner, class, layer. Whole lines are compared, so that no code is decoded. Where it stopped: at
/// a group code line.
const char* TextReader::usual_head(const char* at, HeadCollector& collector) {
  const char* const end = bytes_.data() + bytes_.size();
  const auto take_line = [&]() __attribute__((always_inline)) {
    const char* const begin = at;
    const char* const stop = find_byte(begin, end, line_end_);
    at = stop + (stop != end);
    return trimmed(begin, stop);
  };
  if (!usual_.zero.pass(at, end)) take_line();
  collector.begin(take_line());
  if (!usual_.handle.pass(at, end)) return at;
  take(collector, 5, take_line());
  if (!usual_.owner.pass(at, end)) return at;
  if (!owner_line_.pass(at, end)) {
    const char* const begin = at;
    owner_ = take_line();
    owner_line_ = KnownLines<2>({begin, static_cast<std::size_t>(at - begin)});
  }
  take(collector, 330, owner_);
  if (!usual_.class_and_layer.pass(at, end)) return at;
  take(collector, 8, take_line());
  // The search for the next record does not wait for where the marker ends.
  const char* const marker = at;
  if (usual_.marker.pass(at, end)) take(collector, 100, take_line());
  return marker;
}

bool TextReader::head(HeadCollector& collector) {
  begin_ = at_;
  if (at_ >= bytes_.size()) return false;
  const char* const end = bytes_.data() + bytes_.size();
  const char* at = usual_head(bytes_.data() + at_, collector);
  LineEnds line_ends(at, end, line_end_);
  while (!collector.complete() && at != end) {
    const char* const code_end = line_ends.next();
    const std::int32_t code = code_end == end ? -1 : plain_code(at, code_end);
    if (code <= 0) break;  // the next record, or a line to be looked at with care
    const char* const value = code_end + 1;
    const char* const last = line_ends.next();
    take(collector, code, trimmed(value, last));
    at = last + (last != end);
  }
  at_ = static_cast<std::size_t>(at - bytes_.data());
  return true;
}

std::size_t TextReader::end_of_record() {
  damage_.reset();
  const char* const end = bytes_.data() + bytes_.size();
  if (line_end_ == '\n') {
    const ScanStop stop = find_record(bytes_.data() + at_, end);
    at_ = static_cast<std::size_t>(stop.at - bytes_.data());
    if (!stop.unusual) {
      const char* const name = find_byte(stop.at, end, line_end_) + 1;
      const bool begins_with_letter = name < end && *name >= 'A' && *name <= 'Z';
      if (begins_with_letter || plausible_name(line(line(at_).next).text)) return at_;
    }
  }
  return at_ = careful(at_);
}

std::size_t TextReader::pass_nameless() {
  damage_.reset();
  return at_ = careful(begin_);
}

std::size_t TextReader::careful(std::size_t from) {
  while (from < bytes_.size()) {
    const Line code = line(from);
    const auto number = group_code(code.text);
    if (!number) {
      if (code.text.find_first_not_of(" \t\r\n\x1a") == std::string_view::npos && !code.whole) {
        return bytes_.size();  // blanks at the very end
      }
      damage_ = Damage{from, "expected a group code, found " + shown(code.text) + rest_is_kept};
      return resynchronise(from);
    }
    if (!code.whole) {
      damage_ = Damage{from, "the file breaks off within this record"};
      return bytes_.size();
    }
    const Line value = line(code.next);
    if (*number == 0) {
      if (plausible_name(value.text)) return from;
      damage_ = no_name(code.next, value.text);
      return resynchronise(code.next);
    }
    if (!value.whole) damage_ = Damage{from, "the file breaks off within this record"};
    from = value.next;
  }
  return bytes_.size();
}

std::size_t TextReader::resynchronise(std::size_t from) {
  while (from < bytes_.size() && !record_begins(from)) from = line(from).next;
  return from;
}

}  // namespace velmar::drawing::dxf
