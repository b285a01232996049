#include <cmath>
#include <optional>
#include <utility>

#include "basic/failure.h"
#include "basic/rounding.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::attempt;
using host::Entity;
using host::Point;
using host::ResumeNext;

/// Changes the width factor of one text by hundredths until the text is as long as wanted.
class Stretch {
 public:
  /// `counter` goes on from text to text.
  Stretch(Velmar16& velmar, ResumeNext& step, host::Text text, double& counter)
      : velmar_(velmar), step_(step), text_(std::move(text)), counter_(counter) {}

  void to(double target) {
    measure();
    if (length_ < target) {
      do grow_or_shrink(+0.01);
      while (!hopeless_ && !(length_ > target));
    } else {
      do {
        grow_or_shrink(-0.01);
        velmar_.system().process_events();
      } while (!hopeless_ && !(length_ < target));
    }
    if (hopeless_) step_([] { throw basic::Failure(basic::overflow); });
  }

 private:
  /// Kept: the factors are counted from 1, not from the one that the text has.
  void grow_or_shrink(double hundredth) {
    counter_ += 1;
    const double factor = 1 + hundredth * counter_;
    if (hundredth < 0 && factor <= 0) {
      hopeless_ = true;
      return;
    }
    const double before = length_;
    bool accepted = false;
    step_([&] {
      text_.ScaleFactor(factor);
      accepted = true;
    });
    measure();
    const bool is_as_before = std::abs(length_ - before) <= same_length * length_;
    without_effect_ = accepted && is_as_before ? without_effect_ + 1 : 0;
    refused_ = accepted ? 0 : refused_ + 1;
    hopeless_ = (accepted && length_ == 0) || without_effect_ == most_without_effect ||
                refused_ == most_refused;
  }

  void measure() {
    step_([&] {
      Value handle = text_.Handle();
      std::string single_line_text = "T";
      velmar_.GetBRec(handle, single_line_text);
    });
    step_([&] {
      const Point min = host::to_point(velmar_.BoxMinPoint);
      const Point max = host::to_point(velmar_.BoxMaxPoint);
      // Kept: a text that is turned, by however little, is measured by the height of its box.
      const bool is_flat = text_.Rotation() == 0;
      length_ = is_flat ? std::abs(max.x - min.x) : std::abs(max.y - min.y);
    });
  }

  // One step may have no effect, because the text had that factor already; after two the length
  // does not depend on it, as with a text that stands on its head. A refused factor does not end
  // the stepping, but when all are refused, as on a locked layer, something must.
  static constexpr int most_without_effect = 2, most_refused = 10'000;
  static constexpr double same_length = 1e-9;

  Velmar16& velmar_;
  ResumeNext& step_;
  host::Text text_;
  double& counter_;
  double length_ = 0;
  int without_effect_ = 0, refused_ = 0;
  bool hopeless_ = false;  // further steps would never come to an end
};

/// Nothing when the user did not pick.
std::optional<Entity> picked_text() {
  return attempt([] { return utility().GetEntity(new_line("Select Text or Distance")); });
}

/// From a first point to a second; nothing when the user did not pick both.
std::optional<Point> picked_way() {
  return attempt([] {
    const Point first = utility().GetPoint(new_line("First point: "));
    const Point second = utility().GetPoint(first, new_line("Second point: "));
    return Point{second.x - first.x, second.y - first.y, second.z - first.z};
  });
}

}  // namespace

Empty Velmar16::StrechText(std::string& TxtHndl, double& DistanceToText, bool&) {
  const bool asks_again = TxtHndl.empty() || DistanceToText == 0;
  ResumeNext step;
  double counter = 0;
  do {
    host::Text text;
    if (!TxtHndl.empty()) {
      step([&] { text = entity<host::Text>(TxtHndl); });
    } else {
      const std::optional<Entity> picked = picked_text();
      if (!picked) return {};
      step([&] { picked->Update(); });
      step([&] { text = entity<host::Text>(picked->Handle()); });
    }

    double target = DistanceToText;
    if (DistanceToText == 0) {
      const std::optional<Point> way = picked_way();
      if (!way) return {};
      target = basic::round(std::hypot(way->x, way->y));
      counter = way->z;  // Kept: a height between the points shifts the factors.
    }
    if (text.object()) Stretch(*this, step, text, counter).to(target);
  } while (asks_again && !step.pending());
  if (asks_again) step([] { utility().Prompt(new_line(autocad_ready)); });
  return {};
}

}  // namespace velmar
