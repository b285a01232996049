#include "component/method_table.h"
#include "component/session.h"
#include "scenes/caller.h"

namespace velmar {
namespace {

class DirectCaller : public Caller {
 public:
  explicit DirectCaller(std::shared_ptr<embedded::Application> host)
      : system_(std::make_shared<PlainSystem>()), velmar_(system_) {
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
  std::shared_ptr<PlainSystem> system_;
  Velmar16 velmar_;
};

}  // namespace

std::unique_ptr<Caller> make_caller(std::shared_ptr<embedded::Application> host) {
  return std::make_unique<DirectCaller>(std::move(host));
}

}  // namespace velmar
