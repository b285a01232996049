// A script of commands and their answers, on a drawing in a folder of its own.

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "cli/interpreter.h"
#include "cli/run.h"
#include "cli/script_lines.h"
#include "drawing/error.h"
#include "target.h"
#include "work_folder.h"

namespace velmar::fuzz {
namespace {

/// So that every name in it is one of the work folder.
std::string without_folders(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '/' || c == '\\' || c == '~'; }, '_');
  for (auto at = text.find(".."); at != std::string::npos; at = text.find("..")) {
    text.replace(at, 2, "__");
  }
  return text;
}

void run(const std::string& text) {
  std::ofstream("script", std::ios::binary) << text;
  cli::ScriptLines script("script");
  cli::RecordedLines lines(script);
  cli::Conversation conversation(lines);
  const std::vector<std::string> drawings{"plan.dxf"};
  cli::Run run(drawings, conversation, {}, cli::Run::Session::steps);
  cli::Interpreter interpreter(run, lines, conversation, [](const cli::CallRecord&) {});
  while (const auto line = lines.command()) {
    interpreter.execute_or_complain(*line);
    if (interpreter.wants_to_quit()) break;
  }
}

}  // namespace
}  // namespace velmar::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velmar;
  static const fuzz::WorkFolder folder;
  folder.clear();
  std::filesystem::copy_file(
      std::filesystem::path(VELMAR_SOURCE) / "tests/corpus/ezdxf/multi_insert_with_attribs.dxf",
      folder.path() / "plan.dxf");
  fuzz::where_allowed<drawing::Error>(
      [&] { fuzz::run(fuzz::without_folders(fuzz::text_of(data, size))); });
  return 0;
}
