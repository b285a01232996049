#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "cli/progress.h"
#include "cli/run.h"

namespace velmar::cli {

/// The user has cancelled with Ctrl-C.
struct Cancelled {};

/// Watches a method that opens and saves drawings itself, as those for folders do: shows how far it
/// is, lets Ctrl-C end it between two drawings, and then gives all files back the bytes they had.
/// While a method opens nothing, Ctrl-C ends the program at once: nothing is saved by then.
class FolderWatch {
 public:
  /// `journal` is the user's own, if there is one; else one is kept as long as this is there.
  FolderWatch(Run& run, const std::string& journal);
  ~FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  /// Throws Cancelled where the user has pressed Ctrl-C.
  void check() const;
  /// Takes the saves of the method back. Returns what to tell the user.
  std::string take_back();

 private:
  void listed(const std::vector<std::string>& files);
  void opening();

  Run& run_;
  std::filesystem::path journal_;
  bool is_own_;
  std::size_t noted_before_ = 0;  // entries of the user's journal that are not ours
  std::size_t opened_ = 0;
  std::optional<Progress> progress_;
};

}  // namespace velmar::cli
