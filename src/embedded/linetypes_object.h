#pragma once

#include <string>
#include <vector>

#include "embedded/named_collection.h"

namespace velmar::embedded {

/// One linetype: Name and Description.
class LinetypeObject final : public PlainObject {
 public:
  LinetypeObject(DocumentPointer document, drawing::RecordId id)
      : document_(std::move(document)), id_(id) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> values) override;

  const DocumentState& document() const { return *document_; }

 private:
  void require_alive() const;

  DocumentPointer document_;
  drawing::RecordId id_;
};

/// The rows of the linetype table. Add makes a continuous one of the name, or gives the one that is
/// there; Load is not available: there is no linetype file.
struct LinetypeRows {
  using Id = drawing::RecordId;
  static std::vector<Id> ids(const drawing::Drawing& drawing) { return drawing.rows("LTYPE"); }
  static bool exists(const drawing::Drawing& drawing, Id id);
  static Value object(const DocumentPointer& document, Id id);
  static Id named(const drawing::Drawing& drawing, const std::string& name);
  static Id add(drawing::Drawing& drawing, const std::string& name);
};
using LinetypesObject = NamedCollection<LinetypeRows>;

}  // namespace velmar::embedded
