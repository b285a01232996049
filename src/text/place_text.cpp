#include <cstdint>

#include "basic/conversion.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

enum Colour : std::int32_t { none = 0, red = 1, green = 3, white = 7 };

Colour colour_for(std::string_view content) {
  if (content.starts_with("Section")) return green;
  if (content.starts_with("Scale")) return white;
  return red;
}

}  // namespace

Empty Velmar16::Text(std::string& TextString, Value& X, Value& y, double& RO, double& H,
                     std::string& LayerName, bool& Hidden, std::int32_t& Color,
                     std::string& Hndltext) {
  if (!Hndltext.empty()) TextString = entity<host::Text>(Hndltext).TextString();
  const basic::Separators separators = system().separators();
  const host::Point at{basic::number(X, separators), basic::number(y, separators), 0};

  const host::Text text = model_space().AddText(TextString, at, H);
  RO *= radians_per_degree;  // Kept: the caller's variable holds radians from here on.
  text.Color(red);
  text.Rotation(RO);
  if (const Colour colour = colour_for(TextString); colour != red) text.Color(colour);
  std::int32_t no_colour = none;
  MLayer(LayerName, no_colour);
  if (!LayerName.empty()) text.Layer(LayerName);
  if (Hidden) text.Visible(false);
  if (Color != none) text.Color(Color);
  LastTextHandle = text.Handle();
  return {};
}

}  // namespace velmar
