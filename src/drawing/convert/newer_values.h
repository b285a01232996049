#pragma once

#include <string_view>

#include "drawing/convert/loss.h"
#include "drawing/convert/tag_drawing.h"

namespace velmar::drawing {

/// The version that a kind of record came with; that of AC1015 for kinds that are not listed.
std::string_view first_version_of_kind(std::string_view kind);
/// Whether a record of the kind says how a program works or looks, and nothing that is drawn.
bool is_setting(std::string_view kind);
/// Whether it is a solid model: text up to 2010, binary data of a section of its own since 2013.
bool is_solid_model(std::string_view kind);
/// Whether a group 440 makes anything be seen through: by layer and opaque do not.
bool is_transparent(const TagValue& tag);
/// Gives an entity or a layer that has a true colour alone the index that is nearest to it.
void name_nearest_index(TagRecord& record);
/// Takes the values out of a record that came after a version.
void drop_newer_values(TagRecord& record, std::string_view version, LossList& losses);

}  // namespace velmar::drawing
