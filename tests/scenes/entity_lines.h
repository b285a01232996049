#pragma once

#include <string>

#include "embedded/entity_scene.h"

namespace velmar {

// Entities for a Scene, as lines "code value".

struct TextLines {
  std::string handle, content;
  std::string layer = "0";
  std::string degrees = "0";
  std::string at = "10 0\n20 0\n30 0\n";
};

inline std::string lines(const TextLines& text) {
  return embedded::head("TEXT", text.handle, text.layer) + "100 AcDbText\n" + text.at +
         "40 2.5\n1 " + text.content + "\n50 " + text.degrees + "\n100 AcDbText\n";
}

/// `common` stands before the line's own data: colour, linetype.
inline std::string line_lines(const std::string& handle, const std::string& layer = "0",
                              const std::string& common = "", const std::string& z = "0") {
  return embedded::head("LINE", handle, layer) + common + "100 AcDbLine\n10 0\n20 0\n30 " + z +
         "\n11 10\n21 0\n31 " + z + "\n";
}

inline std::string circle_lines(const std::string& handle, const std::string& layer = "0",
                                const std::string& common = "") {
  return embedded::head("CIRCLE", handle, layer) + common +
         "100 AcDbCircle\n10 5\n20 5\n30 0\n40 3\n";
}

/// A rectangle 20 wide and 10 high with its lower left corner at x, 0.
inline std::string rectangle_lines(const std::string& handle, const std::string& layer, int x,
                                   bool closed = true) {
  const std::string left = std::to_string(x), right = std::to_string(x + 20);
  return embedded::head("LWPOLYLINE", handle, layer) + "100 AcDbPolyline\n90 4\n70 " +
         (closed ? "1" : "0") + "\n43 0\n10 " + left + "\n20 0\n10 " + right + "\n20 0\n10 " +
         right + "\n20 10\n10 " + left + "\n20 10\n";
}

/// An insertion of DOOR with an attribute, whose handle is the one given with an F behind it.
inline std::string door_lines(const std::string& handle, const std::string& tag,
                              const std::string& value, const std::string& layer = "0") {
  return embedded::head("INSERT", handle, layer) +
         "66 1\n100 AcDbBlockReference\n2 DOOR\n10 90\n20 90\n30 0\n" +
         embedded::head("ATTRIB", handle + "F", layer) +
         "100 AcDbText\n10 91\n20 92\n30 0\n40 1\n1 " + value + "\n100 AcDbAttribute\n2 " + tag +
         "\n70 0\n" + embedded::head("SEQEND", handle + "E", layer);
}

}  // namespace velmar
