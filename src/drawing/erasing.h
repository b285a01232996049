#pragma once

#include "drawing/store.h"

namespace velmar::drawing {

/// Takes one record out of what is saved; what names it is mended by settle_erased.
void mark_erased(Store& store, RecordId id);
/// Other bytes for a record that only names what was erased no more: no change of its own to tell.
void mend(Store& store, RecordId id, std::string bytes);
/// An entity with its parts; told among the changes.
void erase_entity(Store& store, RecordId id);
/// Erases what erased records own (extension dictionaries and what is in them) and what is there
/// for their sake alone (see followers.h), and takes erased records out of the lists of others:
/// groups, drawing order, reactors, dictionaries, references of a block, the dimension styles of
/// their table. Linear in the drawing, once for all that was erased.
void settle_erased(Store& store);

}  // namespace velmar::drawing
