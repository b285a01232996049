#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "basic/failure.h"
#include "basic/value.h"

namespace velmar::cli {

using Json = nlohmann::ordered_json;

/// Empty, null, what was left out and host objects are null; points and lists are arrays.
Json to_json(const basic::Value& value);

/// {"number", "hresult", "source", "description"}.
Json to_json(const basic::Failure& failure);

/// The same shape for a drawing that could not be read or written; number and hresult are null.
Json drawing_error(std::string_view description);

/// On one line, with a line end. Bytes that are no UTF-8 become replacement characters.
std::string to_text(const Json& json);

}  // namespace velmar::cli
