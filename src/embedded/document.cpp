#include "embedded/document.h"

#include <algorithm>
#include <array>
#include <vector>

#include "basic/conversion.h"
#include "drawing/utf8_path.h"
#include "embedded/block_object.h"
#include "embedded/blocks_object.h"
#include "embedded/current.h"
#include "embedded/current_style.h"
#include "embedded/dictionary_object.h"
#include "embedded/dim_styles_object.h"
#include "embedded/document_members.h"
#include "embedded/document_name.h"
#include "embedded/document_saving.h"
#include "embedded/errors.h"
#include "embedded/groups_object.h"
#include "embedded/layer_object.h"
#include "embedded/layers_object.h"
#include "embedded/layout_object.h"
#include "embedded/layouts_object.h"
#include "embedded/linetypes_object.h"
#include "embedded/object_ids.h"
#include "embedded/objects.h"
#include "embedded/selection_sets.h"
#include "embedded/session.h"
#include "embedded/text_style_object.h"
#include "embedded/text_styles_object.h"
#include "embedded/variables.h"

namespace velmar::embedded {

const Document::Method* Document::find(Member member) {
  static constexpr std::array methods{
      Method{Member::Activate, 0, 0, &Document::activate},
      Method{Member::Close, 0, 2, &Document::close},
      Method{Member::EndUndoMark, 0, 0, &Document::nothing_to_do},
      Method{Member::GetVariable, 1, 1, &Document::get_variable},
      Method{Member::HandleToObject, 1, 1, &Document::handle_to_object},
      Method{Member::ObjectIdToObject, 1, 1, &Document::object_id_to_object},
      Method{Member::PurgeAll, 0, 0, &Document::purge_all},
      Method{Member::Regen, 1, 1, &Document::regen},
      Method{Member::Save, 0, 0, &Document::save},
      Method{Member::SaveAs, 1, 3, &Document::save_as},
      Method{Member::SendCommand, 1, 1, &Document::send_command},
      Method{Member::SetVariable, 2, 2, &Document::set_variable},
      Method{Member::StartUndoMark, 0, 0, &Document::nothing_to_do},
  };
  const auto found = std::ranges::find(methods, member, &Method::member);
  return found == methods.end() ? nullptr : &*found;
}

Value Document::get(Member member) {
  require_open(*state_);
  if (auto common = document_member(*state_, member)) return std::move(*common);
  const bool model_is_active = current_space(*state_) == drawing::SpaceId::model;
  switch (member) {
    case Member::Active:
      return session()->active() == self();
    case Member::ActiveDimStyle:
      return std::make_shared<DimStyleObject>(state_, current_dim_style(*state_));
    case Member::ActiveLayer:
      return std::make_shared<LayerObject>(state_, current_layer(*state_));
    case Member::ActiveLayout:
      return std::make_shared<LayoutObject>(
          state_, require_layout(state_->drawing, current_space(*state_)));
    case Member::ActiveLinetype:
      return active_linetype();
    case Member::ActiveSpace:
      return std::int32_t{model_is_active ? 1 : 0};
    case Member::ActiveTextStyle:
      return active_text_style();
    case Member::Blocks:
      return std::make_shared<BlocksObject>(state_);
    case Member::DimStyles:
      return std::make_shared<DimStylesObject>(state_);
    case Member::Dictionaries:
      return std::make_shared<DictionaryObject>(state_, state_->drawing.root_dictionary());
    case Member::Groups:
      return std::make_shared<GroupsObject>(state_);
    case Member::Layouts:
      return std::make_shared<LayoutsObject>(state_);
    case Member::Linetypes:
      return std::make_shared<LinetypesObject>(state_);
    case Member::FullName:
      return document_full_name(*state_);
    case Member::Layers:
      return std::make_shared<LayersObject>(state_);
    case Member::ModelSpace:
      return space(drawing::SpaceId::model);
    case Member::Name:
      return document_name(*state_);
    case Member::PaperSpace:
      return space(paper_space(state_->drawing));
    case Member::Path:
      return document_folder(*state_);
    case Member::ReadOnly:
      return state_->read_only;
    case Member::Saved:
      return !state_->drawing.is_changed();
    case Member::SelectionSets:
      return std::make_shared<SelectionSets>(state_, input_);
    case Member::TextStyles:
      return std::make_shared<TextStylesObject>(state_);
    case Member::Utility:
      return utility_;
    default:
      throw no_such_member(member);
  }
}

void Document::put(Member member, const Value& value) {
  require_open(*state_);
  switch (member) {
    case Member::ActiveDimStyle:
      return put_active_dim_style(value);
    case Member::ActiveLayer:
      return put_active_layer(value);
    case Member::ActiveLayout:
      return put_active_layout(value);
    case Member::ActiveLinetype:
      return put_active_linetype(value);
    case Member::ActiveSpace:
      // 0 is paper in both
      return translated([&] { embedded::set_variable(*state_, "TILEMODE", value); });
    case Member::ActiveTextStyle:
      return put_active_text_style(value);
    default:
      throw no_such_member(member);
  }
}

Value Document::call(Member member, std::span<Value> arguments) {
  require_open(*state_);
  const Method* method = find(member);
  if (!method) return PlainObject::call(member, arguments);
  Arguments checked(member, arguments, method->required, method->at_most);
  return translated([&] { return (this->*method->run)(checked); });
}

void Document::save() {
  if (state_->drawing.path().empty()) {
    throw saving_failed(state_->name_until_saved + " has no file yet; give it a name with SaveAs");
  }
  if (state_->read_only) throw saving_failed(document_name(*state_) + " is read-only");
  write(state_->drawing.path(), state_->save_version);
}

void Document::save_as(const std::string& name, std::optional<std::int32_t> type) {
  if (name.empty()) throw invalid_argument("FileName", Member::SaveAs);
  std::filesystem::path path =
      std::filesystem::absolute(drawing::utf8_path(name)).lexically_normal();
  const bool named_dxf = same_word(path.extension().string(), ".dxf");
  std::string version = state_->save_version;
  if (type || !named_dxf) {
    const SaveFormat* format = find_save_format(type.value_or(session()->save_as_type));
    if (!format) throw invalid_argument("FileType", Member::SaveAs);
    if (format->extension != ".dxf") {
      throw not_supported("Saving as " + std::string(format->extension.substr(1)) +
                          " (name a .dxf file or give a DXF file type)");
    }
    const bool is_own = format->version == state_->drawing.version();
    if (!is_own && drawing::find_release(format->version) == nullptr) {
      throw not_supported("Saving a drawing of release " + std::string(state_->drawing.version()) +
                          " as " + std::string(format->version));
    }
    version = is_own ? std::string() : std::string(format->version);
    if (!named_dxf) path += ".dxf";
  }
  const auto open = session()->find(path);
  if (open && open != self()) {
    throw saving_failed(path.string() + " is open");
  }
  write(path, version);
  state_->read_only = false;
}

void Document::close(std::optional<bool> save_changes, const std::optional<std::string>& name) {
  const bool changed = state_->drawing.is_changed();
  if (save_changes.value_or(changed)) {
    if (name) {
      save_as(*name, std::nullopt);
    } else if (changed) {
      save();
    }
  }
  session()->close(self());
}

Value Document::handle_to_object(Arguments& arguments) {
  const drawing::Handle handle = drawing::parse_handle(arguments.text(0));
  return make_object(state_, state_->drawing.find(handle));
}

Value Document::object_id_to_object(Arguments& arguments) {
  const drawing::RecordId id = record_of(arguments.integer(0));
  const bool exists = id != drawing::RecordId::none && index(id) < state_->drawing.size();
  return make_object(state_, exists ? id : drawing::RecordId::none);
}

Value Document::activate(Arguments&) {
  session()->activate(self());
  return {};
}

Value Document::save(Arguments&) {
  save();
  return {};
}

Value Document::save_as(Arguments& arguments) {
  std::optional<std::int32_t> type;
  if (arguments.has(1)) type = arguments.integer(1);
  save_as(arguments.text(0), type);
  return {};
}

Value Document::close(Arguments& arguments) {
  std::optional<bool> save_changes;
  if (arguments.has(0)) save_changes = basic::convert<bool>(arguments[0]);
  std::optional<std::string> name;
  if (arguments.has(1)) name = arguments.text(1);
  close(save_changes, name);
  return {};
}

/// Nothing is shown, so nothing is drawn anew; but only 0 and 1 are viewports.
Value Document::regen(Arguments& arguments) {
  const std::int32_t which = arguments.integer(0);
  if (which != 0 && which != 1) throw failure(HostError::invalid_input);
  return {};
}

/// What the user works with counts as in use, whatever the file says.
Value Document::purge_all(Arguments&) {
  std::vector<std::string> in_use;
  for (const auto& [name, value] : state_->variables) {
    if (const auto* text = value.if_is<std::string>()) in_use.push_back(*text);
  }
  const drawing::LayerId layer = current_layer(*state_);
  if (layer != drawing::LayerId::none) in_use.push_back(state_->drawing.layer(layer).name);
  state_->drawing.purge(in_use);
  return {};
}

Value Document::get_variable(Arguments& arguments) {
  return embedded::get_variable(*state_, arguments.text(0));
}

Value Document::set_variable(Arguments& arguments) {
  embedded::set_variable(*state_, arguments.text(0), arguments[1]);
  return {};
}

/// The drawing is made active first; what is sent runs at once.
Value Document::send_command(Arguments& arguments) {
  const std::string text = arguments.text(0);
  session()->activate(self());
  command_line_.send(text);
  return {};
}

Value Document::nothing_to_do(Arguments&) { return {}; }

std::shared_ptr<Session> Document::session() const {
  auto session = session_.lock();
  if (!session) throw failure(HostError::disconnected);
  return session;
}

std::shared_ptr<Document> Document::self() const {
  return std::static_pointer_cast<Document>(state_->document.lock());
}

Value Document::space(drawing::SpaceId id) const {
  if (id == drawing::SpaceId::none) throw failure(HostError::key_not_found);
  return std::make_shared<BlockObject>(state_, id);
}

void Document::write(const std::filesystem::path& path, const std::string& version) {
  FileNote note{.drawing = document_full_name(*state_), .changes = state_->drawing.changes()};
  if (session()->dry_run) return session()->on_file(std::move(note));
  try {
    for (const drawing::Loss& loss : save_document(*state_, path, version)) {
      input_.say("\r\nNot in release " + std::string(drawing::release_name(state_->save_version)) +
                 ": " + std::to_string(loss.count) + " " + loss.what + ", " + loss.outcome + ".");
    }
  } catch (const drawing::Error& error) {
    throw saving_failed(error.what());
  }
  note.saved_to = path.string();
  session()->on_file(std::move(note));
}

basic::Failure Document::saving_failed(const std::string& why) {
  session()->on_file({.drawing = document_full_name(*state_), .failure = why});
  return failure(HostError::saving_failed, "Error saving the document: " + why);
}

void Document::put_active_layout(const Value& value) {
  const auto* reference = value.if_is<basic::Reference>();
  const auto layout = reference ? std::dynamic_pointer_cast<LayoutObject>(*reference) : nullptr;
  if (!layout || layout->document() != state_) {
    throw invalid_argument("Layout", Member::ActiveLayout);
  }
  if (!layout->exists()) throw failure(HostError::was_erased);
  translated([&] { activate_space(*state_, layout->sheet()); });
}

Value Document::active_linetype() const {
  const std::string name = current_common(*state_).linetype;
  Value argument = name;
  return LinetypesObject(state_).call(Member::Item, {&argument, 1});
}

void Document::put_active_linetype(const Value& value) {
  const auto* reference = value.if_is<basic::Reference>();
  const auto linetype = reference ? std::dynamic_pointer_cast<LinetypeObject>(*reference) : nullptr;
  if (!linetype || &linetype->document() != state_.get()) {
    throw invalid_argument("Linetype", Member::ActiveLinetype);
  }
  embedded::set_variable(*state_, "CELTYPE", linetype->get(Member::Name));
}

void Document::put_active_dim_style(const Value& value) {
  const auto* reference = value.if_is<basic::Reference>();
  const auto style = reference ? std::dynamic_pointer_cast<DimStyleObject>(*reference) : nullptr;
  if (!style || &style->document() != state_.get()) {
    throw invalid_argument("DimStyle", Member::ActiveDimStyle);
  }
  state_->variables["DIMSTYLE"] = style->name();
}

void Document::put_active_layer(const Value& value) {
  const auto* reference = value.if_is<basic::Reference>();
  const auto layer = reference ? std::dynamic_pointer_cast<LayerObject>(*reference) : nullptr;
  if (!layer || &layer->document() != state_.get()) {
    throw invalid_argument("Layer", Member::ActiveLayer);
  }
  embedded::set_variable(*state_, "CLAYER", layer->get(Member::Name));
}

Value Document::active_text_style() const {
  const drawing::RecordId row = state_->drawing.find_row("STYLE", current_text_style(*state_));
  if (row == drawing::RecordId::none) throw failure(HostError::key_not_found);
  return std::make_shared<TextStyleObject>(state_, row);
}

void Document::put_active_text_style(const Value& value) {
  const auto* reference = value.if_is<basic::Reference>();
  const auto style = reference ? std::dynamic_pointer_cast<TextStyleObject>(*reference) : nullptr;
  if (!style || &style->document() != state_.get()) {
    throw invalid_argument("Style", Member::ActiveTextStyle);
  }
  embedded::set_variable(*state_, "TEXTSTYLE", style->get(Member::Name));
}

}  // namespace velmar::embedded
