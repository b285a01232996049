#include "drawing/convert/r12_names.h"

#include <array>
#include <map>
#include <set>

#include "drawing/name.h"

namespace velmar::drawing {
namespace {

constexpr std::size_t longest_name = 31;

bool is_plain(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '$' ||
         c == '-' || c == '_' || c == '|' || static_cast<unsigned char>(c) >= 0x80;
}

/// Without what R12 has no room for; anonymous names begin with a star.
std::string fitted(std::string_view name) {
  std::string text;
  for (const char c : name) {
    const bool begins_anonymous = c == '*' && text.empty();
    text += is_plain(c) || begins_anonymous ? c : '_';
  }
  // Not within a character of several bytes.
  std::size_t end = std::min(text.size(), longest_name);
  while (end < text.size() && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
    --end;
  }
  return text.substr(0, end);
}

/// Which names of one sort become which.
class Renamed {
 public:
  void take(const std::string& name) {
    taken_.insert(folded_name(name));
    if (fitted(name) != name) pending_.insert(name);
  }
  void choose() {
    for (const std::string& name : pending_) {
      std::string chosen = fitted(name);
      for (int n = 1; !taken_.insert(folded_name(chosen)).second; ++n) {
        const std::string number = "_" + std::to_string(n);
        chosen = fitted(fitted(name).substr(0, longest_name - number.size()) + number);
      }
      names_.emplace(folded_name(name), chosen);
    }
  }
  void apply(TagValue& tag) const {
    auto* const text = std::get_if<std::string>(&tag.value);
    if (text == nullptr || names_.empty()) return;
    const auto found = names_.find(folded_name(*text));
    if (found != names_.end()) *text = found->second;
  }
  bool changes(const std::string& name) const { return names_.contains(folded_name(name)); }

 private:
  std::set<std::string> taken_, pending_;
  std::map<std::string, std::string> names_;
};

/// That a group code of some kind of record is a name of a sort. Without a kind: of any entity.
struct NameAt {
  std::string_view kind;
  int code;
  std::string_view table;
};
constexpr auto names_at = std::to_array<NameAt>({
    {"", 8, "LAYER"},
    {"", 6, "LTYPE"},
    {"LAYER", 2, "LAYER"},
    {"LAYER", 6, "LTYPE"},
    {"LTYPE", 2, "LTYPE"},
    {"STYLE", 2, "STYLE"},
    {"DIMSTYLE", 2, "DIMSTYLE"},
    {"DIMSTYLE", 5, "BLOCK"},
    {"DIMSTYLE", 6, "BLOCK"},
    {"DIMSTYLE", 7, "BLOCK"},
    {"VIEW", 2, "VIEW"},
    {"UCS", 2, "UCS"},
    {"BLOCK", 2, "BLOCK"},
    {"BLOCK", 3, "BLOCK"},
    {"INSERT", 2, "BLOCK"},
    {"DIMENSION", 2, "BLOCK"},
    {"DIMENSION", 3, "DIMSTYLE"},
    {"TEXT", 7, "STYLE"},
    {"ATTRIB", 7, "STYLE"},
    {"ATTDEF", 7, "STYLE"},
    {"$CLAYER", 8, "LAYER"},
    {"$CELTYPE", 6, "LTYPE"},
    {"$TEXTSTYLE", 7, "STYLE"},
    {"$DIMSTYLE", 2, "DIMSTYLE"},
    {"$DIMBLK", 1, "BLOCK"},
    {"$DIMBLK1", 1, "BLOCK"},
    {"$DIMBLK2", 1, "BLOCK"},
    {"$UCSNAME", 2, "UCS"},
    {"$PUCSNAME", 2, "UCS"},
    {"", 1003, "LAYER"},
});

class NamesOfR12 {
 public:
  void take(TagDrawing& drawing) {
    for (const TagTable& table : drawing.tables) {
      for (const TagRecord& row : table.rows) sorts_[table.name].take(name_of(row));
    }
    for (const TagBlock& block : drawing.blocks) sorts_["BLOCK"].take(name_of(block.begin));
    for (auto& [name, sort] : sorts_) sort.choose();
  }

  void apply(std::string_view kind, Tags& tags) const {
    for (TagValue& tag : tags) {
      for (const NameAt& place : names_at) {
        if (place.code != tag.code || (!place.kind.empty() && place.kind != kind)) continue;
        const auto sort = sorts_.find(place.table);
        if (sort != sorts_.end()) sort->second.apply(tag);
      }
    }
  }

  void count(const TagDrawing& drawing, LossList& losses) const {
    for (const TagTable& table : drawing.tables) {
      for (const TagRecord& row : table.rows) count(table.name, row, losses);
    }
    for (const TagBlock& block : drawing.blocks) count("BLOCK", block.begin, losses);
  }

 private:
  void count(const std::string& sort, const TagRecord& record, LossList& losses) const {
    const auto found = sorts_.find(sort);
    if (found == sorts_.end() || !found->second.changes(name_of(record))) return;
    losses.add("names in " + sort + " that are longer than 31 characters or have signs",
               "shortened", record.handle);
  }

  std::map<std::string, Renamed, std::less<>> sorts_;
};

}  // namespace

void fit_names_to_r12(TagDrawing& drawing, LossList& losses) {
  NamesOfR12 names;
  names.take(drawing);
  names.count(drawing, losses);
  for (Tags& variable : drawing.header) {
    const auto* const name = std::get_if<std::string>(&variable.front().value);
    if (name != nullptr) names.apply(*name, variable);
  }
  drawing.each([&](TagRecord& record) { names.apply(record.kind, record.tags); });
}

}  // namespace velmar::drawing
