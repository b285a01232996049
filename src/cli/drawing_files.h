#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace velmar::cli {

/// A drawing that a batch works on.
struct DrawingFile {
  std::filesystem::path path;
  std::filesystem::path below;  // its place below the folder that was named; else its name
};

/// By its name, in any letter case.
bool is_dxf(const std::filesystem::path& file);

/// The drawings that paths mean: a file; a folder's .dxf files, with those of its subfolders if
/// `recursive`; a pattern with * ? [ ], where the shell left one. Each once, in the order of the
/// paths, sorted within a folder. Fails with UsageError for what does not exist or matches nothing.
std::vector<DrawingFile> drawing_files(std::span<const std::string> paths, bool recursive);

}  // namespace velmar::cli
