#include <string>
#include <vector>

#include "basic/letter_case.h"
#include "basic/strings.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"
#include "text/remembered_answer.h"

namespace velmar {
namespace {

using host::Entity;
using host::ResumeNext;

struct CaseMode {
  std::string_view letter, word;
  std::string (Velmar16::*change)(std::string&);
};

constexpr CaseMode case_modes[] = {
    {"U", "Upper", &Velmar16::UpperCase},
    {"L", "Lower", &Velmar16::LowerCase},
    {"T", "Title", &Velmar16::TitleCase},
    {"I", "Invert", &Velmar16::ReverseCase},
};

/// By the first letter of the word, in either case; null for other words.
const CaseMode* find_case_mode(std::string_view word) {
  const std::string letter = basic::upper(basic::left(word, 1));
  for (const CaseMode& mode : case_modes) {
    if (letter == mode.letter) return &mode;
  }
  return nullptr;
}

/// Asks, and remembers an answer other than Enter. Null where no mode is known.
const CaseMode* chosen_case_mode(ResumeNext& step, System& system) {
  constexpr std::string_view key = "CLT";
  std::string remembered(case_modes[0].word), answer;
  step([] { utility().InitializeUserInput(0, "U L T I"); });
  step([&] { remembered = remembered_answer(system, key, remembered); });
  step([&] {
    answer = utility().GetKeyword(new_line("[Upper,Lower,Title,Invert] <" + remembered + ">:"));
  });
  if (answer.empty()) return find_case_mode(remembered);
  const CaseMode* mode = find_case_mode(answer);
  if (mode) step([&] { remember_answer(system, key, mode->word); });
  return mode;
}

/// Kept: formatting codes end in ";", some in "x;", and what stands before the last "X;" stays as
/// it is.
template <class Change>
std::string change_last_piece(const std::string& content, Change change) {
  constexpr std::string_view separator = "X;";
  std::vector<std::string> pieces = basic::split(content, separator);
  if (!pieces.empty()) pieces.back() = change(pieces.back());
  return basic::join(pieces, separator);
}

}  // namespace

Empty Velmar16::ChangeLetterCase() {
  ResumeNext step;
  Entity picked;
  std::string kind;
  host::Text text;
  host::MText paragraphs;

  step([&] { picked = utility().GetEntity(new_line("Select Text")); });
  if (step.pending()) return {};
  step([&] { picked.Update(); });
  step([&] { kind = picked.ObjectName(); });
  if (kind == host::Text::class_name) {
    step([&] { text = entity<host::Text>(picked.Handle()); });
  } else if (kind == host::MText::class_name) {
    step([&] { paragraphs = entity<host::MText>(picked.Handle()); });
  }

  const CaseMode* mode = chosen_case_mode(step, system());
  if (!mode) return {};
  const auto change = [&](std::string& content) { return (this->*mode->change)(content); };
  if (kind == host::Text::class_name) {
    step([&] {
      std::string content = text.TextString();
      text.TextString(change(content));
    });
  } else if (kind == host::MText::class_name) {
    step([&] { paragraphs.TextString(change_last_piece(paragraphs.TextString(), change)); });
  }
  return {};
}

}  // namespace velmar
