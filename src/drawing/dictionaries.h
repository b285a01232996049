#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drawing/store.h"

namespace velmar::drawing {

// DICTIONARY objects: names with the handles of objects. None where the file has no such
// dictionary.

/// The dictionary that holds all others: the first of the OBJECTS section.
RecordId root_dictionary(const Store& store);
/// One of the root's dictionaries, such as "ACAD_LAYOUT".
RecordId named_dictionary(const Store& store, std::string_view name);
/// In the order of the record.
std::vector<DictionaryEntry> dictionary_entries(const Store& store, RecordId dictionary);
/// The object under a name, found without regard to case; none where there is none.
RecordId dictionary_item(const Store& store, RecordId dictionary, std::string_view name);

void add_entry(Store& store, RecordId dictionary, std::string_view name, Handle object);
void rename_entry(Store& store, RecordId dictionary, Handle object, std::string_view name);

}  // namespace velmar::drawing
