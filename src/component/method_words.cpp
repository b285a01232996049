#include "component/method_words.h"

#include <algorithm>
#include <string>
#include <utility>

#include "basic/letter_case.h"
#include "component/method_table.h"

namespace velmar {
namespace {

struct Words {
  std::string_view method, words;
};

constexpr Words everyday[] = {
    {"RotateAllText", "rotate texts, turn texts, text angle, text rotation"},
    {"GetBRec", "bounding box, extents of an entity, size of an entity"},
    {"Del", "erase, remove, delete entity by handle"},
    {"MAX", "maximum, greater"},
    {"MIN", "minimum, lesser"},
    {"Text", "add text, write text, new text, label, annotate"},
    {"GetC", "donut width, ring, doughnut"},
    {"ReplaceT", "find and replace text, change text, substitute, whole text"},
    {"ReplaceTL", "find and replace text on a layer, change text by layer"},
    {"Angle2P", "bearing, direction, azimuth, angle between points"},
    {"Dis", "hypotenuse, vector length, magnitude"},
    {"R", "round, nearest multiple, snap a number"},
    {"RUP", "round up, ceiling, next multiple"},
    {"RDN", "round down, floor, previous multiple"},
    {"AlignDonut", "align vertically, line up, donuts, circles on a line"},
    {"IDLast", "last entity, last handle, newest, entlast"},
    {"OMove", "move entity, shift, displace, offset by handle"},
    {"Avr", "average, mean, midpoint, middle"},
    {"DisP", "distance between points, measure distance"},
    {"Alignement", "flatten, elevation zero, z to zero, level, 2d"},
    {"AlignDimension", "align dimensions, line up dimensions, dimension space"},
    {"ReplaceTag",
     "attribute value, find and replace attributes, edit attributes, block attributes, title "
     "block"},
    {"ReplaceInT", "find and replace in texts, substring, search and replace, part of text"},
    {"Unload_TB", "unload xref, reload xref, title block, external reference"},
    {"Unload_Xref", "unload xref, reload xref, external reference"},
    {"Tolerencee", "tolerance, feature control frame, geometric tolerance"},
    {"SaveAllDrawings", "save all, close all, qsave, save and close"},
    {"SaveAllCurrentDrawings", "remember session, store open drawings, workspace"},
    {"LoadAllCurrentDrawings", "restore session, reopen drawings, load remembered"},
    {"Replace", "mark centres, circles at centres, centroid of polylines"},
    {"GetNOLayer", "count by layer, number of entities on a layer, quantity"},
    {"GetNType", "count by type, number of entities of a kind, quantity"},
    {"GetNTypeLayer", "count by type and layer, number of entities, quantity"},
    {"DisF", "right triangle, leg, cathetus, pythagoras"},
    {"Hatch", "hatch rectangle, fill rectangle, pattern"},
    {"HatchAligned", "hatch entity, fill closed boundary, pattern"},
    {"Sc", "scale entity, enlarge, shrink, resize"},
    {"DimAL", "aligned dimension, add dimension, dimension two points"},
    {"Mo2Lr", "change layer, move to layer, entity layer"},
    {"Bt", "between, in range, within limits"},
    {"TextBar", "rebar label, reinforcement, bar mark, steel"},
    {"ArcSin", "asin, arcsine, inverse sine"},
    {"ArcCos", "acos, arccosine, inverse cosine"},
    {"GetFolder", "parent folder, directory of a file, path"},
    {"ReplaceLineByType", "linetype scale, ltscale, celtscale, dashes"},
    {"Hatch_Layer", "hatch layer, fill polylines, hatch by layer"},
    {"GetTotalLength", "sum length, total length, add lengths, length of lines, takeoff"},
    {"GetTotalArea", "sum area, total area, add areas, area of polylines, takeoff"},
    {"Dim_Layer", "dimension polylines, dimension layer, quick dimension"},
    {"StrechText", "stretch text, fit text, text width, condense, width factor"},
    {"PurgeALLFolder", "purge, clean up drawings, unused layers, shrink files"},
    {"ScaleXY", "scale unequal, non-uniform scale, exaggerate, vertical scale"},
    {"FolderDwgDxf", "export dxf, convert folder, dwg to dxf, batch convert"},
    {"FolderDGN", "import dgn, design files"},
    {"FolderDxfDwg", "import dxf, convert folder, dxf to dwg, batch convert"},
    {"GetNs", "number in text, extract number, digits, year"},
    {"GetFileName", "file name without extension, base name, stem"},
    {"DelFilNam", "rename files, cut file names, strip from file names"},
    {"ChangeLetterCase", "uppercase, lowercase, title case, capitals, tcase, change case of texts"},
    {"CountInText", "count texts, search texts, occurrences, how many, find text"},
    {"Joint2Text", "join texts, combine texts, concatenate, merge, append"},
    {"TextIndex", "renumber, number texts, autonumber, increment, sequence, tcount, letter texts"},
    {"Delete_OLE", "delete ole, embedded objects, remove pictures, spreadsheets"},
    {"ColLayerObj", "change color, colour by layer, recolor, set color"},
    {"ColDel", "delete by color, erase by colour"},
    {"ColDelLayer", "delete by color on a layer, erase by colour and layer"},
    {"NmLayer", "rename layers, layer names, find and replace in layer names"},
    {"ColorToLayer", "color to layer, move by colour, sort by color, layer by color"},
    {"MLayer", "new layer, make layer, create layer, add layer"},
    {"UpperCase", "uppercase, capitals, upper"},
    {"LowerCase", "lowercase, small letters, lower"},
    {"TitleCase", "title case, capitalize, capitalise, proper case"},
    {"ReverseCase", "invert case, toggle case, swap case"},
    {"ExplodeBlock", "explode blocks, burst, break up blocks, ungroup"},
    {"DeleteBlock", "delete blocks, erase insertions, remove block references"},
    {"ZoomLayouts", "zoom extents, fit layouts, zoom sheets"},
    {"DeleteLayouts", "delete layouts, remove sheets, paper space, tabs"},
    {"SlowDown", "wait, pause, delay, sleep"},
};

std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words(1);
  for (const char c : basic::lower(text)) {
    const bool is_letter = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || (c & 0x80) != 0;
    if (is_letter) {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

/// 3 for a whole word, 2 for the beginning of one, 1 inside one; 0 where it is nowhere.
int fit(const std::string& wanted, const std::vector<std::string>& words) {
  int best = 0;
  for (const std::string& word : words) {
    const std::size_t at = word.find(wanted);
    if (at == word.npos) continue;
    const int inside = wanted.size() >= 4 ? 1 : 0;
    best = std::max(best, at > 0 ? inside : word == wanted ? 3 : 2);
  }
  return best;
}

/// What users call it counts more than how its help is worded.
int fit(const std::vector<std::string>& wanted, const Method& method) {
  const std::vector<std::string> name = words_of(method.name);
  const std::vector<std::string> everyday_ones = words_of(everyday_words(method.name));
  const std::vector<std::string> help = words_of(method.help);
  int all = 0;
  for (const std::string& word : wanted) {
    const int in_name = fit(word, name);
    const int fits = std::max(
        {in_name > 0 ? 3 * in_name + 1 : 0, 3 * fit(word, everyday_ones), fit(word, help)});
    if (fits == 0) return 0;
    all += fits;
  }
  return all;
}

}  // namespace

std::string_view everyday_words(std::string_view method) {
  const auto* row = std::ranges::find(everyday, method, &Words::method);
  return row == std::end(everyday) ? std::string_view() : row->words;
}

std::vector<const Method*> methods_about(std::string_view words) {
  const std::vector<std::string> wanted = words_of(words);
  std::vector<std::pair<int, const Method*>> found;
  for (const Method& method : methods()) {
    const int fits = wanted.empty() ? 0 : fit(wanted, method);
    if (fits > 0) found.emplace_back(fits, &method);
  }
  std::ranges::stable_sort(found, std::greater<>(), &std::pair<int, const Method*>::first);
  std::vector<const Method*> best;
  for (const auto& [fits, method] : found) best.push_back(method);
  return best;
}

}  // namespace velmar
