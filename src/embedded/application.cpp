#include "embedded/application.h"

#include "basic/conversion.h"
#include "embedded/arguments.h"
#include "embedded/document.h"
#include "embedded/document_name.h"
#include "embedded/documents.h"
#include "embedded/errors.h"
#include "embedded/host.h"
#include "embedded/preferences.h"
#include "embedded/program_path.h"
#include "embedded/zoom.h"

namespace velmar::embedded {
namespace {

/// No command is ever running while a caller's is.
class AcadState final : public PlainObject {
 public:
  Value get(Member member) override {
    if (member != Member::IsQuiescent) throw no_such_member(member);
    return true;
  }
};

std::shared_ptr<Document> required(std::shared_ptr<Document> active) {
  if (!active) throw failure(HostError::no_document);
  return active;
}

}  // namespace

Value Application::get(Member member) {
  switch (member) {
    case Member::ActiveDocument:
      return required(session_->active());
    case Member::Application:
      return session_->application.lock();
    case Member::Caption:
      return caption();
    case Member::Documents:
      return std::make_shared<Documents>(session_);
    case Member::FullName:
      return program_path().string();
    case Member::HWND:
      return std::int32_t{0};  // there is no window
    case Member::Name:
      return "Velmar";
    case Member::Path:
      return program_path().parent_path().string();
    case Member::Preferences:
      return std::make_shared<Preferences>(session_);
    case Member::Transcript:
      return session_->input.written();
    case Member::Version:
      return "16.2 (Velmar " + std::string(velmar_version) + ")";
    case Member::Visible:
      return visible_;
    case Member::WindowState:
      return window_state_;
    default:
      throw no_such_member(member);
  }
}

void Application::put(Member member, const Value& value) {
  switch (member) {
    case Member::ActiveDocument: {
      const auto* reference = value.if_is<basic::Reference>();
      const auto document = reference ? std::dynamic_pointer_cast<Document>(*reference) : nullptr;
      if (!document) throw invalid_argument("Document", member);
      return activate(document->state());
    }
    case Member::Transcript:
      if (!basic::convert<std::string>(value).empty()) throw failure(HostError::invalid_input);
      return session_->input.forget_written();
    case Member::Visible:
      visible_ = basic::convert<bool>(value);
      return;
    case Member::WindowState: {
      const auto state = basic::convert<std::int32_t>(value);
      if (state < 1 || state > 3) throw failure(HostError::invalid_input);
      window_state_ = state;
      return;
    }
    default:
      throw no_such_member(member);
  }
}

Value Application::call(Member member, std::span<Value> arguments) {
  switch (member) {
    case Member::GetInterfaceObject:
      throw not_supported("GetInterfaceObject");
    case Member::QueueInput:
      queue_input(Arguments(member, arguments, 1, 1).text(0));
      return {};
    case Member::Quit:
      quit();
      return {};
    case Member::ZoomAll:
    case Member::ZoomExtents:
    case Member::ZoomWindow:
      zoom(member, arguments);
      return {};
    case Member::GetAcadState:
      return std::make_shared<AcadState>();
    case Member::Update:
      return {};  // nothing is shown
    default:
      return PlainObject::call(member, arguments);
  }
}

void Application::zoom(Member member, std::span<Value> values) {
  DocumentState& document = *required(session_->active())->state();
  const std::size_t points = member == Member::ZoomWindow ? 2 : 0;
  const Arguments arguments(member, values, points, points);
  translated([&] {
    if (member == Member::ZoomAll) return zoom_all(document);
    if (member == Member::ZoomExtents) return zoom_extents(document);
    zoom_window(document, arguments.point(0, "LowerLeft"), arguments.point(1, "UpperRight"));
  });
}

/// Each line is one answer, so that a script can give all of them at once.
void Application::queue_input(std::string_view lines) {
  for (;;) {
    const std::size_t end = lines.find('\n');
    std::string_view line = lines.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!session_->input.prepare(std::string(line))) throw not_supported("QueueInput");
    if (end == std::string_view::npos) return;
    lines.remove_prefix(end + 1);
  }
}

/// The drawings are closed as they are on disk: nobody can be asked whether to save them.
void Application::quit() {
  if (!session_->quit) throw not_supported("Quit");
  while (const auto document = session_->active()) session_->close(document);
  session_->quit();
}

DocumentPointer Application::open(const std::filesystem::path& path) {
  return session_->open(path, false)->state();
}

void Application::activate(const DocumentPointer& document) {
  session_->activate(object_of(document));
}

void Application::close(const DocumentPointer& document) { session_->close(object_of(document)); }

Session::DocumentObject Application::object_of(const DocumentPointer& document) const {
  for (const auto& open : session_->documents()) {
    if (open->state() == document) return open;
  }
  throw failure(HostError::disconnected);
}

void Application::keep_journal(const std::shared_ptr<drawing::Journal>& journal) {
  if (session_->journal) return;
  session_->journal = journal;
  for (const auto& document : session_->documents()) {
    document->state()->drawing.keep_journal(journal);
  }
}

std::vector<DocumentPointer> Application::documents() const {
  std::vector<DocumentPointer> states;
  for (const auto& document : session_->documents()) states.push_back(document->state());
  return states;
}

DocumentPointer Application::active() const {
  const auto document = session_->active();
  return document ? document->state() : nullptr;
}

std::string Application::caption() const {
  // The year of the release whose object model and formats are those of Version.
  std::string caption = "Velmar 2006";
  if (const DocumentPointer document = active()) {
    caption += " - [" + document_name(*document) + "]";
  }
  return caption;
}

}  // namespace velmar::embedded
