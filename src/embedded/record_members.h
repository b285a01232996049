#pragma once

#include <optional>

#include "embedded/arguments.h"
#include "embedded/document_state.h"

namespace velmar::embedded {

/// What every object that is a record of the drawing has: Handle, ObjectName, ObjectID, OwnerID,
/// HasExtensionDictionary, Application, Document, Database. Nothing for other members.
std::optional<Value> record_member(const DocumentPointer& document, drawing::RecordId id,
                                   Member member);
/// GetExtensionDictionary; 445 where there is none, which the member would have to make.
Value extension_dictionary(const DocumentPointer& document, drawing::RecordId id);

}  // namespace velmar::embedded
