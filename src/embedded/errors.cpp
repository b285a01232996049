#include "embedded/errors.h"

#include <algorithm>
#include <array>

namespace velmar::embedded {
namespace {

struct ErrorText {
  HostError error;
  std::string_view text;
};

constexpr std::array texts{
    ErrorText{HostError::disconnected, "The object invoked has disconnected from its clients"},
    ErrorText{HostError::drawing_failed, "The drawing could not be read or written"},
    ErrorText{HostError::cancelled, "Exception occurred"},
    ErrorText{HostError::selection_set_exists, "The named selection set exists"},
    ErrorText{HostError::saving_failed, "Error saving the document"},
    ErrorText{HostError::not_a_drawing, "The file is not a valid drawing"},
    ErrorText{HostError::no_document, "Failed to get the Document object"},
    ErrorText{HostError::file_not_found, "The file is not found"},
    ErrorText{HostError::keyword, "User input is a keyword"},
    ErrorText{HostError::invalid_argument, "Invalid argument"},
    ErrorText{HostError::wrong_element_count, "number of elements in SafeArray incorrect"},
    ErrorText{HostError::invalid_layer, "Invalid layer"},
    ErrorText{HostError::undefined_linetype, "Undefined linetype"},
    ErrorText{HostError::duplicate_record_name, "Duplicate record name"},
    ErrorText{HostError::on_locked_layer, "On locked layer"},
    ErrorText{HostError::was_erased, "Object was erased"},
    ErrorText{HostError::filer_error, "Filer error"},
    ErrorText{HostError::not_that_class, "Not that kind of class"},
    ErrorText{HostError::invalid_key, "Invalid key"},
    ErrorText{HostError::invalid_extents, "Invalid extents"},
    ErrorText{HostError::duplicate_key, "Duplicate key"},
    ErrorText{HostError::key_not_found, "Key not found"},
    ErrorText{HostError::unknown_handle, "Unknown handle"},
    ErrorText{HostError::invalid_input, "Invalid input"},
};

constexpr const char* source = "AutoCAD";

}  // namespace

basic::Failure failure(HostError error) {
  const auto found = std::ranges::find(texts, error, &ErrorText::error);
  return failure(error, std::string(found->text));
}

basic::Failure failure(HostError error, std::string description) {
  return {static_cast<std::int32_t>(error), source, std::move(description)};
}

basic::Failure invalid_argument(std::string_view parameter, host::Member method) {
  return failure(HostError::invalid_argument, "Invalid argument " + std::string(parameter) +
                                                  " in " + std::string(host::spelling(method)));
}

basic::Failure not_supported(std::string_view what) {
  return {basic::action_not_supported, source,
          "Object doesn't support this action: " + std::string(what) + " is not available here"};
}

basic::Failure no_such_member(host::Member member) {
  return {basic::no_such_member, source,
          "Object doesn't support this property or method: " + std::string(host::spelling(member))};
}

}  // namespace velmar::embedded
