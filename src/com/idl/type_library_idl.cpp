#include <cstdio>
#include <string>
#include <string_view>

#include "com/idl/texts.h"
#include "com/published_ids.h"

namespace velmar::com {
namespace {

constexpr std::string_view frame = R"(import "oaidl.idl";

[uuid(@library_id), version(@version), helpstring("@description")]
library @library {
  importlib("stdole2.tlb");
  interface @interface;

  typedef [uuid(@colour_id), helpstring("Colour indexes; 8 to 255 have no name")] enum @colour {
    clrByBlock = 0, clrRed = 1, clrYellow = 2, clrGreen = 3, clrCyan = 4, clrBlue = 5, clrMagenta = 6,
    clrWhite = 7, clrByLayer = 256
  } @colour;

  [odl, uuid(@interface_id), version(@version), hidden, dual, nonextensible, oleautomation]
  interface @interface : IDispatch {
@methods  };

  [uuid(@class_id), version(@version), helpstring("@description")]
  coclass @class {
    [default] interface @interface;
  };
};
)";

std::string in_idl(ValueType type, bool is_colour) {
  switch (type) {
    case ValueType::none:
      return "void";
    case ValueType::variant:
      return "VARIANT";
    case ValueType::boolean:
      return "VARIANT_BOOL";
    case ValueType::int16:
      return "short";
    case ValueType::int32:
      return std::string(is_colour ? colour_type : "long");
    case ValueType::number:
      return "double";
    case ValueType::text:
      return "BSTR";
  }
  return {};
}

/// Early-bound callers pass 0 or "" where no default stands, so it is left out wherever widl packs
/// it in a way that not every reader understands: doubles, and texts by reference.
std::string default_value(const Parameter& parameter) {
  if (parameter.type == ValueType::number || parameter.type == ValueType::variant) return {};
  if (parameter.type != ValueType::text) return ",defaultvalue(0)";
  return parameter.by_reference ? "" : R"(,defaultvalue(""))";
}

std::string in_idl(const Parameter& parameter) {
  std::string text = parameter.by_reference ? "[in,out" : "[in";
  if (parameter.optional) text += ",optional" + default_value(parameter);
  text += "] " + in_idl(parameter.type, parameter.is_colour);
  if (parameter.by_reference) text += "*";
  return text.append(" ").append(parameter.name);
}

std::string in_idl(const Method& method) {
  char id[11];
  std::snprintf(id, sizeof id, "0x%08x", static_cast<unsigned>(method.dispatch_id));
  std::string text = "    [id(" + std::string(id) + "), helpstring(\"";
  text.append(method.help).append("\")]\n    HRESULT ").append(method.name).append("(");
  std::string separator;
  for (const Parameter& parameter : method.parameters()) {
    text += separator + in_idl(parameter);
    separator = ", ";
  }
  if (method.result != ValueType::none) {
    text += separator + "[out,retval] " + in_idl(method.result, false) + "* returned";
  }
  return text + ");\n";
}

void fill_in(std::string& text, std::string_view mark, std::string_view filling) {
  for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += filling.size()) {
    text.replace(at, mark.size(), filling);
  }
}

}  // namespace

std::string type_library_idl(std::span<const Method> methods) {
  std::string listed;
  for (const Method& method : methods) listed += in_idl(method);
  std::string text(frame);
  fill_in(text, "@library_id", library_id);
  fill_in(text, "@interface_id", interface_id);
  fill_in(text, "@class_id", class_id);
  fill_in(text, "@colour_id", colour_type_id);
  fill_in(text, "@version", version);
  fill_in(text, "@description", class_description);
  fill_in(text, "@library", library_name);
  fill_in(text, "@interface", interface_name);
  fill_in(text, "@class", class_name);
  fill_in(text, "@colour", colour_type);
  fill_in(text, "@methods", listed);
  return text;
}

}  // namespace velmar::com
