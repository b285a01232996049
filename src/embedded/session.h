#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "embedded/document_state.h"
#include "embedded/file_note.h"
#include "embedded/input.h"
#include "embedded/save_format.h"

namespace velmar::embedded {

class Document;

/// What runs: the open drawings, which of them is active, and the user. The input must outlive it.
class Session : public std::enable_shared_from_this<Session> {
 public:
  using DocumentObject = std::shared_ptr<Document>;

  explicit Session(Input& user) : input(user) {}

  /// In the order in which they were opened.
  const std::vector<DocumentObject>& documents() const { return documents_; }
  /// Null where no drawing is open, and after an Open that failed: what was to be done to that
  /// drawing must not be done to another one. Until something is opened or activated, or the
  /// failure is forgotten.
  DocumentObject active() const {
    return open_failed_ || by_use_.empty() ? nullptr : by_use_.back();
  }
  void forget_failed_open() { open_failed_ = false; }
  void activate(const DocumentObject& document);
  /// Null where the file is not open.
  DocumentObject find(const std::filesystem::path& path) const;

  /// Makes the drawing active. Fails: file not found, not a drawing.
  DocumentObject open(const std::filesystem::path& path, bool read_only);
  /// A new drawing, empty or like the template; active from now on.
  DocumentObject add(const std::optional<std::filesystem::path>& drawing_template);
  /// Without saving. Of the others the one that was used last becomes active.
  void close(const DocumentObject& document);

  Input& input;
  std::shared_ptr<drawing::Journal> journal;  // of every drawing's saves; null: none is kept
  std::function<void(FileNote)> on_file = [](FileNote) {};  // hears of drawings saved or refused
  bool dry_run = false;                                     // saving goes well and writes nothing
  bool keeps_history = false;  // of every drawing, so that steps can be taken back
  std::int32_t save_as_type = native_save_type;
  std::int32_t auto_save_interval = 10, incremental_save_percent = 50;
  bool create_backup = false;
  std::weak_ptr<basic::Referenced> application;
  /// Called before a drawing is opened; what it throws ends what opens it.
  std::function<void(const std::filesystem::path&)> on_open;
  std::function<void()> quit;  // ends the program that runs the host, where it can be ended

 private:
  DocumentObject open_file(const std::filesystem::path& path, bool read_only);
  DocumentObject begin(drawing::Drawing drawing);

  std::vector<DocumentObject> documents_;
  std::vector<DocumentObject> by_use_;  // the active one last
  int added_ = 0;
  bool open_failed_ = false;
};

}  // namespace velmar::embedded
