#include "cli/run.h"

#include <filesystem>
#include <utility>

#include "basic/failure.h"
#include "cli/warnings.h"
#include "component/method_table.h"
#include "component/session.h"
#include "drawing/error.h"
#include "drawing/utf8_path.h"
#include "embedded/host.h"
#include "system/user_system.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

embedded::DocumentPointer open(embedded::Application& application, const std::string& file) {
  const fs::path path = drawing::utf8_path(file);
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) throw drawing::Error(file + ": is a folder, not a drawing");
  try {
    return application.open(path);
  } catch (const basic::Failure& failure) {
    throw drawing::Error(failure.description);
  }
}

}  // namespace

Run::Run(std::span<const std::string> files, std::vector<std::string> answers)
    : input_(std::move(answers)), application_(embedded::start(input_)) {
  embedded::DocumentPointer first;
  for (const std::string& file : files) {
    const embedded::DocumentPointer document = open(*application_, file);
    show_warnings(file, document->drawing);
    given_names_.emplace(document->drawing.path().string(), file);
    if (!first) first = document;
  }
  if (first) application_->activate(first);
  install_host_factory([this] { return application_; });
}

Run::~Run() {
  release_host_application();
  install_host_factory({});
}

void Run::call(CallRecord& record) {
  try {
    Velmar16 velmar(system::user_system());
    record.result = velmar::call(velmar, *record.method, record.arguments);
  } catch (const basic::Failure& failure) {
    record.failure = failure;
  }
  record.transcript = input_.transcript();
}

std::vector<embedded::DocumentPointer> Run::documents() const { return application_->documents(); }

embedded::DocumentPointer Run::active() const { return application_->active(); }

std::string Run::name_of(const embedded::DocumentState& document) const {
  const fs::path& path = document.drawing.path();
  if (path.empty()) return document.name_until_saved;
  const auto given = given_names_.find(path.string());
  return given != given_names_.end() ? given->second : path.string();
}

void Run::protect_files() {
  for (const embedded::DocumentPointer& document : documents()) document->read_only = true;
}

}  // namespace velmar::cli
