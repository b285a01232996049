#include "cli/command_pages.h"
#include "component/method_table.h"

namespace velmar::cli {
namespace {

std::string all_method_names() {
  std::string names;
  for (const Method& method : methods())
    names += (names.empty() ? "" : " ") + std::string(method.name);
  return names;
}

/// Whether a command runs a method that it names.
bool names_method(const CommandPage& page) {
  for (const CommandOption& option : page.options) {
    if (option.by_place &&
        (option.names.front().starts_with("METHOD") || option.names.front() == "NAME"))
      return true;
  }
  return false;
}

std::string option_words(const CommandPage& page) {
  std::string words;
  for (const CommandOption& option : page.options) {
    if (option.by_place) continue;
    for (const std::string& name : option.names) words += (words.empty() ? "" : " ") + name;
  }
  return words;
}

std::string file_options(const CommandPage& page) {
  std::string words;
  for (const CommandOption& option : page.options) {
    if (option.by_place || !option.takes_value) continue;
    for (const std::string& name : option.names) words += (words.empty() ? "" : "|") + name;
  }
  return words;
}

/// In single quotes for a shell.
std::string in_quotes(std::string_view text) {
  std::string out = "'";
  for (const char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

std::string bash(const std::vector<CommandPage>& pages) {
  std::string commands, cases;
  for (std::size_t i = 1; i < pages.size(); ++i) {
    const CommandPage& page = pages[i];
    commands += (commands.empty() ? "" : " ") + page.name;
    const std::string with_value = file_options(page);
    cases += "    " + page.name + ")\n      options=" + in_quotes(option_words(page)) + "\n";
    if (names_method(page)) cases += "      words=$methods\n";
    if (!with_value.empty()) {
      cases += "      case $previous in " + with_value + ") options= words= ;; esac\n";
    }
    cases += "      ;;\n";
  }
  return "# Completion of velmar for bash; printed by the program itself.\n_velmar() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
         "  local command=${COMP_WORDS[1]} options= words=\n"
         "  local methods=" +
         in_quotes(all_method_names()) +
         "\n"
         "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
         "    COMPREPLY=($(compgen -W " +
         in_quotes(commands + " " + option_words(pages.front())) +
         " -- \"$current\"))\n    return\n  fi\n"
         "  case $command in\n" +
         cases +
         "  esac\n"
         "  case $current in\n"
         "    -*) COMPREPLY=($(compgen -W \"$options\" -- \"$current\")) ;;\n"
         "    *)\n"
         "      COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
         "      [ \"${#COMPREPLY[@]}\" -gt 0 ] || COMPREPLY=($(compgen -f -- \"$current\"))\n"
         "      ;;\n"
         "  esac\n}\ncomplete -o filenames -F _velmar velmar\n";
}

std::string zsh(const std::vector<CommandPage>& pages) {
  std::string commands, cases;
  for (std::size_t i = 1; i < pages.size(); ++i) {
    const CommandPage& page = pages[i];
    commands += "      " + in_quotes(page.name + ":" + page.help) + "\n";
    cases += "    " + page.name + ") compadd -- " + option_words(page) +
             (names_method(page) ? " " + all_method_names() : "") + " ;;\n";
  }
  return "#compdef velmar\n# Completion of velmar for zsh; printed by the program itself.\n"
         "_velmar() {\n  if (( CURRENT == 2 )); then\n    local -a commands=(\n" +
         commands +
         "    )\n    _describe command commands\n    return\n  fi\n  case $words[2] in\n" + cases +
         "  esac\n  _files\n}\n_velmar \"$@\"\n";
}

std::string fish(const std::vector<CommandPage>& pages) {
  std::string text = "# Completion of velmar for fish; printed by the program itself.\n";
  for (std::size_t i = 1; i < pages.size(); ++i) {
    const CommandPage& page = pages[i];
    text += "complete -c velmar -n __fish_use_subcommand -f -a " + page.name + " -d " +
            in_quotes(page.help) + "\n";
    const std::string within =
        "complete -c velmar -n '__fish_seen_subcommand_from " + page.name + "'";
    for (const CommandOption& option : page.options) {
      if (option.by_place) continue;
      text += within;
      for (const std::string& name : option.names) {
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
      }
      if (option.takes_value) text += option.takes_file ? " -r" : " -x";
      text += " -d " + in_quotes(option.help) + "\n";
    }
    if (!names_method(page)) continue;
    for (const Method& method : methods()) {
      text += within + " -a " + std::string(method.name) + " -d " + in_quotes(method.help) + "\n";
    }
  }
  return text;
}

}  // namespace

std::string completion(const std::vector<CommandPage>& pages, const std::string& shell) {
  if (shell == "bash") return bash(pages);
  if (shell == "zsh") return zsh(pages);
  return shell == "fish" ? fish(pages) : std::string();
}

}  // namespace velmar::cli
