#include "drawing/dxf/line_scan.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

// The two scanners against each other and against a reading line by line.

namespace velmar::drawing::dxf {
namespace {

struct Expected {
  std::size_t record;   // offset of the next group 0, or the end
  std::size_t unusual;  // offset of the first unusual group code line, or the end
};

bool usual(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  if (line.empty() || line.back() == ' ') return false;
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  if (line.starts_with('0') && line != "0") return false;
  return line.find_first_not_of(" 0123456789\r") == std::string_view::npos;
}

bool is_zero(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  const auto last = line.find_last_not_of('0');
  return line.ends_with('0') && (line.size() == 1 || last == line.size() - 2) &&
         (last == std::string_view::npos || line[last] == ' ');
}

Expected line_by_line(const std::string& text) {
  std::size_t at = 0;
  for (bool code = true; at < text.size(); code = !code) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string_view line = std::string_view(text).substr(at, end - at);
    if (code && !usual(line)) return {text.size(), at};
    if (code && is_zero(line)) return {at, text.size()};
    at = end + 1;
  }
  return {text.size(), text.size()};
}

void check(const std::string& text, ScanStop (*find)(const char*, const char*)) {
  const ScanStop stop = find(text.data(), text.data() + text.size());
  const Expected expected = line_by_line(text);
  if (!stop.unusual) {
    ASSERT_EQ(static_cast<std::size_t>(stop.at - text.data()), expected.record) << text;
  } else {
    // Less than a block is left, or an unusual line comes before the record.
    const bool short_rest = expected.record + 128 > text.size();
    ASSERT_TRUE(short_rest || expected.unusual < text.size()) << text;
  }
}

bool has_avx2() {
#if defined(__x86_64__) || defined(__i386__)
  return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("pclmul");
#else
  return true;  // the same function as the portable one
#endif
}

TEST(FindRecord, AgreesWithReadingLineByLine) {
  std::mt19937 random(20260101);
  const auto pick = [&](auto... choices) {
    const std::string list[] = {choices...};
    return list[random() % (sizeof list / sizeof *list)];
  };
  for (int round = 0; round < 20'000; ++round) {
    const std::string end = round % 2 == 0 ? "\n" : "\r\n";
    std::string text;
    const auto tags = random() % 40;
    for (unsigned i = 0; i < tags; ++i) {
      text += pick(" 10", "  5", "330", " 70", "  8", "100", "1040", "  1") + end;
      text += pick("0", "     0", "10.0", "AcDbLine", "", "  0", "0 0", "x0") + end;
    }
    if (round % 7 == 0) text += pick("  0 ", "", "1x", "\t0", "00", " 010") + end + "LINE" + end;
    text += "  0" + end + "LINE" + end;
    text += std::string(200, ' ') + "5" + end;
    check(text, find_record_portable);
    if (has_avx2()) check(text, find_record_avx2);
  }
}

}  // namespace
}  // namespace velmar::drawing::dxf
