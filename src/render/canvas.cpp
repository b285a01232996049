#include "render/canvas.h"

#include <cmath>

namespace velmar::render {
namespace {

/// So far outside the window lines are cut: wide ones are seen no more.
constexpr double brim = 100;
/// How far a chord may be from its arc, in picture units.
constexpr double tolerance = 0.1;
/// Dashes closer than this are drawn through.
constexpr double finest_period = 1.5;
constexpr double most_dashes = 200'000;

/// Puts pieces of one way together to chains.
class Pieces {
 public:
  Pieces(Painter& painter, const Look& look) : painter_(painter), look_(look) {}
  ~Pieces() { finish(); }
  Pieces(const Pieces&) = delete;
  Pieces& operator=(const Pieces&) = delete;

  void add(Point from, Point to) {
    if (chain_.empty() || chain_.back() != from) {
      finish();
      chain_.push_back(from);
    }
    if (to != from) chain_.push_back(to);
  }
  void finish() {
    if (!chain_.empty()) painter_.stroke(chain_, look_.ink, look_.width);
    chain_.clear();
  }

 private:
  Painter& painter_;
  const Look& look_;
  Chain chain_;
};

bool is_finite(const Chain& chain) {
  for (const Point& p : chain) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return false;
  }
  return true;
}

/// Without points that are too near to the one before to be told from it; the ends stay.
Chain thinned(const Chain& chain) {
  Chain kept;
  kept.reserve(chain.size());
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const bool end = i == 0 || i + 1 == chain.size();
    if (end ||
        std::abs(chain[i].x - kept.back().x) + std::abs(chain[i].y - kept.back().y) > tolerance)
      kept.push_back(chain[i]);
  }
  return kept;
}

}  // namespace

double Canvas::magnification() const {
  return std::max({norm(place_.x), norm(place_.y), norm(place_.z)});
}

double Canvas::step(double radius) const {
  const double in_picture = radius * magnification();
  constexpr double coarsest = 0.5, finest = 1e-3;
  if (!(in_picture > 0)) return coarsest;
  return std::clamp(std::sqrt(8 * tolerance / in_picture), finest, coarsest);
}

Chain Canvas::mapped(const Chain& chain) const {
  Chain in_picture;
  in_picture.reserve(chain.size());
  for (const Point& p : chain) {
    const Point q = place_(p);
    in_picture.push_back({q.x, q.y, 0});
  }
  return in_picture;
}

bool Canvas::shows(const Window& in_picture) const {
  return !in_picture.empty() && window_.grown(brim).meets(in_picture);
}

void Canvas::curve(const Chain& chain, const Look& look) const {
  if (chain.empty()) return;
  const Chain in_picture = mapped(chain);
  const Window seen = window_of(in_picture);
  if (!is_finite(in_picture) || !shows(seen)) return;
  const double turn = look.pattern ? period(*look.pattern) * look.pattern_scale : 0;
  const bool fine = !(turn * magnification() > finest_period);
  if (!look.pattern || fine || seen.width() + seen.height() < 1) return plain(in_picture, look);
  dashed(chain, in_picture, look);
}

void Canvas::line(const Chain& chain, const Look& look) const {
  if (chain.empty()) return;
  const Chain in_picture = mapped(chain);
  if (is_finite(in_picture) && shows(window_of(in_picture))) plain(in_picture, look);
}

void Canvas::plain(const Chain& chain, const Look& look) const {
  const Window seen = window_of(chain);
  constexpr double dot = 0.3;
  if (chain.size() == 1 || (seen.width() < dot && seen.height() < dot)) {
    return painter_->stroke({seen.middle()}, look.ink, look.width);
  }
  const Window brimmed = window_.grown(brim);
  if (brimmed.contains(seen)) return painter_->stroke(thinned(chain), look.ink, look.width);
  Pieces pieces(*painter_, look);
  for (std::size_t i = 1; i < chain.size(); ++i) {
    const Point &a = chain[i - 1], &b = chain[i];
    const auto part = inside(brimmed, a, b);
    if (!part) continue;
    pieces.add(part->first == 0 ? a : a + (b - a) * part->first,
               part->second == 1 ? b : a + (b - a) * part->second);
  }
}

void Canvas::dashed(const Chain& chain, const Chain& in_picture, const Look& look) const {
  double length = 0, seen_length = 0;
  for (std::size_t i = 1; i < chain.size(); ++i) {
    const double way = norm(chain[i] - chain[i - 1]);
    const auto part = inside(window_.grown(brim), in_picture[i - 1], in_picture[i]);
    length += way;
    if (part) seen_length += way * (part->second - part->first);
  }
  const double turns = seen_length / (period(*look.pattern) * look.pattern_scale);
  const double count = turns * static_cast<double>(look.pattern->size());
  if (!(count < std::min(most_dashes, look.dashes ? look.dashes->left : most_dashes))) {
    if (look.dashes) ++look.dashes->drawn_through;
    return plain(in_picture, look);
  }
  if (look.dashes) look.dashes->left -= count;
  const Dashes dashes(*look.pattern, look.pattern_scale, length);
  Pieces pieces(*painter_, look);
  double before = 0;
  for (std::size_t i = 1; i < chain.size(); ++i) {
    const Point &a = in_picture[i - 1], &b = in_picture[i];
    const double way = norm(chain[i] - chain[i - 1]);
    const auto part = inside(window_.grown(brim), a, b);
    if (part && way > 0) {
      const auto at = [&](double along) {
        const double t = (along - before) / way;
        return t <= 0 ? a : t >= 1 ? b : a + (b - a) * t;
      };
      dashes.within(before + way * part->first, before + way * part->second,
                    [&](Dash dash) { pieces.add(at(dash.from), at(dash.to)); });
    }
    before += way;
  }
}

void Canvas::area(const std::vector<Chain>& areas, const Ink& ink, Rule rule) const {
  std::vector<Chain> shown;
  Window all;
  for (const Chain& area : areas) {
    Chain in_picture = mapped(area);
    if (!is_finite(in_picture)) return;
    const Window seen = window_of(in_picture);
    const Window brimmed = window_.grown(brim);
    if (!brimmed.contains(seen)) in_picture = cut_area(brimmed, in_picture);
    if (in_picture.size() < 3) continue;
    for (const Point& p : in_picture) all.add(p);
    shown.push_back(thinned(in_picture));
  }
  if (shown.empty() || !window_.meets(all)) return;
  painter_->fill(shown, ink, rule);
  // An area as thin as a line would vanish.
  if (std::min(all.width(), all.height()) < 0.5) {
    painter_->stroke({{all.left, all.low, 0}, {all.right, all.high, 0}}, ink, 0.5);
  }
}

}  // namespace velmar::render
