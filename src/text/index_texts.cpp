#include <string>

#include "basic/number_text.h"
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

enum class Index { numbers, letters };

Index ask_index(ResumeNext& step, System& system) {
  constexpr std::string_view key = "TI";
  std::string remembered = "N", answer;
  step([] { utility().InitializeUserInput(0, "N L"); });
  step([&] { remembered = remembered_answer(system, key, remembered); });
  step([&] { answer = utility().GetKeyword(new_line("[Numbers,Letters] <" + remembered + ">:")); });

  const std::string typed = basic::left(answer, 1);
  if (typed != "N" && typed != "L") answer = remembered;
  const std::string letter = basic::left(answer, 1);
  step([&] { remember_answer(system, key, letter); });
  return letter == "N" ? Index::numbers : Index::letters;
}

/// Kept: behind Z there is no letter, and the text gets ") " alone.
std::string prefix(Index index, int counter) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  return (index == Index::numbers ? basic::general(counter) : basic::mid(letters, counter, 1)) +
         ") ";
}

}  // namespace

Empty Velmar16::TextIndex() {
  ResumeNext step;
  step([] { utility().Prompt(new_line("Put Text Index")); });
  const Index index = ask_index(step, system());

  int counter = 0;
  do {
    Entity picked;
    host::Text text;
    ++counter;
    step([&] { picked = utility().GetEntity(new_line("Select Text")); });
    if (step.pending()) return {};
    step([&] { picked.Update(); });
    step([&] { text = entity<host::Text>(picked.Handle()); });
    step([&] { text.TextString(prefix(index, counter) + text.TextString()); });
  } while (!step.pending());
  step([] { utility().Prompt(new_line(autocad_ready)); });
  return {};
}

}  // namespace velmar
