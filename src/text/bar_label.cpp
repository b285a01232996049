#include <string>

#include "basic/conversion.h"
#include "basic/number_text.h"
#include "component/velmar16.h"

namespace velmar {

/// Number, type and size, bar mark, spacing, note: "20T16-01-200 B1".
Empty Velmar16::TextBar(Value& XT, double& YT, Value& D, Value& BM, std::int16_t& SP, Value& N,
                        Value& Typ, std::string& AD) {
  const basic::Separators separators = system().separators();
  const std::string number = basic::text(N, separators);
  std::string label = number == "0" ? "" : number;
  label += basic::text(Typ, separators) + basic::text(D, separators);
  label += "-" + basic::text(BM, separators);
  if (SP != 0) label += "-" + basic::general(SP, separators);
  if (!AD.empty()) label += " " + AD;

  Value x = XT, y = YT;
  double rotation = 0, height = 250;
  std::string layer = "Eng-TEXTBAR", no_copied_text;
  bool hidden = false;
  std::int32_t no_colour = 0;
  return Text(label, x, y, rotation, height, layer, hidden, no_colour, no_copied_text);
}

}  // namespace velmar
