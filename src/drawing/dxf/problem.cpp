#include "drawing/dxf/problem.h"

namespace velmar::drawing::dxf {

Problem problem_at(const RecordTags& record, const Tag& tag, std::string_view expected) {
  std::string text = "group " + std::to_string(tag.code) + ": expected " + std::string(expected);
  if (!record.format().binary)
    text += ", found \"" + std::string(record.text(tag).substr(0, 40)) + '"';
  return {tag.value, std::move(text)};
}

}  // namespace velmar::drawing::dxf
