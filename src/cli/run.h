#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "cli/call_record.h"
#include "component/velmar16.h"
#include "embedded/application.h"
#include "embedded/document_state.h"
#include "embedded/input.h"

namespace velmar::cli {

/// The embedded host with the drawings of one call, and the user's answers. One at a time.
class Run {
 public:
  enum class Session {
    one_call,
    steps,         // of which each can be taken back
    interruptible  // and Ctrl-C ends the method that runs
  };

  /// Opens the drawings and shows their warnings; the first one is active. Saves are noted in the
  /// journal, if one is named. Fails with drawing::Error.
  Run(std::span<const std::string> files, embedded::Input& input, const std::string& journal = {},
      Session session = Session::one_call);
  ~Run();
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  /// Opens a drawing as the constructor does.
  embedded::DocumentPointer open(const std::string& file);
  void activate(const embedded::DocumentPointer& document);
  /// Without saving.
  void close(const embedded::DocumentPointer& document);
  /// Calls the record's method with its arguments and fills in result or failure. All calls are of
  /// one object.
  void call(CallRecord& record);

  /// What is open now.
  std::vector<embedded::DocumentPointer> documents() const;
  /// Null where nothing is open.
  embedded::DocumentPointer active() const;
  /// The drawing's file as the user gave it; where a method opened or named it, below the
  /// current folder or whole.
  std::string name_of(const embedded::DocumentState& document) const;
  /// What watches a method that opens drawings itself.
  struct Watch {
    std::function<void(const std::vector<std::string>&)> listed;  // files of a folder
    std::function<void(const std::filesystem::path&)> opening;    // what it throws ends the method
  };
  void watch(Watch watch);
  /// Notes the saves from now on there, where no journal is kept yet.
  void keep_journal(const std::filesystem::path& journal);
  /// From now on a method that saves a drawing writes nothing.
  void begin_dry_run();
  /// The user called the drawing's file so.
  void note_name(const embedded::DocumentState& document, const std::string& file);

 private:
  void note(embedded::FileNote note);
  std::string shown(const std::string& file) const;

  std::shared_ptr<embedded::Application> application_;
  Watch watch_;
  Velmar16 velmar_;
  std::map<std::string, std::string> given_names_;  // by whole path
  CallRecord* running_ = nullptr;
};

}  // namespace velmar::cli
