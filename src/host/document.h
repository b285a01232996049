#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/collection.h"
#include "host/entities.h"
#include "host/view.h"

/// The objects around the entities, with the host's own member names.
namespace velmar::host {

struct Layer : View {
  using View::View;

  std::string Name() const { return get<std::string>(Member::Name); }
  void Name(std::string_view name) const { put(Member::Name, name); }
  std::int32_t Color() const { return get<std::int32_t>(Member::Color); }
  void Color(std::int32_t index) const { put(Member::Color, index); }
};

struct Layers : Collection<Layer> {
  using Collection::Collection;

  /// The existing layer where one of that name exists, regardless of case.
  Layer Add(std::string_view name) const { return from_value<Layer>(call(Member::Add, name)); }
};

/// How a selection set is filled without asking.
enum class SelectionMode : std::int32_t { last = 4, all = 5 };

struct SelectionSet : Collection<Entity> {
  using Collection::Collection;

  void Select(SelectionMode mode) const { call(Member::Select, static_cast<std::int32_t>(mode)); }
  void SelectOnScreen() const { call(Member::SelectOnScreen); }
  void Update() const { call(Member::Update); }
  /// Removes the set from its drawing, not the entities in it.
  void Delete() const { call(Member::Delete); }
};

struct SelectionSets : Collection<SelectionSet> {
  using Collection::Collection;

  /// Fails with the host's error where a set of that name exists.
  SelectionSet Add(std::string_view name) const {
    return from_value<SelectionSet>(call(Member::Add, name));
  }
};

enum class PatternType : std::int32_t { user_defined = 0 };

struct ModelSpace : Collection<Entity> {
  using Collection::Collection;

  Text AddText(std::string_view text, const Point& at, double height) const {
    return from_value<Text>(call(Member::AddText, text, at, height));
  }
  /// The text in the host's frame notation: "%%v" between two cells.
  Tolerance AddTolerance(std::string_view text, const Point& at, const Point& direction) const {
    return from_value<Tolerance>(call(Member::AddTolerance, text, at, direction));
  }
  Line AddLine(const Point& start, const Point& end) const {
    return from_value<Line>(call(Member::AddLine, start, end));
  }
  Circle AddCircle(const Point& center, double radius) const {
    return from_value<Circle>(call(Member::AddCircle, center, radius));
  }
  /// Through x, y, z triples; z is ignored.
  HeavyPolyline AddPolyline(const basic::Doubles& triples) const {
    return from_value<HeavyPolyline>(call(Member::AddPolyline, triples));
  }
  /// Without a boundary as yet. The name of a user-defined pattern has no effect.
  Hatch AddHatch(PatternType type, std::string_view pattern, bool associative) const {
    return from_value<Hatch>(
        call(Member::AddHatch, static_cast<std::int32_t>(type), pattern, associative));
  }
  AlignedDimension AddDimAligned(const Point& first, const Point& second, const Point& text) const {
    return from_value<AlignedDimension>(call(Member::AddDimAligned, first, second, text));
  }
};

/// The command line. A cancelled or empty answer is the host's error, except where a comment says
/// otherwise.
struct Utility : View {
  using View::View;

  void Prompt(std::string_view message) const { call(Member::Prompt, message); }
  Entity GetEntity(std::string_view prompt) const {
    Value picked, at;
    call(Member::GetEntity, picked, at, prompt);
    return from_value<Entity>(picked);
  }
  Point GetPoint(std::string_view prompt) const {
    return from_value<Point>(call(Member::GetPoint, basic::LeftOut{}, prompt));
  }
  /// With a rubber band from `base`.
  Point GetPoint(const Point& base, std::string_view prompt) const {
    return from_value<Point>(call(Member::GetPoint, base, prompt));
  }
  double GetReal(std::string_view prompt) const {
    return from_value<double>(call(Member::GetReal, prompt));
  }
  /// Enter gives the empty text; without blanks allowed a blank ends the answer.
  std::string GetString(bool blanks_allowed, std::string_view prompt) const {
    const std::int32_t has_spaces = blanks_allowed ? 1 : 0;
    return from_value<std::string>(call(Member::GetString, has_spaces, prompt));
  }
  /// The keyword as it was declared; Enter gives the empty text where it was allowed.
  std::string GetKeyword(std::string_view prompt) const {
    return from_value<std::string>(call(Member::GetKeyword, prompt));
  }
  /// For the next question only: keywords separated by blanks, and what the answer may not be.
  void InitializeUserInput(std::int32_t bits, std::string_view keywords) const {
    call(Member::InitializeUserInput, bits, keywords);
  }
};

/// A block definition; an external reference is one too.
struct Block : View {
  using View::View;

  std::string Name() const { return get<std::string>(Member::Name); }
  bool IsXRef() const { return get<bool>(Member::IsXRef); }
  void Unload() const { call(Member::Unload); }
  void Reload() const { call(Member::Reload); }
};

using Blocks = Collection<Block>;

struct Layout : View {
  using View::View;

  static constexpr std::string_view model = "Model";  // the name of the one that is no paper

  std::string Name() const { return get<std::string>(Member::Name); }
  void Delete() const { call(Member::Delete); }
};

using Layouts = Collection<Layout>;

/// What is drawn anew. Some commands pass Basic's True, which hosts take as all of them or refuse.
enum class Viewports : std::int32_t { basic_true = -1, active = 0, all = 1 };

struct Document : View {
  using View::View;

  host::ModelSpace ModelSpace() const { return get<host::ModelSpace>(Member::ModelSpace); }
  host::Utility Utility() const { return get<host::Utility>(Member::Utility); }
  host::SelectionSets SelectionSets() const {
    return get<host::SelectionSets>(Member::SelectionSets);
  }
  host::Layers Layers() const { return get<host::Layers>(Member::Layers); }
  host::Blocks Blocks() const { return get<host::Blocks>(Member::Blocks); }
  host::Layouts Layouts() const { return get<host::Layouts>(Member::Layouts); }
  Layout ActiveLayout() const { return get<Layout>(Member::ActiveLayout); }
  void ActiveLayout(const Layout& layout) const { put(Member::ActiveLayout, layout); }
  void Regen(Viewports which) const { call(Member::Regen, static_cast<std::int32_t>(which)); }
  Entity HandleToObject(std::string_view handle) const {
    return from_value<Entity>(call(Member::HandleToObject, handle));
  }

  /// Types the text onto the command line.
  void SendCommand(std::string_view text) const { call(Member::SendCommand, text); }

  std::string Name() const { return get<std::string>(Member::Name); }
  std::string Path() const { return get<std::string>(Member::Path); }
  /// Empty until the drawing has been saved.
  std::string FullName() const { return get<std::string>(Member::FullName); }
  /// One pass: what only a removed thing used goes with the next one.
  void PurgeAll() const { call(Member::PurgeAll); }
  void Save() const { call(Member::Save); }
  /// In the host's own format. The document has the new name from then on; the host adds the
  /// extension.
  void SaveAs(std::string_view file) const { call(Member::SaveAs, file); }
  void SaveAs(std::string_view file, std::int32_t type) const { call(Member::SaveAs, file, type); }
  /// Saves first where something has changed since.
  void Close() const { call(Member::Close); }
  void Close(bool save_changes) const { call(Member::Close, save_changes); }
};

struct Documents : Collection<Document> {
  using Collection::Collection;

  /// The opened drawing becomes the active one.
  Document Open(std::string_view file) const {
    return from_value<Document>(call(Member::Open, file));
  }
};

/// The user's choices about opening and saving.
struct OpenSave : View {
  using View::View;

  std::int32_t SaveAsType() const { return get<std::int32_t>(Member::SaveAsType); }
  void SaveAsType(std::int32_t type) const { put(Member::SaveAsType, type); }
};

struct Preferences : View {
  using View::View;

  host::OpenSave OpenSave() const { return get<host::OpenSave>(Member::OpenSave); }
};

struct Application : View {
  using View::View;

  Document ActiveDocument() const { return get<Document>(Member::ActiveDocument); }
  void ActiveDocument(const Document& document) const { put(Member::ActiveDocument, document); }
  host::Preferences Preferences() const { return get<host::Preferences>(Member::Preferences); }
  host::Documents Documents() const { return get<host::Documents>(Member::Documents); }
  std::string Caption() const { return get<std::string>(Member::Caption); }
  void ZoomExtents() const { call(Member::ZoomExtents); }
};

/// What a thread holds of its host: the way to the running session.
struct HostApplication : View {
  using View::View;

  host::Application Application() const { return get<host::Application>(Member::Application); }
};

}  // namespace velmar::host
