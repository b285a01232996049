#include "cli/survey.h"

#include <algorithm>
#include <map>

namespace velmar::cli {
namespace {

using drawing::Drawing;
using drawing::Kind;
using drawing::RecordId;
using drawing::SpaceId;

/// Counts entities by kind; the name of a kind is looked up once.
class Tally {
 public:
  void add(const Drawing& of, RecordId entity) {
    auto& [name, count] = kinds_[of.record(entity).kind];
    if (count++ == 0) name = of.kind_name(entity);
  }

  KindCounts counts() const {
    KindCounts sorted;
    for (const auto& [kind, count] : kinds_) sorted.push_back(count);
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) {
      return a.second != b.second ? a.second > b.second : a.first < b.first;
    });
    return sorted;
  }

 private:
  std::map<Kind, std::pair<std::string, std::size_t>> kinds_;
};

bool is_there(const Drawing& of, const drawing::Layer& layer) {
  if (layer.record == RecordId::none) return !layer.undone;
  return !of.record(layer.record).is(drawing::Record::erased);
}

void survey_model_space(const Drawing& of, Survey& result) {
  Tally all;
  std::vector<Tally> by_layer(of.layers().size());
  for (const RecordId entity : of.entities(SpaceId::model)) {
    all.add(of, entity);
    const std::size_t layer = index(of.record(entity).layer);
    if (layer < by_layer.size()) by_layer[layer].add(of, entity);
  }
  result.entities = all.counts();
  for (std::size_t i = 0; i < by_layer.size(); ++i) {
    if (!is_there(of, of.layers()[i])) continue;
    result.layers.push_back({of.layers()[i], by_layer[i].counts()});
  }
}

std::string block_name(const Drawing& of, RecordId insert) {
  try {
    const drawing::Entity entity = of.read(insert);
    const auto* const body = std::get_if<drawing::Insert>(&entity.body);
    return body != nullptr ? body->block : std::string();
  } catch (const drawing::Error&) {
    return {};  // check() says what is wrong with it
  }
}

/// For each space, how many block references name it.
std::vector<std::size_t> count_inserts(const Drawing& of) {
  std::map<std::string, std::size_t> by_name;
  for (std::uint32_t space = 0; space < of.spaces().size(); ++space) {
    for (const RecordId entity : of.entities(static_cast<SpaceId>(space))) {
      if (of.record(entity).kind == Kind::insert) ++by_name[block_name(of, entity)];
    }
  }
  std::vector<std::size_t> counts(of.spaces().size());
  for (const auto& [name, count] : by_name) {
    const std::optional<SpaceId> space = of.find_space(name);
    if (space) counts[index(*space)] += count;
  }
  return counts;
}

void survey_blocks(const Drawing& of, Survey& result) {
  const std::vector<std::size_t> inserts = count_inserts(of);
  for (std::uint32_t i = 0; i < of.spaces().size(); ++i) {
    const drawing::Space& space = of.spaces()[i];
    if (space.is_layout || space.erased) continue;
    const std::size_t entities = of.entity_count(static_cast<SpaceId>(i));
    result.blocks.push_back({space.name, entities, space.is_xref(), inserts[i]});
  }
}

}  // namespace

std::vector<LayerSurvey> survey_layers(const Drawing& of) {
  Survey result;
  survey_model_space(of, result);
  return std::move(result.layers);
}

Survey survey(const Drawing& of) {
  Survey result;
  result.version = of.version();
  result.code_page = of.code_page();
  result.binary = of.is_binary();
  result.records = of.size();
  survey_model_space(of, result);
  for (const drawing::Layout& layout : of.layouts()) {
    const bool has_space = layout.space != SpaceId::none;
    const std::size_t entities = has_space ? of.entity_count(layout.space) : 0;
    result.layouts.push_back({layout.name, layout.tab, entities});
  }
  survey_blocks(of, result);
  result.extents = of.header_extents();
  result.warnings = of.warnings();
  for (drawing::Warning& warning : of.check()) result.warnings.push_back(std::move(warning));
  return result;
}

}  // namespace velmar::cli
