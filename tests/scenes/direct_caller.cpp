#include <filesystem>
#include <random>

#include "component/method_table.h"
#include "component/session.h"
#include "scenes/browsed.h"
#include "scenes/caller.h"
#include "system/user_system.h"

namespace velmar {
namespace {

/// The machine's files, and settings and a data folder for one scene.
class SceneSystem : public PlainSystem {
 public:
  explicit SceneSystem(std::filesystem::path data) : data_(std::move(data)) {
    std::filesystem::create_directory(data_);
  }
  ~SceneSystem() override { std::filesystem::remove_all(data_); }

  std::string special_folder(std::int32_t number) const override {
    return number == 26 ? data_.string() : std::string();
  }
  char path_separator() const override { return machine_->path_separator(); }
  std::vector<std::string> files(std::string_view folder) const override {
    return machine_->files(folder);
  }
  std::vector<std::string> subfolders(std::string_view folder) const override {
    return machine_->subfolders(folder);
  }
  bool file_exists(std::string_view path) const override { return machine_->file_exists(path); }
  void delete_file(std::string_view path) override { machine_->delete_file(path); }
  void move_file(std::string_view from, std::string_view to) override {
    machine_->move_file(from, to);
  }
  std::string read_text(std::string_view path) const override { return machine_->read_text(path); }
  void write_text(std::string_view path, std::string_view text) override {
    machine_->write_text(path, text);
  }
  void browse(std::string_view folder) override { browsed.emplace_back(folder); }

 private:
  std::filesystem::path data_;
  std::shared_ptr<System> machine_ = system::user_system();
};

class DirectCaller : public Caller {
 public:
  explicit DirectCaller(std::shared_ptr<host::Object> host)
      : system_(std::make_shared<SceneSystem>(
            std::filesystem::temp_directory_path() /
            ("velmar-data-" + std::to_string(std::random_device{}())))),
        velmar_(system_) {
    browsed.clear();
    install_host_factory([host] { return host; });
  }
  DirectCaller(const DirectCaller&) = delete;
  DirectCaller& operator=(const DirectCaller&) = delete;
  ~DirectCaller() override {
    release_host_application();
    install_host_factory(nullptr);
  }

  Outcome call(std::string_view method, std::vector<basic::Value> arguments) override {
    Outcome outcome;
    outcome.arguments = std::move(arguments);
    try {
      outcome.result = velmar::call(velmar_, *find_method(method), outcome.arguments);
    } catch (const basic::Failure& failure) {
      outcome.failure = failure;
    }
    return outcome;
  }

  System& system() override { return *system_; }

 private:
  std::shared_ptr<SceneSystem> system_;
  Velmar16 velmar_;
};

}  // namespace

std::vector<std::string> browsed;

std::unique_ptr<Caller> make_caller(std::shared_ptr<host::Object> host) {
  return std::make_unique<DirectCaller>(std::move(host));
}

}  // namespace velmar
