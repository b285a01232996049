#include "cli/command_pages.h"
#include "component/method_table.h"
#include "embedded/host.h"

namespace velmar::cli {
namespace {

/// Text as roff takes it: hyphens as they are typed, no line that reads as a request.
std::string escaped(std::string_view text) {
  std::string out;
  bool begins_line = true;
  for (const char c : text) {
    if (begins_line && (c == '.' || c == '\'')) out += "\\&";
    if (c == '\\') {
      out += "\\e";
    } else if (c == '-') {
      out += "\\-";
    } else {
      out += c;
    }
    begins_line = c == '\n';
  }
  return out;
}

std::string option_text(const CommandOption& option) {
  std::string text = ".TP\n";
  for (std::size_t i = 0; i < option.names.size(); ++i) {
    if (i > 0) text += ", ";
    text += (option.by_place ? "\\fI" : "\\fB") + escaped(option.names[i]) + "\\fR";
  }
  if (!option.by_place && option.takes_value)
    text += option.takes_file ? " \\fIFILE\\fR" : " \\fIVALUE\\fR";
  if (option.repeats) text += " ...";
  return text + "\n" + escaped(option.help.empty() ? "As below." : option.help) + "\n";
}

std::string verbatim(const std::string& text) {
  return text.empty() ? "" : ".PP\n.nf\n" + escaped(text) + "\n.fi\n";
}

std::string command_text(const CommandPage& page) {
  std::string text = ".SS velmar " + escaped(page.name) + "\n" + escaped(page.help) + ".\n";
  for (const CommandOption& option : page.options) text += option_text(option);
  return text + verbatim(page.footer);
}

std::string methods_section() {
  std::string text =
      ".SH METHODS\nThe methods in their published order, with their parameters; brackets are "
      "around those that may be left out.\n";
  for (const Method& method : methods()) {
    text += ".TP\n\\fB" + escaped(method.name) + "\\fR";
    for (const Parameter& parameter : method.parameters()) {
      const std::string name = "\\fI" + escaped(parameter.name) + "\\fR";
      text += parameter.optional ? " [" + name + "]" : " " + name;
    }
    text += "\n" + escaped(method.help) + ".\n";
  }
  return text;
}

}  // namespace

std::string manual_page(const std::vector<CommandPage>& pages) {
  const CommandPage& program = pages.front();
  std::string text = ".TH VELMAR 1 \"\" \"Velmar " + std::string(embedded::velmar_version) +
                     "\" \"User Commands\"\n.SH NAME\nvelmar \\- drawing\\-editing commands for "
                     "CAD drafters\n.SH SYNOPSIS\n.B velmar\n.I COMMAND\n.RI [ OPTION ...]\n"
                     ".SH DESCRIPTION\nRuns the methods of a toolbox for drafters on DXF drawings. "
                     "What a command does not change keeps every byte.\n.SH OPTIONS\n";
  for (const CommandOption& option : program.options) text += option_text(option);
  text += ".SH COMMANDS\n";
  for (std::size_t i = 1; i < pages.size(); ++i) text += command_text(pages[i]);
  return text + methods_section() + ".SH EXIT STATUS\n" + verbatim(program.footer);
}

}  // namespace velmar::cli
