#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "drawing/drawing.h"
#include "drawing/extents.h"
#include "file_content.h"
#include "sample_text.h"

// Files that are not sound: whatever they hold, they open with the rest intact, or are refused with
// a message.

namespace velmar::drawing {
namespace {

const std::string circle_words =
    "0 CIRCLE 5 3F 330 1F 100 AcDbEntity 8 Walls 100 AcDbCircle 10 1.0 20 2.0 30 0.0 40 5.0 ";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  const auto at = text.find(what);
  EXPECT_NE(at, std::string::npos) << what;
  return text.replace(at, what.size(), with);
}

/// Uses all that a file can spoil.
void exercise(const std::string& bytes) {
  try {
    Drawing drawing = Drawing::read(bytes, "bad.dxf");
    EXPECT_EQ(drawing.bytes(), bytes);
    drawing.check();
    for (std::uint32_t i = 0; i < drawing.size(); ++i) {
      const auto id = static_cast<RecordId>(i);
      drawing.object_name(id);
      drawing.read_xdata(id);
      if (drawing.record(id).space == SpaceId::none) continue;
      try {
        extents(drawing, id);
        drawing.write(id, drawing.read(id));
      } catch (const Error& error) {
        EXPECT_NE(std::string(error.what()), "");
      }
    }
    drawing.bytes();
  } catch (const Error& error) {
    EXPECT_NE(std::string(error.what()), "");
  }
}

TEST(BadInput, NamesTheLineAndTheHandleOfABrokenGroupCode) {
  const std::string bytes = replaced(drawing_of("AC1015", walls_line + circle_words),
                                     "AcDbLine\r\n10\r\n", "AcDbLine\r\n1x0\r\n");
  const Drawing drawing = Drawing::read(bytes, "bad.dxf");
  ASSERT_EQ(drawing.warnings().size(), 1u) << drawing.warnings().back().text;
  const Warning& warning = drawing.warnings().front();
  EXPECT_EQ(warning.handle, 0x2Fu);
  EXPECT_EQ(warning.line,
            static_cast<std::uint64_t>(
                1 + std::count(bytes.begin(), bytes.begin() + static_cast<long>(bytes.find("1x0")),
                               '\n')));
  EXPECT_NE(warning.text.find("\"1x0\""), std::string::npos);
  EXPECT_EQ(drawing.entity_count(SpaceId::model), 2u);
  EXPECT_EQ(std::get<Circle>(drawing.read(drawing.find(0x3F)).body).radius, 5);
}

TEST(BadInput, ALostLineSpoilsOneEntityOnly) {
  std::string entities;
  for (int i = 0; i < 20; ++i) entities += replaced(circle_words, "3F", "A" + std::to_string(i));
  const std::string sound = drawing_of("AC1015", walls_line + entities);
  for (const std::string lost : {"4.0\r\n", "2F\r\n", "Walls\r\n", "AcDbLine\r\n", "LINE\r\n"}) {
    const std::string bytes = replaced(sound, lost == "Walls\r\n" ? "8\r\nWalls\r\n" : lost,
                                       lost == "Walls\r\n" ? "8\r\n" : "");
    const Drawing drawing = Drawing::read(bytes, "bad.dxf");
    EXPECT_FALSE(drawing.warnings().empty()) << lost;
    EXPECT_GE(drawing.entity_count(SpaceId::model), 20u) << lost;
    EXPECT_EQ(drawing.bytes(), bytes);
  }
}

TEST(BadInput, ATextWhereANumberBelongsIsToldOnUse) {
  const Drawing drawing = Drawing::read(
      replaced(drawing_of("AC1015", walls_line + circle_words), "11\r\n4.0", "11\r\nfour"),
      "bad.dxf");
  try {
    drawing.read(drawing.find(0x2F));
    FAIL() << "a number was read";
  } catch (const Error& error) {
    const std::string message = error.what();
    EXPECT_NE(message.find("bad.dxf, line "), std::string::npos) << message;
    EXPECT_NE(message.find("(LINE #2F): group 11: expected a number, found \"four\""),
              std::string::npos)
        << message;
  }
  ASSERT_EQ(drawing.check().size(), 1u);
  EXPECT_EQ(drawing.check().front().handle, 0x2Fu);
}

TEST(BadInput, ABinaryRecordWithoutANameBelongsToTheOneBefore) {
  const Drawing sound = Drawing::read(drawing_of("AC1015", walls_line + circle_words), "sound.dxf");
  std::string bytes = sound.convert({{}, true}).bytes;
  bytes.replace(bytes.rfind("CIRCLE"), 6, "C\x01(C?!");
  const Drawing drawing = Drawing::read(bytes, "bad.dxf");
  EXPECT_EQ(drawing.entity_count(SpaceId::model), 1U);
  ASSERT_EQ(drawing.warnings().size(), 1U);
  EXPECT_NE(drawing.warnings().front().text.find("the name of a record, found \"C.(C?!\""),
            std::string::npos)
      << drawing.warnings().front().text;
  EXPECT_EQ(drawing.bytes(), bytes);
  EXPECT_THROW(drawing.convert({{}, false}), Error) << "text could not say what it holds";
}

TEST(BadInput, AGroupCode0IsOneHoweverManyZerosItHas) {
  std::string bytes = drawing_of("AC1015", walls_line + circle_words);
  for (const char* zeros : {"00", "  000"}) {
    const Drawing drawing = Drawing::read(
        replaced(bytes, "0\r\nCIRCLE", zeros + std::string("\r\nCIRCLE")), "zeros.dxf");
    EXPECT_EQ(drawing.entity_count(SpaceId::model), 2u) << zeros;
    EXPECT_TRUE(drawing.warnings().empty()) << zeros;
  }
}

TEST(BadInput, MissingEndsAreTold) {
  const std::string sound = drawing_of("AC1015", walls_line + circle_words);
  const std::string no_eof = replaced(sound, "0\r\nEOF\r\n", "");
  EXPECT_EQ(Drawing::read(no_eof, "bad.dxf").warnings().size(), 1u);
  Drawing no_endsec =
      Drawing::read(replaced(sound, "5.0\r\n0\r\nENDSEC\r\n", "5.0\r\n"), "bad.dxf");
  EXPECT_EQ(no_endsec.entity_count(SpaceId::model), 2u);
  no_endsec.add(SpaceId::model, {{}, Line{{}, {1, 1, 0}}});
  EXPECT_EQ(Drawing::read(no_endsec.bytes(), "again").entity_count(SpaceId::model), 3u);
}

TEST(BadInput, AnEntityThatNamesNoLayerIsOnLayer0) {
  const Drawing drawing = Drawing::read(
      dxf_text(
          "0 SECTION 2 TABLES 0 TABLE 2 LAYER 70 1 0 LAYER 2 Walls 70 0 62 1 6 CONTINUOUS 0 ENDTAB "
          "0 ENDSEC 0 SECTION 2 ENTITIES 0 LINE 10 0 20 0 11 1 21 1 0 ENDSEC 0 EOF"),
      "bad.dxf");
  EXPECT_EQ(drawing.read(drawing.entities(SpaceId::model).at(0)).common.layer, "0");
}

TEST(BadInput, HandlesThatAreMissingZeroOrTwiceAreGivenWithoutTouchingTheFile) {
  const std::string twice = replaced(circle_words, "3F", "2F"),
                    none = replaced(circle_words, "5 3F ", ""),
                    zero = replaced(circle_words, "5 3F ", "5 0 ");
  const std::string bytes = drawing_of("AC1015", walls_line + twice + none + zero);
  Drawing drawing = Drawing::read(bytes, "bad.dxf");
  const auto entities = drawing.entities(SpaceId::model);
  ASSERT_EQ(entities.size(), 4u);
  std::set<Handle> handles;
  for (const RecordId id : entities) {
    handles.insert(drawing.record(id).handle);
    EXPECT_EQ(drawing.find(drawing.record(id).handle), id);
  }
  EXPECT_EQ(handles.size(), 4u);
  EXPECT_FALSE(handles.contains(0));
  EXPECT_EQ(drawing.bytes(), bytes);

  Entity moved = drawing.read(entities[1]);
  std::get<Circle>(moved.body).center.x = 9;
  drawing.write(entities[1], moved);
  const Drawing again = Drawing::read(drawing.bytes(), "again");
  EXPECT_EQ(again.find(drawing.record(entities[1]).handle), again.entities(SpaceId::model)[1]);
  EXPECT_GT(parse_handle(*again.header("$HANDSEED")), drawing.record(entities[1]).handle);
}

TEST(BadInput, BlocksNestedInThemselvesAreRefusedNotFollowed) {
  const std::string words =
      "0 SECTION 2 BLOCKS 0 BLOCK 8 0 2 A 70 0 10 0 20 0 30 0 3 A 1 @ 0 INSERT 8 0 2 A 10 0 20 0 "
      "30 0 "
      "0 INSERT 8 0 2 A 10 1 20 0 30 0 0 ENDBLK 8 0 0 ENDSEC "
      "0 SECTION 2 ENTITIES 0 INSERT 8 0 2 A 10 0 20 0 30 0 0 ENDSEC 0 EOF";
  const Drawing drawing = Drawing::read(dxf_text(words), "bad.dxf");
  EXPECT_THROW(extents(drawing, drawing.entities(SpaceId::model)[0]), Error);
}

TEST(BadInput, WhatIsNoDrawingIsRefused) {
  struct Case {
    std::string bytes, said;
  };
  const Case cases[] = {
      {"", "no group 0"},
      {"\n\n\n", ""},
      {"hello", "expected a group code"},
      {"AC1015\0\0\0", "DWG"},
      {std::string(1000, '\0'), "expected a group code"},
      {"  0\nLINE\n", "no section"},
      {"AutoCAD Binary DXF\n\x1a", "mark of a binary DXF"},
      {"AutoCAD Binary DXF\r\n\x1a" + std::string(1, '\0') + "garbage", "no section"}};
  for (const Case& c : cases) {
    try {
      Drawing::read(c.bytes, "bad.dxf");
      ADD_FAILURE() << "opened " << c.bytes;
    } catch (const Error& error) {
      const std::string message = error.what();
      EXPECT_EQ(message.find("bad.dxf: "), 0u) << message;
      EXPECT_NE(message.find(c.said), std::string::npos) << message;
    }
  }
  EXPECT_THROW(Drawing::open("no/such/file.dxf"), Error);
  EXPECT_THROW(Drawing::open(std::filesystem::temp_directory_path()), Error);
  EXPECT_THROW(Drawing::open("/dev/null"), Error);
}

class Spoiled : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Forms, Spoiled,
                         testing::Values("ezdxf/multi_insert_with_attribs.dxf",
                                         "ezdxf/POLI-ALL210_12.DXF", "ezdxf/bin_dxf_r13.dxf",
                                         "ezdxf/1_polylines.dxf"),
                         [](const auto& form) { return "n" + std::to_string(form.index); });

TEST_P(Spoiled, FilesCutOffAnywhereDoNoHarm) {
  const std::string sound = contents(std::filesystem::path(VELMAR_CORPUS) / GetParam());
  std::mt19937 random(1);
  for (int i = 0; i < 60; ++i) exercise(sound.substr(0, random() % sound.size()));
}

TEST_P(Spoiled, FilesWithFlippedBitsAndLostOrDoubledStretchesDoNoHarm) {
  const std::string sound = contents(std::filesystem::path(VELMAR_CORPUS) / GetParam());
  std::mt19937 random(2);
  for (int i = 0; i < 60; ++i) {
    std::string bytes = sound;
    for (int flips = 0; flips < 5; ++flips) {
      bytes[random() % bytes.size()] ^= static_cast<char>(1 << random() % 8);
    }
    const std::size_t at = random() % (bytes.size() - 64), length = random() % 64;
    if (i % 3 == 1) bytes.erase(at, length);
    if (i % 3 == 2) bytes.insert(at, bytes.substr(at, length));
    exercise(bytes);
  }
}

}  // namespace
}  // namespace velmar::drawing
