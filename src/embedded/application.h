#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "embedded/plain_object.h"
#include "embedded/session.h"

namespace velmar::embedded {

/// The host application: what callers reach everything through. Make it with start() of host.h.
class Application final : public PlainObject {
 public:
  explicit Application(std::shared_ptr<Session> session) : session_(std::move(session)) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> arguments) override;

  // For the program that runs the host.

  /// Opens the file, or finds it open, and makes it active. Fails as Documents.Open does.
  DocumentPointer open(const std::filesystem::path& path);
  /// Makes an open drawing the active one.
  void activate(const DocumentPointer& document);
  /// Without saving.
  void close(const DocumentPointer& document);
  /// What Quit does after closing the drawings. Until this is set Quit is not available.
  void on_quit(std::function<void()> action) { session_->quit = std::move(action); }
  /// Before each drawing that a command opens from now on; what it throws ends the command.
  void on_open(std::function<void(const std::filesystem::path&)> watch) {
    session_->on_open = std::move(watch);
  }
  /// Notes every save from now on there, where none is kept yet.
  void keep_journal(const std::shared_ptr<drawing::Journal>& journal);
  /// Between two commands: the active drawing is there again after an Open that failed.
  void forget_failed_open() { session_->forget_failed_open(); }
  /// From now on saving goes well and writes nothing.
  void begin_dry_run() { session_->dry_run = true; }
  /// The action hears of every drawing that is saved, or that cannot be opened or saved.
  void on_file(std::function<void(FileNote)> action) { session_->on_file = std::move(action); }
  /// The open drawings, in the order in which they were opened.
  std::vector<DocumentPointer> documents() const;
  /// Null where no drawing is open.
  DocumentPointer active() const;

 private:
  std::string caption() const;
  Session::DocumentObject object_of(const DocumentPointer& document) const;
  void zoom(Member member, std::span<Value> values);
  void queue_input(std::string_view lines);
  void quit();

  std::shared_ptr<Session> session_;
  bool visible_ = true;
  std::int32_t window_state_ = 3;  // 1 normal, 2 minimised, 3 maximised
};

}  // namespace velmar::embedded
