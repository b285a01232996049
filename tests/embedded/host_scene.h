#pragma once

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "embedded/document.h"
#include "embedded/entity_scene.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/document.h"

namespace velmar::embedded {

/// In plan, 100 units square: line 30 along the bottom, circle 31 (on Walls) in the middle, text 32
/// at (10,80), line 33 across at y = 20 on the layer Locked (off), block reference 34 with
/// attribute 35 at (90,90), line 37 (on Walls, red) along the left side.
inline std::string plan() {
  return drawing_text(
      head("LINE", "30") + "100 AcDbLine\n10 0\n20 0\n30 0\n11 100\n21 0\n31 0\n" +        //
      head("CIRCLE", "31", "Walls") + "100 AcDbCircle\n10 50\n20 50\n30 0\n40 10\n" +      //
      head("TEXT", "32") + "100 AcDbText\n10 10\n20 80\n30 0\n40 5\n1 NOTE\n" +            //
      "100 AcDbText\n" +                                                                   //
      head("LINE", "33", "Locked") + "100 AcDbLine\n10 0\n20 20\n30 0\n11 100\n21 20\n" +  //
      "31 0\n" +                                                                           //
      head("INSERT", "34") + "66 1\n100 AcDbBlockReference\n2 DOOR\n10 90\n20 90\n30 0\n" +
      head("ATTRIB", "35") +
      "100 AcDbText\n10 91\n20 92\n30 0\n40 1\n1 D1\n100 AcDbAttribute\n2 NUMBER\n70 0\n" +  //
      head("SEQEND", "36") +                                                                 //
      head("LINE", "37", "Walls") + "62 1\n100 AcDbLine\n10 0\n20 0\n30 0\n11 0\n21 100\n31 0\n");
}

/// The host with a folder of its own, in which "plan.dxf" is open.
class HostScene {
 public:
  explicit HostScene(std::vector<std::string> answers = {})
      : folder_(std::filesystem::temp_directory_path() /
                ("velmar-host-" + std::to_string(std::random_device{}()))),
        user(std::move(answers)) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directory(folder_);
    application = start(user, {{file("plan.dxf", plan())}});
  }
  ~HostScene() {
    application.reset();
    std::filesystem::remove_all(folder_);
  }
  HostScene(const HostScene&) = delete;
  HostScene& operator=(const HostScene&) = delete;

  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string file(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }
  std::string content(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  host::Application app() const { return host::Application(application); }
  host::Document document() const { return app().ActiveDocument(); }
  host::Utility utility() const { return document().Utility(); }
  host::SelectionSets sets() const { return document().SelectionSets(); }
  drawing::Drawing& drawing() const { return application->active()->drawing; }

  /// Answers from now on; those not used so far are forgotten.
  void answers(std::initializer_list<std::string> answers) {
    user = ScriptedInput(std::vector<std::string>(answers));
  }
  /// What was said to the user since the answers were given.
  std::vector<std::string> said() const {
    std::vector<std::string> texts;
    for (const auto& entry : user.transcript()) {
      if (const auto* said = std::get_if<Said>(&entry)) texts.push_back(said->text);
    }
    return texts;
  }

 private:
  std::filesystem::path folder_;

 public:
  ScriptedInput user;
  std::shared_ptr<Application> application;
};

inline std::string handles(const host::Collection<host::Entity>& entities) {
  std::string text;
  for (const host::Entity& entity : entities) text += (text.empty() ? "" : " ") + entity.Handle();
  return text;
}

constexpr std::int32_t cancelled_number = -2147352567, keyword_number = -2145320928;

}  // namespace velmar::embedded
