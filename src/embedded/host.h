#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "embedded/application.h"
#include "embedded/input.h"

namespace velmar::embedded {

inline constexpr std::string_view velmar_version = "0.1.0";

struct Options {
  std::vector<std::filesystem::path> drawings;  // the first one is active
  std::filesystem::path journal = {};           // of every save; empty: none is kept
  bool history = false;                         // of edits, so that drawings can undo()
};

/// Starts the embedded host with these drawings open. The input must outlive the application and
/// every object that comes out of it. Fails with basic::Failure as Documents.Open does.
///
/// Afterwards the application's documents() are the open drawings: each has its `drawing`, which
/// tells changes() and can be saved. A DocumentPointer stays valid after the commands closed the
/// document (`closed` is set then).
std::shared_ptr<Application> start(Input& input, const Options& options = {});

}  // namespace velmar::embedded
