#include "cli/line_editor.h"

#include <histedit.h>
#include <langinfo.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include "cli/interrupt.h"
#include "cli/printable.h"
#include "system/user_folders.h"

namespace velmar::cli {
namespace {

constexpr char cancel_key = '\a';  // what Escape alone and Ctrl-C become

volatile std::sig_atomic_t window_changed = 0;
extern "C" void note_window_change(int) { window_changed = 1; }

/// Empty where the user has no home.
std::filesystem::path history_path() {
  const std::filesystem::path folder = system::state_folder();
  return folder.empty() ? folder : folder / "history";
}

}  // namespace

/// The editor, and what its callbacks need.
struct LineEditor::Terminal {
  explicit Terminal(const std::filesystem::path& file) : history_file(file) {
    // The editor takes characters as the locale has them, and ours are UTF-8; numbers stay as they
    // are.
    std::setlocale(LC_CTYPE, "");
    if (std::string_view(::nl_langinfo(CODESET)) != "UTF-8") std::setlocale(LC_CTYPE, "C.UTF-8");
    struct sigaction on_change {};
    on_change.sa_handler = note_window_change;
    ::sigaction(SIGWINCH, &on_change, nullptr);
    editor = ::el_init("velmar", stdin, stdout, stderr);
    ::el_set(editor, EL_CLIENTDATA, this);
    ::el_set(editor, EL_PROMPT, &Terminal::prompt_of);
    ::el_set(editor, EL_EDITOR, "emacs");
    ::el_set(editor, EL_SIGNAL, 0);
    ::el_set(editor, EL_GETCFN, &Terminal::next_character);
    ::el_set(editor, EL_ADDFN, "velmar-complete", "Complete the word", &Terminal::complete_word);
    ::el_set(editor, EL_ADDFN, "velmar-cancel", "Cancel", &Terminal::cancel);
    ::el_set(editor, EL_BIND, "\t", "velmar-complete", nullptr);
    ::el_set(editor, EL_BIND, "\a", "velmar-cancel", nullptr);
    ::el_set(editor, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    history = ::history_init();
    HistEvent event;
    constexpr int most_lines = 1000;
    ::history(history, &event, H_SETSIZE, most_lines);
    ::history(history, &event, H_SETUNIQUE, 1);
    if (!file.empty()) ::history(history, &event, H_LOAD, file.c_str());
    ::el_set(editor, EL_HIST, ::history, history);
  }
  ~Terminal() {
    ::history_end(history);
    ::el_end(editor);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  static Terminal& of(EditLine* editor) {
    void* found = nullptr;
    ::el_get(editor, EL_CLIENTDATA, &found);
    return *static_cast<Terminal*>(found);
  }
  static char* prompt_of(EditLine* editor) { return of(editor).prompt.data(); }

  static unsigned char cancel(EditLine* editor, int) {
    of(editor).cancelled = true;
    std::fputs("*Cancel*\n", stdout);
    return CC_NEWLINE;
  }
  static unsigned char complete_word(EditLine* editor, int);
  static int next_character(EditLine* editor, wchar_t* character);
  int next_byte();
  /// Whether a key follows so soon that only a terminal can have sent it.
  static bool follows_at_once();

  EditLine* editor = nullptr;
  History* history = nullptr;
  std::filesystem::path history_file;
  std::string prompt;
  const Complete* complete = nullptr;
  bool cancelled = false, gone = false;
};

bool LineEditor::Terminal::follows_at_once() {
  constexpr int milliseconds = 50;
  pollfd input{STDIN_FILENO, POLLIN, 0};
  return ::poll(&input, 1, milliseconds) > 0;
}

/// -1 where the terminal is gone. Ctrl-C is the key that cancels.
int LineEditor::Terminal::next_byte() {
  sigset_t noted, before;
  ::sigemptyset(&noted);
  ::sigaddset(&noted, SIGINT);
  ::sigaddset(&noted, SIGWINCH);
  for (;;) {
    // A signal comes while waiting or not at all, so that none is missed between look and wait.
    ::pthread_sigmask(SIG_BLOCK, &noted, &before);
    pollfd input{STDIN_FILENO, POLLIN, 0};
    const bool is_noted = was_interrupted() || window_changed != 0;
    const int ready = is_noted ? 0 : ::ppoll(&input, 1, nullptr, &before);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (window_changed != 0) {
      window_changed = 0;
      ::el_resize(editor);
    }
    if (was_interrupted()) {
      forget_interrupt();
      return cancel_key;
    }
    if (ready <= 0) continue;
    unsigned char byte = 0;
    const ssize_t count = ::read(STDIN_FILENO, &byte, 1);
    if (count == 1) return byte;
    if (count < 0 && errno == EINTR) continue;
    gone = true;
    return -1;
  }
}

int LineEditor::Terminal::next_character(EditLine* editor, wchar_t* character) {
  constexpr int escape = 27;
  Terminal& terminal = of(editor);
  std::mbstate_t state{};
  for (;;) {
    const int byte = terminal.next_byte();
    if (byte < 0) return 0;
    if (byte == escape && !follows_at_once()) {
      *character = cancel_key;
      return 1;
    }
    const char c = static_cast<char>(byte);
    const std::size_t length = std::mbrtowc(character, &c, 1, &state);
    if (length == 0 || length == 1) return 1;
    constexpr auto incomplete = static_cast<std::size_t>(-2);
    if (length != incomplete) state = {};  // no character of the locale: passed over
  }
}

unsigned char LineEditor::Terminal::complete_word(EditLine* editor, int) {
  Terminal& terminal = of(editor);
  const LineInfo* const line = ::el_line(editor);
  const std::string typed(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer));
  const Completions found = (*terminal.complete)(typed);
  if (found.words.empty()) return CC_ERROR;
  std::string common = found.words.front();
  for (const std::string& word : found.words) {
    const auto [end, ignored] =
        std::mismatch(common.begin(), common.end(), word.begin(), word.end());
    common.erase(end, common.end());
  }
  const std::string word = typed.substr(found.begin);
  const bool is_only = found.words.size() == 1;
  if (is_only) common += ' ';
  if (common.size() >= word.size() && common != word) {
    // What is typed takes the letter case of what it becomes.
    ::el_deletestr(editor, static_cast<int>(std::mbstowcs(nullptr, word.c_str(), 0)));
    ::el_insertstr(editor, common.c_str());
    return CC_REFRESH;
  }
  std::string list = "\n";
  for (const std::string& candidate : found.words) list += printable(candidate) + "  ";
  std::fputs((list + "\n").c_str(), stdout);
  return CC_REDISPLAY;
}

LineEditor::LineEditor() : terminal_(std::make_unique<Terminal>(history_path())) {}
LineEditor::~LineEditor() = default;

bool LineEditor::is_possible() {
  return ::isatty(STDIN_FILENO) != 0 && ::isatty(STDOUT_FILENO) != 0;
}

Typed LineEditor::read(const std::string& prompt, const Complete& complete) {
  terminal_->prompt = prompt;
  terminal_->complete = &complete;
  terminal_->cancelled = false;
  int count = 0;
  const char* const line = ::el_gets(terminal_->editor, &count);
  if (terminal_->gone) return {TypedEnd::gone};
  if (terminal_->cancelled) return {TypedEnd::cancelled};
  if (line == nullptr || count <= 0) {
    std::fputs("\n", stdout);
    return {TypedEnd::ended};
  }
  std::string text(line, static_cast<std::size_t>(count));
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  return {TypedEnd::entered, std::move(text)};
}

void LineEditor::remember(const std::string& line) {
  HistEvent event;
  ::history(terminal_->history, &event, H_ENTER, line.c_str());
  if (terminal_->history_file.empty()) return;
  std::error_code ignored;  // a session without a place for its history is none the less one
  std::filesystem::create_directories(terminal_->history_file.parent_path(), ignored);
  ::history(terminal_->history, &event, H_SAVE, terminal_->history_file.c_str());
}

}  // namespace velmar::cli
