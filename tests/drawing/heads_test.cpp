#include <gtest/gtest.h>

#include <sstream>

#include "drawing/drawing.h"
#include "sample_text.h"

// The first tags of a record, which loading reads itself: whatever form and order they have.

namespace velmar::drawing {
namespace {

/// The same drawing with its group codes filled up with blanks.
std::string padded(const std::string& text, std::size_t width) {
  std::istringstream lines(text);
  std::string line, out;
  for (bool is_code = true; std::getline(lines, line); is_code = !is_code) {
    const std::size_t size = line.size() - (line.ends_with('\r') ? 1 : 0);
    if (is_code && size < width) out.append(width - size, ' ');
    out += line + "\n";
  }
  return out;
}

struct Expected {
  Handle handle;
  std::string layer;
  int color;
  bool in_model_space;
};

void expect_entities(const std::string& bytes, const std::vector<Expected>& expected) {
  const Drawing drawing = Drawing::read(bytes, "heads.dxf");
  for (const Warning& warning : drawing.warnings())
    ADD_FAILURE() << warning.line << ": " << warning.text;
  EXPECT_EQ(drawing.entity_count(SpaceId::model),
            std::ranges::count(expected, true, &Expected::in_model_space));
  for (const Expected& entity : expected) {
    const RecordId id = drawing.find(entity.handle);
    ASSERT_NE(id, RecordId::none) << entity.handle;
    const Record& record = drawing.record(id);
    EXPECT_EQ(drawing.layer(record.layer).name, entity.layer) << entity.handle;
    EXPECT_EQ(record.color, entity.color) << entity.handle;
    EXPECT_EQ(record.space == SpaceId::model, entity.in_model_space) << entity.handle;
    EXPECT_EQ(drawing.read(id).common.layer, entity.layer) << entity.handle;
  }
}

TEST(Heads, AreReadInAnyFormAndOrder) {
  const std::string line = "100 AcDbLine 10 1.0 20 2.0 30 0.0 11 4.0 21 6.0 31 0.0 ";
  const std::string entities =
      "0 LINE 5 2A 330 1F 100 AcDbEntity 8 Walls " + line +
      "0 LINE 5 2B 330 1B 100 AcDbEntity 67 1 8 Walls " + line +
      "0 LINE 5 2C 330 1F 100 AcDbEntity 8 Walls 6 Continuous 62 3 " + line +
      "0 LINE 5 2D 330 1F 100 AcDbEntity 62 ~~~4 8 0 " + line +
      "0 LINE 5 2E 102 {ACAD_REACTORS 330 1B 102 } 330 1F 100 AcDbEntity 8 Walls " + line +
      "0 LINE 330 1F 5 2f 100 AcDbEntity 8 ~Walls~ " + line +
      "0 LINE 5 3A 100 AcDbEntity 8 Walls " + line +
      "0 LINE 5 31 330 1F 100 AcDbEntity 8 A-layer-with-a-name-beyond-two-words " + line +
      "0 LINE 5 32 330 1B 100 AcDbEntity 67 1 8 A-layer-with-a-name-beyond-two-words " + line +
      "0 LINE 5 33 330 1F 100 AcDbEntity 8 Walls 100 AcDbEntity 62 5 " + line;
  const std::string long_name = "A-layer-with-a-name-beyond-two-words";
  const std::vector<Expected> expected = {
      {0x2A, "Walls", 256, true}, {0x2B, "Walls", 256, false},  {0x2C, "Walls", 3, true},
      {0x2D, "0", 4, true},       {0x2E, "Walls", 256, true},   {0x2F, "Walls", 256, true},
      {0x3A, "Walls", 256, true}, {0x31, long_name, 256, true}, {0x32, long_name, 256, false},
      {0x33, "Walls", 5, true}};
  for (const char* line_end : {"\r\n", "\n"}) {
    for (const std::size_t width : {0, 3, 6}) {
      SCOPED_TRACE(std::to_string(width) + (*line_end == '\r' ? " CR LF" : " LF"));
      expect_entities(padded(drawing_of("AC1015", entities, line_end), width), expected);
    }
  }
}

/// In a dimension style group 5 is the name of a block, and 105 the handle.
TEST(Heads, OfADimensionStyleHaveAHandleOfTheirOwn) {
  const std::string bytes =
      padded(dxf_text("0 SECTION 2 TABLES 0 TABLE 2 DIMSTYLE 5 A 70 1 0 DIMSTYLE 5 2F 105 27 330 A "
                      "2 Standard 70 0 0 ENDTAB 0 ENDSEC 0 SECTION 2 ENTITIES 0 ENDSEC 0 EOF"),
             3);
  const Drawing drawing = Drawing::read(bytes, "heads.dxf");
  EXPECT_NE(drawing.find(0x27), RecordId::none);
  EXPECT_EQ(drawing.find(0x2F), RecordId::none);
}

}  // namespace
}  // namespace velmar::drawing
