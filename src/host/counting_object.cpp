#include "host/counting_object.h"

#include <utility>

#include "host/watched_object.h"

namespace velmar::host {
namespace {

class Counting : public Watch {
 public:
  explicit Counting(std::shared_ptr<StepCount> count) : count_(std::move(count)) {}

  void before(Step step) override { ++counter(step); }

 private:
  int& counter(Step step) {
    switch (step) {
      case Step::get:
        return count_->gets;
      case Step::put:
        return count_->puts;
      case Step::call:
        return count_->calls;
      case Step::enumerate:
        return count_->walks;
      case Step::next:
        break;
    }
    return count_->walk_steps;
  }

  std::shared_ptr<StepCount> count_;
};

}  // namespace

std::shared_ptr<Object> counting(std::shared_ptr<Object> object, std::shared_ptr<StepCount> count) {
  return watched(std::move(object), std::make_shared<Counting>(std::move(count)));
}

}  // namespace velmar::host
