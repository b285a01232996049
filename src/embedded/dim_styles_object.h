#pragma once

#include <string>
#include <vector>

#include "embedded/named_collection.h"

namespace velmar::embedded {

/// A row of the DIMSTYLE table, by its name.
class DimStyleObject final : public PlainObject {
 public:
  DimStyleObject(DocumentPointer document, std::string name)
      : document_(std::move(document)), name_(std::move(name)) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;

  const DocumentState& document() const { return *document_; }
  const std::string& name() const { return name_; }

 private:
  DocumentPointer document_;
  std::string name_;
};

/// The dimension styles of a drawing in the order of its table. Add of a name that is there gives
/// that style; a new one is a copy of the first.
struct DimStyleRows {
  using Id = std::string;  // the name
  static std::vector<Id> ids(const drawing::Drawing& drawing) { return drawing.table("DIMSTYLE"); }
  static bool exists(const drawing::Drawing& drawing, const Id& name);
  static Value object(const DocumentPointer& document, const Id& name);
  static Id named(const drawing::Drawing& drawing, const std::string& name);
  static Id add(drawing::Drawing& drawing, const std::string& name);
};
using DimStylesObject = NamedCollection<DimStyleRows>;

}  // namespace velmar::embedded
