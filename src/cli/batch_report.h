#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace velmar::cli {

/// What came of one drawing of a batch.
struct BatchRow {
  std::string drawing;  // absolute path
  std::string saved_to;
  std::string status;  // "done", "failed", "crashed", "timed out"
  int exit_code = 0;
  double seconds = 0;
  std::size_t added = 0, modified = 0, erased = 0;
  std::string error;
};

/// The report of a batch, one row as soon as a drawing is through: CSV where the file's name ends
/// in .csv, else a JSON object a line.
class BatchReport {
 public:
  BatchReport() = default;  // none is kept
  /// Goes on with the rows that are there if `resume`; else the file is emptied. Fails with
  /// drawing::Error.
  BatchReport(const std::filesystem::path& file, bool resume);

  /// Whether the report says that the drawing is done.
  bool is_done(const std::string& drawing) const;
  /// On the disk when it returns.
  void add(const BatchRow& row);

 private:
  void read(const std::filesystem::path& file);

  std::string name_;
  std::ofstream out_;
  bool csv_ = false;
  std::map<std::string, std::string, std::less<>> statuses_;
};

}  // namespace velmar::cli
