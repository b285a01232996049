#pragma once

#include <string>
#include <string_view>

namespace velmar::drawing {

/// DXF text from words: "0 LINE 8 0" is two tags. `~` stands for a blank, `@` for an empty value.
inline std::string dxf_text(std::string_view words, std::string_view line_end = "\r\n") {
  std::string text;
  bool line_begins = true;
  for (const char c : words) {
    if (c == ' ' || c == '\n') {
      if (!line_begins) text += line_end;
      line_begins = true;
    } else {
      if (c != '@') text += c == '~' ? ' ' : c;
      line_begins = false;
    }
  }
  if (!line_begins) text += line_end;
  return text;
}

/// 2F, from (1, 2) to (4, 6).
inline const std::string walls_line =
    "0 LINE 5 2F 330 1F 100 AcDbEntity 8 Walls 100 AcDbLine 10 1.0 20 2.0 30 0.0 11 4.0 21 6.0 31 "
    "0.0 ";

/// A drawing of the version with these entities in model space (block record 1F).
inline std::string drawing_of(std::string_view version, std::string_view entities,
                              std::string_view line_end = "\r\n") {
  std::string words =
      "0 SECTION 2 HEADER 9 $ACADVER 1 " + std::string(version) +
      " 9 $HANDSEED 5 500 9 $CLAYER 8 0 0 ENDSEC "
      "0 SECTION 2 TABLES "
      "0 TABLE 2 APPID 5 9 70 1 0 APPID 5 12 2 ACAD 70 0 0 ENDTAB "
      "0 TABLE 2 LTYPE 5 5 70 1 0 LTYPE 5 16 2 Continuous 70 0 0 ENDTAB "
      "0 TABLE 2 LAYER 5 2 70 2 "
      "0 LAYER 5 10 330 2 100 AcDbSymbolTableRecord 100 AcDbLayerTableRecord 2 0 70 0 62 7 6 "
      "Continuous "
      "0 LAYER 5 30 330 2 100 AcDbSymbolTableRecord 100 AcDbLayerTableRecord 2 Walls 70 0 62 1 6 "
      "Continuous "
      "0 ENDTAB 0 TABLE 2 BLOCK_RECORD 5 1 70 2 "
      "0 BLOCK_RECORD 5 1F 330 1 100 AcDbSymbolTableRecord 100 AcDbBlockTableRecord 2 *Model_Space "
      "0 BLOCK_RECORD 5 1B 330 1 100 AcDbSymbolTableRecord 100 AcDbBlockTableRecord 2 *Paper_Space "
      "0 ENDTAB 0 ENDSEC 0 SECTION 2 ENTITIES ";
  words.append(entities).append(" 0 ENDSEC 0 EOF");
  return dxf_text(words, line_end);
}

}  // namespace velmar::drawing
