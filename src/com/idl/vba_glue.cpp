#include <string>
#include <string_view>

#include "com/idl/texts.h"
#include "com/published_ids.h"

namespace velmar::com {
namespace {

constexpr std::string_view vba_head = R"(Attribute VB_Name = "VelmarCalls"
' Velmar for Basic macros: import this file into a project. Each method of the class is a function of the same name
' with the prefix Vm; what a method writes back is in the caller's variables. Errors are those of the method.
Option Explicit

Private velmar_object As Object

' The object all calls go to, made when the first one needs it.
Public Function Velmar() As Object
    If velmar_object Is Nothing Then Set velmar_object = CreateObject("@program_id")
    Set Velmar = velmar_object
End Function

' Lets the object go, so that the library can be replaced.
Public Sub ReleaseVelmar()
    Set velmar_object = Nothing
End Sub

' A sample: rounds a length up to a multiple of 5 and says what came out.
Public Sub VelmarSample()
    Dim Length As Variant, Interval As Double
    Length = 11
    Interval = 5
    On Error GoTo Failed
    MsgBox "RUP: " & VmRUP(Length, Interval) & ", the variable is now " & Length
    Exit Sub
Failed:
    MsgBox "Velmar: error " & Err.Number & ": " & Err.Description, vbExclamation
End Sub
)";

std::string_view in_basic(ValueType type) {
  switch (type) {
    case ValueType::none:
    case ValueType::variant:
      return "Variant";
    case ValueType::boolean:
      return "Boolean";
    case ValueType::int16:
      return "Integer";
    case ValueType::int32:
      return "Long";
    case ValueType::number:
      return "Double";
    case ValueType::text:
      return "String";
  }
  return {};
}

std::string declaration(const Parameter& parameter) {
  std::string text = parameter.optional ? "Optional " : "";
  text.append(parameter.by_reference ? "ByRef " : "ByVal ").append(parameter.name);
  return text.append(" As ").append(in_basic(parameter.type));
}

/// Lines of declarations are broken after each parameter but the first, as long ones cannot be
/// read.
std::string function(const Method& method) {
  const bool returns = method.result != ValueType::none;
  const std::string kind = returns ? "Function" : "Sub", name = "Vm" + std::string(method.name);
  std::string declared, passed;
  for (const Parameter& parameter : method.parameters()) {
    declared += (declared.empty() ? "" : ", _\n        ") + declaration(parameter);
    passed.append(passed.empty() ? "" : ", ").append(parameter.name);
  }
  std::string text = "\n' ";
  text.append(method.help).append("\nPublic " + kind + " " + name + "(" + declared + ")");
  if (returns) text.append(" As ").append(in_basic(method.result));
  const std::string call = "Velmar." + std::string(method.name);
  text += "\n    ";
  text += returns ? name + " = " + call + "(" + passed + ")" : call + " " + passed;
  return text + "\nEnd " + kind + "\n";
}

std::string with_line_ends(const std::string& text) {
  std::string ended;
  for (const char mark : text) ended.append(mark == '\n' ? "\r\n" : std::string(1, mark));
  return ended;
}

}  // namespace

std::string vba_glue(std::span<const Method> methods) {
  constexpr std::string_view mark = "@program_id";
  std::string text(vba_head);
  text.replace(text.find(mark), mark.size(), program_id);
  for (const Method& method : methods) text += function(method);
  return with_line_ends(text);  // the editor of macros imports no others
}

}  // namespace velmar::com
