#include "basic/failure.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmar::basic {
namespace {

struct Text {
  RunTimeError number;
  std::string_view text;
};

constexpr auto texts = std::to_array<Text>({
    {bad_argument, "Invalid procedure call or argument"},
    {overflow, "Overflow"},
    {out_of_memory, "Out of memory"},
    {subscript_out_of_range, "Subscript out of range"},
    {division_by_zero, "Division by zero"},
    {type_mismatch, "Type mismatch"},
    {bad_file_name, "Bad file name or number"},
    {file_not_found, "File not found"},
    {file_already_exists, "File already exists"},
    {input_past_end, "Input past end of file"},
    {permission_denied, "Permission denied"},
    {path_file_access, "Path/File access error"},
    {path_not_found, "Path not found"},
    {object_not_set, "Object variable or With block variable not set"},
    {loop_not_initialized, "For loop not initialized"},
    {invalid_use_of_null, "Invalid use of Null"},
    {object_required, "Object required"},
    {cannot_create_object, "ActiveX component can't create object"},
    {no_automation, "Class does not support Automation or does not support expected interface"},
    {class_not_found, "File name or class name not found during Automation operation"},
    {no_such_member, "Object doesn't support this property or method"},
    {automation_error, "Automation error"},
    {action_not_supported, "Object doesn't support this action"},
    {named_argument_not_found, "Named argument not found"},
    {argument_not_optional, "Argument not optional"},
    {wrong_argument_count, "Wrong number of arguments or invalid property assignment"},
    {not_a_collection, "Object not a collection"},
    {server_unavailable, "The remote server machine does not exist or is unavailable"},
});

}  // namespace

Failure::Failure(RunTimeError error)
    : Failure(error, "VelmarMenu", std::string(run_time_text(error))) {}

Failure::Failure(std::int32_t error, std::string raised_by, std::string text)
    : number(error), source(std::move(raised_by)), description(std::move(text)) {}

std::uint32_t Failure::hresult() const noexcept {
  const auto bits = static_cast<std::uint32_t>(number);
  return number < 0 ? bits : 0x800A0000U + bits;
}

std::string_view run_time_text(std::int32_t number) {
  const auto found = std::ranges::find(texts, number, &Text::number);
  return found != texts.end() ? found->text : "Application-defined or object-defined error";
}

}  // namespace velmar::basic
