#include "cli/run.h"

#include <filesystem>
#include <utility>

#include "basic/failure.h"
#include "cli/interrupt.h"
#include "cli/warnings.h"
#include "component/method_table.h"
#include "component/session.h"
#include "drawing/error.h"
#include "drawing/journal.h"
#include "drawing/utf8_path.h"
#include "embedded/host.h"
#include "system/user_system.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

std::shared_ptr<embedded::Application> start_host(embedded::Input& input,
                                                  const std::string& journal, bool history) {
  embedded::Options options;
  options.history = history;
  if (!journal.empty()) options.journal = fs::absolute(drawing::utf8_path(journal));
  return embedded::start(input, options);
}

}  // namespace

Run::Run(std::span<const std::string> files, embedded::Input& input, const std::string& journal,
         Session session)
    : application_(start_host(input, journal, session != Session::one_call)),
      velmar_(system::user_system([this](const std::vector<std::string>& found) {
        if (watch_.listed) watch_.listed(found);
      })) {
  embedded::DocumentPointer first;
  for (const std::string& file : files) {
    const embedded::DocumentPointer document = open(file);
    if (!first) first = document;
  }
  if (first) application_->activate(first);
  application_->on_file([this](embedded::FileNote note) { this->note(std::move(note)); });
  const bool ends_on_interrupt = session == Session::interruptible;
  install_host_factory([this, ends_on_interrupt]() -> std::shared_ptr<host::Object> {
    return ends_on_interrupt ? interruptible(application_) : application_;
  });
}

Run::~Run() {
  release_host_application();
  install_host_factory({});
}

embedded::DocumentPointer Run::open(const std::string& file) {
  const fs::path path = drawing::utf8_path(file);
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) throw drawing::Error(file + ": is a folder, not a drawing");
  try {
    embedded::DocumentPointer document = application_->open(path);
    show_warnings(file, document->drawing);
    note_name(*document, file);
    return document;
  } catch (const basic::Failure& failure) {
    application_->forget_failed_open();
    throw drawing::Error(failure.description);
  }
}

void Run::activate(const embedded::DocumentPointer& document) { application_->activate(document); }

void Run::close(const embedded::DocumentPointer& document) { application_->close(document); }

void Run::call(CallRecord& record) {
  running_ = &record;
  try {
    record.result = velmar::call(velmar_, *record.method, record.arguments);
  } catch (const basic::Failure& failure) {
    record.failure = failure;
  }
  running_ = nullptr;
  application_->forget_failed_open();
}

std::vector<embedded::DocumentPointer> Run::documents() const { return application_->documents(); }

embedded::DocumentPointer Run::active() const { return application_->active(); }

void Run::note_name(const embedded::DocumentState& document, const std::string& file) {
  given_names_.emplace(document.drawing.path().string(), file);
}

std::string Run::name_of(const embedded::DocumentState& document) const {
  const fs::path& path = document.drawing.path();
  if (path.empty()) return document.name_until_saved;
  return shown(path.string());
}

std::string Run::shown(const std::string& file) const {
  const auto given = given_names_.find(file);
  if (given != given_names_.end()) return given->second;
  const fs::path path = drawing::utf8_path(file);
  const fs::path below = path.lexically_proximate(fs::current_path());
  return below.begin()->string() == ".." ? file : below.string();
}

void Run::begin_dry_run() { application_->begin_dry_run(); }

void Run::note(embedded::FileNote note) {
  if (running_ == nullptr) return;
  if (!note.failure.empty()) {
    running_->refused.push_back(std::move(note.failure));
    return;
  }
  const std::string saved_to = note.saved_to.empty() ? std::string() : shown(note.saved_to);
  running_->drawings.push_back({shown(note.drawing), std::move(note.changes), saved_to});
}

void Run::watch(Watch watch) {
  watch_ = std::move(watch);
  application_->on_open(watch_.opening);
}

void Run::keep_journal(const fs::path& journal) {
  application_->keep_journal(std::make_shared<drawing::Journal>(journal));
}

}  // namespace velmar::cli
