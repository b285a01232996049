#include <string>

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

/// Asks with what was answered the last time; that is the answer to Enter.
std::string ask(ResumeNext& step, const System& system, std::string_view question,
                std::string_view key, std::string_view otherwise) {
  std::string remembered(otherwise), answer;
  step([&] { remembered = remembered_answer(system, key, otherwise); });
  step([&] { answer = utility().GetString(true, new_line(question) + " <" + remembered + "> :"); });
  return answer.empty() ? remembered : answer;
}

bool asks_to_delete(ResumeNext& step, System& system) {
  const std::string answer =
      ask(step, system, "Do you want to delete second text y/n", "J2TA", "y");
  // Kept: what is remembered and what is done are told apart differently. "Y" deletes, but "n" is
  // remembered; "yep" does not, but "y" is remembered.
  step([&] { remember_answer(system, "J2TA", basic::left(answer, 1) == "y" ? "y" : "n"); });
  const std::string in_capitals = basic::upper(answer);
  return in_capitals == "Y" || in_capitals == "YES";
}

std::string ask_separator(ResumeNext& step, System& system) {
  std::string separator =
      ask(step, system, "Enter Seperator between texts (Enter sp for Space)", "J2T", "sp");
  step([&] { remember_answer(system, "J2T", separator); });
  if (basic::upper(separator) == "SP") {
    separator = " ";
    step([&] { remember_answer(system, "J2T", "sp"); });
  }
  return separator;
}

void take(ResumeNext& step, const Entity& picked, host::Text& text) {
  step([&] { picked.Update(); });
  step([&] { text = entity<host::Text>(picked.Handle()); });
}

}  // namespace

Empty Velmar16::Joint2Text() {
  ResumeNext step;
  const bool deletes_second = asks_to_delete(step, system());
  const std::string separator = ask_separator(step, system());

  do {
    Entity picked_first, picked_second;
    host::Text first, second;
    bool joined = false;

    step([&] { picked_first = utility().GetEntity(new_line("Select First Text")); });
    if (step.pending()) return {};
    take(step, picked_first, first);
    const bool is_picked =
        host::attempt([&] { picked_second = utility().GetEntity(new_line("Select Second Text")); });
    if (!is_picked) return {};
    take(step, picked_second, second);

    step([&] {
      first.TextString(first.TextString() + separator + second.TextString());
      joined = true;
    });
    // A content that the first text did not take is not thrown away.
    if (deletes_second && joined) step([&] { second.Delete(); });
  } while (!step.pending());
  step([] { utility().Prompt(new_line(autocad_ready)); });
  return {};
}

}  // namespace velmar
