#include "basic/strings.h"
#include "cli/console.h"
#include "cli/entity_listing.h"
#include "cli/info_report.h"
#include "cli/interpreter.h"
#include "cli/saving.h"
#include "cli/usage_error.h"
#include "drawing/error.h"
#include "drawing/utf8_path.h"
#include "embedded/document_saving.h"
#include "embedded/picked.h"
#include "embedded/undo.h"

// The commands about the session rather than the drawing's content.
namespace velmar::cli {

constexpr Interpreter::Command Interpreter::commands[] = {
    {"OPEN", "FILE", "Open a drawing and make it active", &Interpreter::open},
    {"SAVE", "", "Save the active drawing", &Interpreter::save},
    {"SAVEAS", "FILE", "Save the active drawing under another name", &Interpreter::save_as},
    {"CLOSE", "", "Close the active drawing; unsaved changes are asked about", &Interpreter::close},
    {"DRAWINGS", "[NUMBER]", "List the open drawings, or make one of them active",
     &Interpreter::drawings},
    {"USE", "NUMBER", "Make another open drawing the active one", &Interpreter::use},
    {"LIST", "[#HANDLE | x,y | L | ALL | W x,y x,y | C x,y x,y]", "What entities are",
     &Interpreter::list},
    {"LAYERS", "", "List the layers of the active drawing", &Interpreter::layers},
    {"UNDO", "[NUMBER]", "Take the last command back, or that many of them", &Interpreter::undo},
    {"REDO", "[NUMBER]", "Do again what was taken back", &Interpreter::redo},
    {"RECORD", "FILE | stop", "Write what follows as a script for 'velmar script'",
     &Interpreter::record, false},
    {"HELP", "[NAME | WORD...]", "List the commands, describe one, or find those about something",
     &Interpreter::help},
    {"QUIT", "", "End the session; unsaved changes are asked about", &Interpreter::quit, false},
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

/// How many steps; one where nothing is said.
int count_of(std::span<const std::string> words, std::string_view command) {
  if (words.empty()) return 1;
  const std::string word = only_word(words, command, "number");
  const bool is_number = word.size() < 7 && word.find_first_not_of("0123456789") == word.npos;
  const int count = is_number ? std::stoi(word) : 0;
  if (count > 0) return count;
  throw UsageError(std::string(command) + " " + word + ": that is no number of commands");
}

using Step = std::optional<std::string> (*)(embedded::DocumentState& document);

/// Fails where not even one can be made.
void make_steps(embedded::DocumentState& document, int count, Step step, std::string_view none,
                std::string_view made) {
  for (int i = 0; i < count; ++i) {
    const std::optional<std::string> name = step(document);
    if (!name && i == 0) throw UsageError(std::string(none));
    if (!name) return print("these were all\n");
    print(*name + " is " + std::string(made) + "\n");
  }
}

}  // namespace

embedded::DocumentPointer Interpreter::active() const {
  embedded::DocumentPointer document = run_.active();
  if (!document) throw UsageError("no drawing is open: OPEN FILE");
  return document;
}

void Interpreter::open(Words words) {
  const embedded::DocumentPointer document = run_.open(only_word(words, "OPEN", "file"));
  print(run_.name_of(*document) + " is open\n");
}

void Interpreter::save(embedded::DocumentState& document) const {
  if (document.drawing.path().empty()) throw UsageError("the drawing has no file yet: SAVEAS FILE");
  if (document.read_only) {
    throw drawing::Error(run_.name_of(document) + ": is write-protected; SAVEAS saves elsewhere");
  }
  embedded::save_document(document, document.drawing.path());
  print("saved to " + run_.name_of(document) + "\n");
}

void Interpreter::save(Words words) {
  no_words(words, "SAVE");
  save(*active());
}

void Interpreter::save_as(Words words) {
  const embedded::DocumentPointer document = active();
  const std::string file = only_word(words, "SAVEAS", "file");
  require_dxf_name(file);
  embedded::save_document(*document,
                          std::filesystem::absolute(drawing::utf8_path(file)).lexically_normal());
  document->read_only = false;
  run_.note_name(*document, file);
  print("saved to " + file + "\n");
}

bool Interpreter::may_drop_changes(const embedded::DocumentPointer& document) {
  if (!lines_.has_user()) return true;
  const std::string question =
      "\r\nSave the changes to " + run_.name_of(*document) + "? [Yes/No/Cancel] <Cancel>: ";
  while (document->drawing.is_changed()) {
    const std::optional<std::string> answer = lines_.answer(question, {"Yes", "No", "Cancel"});
    const char first = answer && !answer->empty() ? answer->front() : 'c';
    if (first == 'n' || first == 'N') return true;
    if (first == 'c' || first == 'C') return false;
    if (first == 'y' || first == 'Y') save(*document);
  }
  return true;
}

void Interpreter::close(Words words) {
  no_words(words, "CLOSE");
  const embedded::DocumentPointer document = active();
  if (!may_drop_changes(document)) return;
  const std::string name = run_.name_of(*document);
  const bool changed = document->drawing.is_changed();
  run_.close(document);
  print(name + " is closed" + (changed ? "; its changes are dropped\n" : "\n"));
}

void Interpreter::use(Words words) {
  const std::vector<embedded::DocumentPointer> open = run_.documents();
  const std::string number = only_word(words, "USE", "number");
  for (std::size_t i = 0; i < open.size(); ++i) {
    if (std::to_string(i + 1) == number) return run_.activate(open[i]);
  }
  throw UsageError("there is no drawing " + number);
}

void Interpreter::drawings(Words words) {
  if (!words.empty()) return use(words);
  const std::vector<embedded::DocumentPointer> open = run_.documents();
  for (std::size_t i = 0; i < open.size(); ++i) {
    print((open[i] == run_.active() ? "* " : "  ") + std::to_string(i + 1) + " " +
          run_.name_of(*open[i]) + (open[i]->drawing.is_changed() ? " (changed)\n" : "\n"));
  }
}

/// What the words choose, else what is answered until Enter.
std::vector<drawing::RecordId> Interpreter::selected(Words words) {
  const embedded::DocumentPointer document = active();
  std::string typed;
  for (const std::string& word : words) typed += (typed.empty() ? "" : " ") + word;
  std::vector<drawing::RecordId> all;
  for (;;) {
    if (words.empty()) {
      const auto answer = lines_.answer("\r\nSelect objects: ", {});
      if (!answer || answer->empty()) return all;
      typed = *answer;
    }
    const auto reading = embedded::read_selection(*document, typed);
    if (reading.value) {
      all.insert(all.end(), reading.value->begin(), reading.value->end());
    } else if (words.empty()) {
      complain(reading.refused);
    } else {
      throw UsageError(reading.refused);
    }
    if (!words.empty()) return all;
  }
}

void Interpreter::list(Words words) {
  for (const drawing::RecordId id : selected(words)) print(entity_text(active(), id));
}

void Interpreter::layers(Words words) {
  no_words(words, "LAYERS");
  print(layers_text(survey_layers(active()->drawing)).substr(1));
}

void Interpreter::undo(Words words) {
  make_steps(*active(), count_of(words, "UNDO"), embedded::undo, "there is nothing to undo",
             "undone");
}

void Interpreter::redo(Words words) {
  make_steps(*active(), count_of(words, "REDO"), embedded::redo, "there is nothing to do again",
             "done again");
}

void Interpreter::start_recording(const std::string& file) {
  if (lines_.is_recording()) throw UsageError("a script is being recorded: RECORD stop");
  lines_.start(file);
  for (const embedded::DocumentPointer& document : run_.documents()) {
    const std::string name = run_.name_of(*document);
    if (!document->drawing.path().empty()) lines_.write("OPEN \"" + name + "\"");
    if (document->drawing.is_changed()) {
      complain(name + " has unsaved changes, which the script will not make");
    }
  }
  if (run_.documents().size() > 1) {
    const std::vector<embedded::DocumentPointer> open = run_.documents();
    const auto place = std::find(open.begin(), open.end(), run_.active());
    lines_.write("USE " + std::to_string(place - open.begin() + 1));
  }
  print("what follows is recorded in " + file + " until RECORD stop\n");
}

void Interpreter::record(Words words) {
  const std::string file = only_word(words, "RECORD", "file, or stop");
  if (!basic::equal_ignoring_case(file, "stop")) return start_recording(file);
  const std::string written = lines_.stop();
  if (written.empty()) throw UsageError("nothing is being recorded: RECORD FILE");
  const std::string_view option = lines_.failed() > 0 ? "--go-on " : "";  // after a line that fails
  print("recorded: velmar script " + std::string(option) + "\"" + written + "\" does it again\n");
}

void Interpreter::quit(Words words) {
  no_words(words, "QUIT");
  for (const embedded::DocumentPointer& document : run_.documents()) {
    if (document->drawing.is_changed() && !may_drop_changes(document)) return;
  }
  quits_ = true;
}

}  // namespace velmar::cli
