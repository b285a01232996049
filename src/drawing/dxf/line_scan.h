#pragma once

namespace velmar::drawing::dxf {

/// Where a scan for the next record stopped.
struct ScanStop {
  const char* at = nullptr;
  /// False: `at` begins the line of the next group 0, or is the end of the text. True: an unusual
  /// group code line was met somewhere from `at` on, and the lines must be read one by one from
  /// there.
  bool unusual = false;
};

/// Text DXF is pairs of lines, group code and value. From `at`, the beginning of a group code line,
/// finds the next group code line that reads 0, testing on the way that every group code line is
/// blanks, then a number without leading zeros. Lines end with LF or CR LF. Reads 64 bytes at a
/// time: line ends as a bit mask, group code lines from values by the parity of line ends before
/// them; no work is done per line.
ScanStop find_record(const char* at, const char* end);

/// The same for one kind of processor; find_record chooses.
ScanStop find_record_portable(const char* at, const char* end);
ScanStop find_record_avx2(const char* at, const char* end);

}  // namespace velmar::drawing::dxf
