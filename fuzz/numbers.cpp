// Readings of numbers, and the text of a number read again.

#include <cmath>
#include <cstring>

#include "basic/conversion.h"
#include "basic/failure.h"
#include "basic/number_text.h"
#include "basic/strict_number.h"
#include "basic/val.h"
#include "target.h"

namespace velmar::fuzz {
namespace {

using basic::Failure;

void read_all(const std::string& text) {
  const basic::Value value(text);
  where_allowed<Failure>(
      [&] { expect(!std::isnan(basic::val(text)), "a lenient reading is no number"); });
  where_allowed<Failure>([&] { basic::val(text, basic::TypeCharacter::ignored); });
  where_allowed<Failure>([&] {
    const double number = basic::strict_number(text);
    expect(std::isfinite(number), "a strict reading is not finite");
    expect(basic::val(basic::general(number)) == basic::strict_number(basic::general(number)),
           "the two readings of a number's text differ");
  });
  where_allowed<Failure>([&] { basic::strict_number(text, {',', '.'}); });
  where_allowed<Failure>([&] { basic::convert<std::int16_t>(value); });
  where_allowed<Failure>([&] { basic::convert<std::int32_t>(value); });
  where_allowed<Failure>([&] { basic::convert<bool>(value); });
}

void write_and_read(double number) {
  constexpr double most_off = 5.3e-15;  // half of the fifteenth digit, and what reading rounds off
  const std::string text = basic::general(number);
  if (!std::isfinite(number)) return;
  where_allowed<Failure>([&] {
    const double again = basic::strict_number(text);
    expect(again == number || std::abs(again - number) <= most_off * std::abs(number),
           "the text of a number is another number: " + text);
  });
}

}  // namespace
}  // namespace velmar::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  velmar::fuzz::read_all(velmar::fuzz::text_of(data, size));
  if (size >= sizeof(double)) {
    double number = 0;
    std::memcpy(&number, data, sizeof number);
    velmar::fuzz::write_and_read(number);
  }
  return 0;
}
