#include "embedded/session.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "basic/number_text.h"
#include "embedded/document.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

namespace fs = std::filesystem;

void require_file(const fs::path& path) {
  std::error_code ignored;
  if (fs::is_regular_file(path, ignored)) return;
  throw failure(HostError::file_not_found, path.string() + " is not found.");
}

/// Runs a step that reads a file; its message says what is no drawing about it.
template <class Read>
drawing::Drawing readable(Read read) {
  try {
    return read();
  } catch (const drawing::Error& error) {
    throw failure(HostError::not_a_drawing, error.what());
  }
}

std::string bytes_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool is_write_protected(const fs::path& path) {
  constexpr fs::perms writing =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return (fs::status(path).permissions() & writing) == fs::perms::none;
}

bool same_file(const fs::path& a, const fs::path& b) {
  std::error_code missing;
  return a == b || fs::equivalent(a, b, missing);
}

}  // namespace

void Session::activate(const DocumentObject& document) {
  std::erase(by_use_, document);
  by_use_.push_back(document);
  open_failed_ = false;
}

Session::DocumentObject Session::find(const fs::path& path) const {
  const fs::path wanted = fs::absolute(path).lexically_normal();
  for (const DocumentObject& document : documents_) {
    const fs::path& open = document->state()->drawing.path();
    if (!open.empty() && same_file(open, wanted)) return document;
  }
  return nullptr;
}

Session::DocumentObject Session::open(const fs::path& path, bool read_only) {
  open_failed_ = true;
  try {
    return open_file(path, read_only);
  } catch (const basic::Failure& failure) {
    on_file({.drawing = path.string(), .failure = failure.description});
    throw;
  }
}

Session::DocumentObject Session::open_file(const fs::path& path, bool read_only) {
  require_file(path);
  if (DocumentObject already = find(path)) {
    activate(already);
    return already;
  }
  const fs::path full = fs::absolute(path).lexically_normal();
  if (on_open) on_open(full);
  DocumentObject document = begin(readable([&] { return drawing::Drawing::open(full); }));
  document->state()->read_only = read_only || is_write_protected(full);
  return document;
}

Session::DocumentObject Session::add(const std::optional<fs::path>& drawing_template) {
  if (drawing_template) require_file(*drawing_template);
  DocumentObject document = begin(drawing_template ? readable([&] {
    return drawing::Drawing::read(bytes_of(*drawing_template), drawing_template->string());
  })
                                                   : drawing::Drawing::empty());
  document->state()->name_until_saved = "Drawing" + basic::general(++added_) + ".dwg";
  return document;
}

void Session::close(const DocumentObject& document) {
  DocumentState& state = *document->state();
  state.closed = true;
  state.selections.clear();
  std::erase(by_use_, document);
  std::erase(documents_, document);
}

Session::DocumentObject Session::begin(drawing::Drawing drawing) {
  drawing.keep_journal(journal);
  if (keeps_history) drawing.keep_history();
  auto state = std::make_shared<DocumentState>(std::move(drawing));
  auto document = std::make_shared<Document>(state, weak_from_this(), input);
  state->application = application;
  state->document = document;
  documents_.push_back(document);
  activate(document);
  return document;
}

}  // namespace velmar::embedded
