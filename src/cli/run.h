#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "cli/call_record.h"
#include "embedded/application.h"
#include "embedded/document_state.h"
#include "embedded/scripted_input.h"

namespace velmar::cli {

/// The embedded host with the drawings of one call, and the user's answers. One at a time.
class Run {
 public:
  /// Opens the drawings and shows their warnings; the first one is active. Fails with
  /// drawing::Error.
  Run(std::span<const std::string> files, std::vector<std::string> answers);
  ~Run();
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  /// Calls the record's method with its arguments and fills in what came of it.
  void call(CallRecord& record);

  std::size_t answers_left() const { return input_.left(); }
  /// What is open now.
  std::vector<embedded::DocumentPointer> documents() const;
  /// Null where nothing is open.
  embedded::DocumentPointer active() const;
  /// The drawing's file as the user gave it; where a method opened or named it, the whole path.
  std::string name_of(const embedded::DocumentState& document) const;
  /// From now on a method that saves a drawing in place fails.
  void protect_files();

 private:
  embedded::ScriptedInput input_;
  std::shared_ptr<embedded::Application> application_;
  std::map<std::string, std::string> given_names_;  // by whole path
};

}  // namespace velmar::cli
