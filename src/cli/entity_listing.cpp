#include "cli/entity_listing.h"

#include "basic/failure.h"
#include "cli/call_report.h"
#include "cli/printable.h"
#include "cli/text_table.h"
#include "embedded/entity_object.h"

namespace velmar::cli {
namespace {

using host::Member;

constexpr Member listed[] = {
    Member::Layer,          Member::Color,         Member::Linetype,     Member::LinetypeScale,
    Member::TextString,     Member::StyleName,     Member::Height,       Member::Width,
    Member::Rotation,       Member::Name,          Member::StartPoint,   Member::EndPoint,
    Member::Center,         Member::Radius,        Member::StartAngle,   Member::EndAngle,
    Member::InsertionPoint, Member::XScaleFactor,  Member::YScaleFactor, Member::Coordinates,
    Member::Closed,         Member::ConstantWidth, Member::Elevation,    Member::PatternName,
    Member::Measurement,    Member::Length,        Member::ArcLength,    Member::Area,
};

/// Empty for what this kind has not.
std::string text_of(embedded::EntityObject& entity, Member member) {
  try {
    return value_text(entity.get(member));
  } catch (const basic::Failure&) {
    return {};
  }
}

}  // namespace

std::string entity_text(const embedded::DocumentPointer& document, drawing::RecordId id) {
  const drawing::Drawing& drawing = document->drawing;
  const auto entity = embedded::make_entity(document, id);
  TextTable facts({TextTable::Side::left, TextTable::Side::left});
  for (const Member member : listed) {
    const std::string text = text_of(*entity, member);
    if (!text.empty()) facts.add({std::string(host::spelling(member)), printable(text)});
  }
  const std::string handle = drawing::handle_text(drawing.record(id).handle);
  return printable(drawing.kind_name(id)) + " #" + handle + "\n" + facts.text(2);
}

}  // namespace velmar::cli
