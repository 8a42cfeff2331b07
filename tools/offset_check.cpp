// The deviation of an offset from its distance, measured against a grid
// of the source's element boxes.
#include "offset_check.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "elements.h"
#include "polyarc/ge.h"

namespace polyarc_tool {
namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The angle an arc turns through in its sense of travel, signed: positive
// counter-clockwise. A full circle turns once round.
double Sweep(const LI_TAB_STRUCT *e) {
  if (IsFullCircle(e)) return e->type == LI_ARC_CCW ? kTwoPi : -kTwoPi;
  double sweep = e->ang_ep - e->ang_ap;
  if (e->type == LI_ARC_CCW && sweep < 0) sweep += kTwoPi;
  if (e->type == LI_ARC_CW && sweep > 0) sweep -= kTwoPi;
  return sweep;
}

// p lies beyond the ends of e: its nearest point of e is an end.
bool BeyondEnds(const LI_TAB_STRUCT *e, GE_POINT p) {
  GE_POINT foot;
  double distance = 0;
  GePtElemDist(e, &p, &foot, &distance);
  return (foot.x == e->ap.x && foot.y == e->ap.y) || (foot.x == e->ep.x && foot.y == e->ep.y);
}

}  // namespace

GE_POINT PointAlong(const LI_TAB_STRUCT *e, double u) {
  if (!IsArc(e)) return {e->ap.x + u * (e->ep.x - e->ap.x), e->ap.y + u * (e->ep.y - e->ap.y)};
  // With a negative radius the angles are those of the opposite point,
  // so mp + rad (cos a, sin a) is the carrier's point in either case.
  const double a = e->ang_ap + u * Sweep(e);
  return {e->mp.x + e->rad * std::cos(a), e->mp.y + e->rad * std::sin(a)};
}

NearestPoint::NearestPoint(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return;
  GE_POINT lo{kInfinity, kInfinity}, hi{-kInfinity, -kInfinity};
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type == LI_MOVE) continue;
    elements_.push_back(e);
    GE_POINT a, b;
    LiElemRealBox(e, &a, &b);
    lo = {std::min(lo.x, a.x), std::min(lo.y, a.y)};
    hi = {std::max(hi.x, b.x), std::max(hi.y, b.y)};
  } while ((e = e->next) != k);
  if (elements_.empty()) return;
  // About one element per cell.
  const double side = std::ceil(std::sqrt(static_cast<double>(elements_.size())));
  cell_ = std::max(hi.x - lo.x, hi.y - lo.y) / side;
  if (!(cell_ > 0)) cell_ = 1;
  lo_ = lo;
  nx_ = static_cast<int>((hi.x - lo.x) / cell_) + 1;
  ny_ = static_cast<int>((hi.y - lo.y) / cell_) + 1;
  cells_.resize(static_cast<std::size_t>(nx_) * static_cast<std::size_t>(ny_));
  auto column = [&](double x) {
    return std::clamp(static_cast<int>((x - lo_.x) / cell_), 0, nx_ - 1);
  };
  auto row = [&](double y) {
    return std::clamp(static_cast<int>((y - lo_.y) / cell_), 0, ny_ - 1);
  };
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    GE_POINT a, b;
    LiElemRealBox(elements_[i], &a, &b);
    for (int y = row(a.y); y <= row(b.y); ++y) {
      for (int x = column(a.x); x <= column(b.x); ++x) cells_[y * nx_ + x].push_back(i);
    }
  }
}

void NearestPoint::Visit(int cx, int cy, GE_POINT p, Found &best) const {
  if (cx < 0 || cy < 0 || cx >= nx_ || cy >= ny_) return;
  for (const std::size_t i : cells_[cy * nx_ + cx]) {
    const LI_TAB_STRUCT *e = elements_[i];
    GE_POINT at;
    double distance = kInfinity;
    GePtElemDist(e, &p, &at, &distance);
    if (distance < best.distance) best = {distance, at};
  }
}

// How far from p nothing is left unvisited once the cells within r of
// (cx, cy) were visited: the distance to the nearest side of that block of
// cells that has cells beyond it (infinite when none has).
double NearestPoint::Covered(GE_POINT p, int cx, int cy, int r) const {
  double covered = kInfinity;
  if (cx - r > 0) covered = std::min(covered, p.x - (lo_.x + (cx - r) * cell_));
  if (cy - r > 0) covered = std::min(covered, p.y - (lo_.y + (cy - r) * cell_));
  if (cx + r < nx_ - 1) covered = std::min(covered, lo_.x + (cx + r + 1) * cell_ - p.x);
  if (cy + r < ny_ - 1) covered = std::min(covered, lo_.y + (cy + r + 1) * cell_ - p.y);
  return covered;
}

NearestPoint::Found NearestPoint::Find(GE_POINT p) const {
  Found best{kInfinity, {0, 0}};
  if (elements_.empty()) return best;
  const int cx = std::clamp(static_cast<int>(std::floor((p.x - lo_.x) / cell_)), 0, nx_ - 1);
  const int cy = std::clamp(static_cast<int>(std::floor((p.y - lo_.y) / cell_)), 0, ny_ - 1);
  for (int r = 0;; ++r) {
    for (int x = cx - r; x <= cx + r; ++x) {
      Visit(x, cy - r, p, best);
      if (r > 0) Visit(x, cy + r, p, best);
    }
    for (int y = cy - r + 1; y <= cy + r - 1; ++y) {
      Visit(cx - r, y, p, best);
      Visit(cx + r, y, p, best);
    }
    if (best.distance <= Covered(p, cx, cy, r)) return best;
  }
}

Deviation MeasureDeviation(const LI_TAB_STRUCT *source, const ContourList &loops, double d) {
  const NearestPoint nearest(source);
  std::vector<const LI_TAB_STRUCT *> by_number;
  const LI_TAB_STRUCT *s = source;
  do {
    by_number.push_back(s);
  } while ((s = s->next) != source);
  Deviation deviation;
  for (const Contour &c : loops.contours()) {
    const LI_TAB_STRUCT *e = c.k;
    do {
      if (e->type == LI_MOVE) continue;
      const LI_TAB_STRUCT *own =
          e->no >= 1 && e->no <= by_number.size() ? by_number[e->no - 1] : nullptr;
      for (int i = 0; i <= kCheckSteps; ++i) {
        const GE_POINT p = PointAlong(e, static_cast<double>(i) / kCheckSteps);
        const double off = std::fabs(nearest.Find(p).distance - d);
        const bool corner = own == nullptr || BeyondEnds(own, p);
        if (off > deviation.worst || deviation.samples == 0) {
          deviation.worst = off;
          deviation.worst_at = p;
          deviation.worst_at_corner = corner;
        }
        ++deviation.samples;
        if (corner) continue;
        if (off > deviation.worst_inside || deviation.inside_samples == 0) {
          deviation.worst_inside = off;
          deviation.worst_inside_at = p;
        }
        ++deviation.inside_samples;
      }
    } while ((e = e->next) != c.k);
  }
  return deviation;
}

}  // namespace polyarc_tool
