#pragma once

#include <string>

#include "cli/call_record.h"
#include "cli/json.h"

namespace velmar::cli {

/// The answer of `call --json`.
Json call_json(const CallRecord& record);

/// What a script did to the drawings, and what stopped it.
Json script_json(const std::string& file, const CallRecord& all);

/// For people: what the method wrote to the command line, its result, and a line for each drawing
/// that was changed or saved.
std::string call_text(const CallRecord& record);

/// Writes the drawings that the method could not open or save to standard error.
void tell_refused(const CallRecord& record);
/// A value for people; points and lists with commas.
std::string value_text(const basic::Value& value);

/// What is in by-reference parameters now and was not before: "N = 4", a line for each.
std::string written_back_text(const CallRecord& record);

/// "error 13: Type mismatch (VelmarMenu)".
std::string failure_text(const basic::Failure& failure);

}  // namespace velmar::cli
