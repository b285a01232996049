#include "drawing/convert/required_parts.h"

#include <algorithm>
#include <map>

#include "drawing/convert/required_tables.h"
#include "drawing/name.h"

namespace velmar::drawing {
namespace {

constexpr std::int64_t zero = 0, one = 1;

class RequiredParts {
 public:
  explicit RequiredParts(TagDrawing& drawing) : drawing_(drawing) {}

  void add() {
    drawing_.each([&](TagRecord& record) {
      if (record.handle == 0) record.handle = drawing_.new_handle();
    });
    add_required_tables(drawing_);
    add_block("*Model_Space", true);
    add_block("*Paper_Space", false);
    for (TagBlock& block : drawing_.blocks) own_block(block);
    own_spaces();
    name_arrow_blocks();
    add_objects();
    count_rows();
  }

 private:
  void add_block(const std::string& name, bool first) {
    if (drawing_.block(name) != nullptr) return;
    TagBlock block{{"BLOCK",
                    drawing_.new_handle(),
                    0,
                    {{100, "AcDbEntity"},
                     {8, "0"},
                     {100, "AcDbBlockBegin"},
                     {2, name},
                     {70, zero},
                     {10, 0.0},
                     {20, 0.0},
                     {30, 0.0},
                     {3, name},
                     {1, ""}},
                    {}},
                   {},
                   {"ENDBLK",
                    drawing_.new_handle(),
                    0,
                    {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockEnd"}},
                    {}}};
    const std::ptrdiff_t at = first || drawing_.blocks.empty() ? 0 : 1;
    drawing_.blocks.insert(drawing_.blocks.begin() + at, std::move(block));
  }

  Handle row_of_block(const std::string& name) {
    if (rows_.empty()) {
      for (const TagRecord& row : drawing_.table("BLOCK_RECORD")->rows) {
        rows_.emplace(folded_name(name_of(row)), row.handle);
      }
    }
    const auto [known, is_new] = rows_.try_emplace(folded_name(name), 0);
    if (is_new) {
      TagTable& table = *drawing_.table("BLOCK_RECORD");
      known->second = drawing_.new_handle();
      table.rows.push_back(
          {"BLOCK_RECORD",
           known->second,
           table.head.handle,
           {{100, "AcDbSymbolTableRecord"}, {100, "AcDbBlockTableRecord"}, {2, name}},
           {}});
    }
    return known->second;
  }

  void own_block(TagBlock& block) {
    const Handle row = row_of_block(name_of(block.begin));
    if (block.begin.owner == 0) block.begin.owner = row;
    if (block.end.owner == 0) block.end.owner = row;
    own_entities(block.entities, [row](const TagRecord&) { return row; });
  }

  void own_spaces() {
    const Handle model = row_of_block("*Model_Space"), paper = row_of_block("*Paper_Space");
    own_entities(drawing_.entities, [&](const TagRecord& record) {
      return integer_of(record.tags, 67) == 1 ? paper : model;
    });
  }

  /// Parts belong to the entity before them.
  template <class SpaceOf>
  static void own_entities(std::vector<TagRecord>& list, SpaceOf space_of) {
    Handle whole = 0;
    for (TagRecord& record : list) {
      const bool is_part = record.is("VERTEX") || record.is("ATTRIB") || record.is("SEQEND");
      if (!is_part) whole = record.handle;
      if (record.owner == 0) record.owner = is_part ? whole : space_of(record);
    }
  }

  /// A DIMSTYLE of R12 has names where later ones have handles.
  void name_arrow_blocks() {
    constexpr std::pair<int, int> codes[] = {{5, 342}, {6, 343}, {7, 344}};
    for (TagRecord& row : drawing_.table("DIMSTYLE")->rows) {
      std::erase_if(row.tags, [&](TagValue& tag) {
        const auto* const name = std::get_if<std::string>(&tag.value);
        for (const auto& [named, code] : codes) {
          if (tag.code != named || name == nullptr) continue;
          if (name->empty() || drawing_.block(*name) == nullptr) return true;
          tag = handle_tag(code, row_of_block(*name));
        }
        return false;
      });
    }
  }

  TagRecord* object(Handle handle) {
    const auto found = std::ranges::find(drawing_.objects, handle, &TagRecord::handle);
    return handle == 0 || found == drawing_.objects.end() ? nullptr : &*found;
  }

  static Handle entry(const TagRecord& dictionary, std::string_view name) {
    for (std::size_t i = 0; i + 1 < dictionary.tags.size(); ++i) {
      const auto* const text = std::get_if<std::string>(&dictionary.tags[i].value);
      if (dictionary.tags[i].code == 3 && text != nullptr && same_name(*text, name)) {
        return handle_of(dictionary.tags[i + 1]);
      }
    }
    return 0;
  }

  static void add_entry(TagRecord& dictionary, const std::string& name, Handle handle) {
    dictionary.tags.push_back({3, name});
    dictionary.tags.push_back(handle_tag(350, handle));
  }

  TagRecord new_dictionary(std::string_view kind = "DICTIONARY") {
    return {std::string(kind), drawing_.new_handle(), 0, {{100, "AcDbDictionary"}, {281, one}}, {}};
  }

  /// The dictionary that the root has under that name; a new one where it has none. Its entries are
  /// listed by handle.
  Handle named_dictionary(const std::string& name, std::string_view kind = "DICTIONARY") {
    TagRecord& root = drawing_.objects.front();
    if (const Handle known = entry(root, name); object(known) != nullptr) return known;
    TagRecord made = new_dictionary(kind);
    made.owner = root.handle;
    const Handle handle = made.handle;
    add_entry(root, name, handle);
    drawing_.objects.push_back(std::move(made));
    return handle;
  }

  void add_objects() {
    if (drawing_.objects.empty() || !drawing_.objects.front().is("DICTIONARY")) {
      drawing_.objects.insert(drawing_.objects.begin(), new_dictionary());
    }
    named_dictionary("ACAD_GROUP");
    add_layouts(named_dictionary("ACAD_LAYOUT"));
    add_multiline_style(named_dictionary("ACAD_MLINESTYLE"));
    add_plot_style();
  }

  void add_to(Handle dictionary, const std::string& name, TagRecord made) {
    made.owner = dictionary;
    add_entry(*object(dictionary), name, made.handle);
    drawing_.objects.push_back(std::move(made));
  }

  void add_layouts(Handle dictionary) {
    std::int64_t tab = 0;
    for (const auto& [block, name] :
         {std::pair<std::string, std::string>{"*Model_Space", "Model"},
          std::pair<std::string, std::string>{"*Paper_Space", "Layout1"}}) {
      TagRecord& row = *drawing_.row("BLOCK_RECORD", block);
      const TagValue* const named = find_tag(row.tags, 340);
      if (!named || object(handle_of(*named)) == nullptr) {
        const Handle layout = drawing_.new_handle();
        std::erase_if(row.tags, [](const TagValue& tag) { return tag.code == 340; });
        insert_tag(row.tags, xdata_of(row.tags), handle_tag(340, layout));
        add_to(dictionary, name, layout_record(layout, name, tab, row.handle));
      }
      ++tab;
    }
  }

  static TagRecord layout_record(Handle handle, const std::string& name, std::int64_t tab,
                                 Handle row) {
    constexpr std::int64_t model_flags = 1712, sheet_flags = 688, fit = 16;
    TagRecord made{"LAYOUT", handle, 0, {{100, "AcDbPlotSettings"}, {1, ""}}, {}};
    Tags& tags = made.tags;
    tags.insert(tags.end(), {{2, "none_device"}, {4, ""}, {6, ""}});
    for (int code = 40; code <= 49; ++code) add_real(tags, code, 0);
    for (int code = 140; code <= 141; ++code) add_real(tags, code, 0);
    tags.insert(tags.end(), {{142, 1.0},
                             {143, 1.0},
                             {70, tab == 0 ? model_flags : sheet_flags},
                             {72, zero},
                             {73, zero},
                             {74, std::int64_t{5}},
                             {7, ""},
                             {75, fit},
                             {147, 1.0},
                             {148, 0.0},
                             {149, 0.0},
                             {100, "AcDbLayout"},
                             {1, name},
                             {70, one},
                             {71, tab}});
    const std::pair<int, double> points[] = {{10, 0}, {20, 0},  {11, 12}, {21, 9}, {12, 0}, {22, 0},
                                             {32, 0}, {14, 0},  {24, 0},  {34, 0}, {15, 0}, {25, 0},
                                             {35, 0}, {146, 0}, {13, 0},  {23, 0}, {33, 0}, {16, 1},
                                             {26, 0}, {36, 0},  {17, 0},  {27, 1}, {37, 0}};
    for (const auto& [code, value] : points) add_real(tags, code, value);
    add_integer(tags, 76, 0);
    tags.push_back(handle_tag(330, row));
    return made;
  }

  void add_multiline_style(Handle dictionary) {
    if (entry(*object(dictionary), "Standard") != 0) return;
    TagRecord made{"MLINESTYLE",
                   drawing_.new_handle(),
                   0,
                   {{100, "AcDbMlineStyle"},
                    {2, "STANDARD"},
                    {70, zero},
                    {3, ""},
                    {62, std::int64_t{256}},
                    {51, 90.0},
                    {52, 90.0},
                    {71, std::int64_t{2}}},
                   {}};
    for (const double offset : {0.5, -0.5}) {
      made.tags.insert(made.tags.end(), {{49, offset}, {62, std::int64_t{256}}, {6, "BYLAYER"}});
    }
    add_to(dictionary, "Standard", std::move(made));
  }

  /// Layers name the plot style that they have.
  void add_plot_style() {
    const bool has_styles = entry(drawing_.objects.front(), "ACAD_PLOTSTYLENAME") != 0;
    const Handle dictionary = named_dictionary("ACAD_PLOTSTYLENAME", "ACDBDICTIONARYWDFLT");
    if (!has_styles) {
      const Handle normal = drawing_.new_handle();
      add_to(dictionary, "Normal", {"ACDBPLACEHOLDER", normal, 0, {}, {}});
      Tags& tags = object(dictionary)->tags;
      tags.insert(tags.end(), {{100, "AcDbDictionaryWithDefault"}, handle_tag(340, normal)});
      require_class("ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault");
      require_class("ACDBPLACEHOLDER", "AcDbPlaceHolder");
      require_class("LAYOUT", "AcDbLayout");
    }
    const Handle normal = entry(*object(dictionary), "Normal");
    for (TagRecord& layer : drawing_.table("LAYER")->rows) {
      if (normal == 0 || find_tag(layer.tags, 390)) continue;
      insert_tag(layer.tags, xdata_of(layer.tags), handle_tag(390, normal));
    }
  }

  void require_class(const std::string& kind, const std::string& class_name) {
    const bool known = std::ranges::any_of(
        drawing_.classes, [&](const TagRecord& each) { return text_of(each.tags, 1) == kind; });
    if (known) return;
    drawing_.classes.push_back({"CLASS",
                                0,
                                0,
                                {{1, kind},
                                 {2, class_name},
                                 {3, "ObjectDBX Classes"},
                                 {90, zero},
                                 {280, zero},
                                 {281, zero}},
                                {}});
  }

  void count_rows() {
    for (TagTable& table : drawing_.tables) {
      for (TagValue& tag : table.head.tags) {
        if (tag.code == 70) tag.value = static_cast<std::int64_t>(table.rows.size());
      }
      for (TagRecord& row : table.rows) {
        if (row.owner == 0) row.owner = table.head.handle;
      }
    }
  }

  TagDrawing& drawing_;
  std::map<std::string, Handle> rows_;
};

}  // namespace

void add_required_parts(TagDrawing& drawing) { RequiredParts(drawing).add(); }

}  // namespace velmar::drawing
