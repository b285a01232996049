#include "basic/strings.h"
#include "cli/console.h"
#include "cli/interpreter.h"
#include "cli/method_lookup.h"
#include "cli/usage_error.h"
#include "component/method_table.h"
#include "drawing/error.h"
#include "drawing/utf8_path.h"
#include "embedded/document_saving.h"

// The commands about the session rather than the drawing's content.
namespace velmar::cli {

constexpr Interpreter::Command Interpreter::commands[] = {
    {"OPEN", "FILE", "Open a drawing and make it active", &Interpreter::open},
    {"SAVE", "", "Save the active drawing", &Interpreter::save},
    {"SAVEAS", "FILE", "Save the active drawing under another name", &Interpreter::save_as},
    {"CLOSE", "", "Close the active drawing without saving", &Interpreter::close},
    {"DRAWINGS", "[NUMBER]", "List the open drawings, or make one of them active",
     &Interpreter::drawings},
    {"HELP", "[NAME]", "List the commands, or describe one", &Interpreter::help},
    {"QUIT", "", "End the session", &Interpreter::quit},
    {},
};

namespace {

std::string only_word(std::span<const std::string> words, std::string_view command,
                      std::string_view what) {
  if (words.size() == 1) return words.front();
  throw UsageError(std::string(command) + " takes one " + std::string(what));
}

void no_words(std::span<const std::string> words, std::string_view command) {
  if (!words.empty()) throw UsageError(std::string(command) + " takes nothing behind it");
}

/// A file to write, which must be named as DXF.
std::string dxf_name(const std::string& file) {
  if (basic::contains_ignoring_case(basic::right(file, 4), ".dxf")) return file;
  throw UsageError(file + ": only DXF can be written: the name must end in .dxf");
}

}  // namespace

embedded::DocumentPointer Interpreter::active() const {
  const embedded::DocumentPointer document = run_.active();
  if (!document) throw UsageError("no drawing is open");
  return document;
}

void Interpreter::open(Words words) {
  const embedded::DocumentPointer document = run_.open(only_word(words, "OPEN", "file"));
  print(run_.name_of(*document) + " is open\n");
}

void Interpreter::save(Words words) {
  no_words(words, "SAVE");
  const embedded::DocumentPointer document = active();
  if (document->drawing.path().empty())
    throw UsageError("the drawing has no file yet: SAVEAS FILE");
  if (document->read_only) {
    throw drawing::Error(run_.name_of(*document) + ": is write-protected; SAVEAS saves elsewhere");
  }
  embedded::save_document(*document, document->drawing.path());
  print("saved to " + run_.name_of(*document) + "\n");
}

void Interpreter::save_as(Words words) {
  const embedded::DocumentPointer document = active();
  const std::string file = dxf_name(only_word(words, "SAVEAS", "file"));
  embedded::save_document(*document,
                          std::filesystem::absolute(drawing::utf8_path(file)).lexically_normal());
  document->read_only = false;
  print("saved to " + file + "\n");
}

void Interpreter::close(Words words) {
  no_words(words, "CLOSE");
  const embedded::DocumentPointer document = active();
  const std::string name = run_.name_of(*document);
  const bool changed = document->drawing.is_changed();
  run_.close(document);
  print(name + " is closed" + (changed ? "; its changes are dropped\n" : "\n"));
}

void Interpreter::drawings(Words words) {
  const std::vector<embedded::DocumentPointer> open = run_.documents();
  if (!words.empty()) {
    const std::string number = only_word(words, "DRAWINGS", "number");
    for (std::size_t i = 0; i < open.size(); ++i) {
      if (std::to_string(i + 1) == number) return run_.activate(open[i]);
    }
    throw UsageError("there is no drawing " + number);
  }
  for (std::size_t i = 0; i < open.size(); ++i) {
    print((open[i] == run_.active() ? "* " : "  ") + std::to_string(i + 1) + " " +
          run_.name_of(*open[i]) + (open[i]->drawing.is_changed() ? " (changed)\n" : "\n"));
  }
}

void Interpreter::help(Words words) {
  if (words.empty()) {
    for (const Command* command = commands; !command->name.empty(); ++command) {
      print(std::string(command->name) + " " + std::string(command->parameters) + "\n    " +
            std::string(command->help) + "\n");
    }
    for (const Method& method : methods()) {
      print(signature(method) + "\n    " + std::string(method.help) + "\n");
    }
    return;
  }
  const std::string name = only_word(words, "HELP", "name");
  if (const Command* command = find_command(name)) {
    return print(std::string(command->name) + " " + std::string(command->parameters) + "\n    " +
                 std::string(command->help) + "\n");
  }
  const Method& method = require_method(name);
  print(signature(method) + "\n    " + std::string(method.help) + "\n");
}

void Interpreter::quit(Words words) {
  no_words(words, "QUIT");
  quits_ = true;
}

}  // namespace velmar::cli
