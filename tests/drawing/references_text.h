#pragma once

#include <string>

#include "drawing/sample_text.h"

namespace velmar::drawing {

/// A drawing of AC1015 with the layers 0, Walls and Spare, the style Spare, the application SPARE,
/// the blocks OUTER (which shows INNER, and is shown by nothing), INNER and USED (shown by #43),
/// the sheets Layout1 (active, with text #50 and viewport #51) and Layout2 (with line #52 and
/// insert #54 with attribute #55), model space lines #40 (in group and drawing order, with an
/// extension dictionary #70 that holds #71), #41, #42.
inline std::string sheets_text() {
  const auto row = [](std::string_view kind, std::string_view handle, std::string_view table,
                      std::string_view row_class, std::string_view rest) {
    return "0 " + std::string(kind) + " 5 " + std::string(handle) + " 330 " + std::string(table) +
           " 100 AcDbSymbolTableRecord 100 " + std::string(row_class) + " " + std::string(rest) +
           " ";
  };
  const auto block = [](std::string_view name, std::string_view owner, std::string_view handles,
                        std::string_view entities) {
    const std::string first(handles.substr(0, 2)), second(handles.substr(3, 2));
    return "0 BLOCK 5 " + first + " 330 " + std::string(owner) + " 100 AcDbEntity 8 0 100 " +
           "AcDbBlockBegin 2 " + std::string(name) + " 70 0 10 0 20 0 30 0 3 " + std::string(name) +
           " 1 @ " + std::string(entities) + " 0 ENDBLK 5 " + second + " 330 " +
           std::string(owner) + " 100 AcDbEntity 8 0 100 AcDbBlockEnd ";
  };
  const auto entity = [](std::string_view kind, std::string_view handle, std::string_view owner,
                         std::string_view rest) {
    return "0 " + std::string(kind) + " 5 " + std::string(handle) + " 330 " + std::string(owner) +
           " 100 AcDbEntity " + std::string(rest) + " ";
  };
  const auto layer = [&](std::string_view handle, std::string_view name) {
    return row("LAYER", handle, "2", "AcDbLayerTableRecord",
               "2 " + std::string(name) + " 70 0 62 7 6 Continuous");
  };
  const auto block_row = [&](std::string_view handle, std::string_view name,
                             std::string_view layout) {
    return row("BLOCK_RECORD", handle, "1", "AcDbBlockTableRecord",
               "2 " + std::string(name) + " 340 " + std::string(layout));
  };
  const std::string on_paper = "67 1 8 0 ", line = "100 AcDbLine 10 0 20 0 30 0 11 4 21 2 31 0";
  const std::string show = "100 AcDbBlockReference 10 0 20 0 30 0 2 ";
  return dxf_text(
      "0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 9 $HANDSEED 5 FFF 9 $CLAYER 8 0 9 $TILEMODE 70 1 "
      "0 ENDSEC 0 SECTION 2 TABLES "
      "0 TABLE 2 VPORT 5 8 330 0 100 AcDbSymbolTable 70 1 " +
      row("VPORT", "90", "8", "AcDbViewportTableRecord",
          "2 *Active 70 0 10 0 20 0 11 1 21 1 12 0 22 0 16 0 26 0 36 1 17 0 27 0 37 0 40 10 41 2 "
          "51 0") +
      "0 ENDTAB 0 TABLE 2 LTYPE 5 5 330 0 100 AcDbSymbolTable 70 1 " +
      row("LTYPE", "16", "5", "AcDbLinetypeTableRecord",
          "2 Continuous 70 0 3 Solid 72 65 73 0 40 0") +
      "0 ENDTAB 0 TABLE 2 LAYER 5 2 330 0 100 AcDbSymbolTable 70 3 " + layer("10", "0") +
      layer("11", "Walls") + layer("12", "Spare") +
      "0 ENDTAB 0 TABLE 2 STYLE 5 3 330 0 100 AcDbSymbolTable 70 2 " +
      row("STYLE", "13", "3", "AcDbTextStyleTableRecord", "2 Standard 70 0 40 0 41 1 3 txt 4 @") +
      row("STYLE", "14", "3", "AcDbTextStyleTableRecord", "2 Spare 70 0 40 0 41 1 3 txt 4 @") +
      "0 ENDTAB 0 TABLE 2 APPID 5 9 330 0 100 AcDbSymbolTable 70 2 " +
      row("APPID", "17", "9", "AcDbRegAppTableRecord", "2 ACAD 70 0") +
      row("APPID", "18", "9", "AcDbRegAppTableRecord", "2 SPARE 70 0") +
      "0 ENDTAB 0 TABLE 2 BLOCK_RECORD 5 1 330 0 100 AcDbSymbolTable 70 6 " +
      block_row("1F", "*Model_Space", "62") + block_row("1E", "*Paper_Space", "63") +
      block_row("1D", "*Paper_Space0", "64") + block_row("1C", "OUTER", "0") +
      block_row("1B", "INNER", "0") + block_row("1A", "USED", "0") +
      "0 ENDTAB 0 ENDSEC 0 SECTION 2 BLOCKS " + block("*Model_Space", "1F", "20 21", "") +
      block("*Paper_Space", "1E", "22 23", "") +
      block(
          "*Paper_Space0", "1D", "24 25",
          entity("LINE", "52", "1D", on_paper + line) +
              entity("INSERT", "54", "1D", on_paper + "66 1 " + show + "USED") +
              entity("ATTRIB", "55", "54",
                     on_paper + "100 AcDbText 10 0 20 0 30 0 40 1 1 A 100 AcDbAttribute 2 T 70 0") +
              entity("SEQEND", "56", "54", on_paper)) +
      block("OUTER", "1C", "26 27", entity("INSERT", "30", "1C", "8 0 " + show + "INNER")) +
      block("INNER", "1B", "28 29", entity("LINE", "31", "1B", "8 0 " + line)) +
      block("USED", "1A", "2A 2B", entity("LINE", "32", "1A", "8 Walls " + line)) +
      "0 ENDSEC 0 SECTION 2 ENTITIES "
      "0 LINE 5 40 102 {ACAD_XDICTIONARY 360 70 102 } 102 {ACAD_REACTORS 330 65 102 } 330 1F "
      "100 AcDbEntity 8 0 " +
      line + " " + entity("LINE", "41", "1F", "8 0 " + line) +
      entity("LINE", "42", "1F", "8 0 " + line) +
      entity("INSERT", "43", "1F", "8 0 " + show + "USED") +
      entity("TEXT", "50", "1E", on_paper + "100 AcDbText 10 1 20 1 30 0 40 1 1 T 100 AcDbText") +
      entity("VIEWPORT", "51", "1E",
             on_paper + "100 AcDbViewport 10 5 20 4 30 0 40 12 41 8 68 1 69 1 12 5 22 4 45 8") +
      "0 ENDSEC 0 SECTION 2 OBJECTS "
      "0 DICTIONARY 5 C 330 0 100 AcDbDictionary 281 1 3 ACAD_GROUP 350 60 3 ACAD_LAYOUT 350 61 "
      "0 DICTIONARY 5 60 330 C 100 AcDbDictionary 281 1 3 PAIR 350 65 3 NOTHING 350 66 "
      "0 DICTIONARY 5 61 330 C 100 AcDbDictionary 281 1 3 Layout1 350 63 3 Layout2 350 64 "
      "3 Model 350 62 "
      "0 LAYOUT 5 62 330 61 100 AcDbPlotSettings 1 @ 100 AcDbLayout 1 Model 70 1 71 0 330 1F "
      "0 LAYOUT 5 63 330 61 100 AcDbPlotSettings 1 @ 100 AcDbLayout 1 Layout1 70 1 71 1 330 1E "
      "0 LAYOUT 5 64 330 61 100 AcDbPlotSettings 1 @ 100 AcDbLayout 1 Layout2 70 1 71 2 330 1D "
      "0 GROUP 5 65 330 60 100 AcDbGroup 300 @ 70 0 71 1 340 40 340 41 "
      "0 GROUP 5 66 330 60 100 AcDbGroup 300 @ 70 0 71 1 "
      "0 SORTENTSTABLE 5 67 100 AcDbSortentsTable 330 1F 331 40 5 41 331 41 5 40 "
      "0 DICTIONARY 5 70 330 40 100 AcDbDictionary 281 1 3 NOTE 360 71 "
      "0 XRECORD 5 71 330 70 100 AcDbXrecord 280 1 1 note 0 ENDSEC 0 EOF");
}

}  // namespace velmar::drawing
