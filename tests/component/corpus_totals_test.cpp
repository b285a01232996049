// The two measuring commands on every sound drawing of the corpus, against sums that another
// program found.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "basic/number_text.h"
#include "basic/rounding.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "embedded/application.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"

namespace velmar {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

struct Sums {
  std::string first, second;  // keys of the facts
  Empty (Velmar16::*command)();
};
const Sums lengths{"line_length", "arc_length", &Velmar16::GetTotalLength};
const Sums areas{"lwpolyline_area", "ellipse_area", &Velmar16::GetTotalArea};

double sum_of(const json& facts, const Sums& sums, const std::string& layer) {
  double sum = 0;
  for (const std::string& key : {sums.first, sums.second}) {
    if (facts.contains(key)) sum += facts[key].value(layer, 0.0);
  }
  // A part of an ellipse counts with what lies between it and its chord.
  if (&sums == &areas && facts.contains("elliptic_arc_area")) {
    sum += facts["elliptic_arc_area"].value(layer, 0.0);
  }
  return sum;
}

/// An entity of each layer of model space.
std::map<std::string, std::string> handles_by_layer(const drawing::Drawing& drawing) {
  std::map<std::string, std::string> handles;
  for (const drawing::RecordId id : drawing.entities(drawing::SpaceId::model)) {
    const drawing::Record& record = drawing.record(id);
    handles.try_emplace(drawing.layer(record.layer).name, drawing::handle_text(record.handle));
  }
  return handles;
}

/// What the command says for the layer of the picked entity, without the text before the number.
double said_for(const std::string& layer, const embedded::Transcript& transcript) {
  const auto* said = std::get_if<embedded::Said>(&transcript.back());
  if (!said) return std::nan("");
  const auto at = said->text.find("On Layer: " + layer + " Is: ");
  EXPECT_NE(at, std::string::npos) << said->text;
  return std::stod(said->text.substr(said->text.rfind(' ') + 1));
}

void check(const fs::path& path, const json& facts, const Sums& sums) {
  embedded::ScriptedInput input;
  const auto application = embedded::start(input, {{path}});
  install_host_factory([application] { return application; });
  release_host_application();
  const auto handles = handles_by_layer(application->documents().front()->drawing);
  for (const auto& [layer, handle] : handles) {
    input.add("#" + handle);
    (Velmar16().*sums.command)();
    const double wanted = sum_of(facts, sums, layer);
    // The facts have 12 digits; the command prints 3 decimals.
    EXPECT_NEAR(said_for(layer, input.transcript()), wanted, 0.00051 + 1e-11 * wanted)
        << path << " " << layer;
  }
  release_host_application();
  install_host_factory({});
}

TEST(CorpusTotals, AreTheSumsOfTheFacts) {
  int drawings = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(VELMAR_CORPUS) / "facts")) {
    const json facts = json::parse(std::ifstream(entry.path()));
    const fs::path drawing = fs::path(VELMAR_CORPUS) / facts["file"].get<std::string>();
    if (facts.value("load", "") != "readfile" || !fs::exists(drawing)) continue;
    check(drawing, facts, lengths);
    check(drawing, facts, areas);
    ++drawings;
  }
  EXPECT_GT(drawings, 25);
}

}  // namespace
}  // namespace velmar
