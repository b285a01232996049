#pragma once

#include "embedded/document_state.h"

namespace velmar::embedded {

/// The object of a record: an entity or attribute, a layer, a block, a layout, a linetype, a
/// dictionary; for other table rows and
/// objects one that knows its Handle, ObjectName and ObjectID alone. Fails: "Unknown handle" for
/// none, "Object was erased" for what was.
basic::Value make_object(const DocumentPointer& document, drawing::RecordId id);

}  // namespace velmar::embedded
