#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/json.h"
#include "cli/printable.h"
#include "cli/usage_error.h"
#include "drawing/drawing.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

struct ConvertOptions {
  std::string from, to, release, form;
  bool lossy = false, json = false;
};

std::string release_names() {
  std::string names;
  for (const drawing::Release& release : drawing::releases()) {
    names += (names.empty() ? "" : ", ") + std::string(release.name);
  }
  return names;
}

drawing::ConversionTarget target_of(const ConvertOptions& options) {
  drawing::ConversionTarget target;
  if (!options.release.empty()) {
    const drawing::Release* const release = drawing::find_release(options.release);
    if (release == nullptr) {
      throw UsageError("--to " + options.release + ": there is no such release; there are " +
                       release_names());
    }
    target.version = release->version;
  }
  if (!options.form.empty()) target.binary = options.form == "binary";
  return target;
}

std::string handles_text(const drawing::Loss& loss) {
  std::string text;
  for (const drawing::Handle handle : loss.examples) {
    text += (text.empty() ? " (#" : ", #") + drawing::handle_text(handle);
  }
  if (text.empty()) return text;
  return text + (loss.count > loss.examples.size() ? ", ...)" : ")");
}

std::string loss_text(const drawing::Loss& loss) {
  return "  " + std::to_string(loss.count) + " " + printable(loss.what + ": " + loss.outcome) +
         handles_text(loss) + "\n";
}

std::string losses_text(const drawing::Conversion& conversion) {
  std::string lost, noted;
  for (const drawing::Loss& loss : conversion.losses) {
    (loss.harmless ? noted : lost) += loss_text(loss);
  }
  if (!lost.empty()) lost = "lost:\n" + lost;
  if (!noted.empty()) noted = "written otherwise, without loss:\n" + noted;
  return lost + noted;
}

Json report_json(const ConvertOptions& options, const drawing::Drawing& drawing,
                 const drawing::ConversionTarget& target, const drawing::Conversion& conversion,
                 bool saved) {
  Json losses = Json::array();
  for (const drawing::Loss& loss : conversion.losses) {
    Json handles = Json::array();
    for (const drawing::Handle handle : loss.examples) {
      handles.push_back(drawing::handle_text(handle));
    }
    losses.push_back({{"what", loss.what},
                      {"outcome", loss.outcome},
                      {"lost", !loss.harmless},
                      {"count", loss.count},
                      {"handles", handles}});
  }
  return {{"from", options.from},
          {"from_version", drawing.version()},
          {"to", saved ? Json(options.to) : Json(nullptr)},
          {"to_version", target.version.value_or(drawing.version())},
          {"form", target.binary.value_or(drawing.is_binary()) ? "binary" : "text"},
          {"losses", losses}};
}

ExitCode convert(const ConvertOptions& options) {
  const drawing::ConversionTarget target = target_of(options);
  drawing::Drawing drawing = drawing::Drawing::open(drawing::utf8_path(options.from));
  const drawing::Conversion conversion = drawing.convert(target);
  const bool refused = !options.lossy && !conversion.is_lossless();
  const std::string from(drawing::release_name(drawing.version()));
  const std::string to(drawing::release_name(target.version.value_or(drawing.version())));
  if (!refused) drawing.save(drawing::utf8_path(options.to), conversion);
  if (options.json) {
    print(to_text(report_json(options, drawing, target, conversion, !refused)));
  } else {
    print(losses_text(conversion));
  }
  if (refused) {
    complain(printable(options.from) + ": " + to + " cannot hold all of this drawing of " + from +
             "; nothing was written. Give --lossy to write it nevertheless");
    return ExitCode::drawing_failed;
  }
  if (!options.json) {
    const bool binary = target.binary.value_or(drawing.is_binary());
    print(printable(options.from) + " (" + from + ") saved to " + printable(options.to) + " (" +
          to + (binary ? ", binary" : ", text") + ")\n");
  }
  return ExitCode::done;
}

}  // namespace

void add_convert(CLI::App& program, Action& action) {
  const auto options = std::make_shared<ConvertOptions>();
  CLI::App* const command =
      program.add_subcommand("convert", "Write a drawing as text or binary DXF, or for a release");
  command->footer(
      "What a release cannot hold is listed by sort, with handles; then nothing is written\n"
      "unless --lossy is given: what can be is approximated, the rest left out.\n"
      "Exit codes: 0 done, 3 refused, or a drawing could not be read or written.");
  command->add_option("IN", options->from, "The drawing")->required();
  command->add_option("OUT", options->to, "Where to save it")->required();
  command->add_option("--to", options->release, "Release: " + release_names());
  command->add_option("--form", options->form, "text or binary; as it is without it")
      ->check(CLI::IsMember({"text", "binary"}));
  command->add_flag("--lossy", options->lossy, "Write even where something is lost");
  command->add_flag("--json", options->json, "Write JSON");
  command->callback([options, &action] { action = [options] { return convert(*options); }; });
}

}  // namespace velmar::cli
