#include "host/failing_object.h"

#include <utility>

#include "host/watched_object.h"

namespace velmar::host {
namespace {

class Failing : public Watch {
 public:
  explicit Failing(std::shared_ptr<Fault> fault) : fault_(std::move(fault)) {}

  void before(Step) override {
    if (++fault_->steps_taken == fault_->at) throw fault_->failure;
  }

 private:
  std::shared_ptr<Fault> fault_;
};

}  // namespace

std::shared_ptr<Object> failing(std::shared_ptr<Object> object, std::shared_ptr<Fault> fault) {
  return watched(std::move(object), std::make_shared<Failing>(std::move(fault)));
}

}  // namespace velmar::host
