// A random sequence of gets, puts, calls and walks on the objects of the embedded host, with the
// checker after each. Then all is taken back, which must give the file that was opened.

#include <array>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "bytes.h"
#include "embedded/document_state.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/view.h"
#include "target.h"
#include "work_folder.h"

namespace velmar::fuzz {
namespace {

using basic::Value;
using host::Member;
using ObjectPointer = std::shared_ptr<host::Object>;

/// Small ones, of several releases and both forms: a drawing is checked after each of many calls.
constexpr std::array drawings{
    "tests/corpus/ezdxf/forms.dxf",
    "tests/corpus/ezdxf/multi_insert_with_attribs.dxf",
    "tests/corpus/bjnortier/issue42.dxf",
    "fuzz/seeds/text_drawing/kinds_2018.dxf",
    "fuzz/seeds/text_drawing/dims.dxf",
    "fuzz/seeds/text_drawing/hatches.dxf",
    "fuzz/seeds/text_drawing/polylines.dxf",
    "fuzz/seeds/binary_drawing/kinds_2000.dxf",
    "fuzz/seeds/binary_drawing/lines_r12.dxf",
};

constexpr auto member_count = static_cast<std::size_t>(Member::ZScaleFactor) + 1;  // the last

std::string content(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

/// These reach out of the drawing, or end it.
bool is_out_of_bounds(Member member) {
  static const std::set<std::string_view> names{"Close", "Export", "Import", "Open",  "Quit",
                                                "Save",  "SaveAs", "New",    "Reload"};
  return names.contains(host::spelling(member));
}

class Play {
 public:
  Play(Bytes bytes, const std::filesystem::path& file)
      : bytes_(bytes), application_(embedded::start(user_, {.drawings = {file}, .history = true})) {
    document_ = application_->active();
    broken_before_ = document_->drawing.broken_references().size();
    add(application_);
    const Value document = application_->get(Member::ActiveDocument);
    add(document);
    const ObjectPointer opened = objects_.back();
    for (const Member member : {Member::ModelSpace, Member::Layers, Member::Blocks, Member::Utility,
                                Member::SelectionSets, Member::Layouts}) {
      add(opened->get(member));
    }
    add_items(*host::to_object(opened->get(Member::ModelSpace)));
  }

  void run() {
    constexpr int most_steps = 40;
    for (int i = 0; i < most_steps && !bytes_.at_end(); ++i) {
      const std::string what = step();
      const auto broken = document_->drawing.broken_references();
      if (broken.size() > broken_before_) {
        expect(false, what + " broke the drawing: " + broken.back().text);
      }
    }
  }

  std::size_t broken_before() const { return broken_before_; }
  std::string saved() const { return document_->drawing.bytes(); }
  void take_all_back() {
    document_->drawing.end_step("play");
    while (document_->drawing.undo()) {
    }
  }

 private:
  std::string step() {
    host::Object& object = *objects_[bytes_.below(objects_.size())];
    const std::uint8_t way = bytes_.byte();
    const auto member = static_cast<Member>(bytes_.below(member_count));
    if (is_out_of_bounds(member)) return "nothing";
    try {
      switch (way % 4) {
        case 0:
          add(object.get(member));
          break;
        case 1:
          object.put(member, value());
          break;
        case 2:
          add_items(object);
          break;
        default:
          call(object, member);
      }
    } catch (const basic::Failure&) {
    }
    return std::string(host::spelling(member)) + " in way " + std::to_string(way % 4);
  }

  void call(host::Object& object, Member member) {
    std::vector<Value> arguments(bytes_.below(7));
    for (Value& argument : arguments) argument = value();
    user_ = embedded::ScriptedInput({"1,1", "#30", "5", "", "20,20", "A"});
    add(object.call(member, arguments));
    for (const Value& argument : arguments) add(argument);
  }

  double number() {
    static constexpr std::array usual{0.0, 1.0,   -1.0, 0.5,   2.0,   3.14159, 10.0,
                                      90., 1e-12, 1e12, 1e300, -7.25, 100.0,   1e308};
    const std::uint8_t choice = bytes_.byte();
    return choice == 255 ? bytes_.number() : usual[choice % usual.size()];
  }

  Value value() {
    static constexpr std::array texts{
        "0",       "Walls",      "Standard",      "",     "*Model_Space", "DOOR",
        "30",      "ANSI31",     "a\nb",          "%%c5", "{\\fArial;x}", "Layout1",
        "bylayer", "CONTINUOUS", "no such thing", "\\P"};
    switch (bytes_.byte() % 10) {
      case 0:
        return static_cast<std::int16_t>(bytes_.byte());
      case 1:
        return static_cast<std::int32_t>(bytes_.byte()) - 4;
      case 2:
        return number();
      case 3:
        return bytes_.byte() % 2 == 0;
      case 4:
        return texts[bytes_.below(texts.size())];
      case 5:
        return basic::Doubles{number(), number(), number()};
      case 6: {
        basic::Doubles numbers(bytes_.below(13));
        for (double& each : numbers) each = number();
        return numbers;
      }
      case 7:
        return basic::List{Value(objects_[bytes_.below(objects_.size())])};
      case 8:
        return Value(objects_[bytes_.below(objects_.size())]);
      default:
        return {};
    }
  }

  void add(const Value& value) {
    constexpr std::size_t most = 200;
    if (const auto* list = value.if_is<basic::List>()) {
      for (const Value& item : *list) add(item);
    } else if (const auto* object = value.if_is<basic::Reference>(); object && *object) {
      if (objects_.size() < most) objects_.push_back(host::to_object(value));
    }
  }
  void add_items(host::Object& collection) {
    const auto items = collection.enumerate();
    Value item;
    for (int i = 0; i < 20 && items->next(item); ++i) add(item);
  }

  Bytes bytes_;
  embedded::ScriptedInput user_;
  std::shared_ptr<embedded::Application> application_;
  embedded::DocumentPointer document_;
  std::size_t broken_before_ = 0;
  std::vector<ObjectPointer> objects_;
};

}  // namespace
}  // namespace velmar::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velmar::fuzz;
  static const WorkFolder folder;
  Bytes bytes(data, size);
  const auto file = std::filesystem::path(VELMAR_SOURCE) / drawings[bytes.below(drawings.size())];
  static std::map<std::filesystem::path, std::string> contents;
  std::string& before = contents[file];
  if (before.empty()) before = content(file);

  Play play(bytes, file);
  play.run();
  try {
    const auto saved = velmar::drawing::Drawing::read(play.saved(), "saved.dxf");
    expect(saved.broken_references().size() <= play.broken_before(),
           "the saved drawing has more broken references");
  } catch (const velmar::drawing::Error& error) {
    expect(false, std::string("the saved drawing does not open: ") + error.what());
  }
  play.take_all_back();
  expect(play.saved() == before, "taking all back does not give the file that was opened");
  return 0;
}
