#include <gtest/gtest.h>

#include "drawing/drawing.h"
#include "drawing/references_text.h"

namespace velmar::drawing {
namespace {

Drawing sheets() { return Drawing::read(sheets_text(), "sheets.dxf"); }
Drawing reread(const Drawing& drawing) { return Drawing::read(drawing.bytes(), "saved.dxf"); }

std::string names(const std::vector<Layout>& layouts) {
  std::string text;
  for (const Layout& layout : layouts) {
    text += layout.name + ':' + std::to_string(layout.tab) + ' ';
  }
  return text;
}

SpaceId sheet(const Drawing& drawing, std::string_view name) {
  for (const Layout& layout : drawing.layouts()) {
    if (layout.name == name) return layout.space;
  }
  return SpaceId::none;
}

std::string handles(const Drawing& drawing, std::string_view layout) {
  std::string text;
  for (const RecordId id : drawing.entities(sheet(drawing, layout))) {
    text += handle_text(drawing.record(id).handle) + ' ';
  }
  return text;
}

void expect_sound(const Drawing& drawing) {
  for (const Warning& fault : drawing.broken_references()) {
    ADD_FAILURE() << fault.line << " #" << handle_text(fault.handle) << ' ' << fault.text;
  }
  EXPECT_TRUE(drawing.warnings().empty());
}

TEST(Sheets, TheActiveOneIsPaperSpaceAndItsEntitiesChangePlaces) {
  Drawing drawing = sheets();
  expect_sound(drawing);
  drawing.activate_layout(sheet(drawing, "Layout2"));
  const Drawing saved = reread(drawing);
  expect_sound(saved);
  EXPECT_EQ(saved.header("$TILEMODE"), "     0");
  EXPECT_EQ(saved.spaces()[index(sheet(saved, "Layout2"))].name, "*Paper_Space");
  EXPECT_EQ(saved.spaces()[index(sheet(saved, "Layout1"))].name, "*Paper_Space0");
  EXPECT_EQ(handles(saved, "Layout1"), "50 51 ");
  EXPECT_EQ(handles(saved, "Layout2"), "52 54 ");
  EXPECT_EQ(saved.parts(saved.find(0x54)).size(), 1u);
  // Layout2's stand among the entities now, the other's in their block.
  const std::string bytes = drawing.bytes();
  const std::size_t entities = bytes.find("ENTITIES");
  EXPECT_GT(bytes.find("\n52\r\n330"), entities);
  EXPECT_LT(bytes.find("\n50\r\n330"), entities);
  // Nothing is changed when it is changed back but the order.
  drawing.activate_layout(sheet(drawing, "Layout1"));
  drawing.activate_layout(SpaceId::model);
  EXPECT_EQ(drawing.bytes().size(), sheets_text().size() + 5);  // blanks before TILEMODE's 1
  EXPECT_TRUE(drawing.changes().empty());
}

TEST(Sheets, MovedEntitiesCanBeEditedErasedAndAddedTo) {
  Drawing drawing = sheets();
  drawing.activate_layout(sheet(drawing, "Layout2"));
  EXPECT_EQ(drawing.parts(drawing.find(0x54)).size(), 1u);
  EXPECT_EQ(drawing.whole(drawing.find(0x55)), drawing.find(0x54));
  drawing.add(sheet(drawing, "Layout1"), {{}, Line{}});
  drawing.add(sheet(drawing, "Layout2"), {{}, Line{}});
  drawing.erase(drawing.find(0x54));
  const Drawing saved = reread(drawing);
  expect_sound(saved);
  EXPECT_EQ(handles(saved, "Layout1"), "50 51 FFF ");
  EXPECT_EQ(handles(saved, "Layout2"), "52 1000 ");
  EXPECT_EQ(saved.find(0x55), RecordId::none);
}

TEST(Sheets, AreAddedRenamedAndMoved) {
  Drawing drawing = sheets();
  const SpaceId added = drawing.add_layout("Details");
  drawing.add(added, {{}, Line{}});
  drawing.rename_layout(sheet(drawing, "Layout1"), "Plan");
  drawing.move_tab(added, 1);
  const Drawing saved = reread(drawing);
  expect_sound(saved);
  EXPECT_EQ(names(saved.layouts()), "Model:0 Details:1 Plan:2 Layout2:3 ");
  EXPECT_EQ(saved.entity_count(sheet(saved, "Details")), 1u);
}

TEST(Sheets, AreErasedWithAllThatIsTheirs) {
  Drawing drawing = sheets();
  drawing.erase_layout(sheet(drawing, "Layout1"));  // the active one: another takes its place
  Drawing one_left = reread(drawing);
  expect_sound(one_left);
  EXPECT_EQ(names(one_left.layouts()), "Model:0 Layout2:2 ");
  EXPECT_EQ(one_left.spaces()[index(sheet(one_left, "Layout2"))].name, "*Paper_Space");
  for (const Handle gone : {0x1E, 0x22, 0x23, 0x50, 0x51, 0x63}) {
    EXPECT_EQ(one_left.find(gone), RecordId::none) << handle_text(gone);
  }
  one_left.rename_layout(sheet(one_left, "Layout2"), "Layout1");
  one_left.erase_layout(sheet(one_left, "Layout1"));
  const Drawing last = reread(one_left);
  expect_sound(last);
  EXPECT_EQ(names(last.layouts()), "Model:0 Layout1:3 ");
  EXPECT_EQ(handles(last, "Layout1"), "");
  EXPECT_EQ(last.find(0x64), RecordId::none);
}

TEST(Sheets, OldDrawingsHaveOne) {
  Drawing drawing =
      Drawing::read(dxf_text("0 SECTION 2 ENTITIES 0 LINE 8 0 67 1 10 0 20 0 11 1 21 0 "
                             "0 LINE 8 0 10 0 20 0 11 1 21 0 0 ENDSEC 0 EOF"),
                    "old.dxf");
  EXPECT_EQ(names(drawing.layouts()), "Model:0 Layout1:1 ");
  EXPECT_EQ(drawing.entity_count(sheet(drawing, "Layout1")), 1u);
  EXPECT_THROW(drawing.add_layout("Second"), Error);
  drawing.activate_layout(sheet(drawing, "Layout1"));
  drawing.erase_layout(sheet(drawing, "Layout1"));
  EXPECT_EQ(names(drawing.layouts()), "Model:0 Layout1:1 ");
  EXPECT_EQ(drawing.entity_count(sheet(drawing, "Layout1")), 0u);
}

TEST(Erasing, TakesTheEntityOutOfAllLists) {
  Drawing drawing = sheets();
  drawing.erase(drawing.find(0x40));
  const Drawing saved = reread(drawing);
  expect_sound(saved);
  EXPECT_EQ(saved.pointed_to(saved.find(0x65)), std::vector{saved.find(0x41)});
  EXPECT_EQ(saved.find(0x70), RecordId::none);  // its extension dictionary
  EXPECT_EQ(saved.find(0x71), RecordId::none);
  EXPECT_NE(drawing.bytes().find(dxf_text("330 1F 331 41 5 40 0 ENDSEC")), std::string::npos);
}

TEST(Erasing, OfAGroupEndsTheReactorsOfItsMembers) {
  Drawing drawing = sheets();
  drawing.erase(drawing.find(0x65));
  const Drawing saved = reread(drawing);
  expect_sound(saved);
  EXPECT_NE(drawing.bytes().find(dxf_text("102 } 330 1F 100 AcDbEntity 8 0")), std::string::npos);
}

TEST(Purging, TakesOnePassAtATime) {
  Drawing drawing = sheets();
  EXPECT_EQ(drawing.purge(), 5u);  // layer, style and application Spare, OUTER, an empty group
  EXPECT_FALSE(drawing.has_row("STYLE", "Spare"));
  EXPECT_FALSE(drawing.has_row("APPID", "SPARE"));
  EXPECT_FALSE(drawing.find_layer("Spare"));
  EXPECT_FALSE(drawing.find_space("OUTER"));
  EXPECT_TRUE(drawing.find_space("INNER"));
  EXPECT_EQ(drawing.purge(), 1u);
  EXPECT_EQ(drawing.purge(), 0u);
  const Drawing saved = reread(drawing);
  expect_sound(saved);
  EXPECT_FALSE(saved.find_space("INNER"));
  EXPECT_TRUE(saved.find_space("USED"));
  EXPECT_TRUE(saved.find_layer("Walls"));  // a block in use is drawn on it
  EXPECT_NE(
      drawing.bytes().find(dxf_text("0 TABLE 2 LAYER 5 2 330 0 100 AcDbSymbolTable 70 ~~~~~2")),
      std::string::npos);
}

TEST(Purging, KeepsWhatAnythingRefersTo) {
  const auto with = [](const std::string& object) {
    std::string text = sheets_text();
    text.insert(text.rfind(dxf_text("0 ENDSEC")), dxf_text(object));
    return Drawing::read(text, "sheets.dxf");
  };
  struct Case {
    const char* object;
    bool layer, style, block;  // are they kept?
  };
  const Case cases[] = {
      {"0 UNKNOWN 5 80 330 C 340 12", true, false, false},
      {"0 UNKNOWN 5 80 330 C 1 spare", true, true, false},  // a name of either
      {"0 XRECORD 5 80 330 C 100 AcDbXrecord 2 OUTER", false, false, true},
      {"0 UNKNOWN 5 80 330 C 331 30", false, false, true},  // an entity of the block
      {"0 UNKNOWN 5 80 330 C 1001 ACAD 1003 Spare", true, true, false},
      {"0 DICTIONARY 5 80 330 C 3 Spare 350 71", false, false, false},
  };
  for (const Case& row : cases) {
    Drawing drawing = with(row.object);
    drawing.purge();
    EXPECT_EQ(drawing.find_layer("Spare").has_value(), row.layer) << row.object;
    EXPECT_EQ(drawing.has_row("STYLE", "Spare"), row.style) << row.object;
    EXPECT_EQ(drawing.find_space("OUTER").has_value(), row.block) << row.object;
  }
  Drawing drawing = sheets();
  const std::string current[] = {"SPARE"};
  drawing.purge(current);
  EXPECT_TRUE(drawing.find_layer("Spare"));
}

TEST(Checker, TellsEachBrokenReference) {
  struct Case {
    const char* found;
    const char* changed;
    const char* fault;
  };
  const Case cases[] = {
      {"5 41 330 1F", "5 41 330 77", "owner #77 does not exist"},
      {"5 41 330 1F", "5 41 330 1A", "but it is drawn in"},
      {"340 40 340 41", "340 40 340 78", "group member #78 does not exist"},
      {"331 41 5 40", "331 79 5 40", "entity of the drawing order #79 does not exist"},
      {"3 PAIR 350 65", "3 PAIR 350 7A", "dictionary entry #7A does not exist"},
      {"3 NOTHING 350 66", "", "owner #60 does not list it"},
      {"330 65 102 }", "330 7B 102 }", "reactor #7B does not exist"},
      {"360 70 102 }", "360 7C 102 }", "extension dictionary #7C does not exist"},
      {"2 INNER 0 ENDBLK", "2 MISSING 0 ENDBLK", "block \"MISSING\" is named but not defined"},
      {"8 Walls 100", "8 Rooms 100", "layer \"Rooms\" is named but not defined"},
      {"5 42 330 1F 100 AcDbEntity 8 0", "5 42 330 1F 100 AcDbEntity 8 0 6 DOTS",
       "linetype \"DOTS\" is named but not defined"},
      {"0 SEQEND 5 56 330 54 100 AcDbEntity 67 1 8 0", "", "no SEQEND ends its attributes"},
      {"9 $HANDSEED 5 FFF", "9 $HANDSEED 5 60", "is not below the next one"},
      {"2 USED 340 0", "2 USE 340 0", "has a row but no BLOCK"},
  };
  for (const Case& row : cases) {
    std::string text = sheets_text();
    const std::string found = dxf_text(row.found);
    const std::size_t at = text.find("\n" + found.substr(0, found.size() - 2));
    ASSERT_NE(at, std::string::npos) << row.found;
    text.replace(at + 1, found.size(), dxf_text(row.changed));
    const Drawing drawing = Drawing::read(text, "broken.dxf");
    std::string told;
    bool has_place = true;
    for (const Warning& fault : drawing.broken_references()) {
      told += fault.text + "\n";
      has_place = has_place && fault.line > 0 && fault.handle != 0;
    }
    EXPECT_NE(told.find(row.fault), std::string::npos) << row.fault << " not in: " << told;
    EXPECT_TRUE(has_place) << told;
  }
}

}  // namespace
}  // namespace velmar::drawing
