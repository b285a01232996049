#include "fake_host.h"

#include <algorithm>

#include "basic/conversion.h"
#include "host/document.h"

namespace velmar {
namespace {

using basic::Value;
using ArgumentSpan = std::span<Value>;

[[noreturn]] void refuse(std::int32_t number, std::string description) {
  throw basic::Failure(number, "Host", std::move(description));
}

std::string hexadecimal(int number) {
  std::string digits;
  for (; number > 0; number /= 16) digits.insert(digits.begin(), "0123456789ABCDEF"[number % 16]);
  return digits;
}

}  // namespace

std::string handle_of(const Bag& entity) { return basic::text(entity->get(Member::Handle)); }

FakeDocument::FakeDocument() {
  object->properties[Member::ModelSpace] = model_space_;
  object->properties[Member::Layers] = layers_;
  object->methods[Member::Regen] = [](ArgumentSpan) { return Value(); };
  layers_->methods[Member::Add] = [this](ArgumentSpan name) -> Value {
    return add_layer(basic::text(name[0]));
  };
  add_additions();
  object->methods[Member::HandleToObject] = [this](ArgumentSpan arguments) -> Value {
    for (const Bag& entity : entities) {
      if (handle_of(entity) == basic::text(arguments[0])) return entity;
    }
    refuse(unknown_handle, "Unknown handle");
  };
  add_utility();
  add_selection_sets();
}

void FakeDocument::add_additions() {
  model_space_->methods[Member::AddLine] = [this](ArgumentSpan) {
    return add("AcDbLine", "0", {{Member::Length, 5.0}, {Member::Angle, 0.0}});
  };
  model_space_->methods[Member::AddCircle] = [this](ArgumentSpan) {
    return add("AcDbCircle", "0");
  };
  model_space_->methods[Member::AddText] = [this](ArgumentSpan arguments) {
    return add_text("AcDbText", basic::text(arguments[0]));
  };
  model_space_->methods[Member::AddTolerance] = [this](ArgumentSpan arguments) {
    if (refuses_additions) refuse(-1, "Not here");
    return add("AcDbFcf", "0",
               {{Member::TextString, arguments[0]},
                {Member::InsertionPoint, arguments[1]},
                {Member::DirectionVector, arguments[2]}});
  };
}

Bag FakeDocument::add(std::string_view class_name, std::string_view layer,
                      std::map<Member, Value> members) {
  const auto entity = std::make_shared<BagObject>();
  entity->properties = std::move(members);
  entity->properties[Member::ObjectName] = class_name;
  entity->properties[Member::Layer] = layer;
  entity->properties[Member::Handle] = hexadecimal(next_handle++);
  entity->properties.try_emplace(Member::Color, std::int32_t{256});
  entity->properties.try_emplace(Member::Linetype, "ByLayer");
  entity->properties.try_emplace(Member::LinetypeScale, 1.0);
  entity->properties.try_emplace(Member::Visible, true);
  entity->methods[Member::Update] = [](ArgumentSpan) { return Value(); };
  entity->methods[Member::Delete] = [this, unowned = entity.get()](ArgumentSpan) {
    std::erase_if(entities, [&](const Bag& other) { return other.get() == unowned; });
    return Value();
  };
  entities.push_back(entity);
  model_space_->items.emplace_back(entity);
  return entity;
}

Bag FakeDocument::add_text(std::string_view class_name, std::string_view content,
                           std::string_view layer) {
  const Bag text =
      add(class_name, layer,
          {{Member::TextString, content}, {Member::Rotation, 0.0}, {Member::ScaleFactor, 1.0}});
  text->methods[Member::Rotate] = [](ArgumentSpan) { return Value(); };
  text->methods[Member::GetBoundingBox] = [unowned = text.get()](ArgumentSpan corners) {
    const double factor = basic::number(unowned->properties[Member::ScaleFactor]);
    corners[0] = to_value(host::Point{});
    corners[1] = to_value(host::Point{10 * factor, 1, 0});
    return Value();
  };
  return text;
}

Bag FakeDocument::add_layer(std::string_view name) {
  const auto layer = std::make_shared<BagObject>();
  layer->properties[Member::Name] = name;
  layer->properties[Member::Color] = std::int32_t{7};
  layers_->items.emplace_back(layer);
  return layer;
}

Bag FakeDocument::add_boxed(std::string_view class_name, host::Point min, host::Point max) {
  const Bag entity = add(class_name, "0");
  entity->methods[Member::GetBoundingBox] = [min, max](ArgumentSpan corners) {
    corners[0] = to_value(min);
    corners[1] = to_value(max);
    return Value();
  };
  return entity;
}

bool FakeDocument::has(const Bag& entity) const {
  return std::ranges::find(entities, entity) != entities.end();
}

void FakeDocument::add_utility() {
  const auto utility = std::make_shared<BagObject>();
  utility->methods[Member::Prompt] = [this](ArgumentSpan arguments) {
    said.push_back(basic::text(arguments[0]));
    return Value();
  };
  utility->methods[Member::GetEntity] = [this](ArgumentSpan arguments) {
    asked.push_back(basic::text(arguments[2]));
    if (picks.empty()) refuse(pick_failed, "Method 'GetEntity' of object 'IAcadUtility' failed");
    arguments[0] = picks.front();
    arguments[1] = to_value(host::Point{});
    picks.pop_front();
    return Value();
  };
  add_questions(*utility);
  object->properties[Member::Utility] = utility;
}

void FakeDocument::add_questions(BagObject& utility) {
  const auto answer = [this](const Value& prompt) {
    asked.push_back(basic::text(prompt));
    if (answers.empty()) refuse(pick_failed, "No answer");
    const Value first = answers.front();
    answers.pop_front();
    return first;
  };
  utility.methods[Member::InitializeUserInput] = [](ArgumentSpan) { return Value(); };
  const auto prompt_comes_last = [answer](ArgumentSpan arguments) {
    return answer(arguments.back());
  };
  for (const Member member :
       {Member::GetReal, Member::GetPoint, Member::GetString, Member::GetKeyword}) {
    utility.methods[member] = prompt_comes_last;
  }
}

void FakeDocument::add_selection_sets() {
  const auto sets = std::make_shared<BagObject>();
  sets->methods[Member::Add] = [this](ArgumentSpan arguments) -> Value {
    const std::string name = basic::text(arguments[0]);
    if (selection_sets.contains(name)) refuse(set_exists, "The named selection set exists");
    return selection_sets[name] = make_selection_set(name);
  };
  sets->methods[Member::Item] = [this](ArgumentSpan arguments) -> Value {
    const auto found = selection_sets.find(basic::text(arguments[0]));
    if (found == selection_sets.end()) refuse(key_not_found, "Key not found");
    return found->second;
  };
  object->properties[Member::SelectionSets] = sets;
}

Bag FakeDocument::make_selection_set(const std::string& name) {
  const auto set = std::make_shared<BagObject>();
  BagObject* unowned = set.get();
  set->properties[Member::Count] = std::int32_t{0};
  set->methods[Member::Select] = [this, unowned](ArgumentSpan mode) {
    if (mode.size() != 1 || mode[0] != Value(std::int32_t{4})) refuse(-1, "Not the last one");
    if (!entities.empty()) unowned->items.emplace_back(entities.back());
    unowned->properties[Member::Count] = static_cast<std::int32_t>(unowned->items.size());
    return Value();
  };
  set->methods[Member::Update] = [](ArgumentSpan) { return Value(); };
  set->methods[Member::Item] = [unowned](ArgumentSpan index) {
    return unowned->items.at(static_cast<std::size_t>(basic::number(index[0])));
  };
  set->methods[Member::Delete] = [this, name](ArgumentSpan) {
    selection_sets.erase(name);
    return Value();
  };
  return set;
}

FakeHost::FakeHost() {
  application->properties[Member::Application] = session_;
  activate(document);
  install_host_factory([this] {
    ++created;
    return decorate(application);
  });
  release_host_application();
}

FakeHost::~FakeHost() {
  install_host_factory(nullptr);
  release_host_application();
}

void FakeHost::activate(const FakeDocument& active) {
  // Over COM the object that was found is the application itself.
  for (const Bag& asked : {application, session_}) {
    asked->properties[Member::ActiveDocument] = active.object;
  }
}

}  // namespace velmar
