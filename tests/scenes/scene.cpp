#include "scenes/scene.h"

#include <fstream>
#include <iterator>
#include <random>

#include "host/error_styles.h"

namespace velmar {
namespace {

std::filesystem::path new_folder() {
  const std::string name = "velmar-scene-" + std::to_string(std::random_device{}());
  std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
  std::filesystem::create_directory(folder);
  return folder;
}

}  // namespace

Scene::Scene(const std::string& entities, const Between& between) : folder_(new_folder()) {
  open(file("plan.dxf", embedded::drawing_text(entities)), between);
}

Scene::Scene(const std::filesystem::path& drawing) : folder_(new_folder()) {
  const std::filesystem::path copy = folder_ / drawing.filename();
  std::filesystem::copy_file(drawing, copy);
  open(copy, std::identity());
}

void Scene::open(const std::filesystem::path& drawing, const Between& between) {
  application_ = embedded::start(user_, {{drawing}});
  caller_ = make_caller(between(application_));
}

Outcome Scene::call(std::string_view method, std::vector<basic::Value> arguments) {
  Outcome outcome = caller_->call(method, std::move(arguments));
  application_->forget_failed_open();  // as between two commands of a session
  return outcome;
}

Scene::~Scene() {
  caller_.reset();
  application_.reset();
  std::filesystem::remove_all(folder_);
}

Scene& Scene::answers(std::vector<std::string> answers) {
  user_ = embedded::ScriptedInput(std::move(answers));
  return *this;
}

std::vector<std::string> Scene::asked() const {
  std::vector<std::string> prompts;
  for (const auto& entry : user_.transcript()) {
    if (const auto* asked = std::get_if<embedded::Asked>(&entry)) prompts.push_back(asked->prompt);
  }
  return prompts;
}

std::vector<std::string> Scene::said() const {
  std::vector<std::string> texts;
  for (const auto& entry : user_.transcript()) {
    if (const auto* said = std::get_if<embedded::Said>(&entry)) texts.push_back(said->text);
  }
  return texts;
}

bool Scene::has(std::string_view handle) const {
  return host::attempt([&] { document().HandleToObject(handle); });
}

std::filesystem::path Scene::file(const std::string& name, const std::string& content) const {
  const std::filesystem::path path = folder_ / name;
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

std::string Scene::content(const std::string& name) const {
  std::ifstream file(folder_ / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace velmar
