#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "embedded/arguments.h"
#include "embedded/command_line.h"
#include "embedded/document_state.h"
#include "embedded/plain_object.h"
#include "embedded/utility.h"

namespace velmar::embedded {

class Session;

/// An open drawing, as the application shows it. After it was closed all its objects are
/// disconnected.
class Document final : public PlainObject {
 public:
  Document(DocumentPointer state, std::weak_ptr<Session> session, Input& input)
      : state_(std::move(state)),
        session_(std::move(session)),
        input_(input),
        utility_(std::make_shared<Utility>(state_, input)),
        command_line_(state_, input) {}

  const DocumentPointer& state() const { return state_; }

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> arguments) override;

  // All of them fail with "Error saving the document" and the reason; the file is then as it was.

  /// Under its name; refused where it has none or was opened to be read only.
  void save();
  /// The drawing is that file from now on. The extension of the type is appended where the name
  /// has another one. Without a type: a name that ends in ".dxf", or what Preferences say.
  /// Of another release what that cannot hold is left out, and told on the command line; the
  /// drawing in memory keeps it. DXF of R13 and R14, and DWG, cannot be written.
  void save_as(const std::string& name, std::optional<std::int32_t> type);
  /// Saves first where wanted; where that fails the drawing stays open.
  void close(std::optional<bool> save_changes, const std::optional<std::string>& name);

 private:
  struct Method {
    Member member;
    std::size_t required, at_most;
    Value (Document::*run)(Arguments&);
  };
  static const Method* find(Member member);

  Value handle_to_object(Arguments& arguments);
  Value object_id_to_object(Arguments& arguments);
  Value activate(Arguments& arguments);
  Value save(Arguments& arguments);
  Value save_as(Arguments& arguments);
  Value close(Arguments& arguments);
  Value purge_all(Arguments& arguments);
  Value regen(Arguments& arguments);
  Value get_variable(Arguments& arguments);
  Value set_variable(Arguments& arguments);
  Value send_command(Arguments& arguments);
  Value nothing_to_do(Arguments& arguments);

  std::shared_ptr<Session> session() const;
  std::shared_ptr<Document> self() const;
  Value space(drawing::SpaceId id) const;
  void write(const std::filesystem::path& path, const std::string& version);
  /// The failure to throw; it is told of as a note.
  basic::Failure saving_failed(const std::string& why);
  void put_active_layer(const Value& value);
  Value active_text_style() const;
  void put_active_text_style(const Value& value);
  void put_active_layout(const Value& value);
  Value active_linetype() const;
  void put_active_linetype(const Value& value);
  void put_active_dim_style(const Value& value);

  DocumentPointer state_;
  std::weak_ptr<Session> session_;
  Input& input_;
  std::shared_ptr<Utility> utility_;
  CommandLine command_line_;
};

}  // namespace velmar::embedded
