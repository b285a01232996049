#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "basic/conversion.h"
#include "basic/failure.h"
#include "drawing/drawing.h"
#include "embedded/block_object.h"
#include "embedded/entity_object.h"
#include "embedded/objects.h"

namespace velmar::embedded {

using drawing::Point;

/// Lines "code value" as DXF tags.
inline std::string tags(const std::string& lines) {
  std::istringstream in(lines);
  std::string dxf, line;
  while (std::getline(in, line)) {
    const std::size_t blank = line.find(' ');
    dxf += line.substr(0, blank) + "\n" + (blank == line.npos ? "" : line.substr(blank + 1)) + "\n";
  }
  return dxf;
}

/// A drawing of version AC1015 with layers "0", "Walls" and "Locked" (locked), linetype "DASHED",
/// text styles "Standard" and "Notes", a block "DOOR" that holds a line from (0,0) to (1,0), and
/// the given entities (from handle 30 on).
inline std::string drawing_text(const std::string& entities) {
  return tags(
             "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n9 $HANDSEED\n5 FFF\n9 $CLAYER\n8 Walls\n"
             "0 ENDSEC\n"
             "0 SECTION\n2 TABLES\n"
             "0 TABLE\n2 LTYPE\n5 5\n100 AcDbSymbolTable\n70 1\n"
             "0 LTYPE\n5 14\n100 AcDbSymbolTableRecord\n100 AcDbLinetypeTableRecord\n2 DASHED\n"
             "70 0\n3 \n72 65\n73 0\n40 0\n0 ENDTAB\n"
             "0 TABLE\n2 LAYER\n5 2\n100 AcDbSymbolTable\n70 3\n"
             "0 LAYER\n5 10\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 0\n70 0\n62 7\n"
             "6 Continuous\n"
             "0 LAYER\n5 11\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 Walls\n70 0\n"
             "62 1\n6 Continuous\n"
             "0 LAYER\n5 12\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 Locked\n70 4\n"
             "62 -3\n6 Continuous\n0 ENDTAB\n"
             "0 TABLE\n2 STYLE\n5 3\n100 AcDbSymbolTable\n70 2\n"
             "0 STYLE\n5 15\n100 AcDbSymbolTableRecord\n100 AcDbTextStyleTableRecord\n2 Standard\n"
             "70 0\n40 0\n41 1\n50 0\n71 0\n42 1\n3 txt\n4 \n"
             "0 STYLE\n5 16\n100 AcDbSymbolTableRecord\n100 AcDbTextStyleTableRecord\n2 Notes\n"
             "70 0\n40 0\n41 1\n50 0\n71 0\n42 1\n3 txt\n4 \n0 ENDTAB\n"
             "0 TABLE\n2 BLOCK_RECORD\n5 1\n100 AcDbSymbolTable\n70 2\n"
             "0 BLOCK_RECORD\n5 1F\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n"
             "2 *Model_Space\n"
             "0 BLOCK_RECORD\n5 1E\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n2 DOOR\n"
             "0 ENDTAB\n0 ENDSEC\n"
             "0 SECTION\n2 BLOCKS\n"
             "0 BLOCK\n5 20\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 *Model_Space\n70 "
             "0\n"
             "10 0\n20 0\n30 0\n3 *Model_Space\n1 \n"
             "0 ENDBLK\n5 21\n330 1F\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n"
             "0 BLOCK\n5 22\n330 1E\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 DOOR\n70 0\n"
             "10 0\n20 0\n30 0\n3 DOOR\n1 \n"
             "0 LINE\n5 23\n330 1E\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n"
             "21 0\n31 0\n"
             "0 ENDBLK\n5 24\n330 1E\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n0 ENDSEC\n"
             "0 SECTION\n2 ENTITIES\n") +
         tags(entities) + tags("0 ENDSEC\n0 EOF\n");
}

/// An entity's first lines, up to and with its layer.
inline std::string head(const std::string& kind, const std::string& handle,
                        const std::string& layer = "0") {
  return "0 " + kind + "\n5 " + handle + "\n330 1F\n100 AcDbEntity\n8 " + layer + "\n";
}

/// One entity of many kinds whose fields are known, by handle, and one of a kind kept whole.
inline std::string one_of_each() {
  return head("LINE", "30") + "100 AcDbLine\n10 1\n20 2\n30 0\n11 4\n21 6\n31 0\n" +  //
         head("ARC", "31") +
         "100 AcDbCircle\n10 0\n20 0\n30 0\n40 2\n100 AcDbArc\n50 0\n51 90\n" +  //
         head("CIRCLE", "32") + "100 AcDbCircle\n10 5\n20 5\n30 0\n40 3\n" +     //
         head("ELLIPSE", "33") +
         "100 AcDbEllipse\n10 0\n20 0\n30 0\n11 4\n21 0\n31 0\n210 0\n220 0\n230 1\n40 0.5\n41 0\n"
         "42 6.283185307179586\n" +  //
         head("LWPOLYLINE", "34") +
         "100 AcDbPolyline\n90 3\n70 1\n43 0\n10 0\n20 0\n10 4\n20 0\n42 1\n10 4\n20 2\n" +  //
         head("POLYLINE", "35") + "66 1\n100 AcDb2dPolyline\n10 0\n20 0\n30 5\n70 0\n" +     //
         head("VERTEX", "36") + "100 AcDbVertex\n100 AcDb2dVertex\n10 0\n20 0\n30 5\n" +     //
         head("VERTEX", "37") + "100 AcDbVertex\n100 AcDb2dVertex\n10 3\n20 4\n30 5\n" +     //
         head("SEQEND", "38") +                                                              //
         head("POLYLINE", "39") + "66 1\n100 AcDb3dPolyline\n10 0\n20 0\n30 0\n70 8\n" +     //
         head("VERTEX", "3A") +
         "100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 0\n20 0\n30 0\n70 32\n" +  //
         head("VERTEX", "3B") +
         "100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 1\n20 2\n30 2\n70 32\n" +                  //
         head("SEQEND", "3C") +                                                                   //
         head("TEXT", "3D") + "100 AcDbText\n10 1\n20 1\n30 0\n40 2.5\n1 NOTE\n100 AcDbText\n" +  //
         head("INSERT", "3E") +
         "66 1\n100 AcDbBlockReference\n2 DOOR\n10 10\n20 0\n30 0\n41 2\n42 2\n43 2\n50 90\n" +  //
         head("ATTRIB", "3F") +
         "100 AcDbText\n10 11\n20 0\n30 0\n40 1\n1 D1\n100 AcDbAttribute\n2 NUMBER\n70 0\n" +  //
         head("SEQEND", "40") +                                                                //
         head("MLINE", "41") + "100 AcDbMline\n2 STANDARD\n40 1\n";
}

/// A document in memory, and its objects by member.
struct EntityScene {
  explicit EntityScene(const std::string& entities = one_of_each())
      : EntityScene(drawing::Drawing::read(drawing_text(entities), "scene.dxf")) {}
  explicit EntityScene(drawing::Drawing drawing)
      : document(std::make_shared<DocumentState>(std::move(drawing))) {}

  /// The scene as it reads after saving.
  EntityScene saved() const {
    return EntityScene(drawing::Drawing::read(document->drawing.bytes(), "saved.dxf"));
  }
  std::string bytes() const { return document->drawing.bytes(); }

  std::shared_ptr<host::Object> object(const std::string& handle) const {
    const Value value =
        make_object(document, document->drawing.find(drawing::parse_handle(handle)));
    return as_object(value);
  }
  std::shared_ptr<host::Object> model() const {
    return std::make_shared<BlockObject>(document, drawing::SpaceId::model);
  }
  Value get(const std::string& handle, Member member) const { return object(handle)->get(member); }
  void put(const std::string& handle, Member member, const Value& value) const {
    object(handle)->put(member, value);
  }
  template <class... Arguments>
  Value call(const std::string& handle, Member member, Arguments... arguments) const {
    return call_on(*object(handle), member, arguments...);
  }

  template <class... Arguments>
  static Value call_on(host::Object& object, Member member, Arguments... arguments) {
    std::vector<Value> values{Value(arguments)...};
    return object.call(member, values);
  }
  static std::shared_ptr<host::Object> as_object(const Value& value) {
    return std::dynamic_pointer_cast<host::Object>(basic::convert<basic::Reference>(value));
  }

  DocumentPointer document;
};

/// Of the enumeration.
inline constexpr auto last_member = static_cast<std::uint16_t>(Member::ZScaleFactor);

inline Value at(double x, double y, double z = 0) { return basic::Doubles{x, y, z}; }

/// Numbers and points within 1e-9; everything else exactly.
inline void expect_value(const Value& actual, const Value& expected, const std::string& what) {
  if (const auto* number = expected.if_is<double>()) {
    EXPECT_NEAR(basic::convert<double>(actual), *number, 1e-9) << what;
  } else if (const auto* numbers = expected.if_is<basic::Doubles>()) {
    ASSERT_TRUE(actual.is<basic::Doubles>()) << what;
    const auto& found = *actual.if_is<basic::Doubles>();
    ASSERT_EQ(found.size(), numbers->size()) << what;
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_NEAR(found[i], (*numbers)[i], 1e-9) << what << " [" << i << "]";
    }
  } else {
    EXPECT_TRUE(actual == expected) << what;
  }
}

/// The number of the failure, 0 where there is none.
template <class Action>
std::int32_t failure_of(Action action) {
  try {
    action();
    return 0;
  } catch (const basic::Failure& failure) {
    return failure.number;
  }
}

}  // namespace velmar::embedded
