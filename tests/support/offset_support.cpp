// Independent checks of offset results.
#include "support/offset_support.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace polyarc_test {
namespace {


bool IsArcType(const LI_TAB_STRUCT &e) { return e.type == LI_ARC_CW || e.type == LI_ARC_CCW; }
double AngleAt(const LI_TAB_STRUCT &e, GE_POINT p) {
  return std::atan2(p.y - e.mp.y, p.x - e.mp.x);
}

// The angle swept from a to b in e's sense of travel, in [0, 2 pi).
double SweepFrom(const LI_TAB_STRUCT &e, double a, double b) {
  const double s = e.type == LI_ARC_CW ? a - b : b - a;
  return s < 0 ? s + 2 * kPi : s;
}

double Sweep(const LI_TAB_STRUCT &e) {
  if (std::hypot(e.ap.x - e.ep.x, e.ap.y - e.ep.y) < 1e-12) return 2 * kPi;
  return SweepFrom(e, AngleAt(e, e.ap), AngleAt(e, e.ep));
}

double Distance(GE_POINT p, const LI_TAB_STRUCT &e) {
  const auto to = [p](GE_POINT q) { return std::hypot(p.x - q.x, p.y - q.y); };
  if (IsArcType(e)) {
    if (SweepFrom(e, AngleAt(e, e.ap), AngleAt(e, p)) > Sweep(e))
      return std::min(to(e.ap), to(e.ep));
    return std::fabs(to(e.mp) - std::fabs(e.rad));
  }
  const double dx = e.ep.x - e.ap.x, dy = e.ep.y - e.ap.y, len2 = dx * dx + dy * dy;
  const double u =
      len2 > 0 ? std::clamp(((p.x - e.ap.x) * dx + (p.y - e.ap.y) * dy) / len2, 0.0, 1.0) : 0.0;
  return to({e.ap.x + u * dx, e.ap.y + u * dy});
}

// Points along e about `step` apart, ends included. Arcs are sampled from
// where their ends really lie, whatever the sign of their radius; an arc
// whose ends coincide is a full circle.
Points Samples(const LI_TAB_STRUCT &e, double step) {
  const bool arc = IsArcType(e);
  const double r = std::fabs(e.rad), sweep = arc ? Sweep(e) : 0.0;
  const double len = arc ? sweep * r : std::hypot(e.ep.x - e.ap.x, e.ep.y - e.ap.y);
  const int n = std::max(1, static_cast<int>(std::ceil(len / step)));
  Points out;
  for (int i = 0; i <= n; ++i) {
    const double u = static_cast<double>(i) / n;
    if (!arc) {
      out.push_back({e.ap.x + u * (e.ep.x - e.ap.x), e.ap.y + u * (e.ep.y - e.ap.y)});
      continue;
    }
    const double a = AngleAt(e, e.ap) + (e.type == LI_ARC_CW ? -u : u) * sweep;
    out.push_back({e.mp.x + r * std::cos(a), e.mp.y + r * std::sin(a)});
  }
  return out;
}

Points Chorded(LI_TAB_STRUCT *k, double step) {
  Points out;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    const Points s = Samples(*e, step);
    out.insert(out.end(), out.empty() ? s.begin() : s.begin() + 1, s.end());
  }
  return out;
}

double Orient(GE_POINT a, GE_POINT b, GE_POINT c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool Opposite(double a, double b) { return (a > 1e-12 && b < -1e-12) || (a < -1e-12 && b > 1e-12); }

}  // namespace

double OffsetDeviation(LI_TAB_STRUCT *result, LI_TAB_STRUCT *source, double d) {
  double worst = 0.0;
  for (LI_TAB_STRUCT *e : Elements(result)) {
    for (GE_POINT p : Samples(*e, 0.01)) {
      double nearest = HUGE_VAL;
      for (LI_TAB_STRUCT *s : Elements(source)) nearest = std::min(nearest, Distance(p, *s));
      worst = std::max(worst, std::fabs(nearest - d));
    }
  }
  return worst;
}

bool CrossesItself(LI_TAB_STRUCT *k) {
  const Points p = Chorded(k, 0.05);
  const size_t n = p.size() - 1;  // chords p[i] -> p[i + 1]; neighbours share an end
  for (size_t i = 0; i < n; ++i) {
    for (size_t j = i + 2; j < n && !(i == 0 && j == n - 1); ++j) {
      if (Opposite(Orient(p[i], p[i + 1], p[j]), Orient(p[i], p[i + 1], p[j + 1])) &&
          Opposite(Orient(p[j], p[j + 1], p[i]), Orient(p[j], p[j + 1], p[i + 1])))
        return true;
    }
  }
  return false;
}

int Winding(LI_TAB_STRUCT *k, GE_POINT q) {
  const Points p = Chorded(k, 0.01);
  int w = 0;
  for (size_t i = 0; i + 1 < p.size(); ++i) {
    if (p[i].y <= q.y && p[i + 1].y > q.y && Orient(p[i], p[i + 1], q) > 0) ++w;
    if (p[i].y > q.y && p[i + 1].y <= q.y && Orient(p[i], p[i + 1], q) < 0) --w;
  }
  return w;
}

int Count(LI_TAB_STRUCT *k, uint16_t type) {
  int n = 0;
  for (LI_TAB_STRUCT *e : Elements(k)) n += e->type == type || (type == LI_ARC_CW && IsArcType(*e));
  return n;
}

LI_TAB_STRUCT *RandomStar(LI_HEAD *head, unsigned seed, int n, double rmin, double rmax,
                          double arc_share) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> radius(rmin, rmax), unit(0.0, 1.0);
  Points v;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * kPi * (i + 0.2 + 0.6 * unit(rng)) / n, r = radius(rng);
    v.push_back({r * std::cos(a), r * std::sin(a)});
  }
  LI_TAB_STRUCT *k = nullptr;
  EXPECT_EQ(LiMove(head, &k, &v[0]), PA_OK);
  for (int i = 0; i < n; ++i) {
    const GE_POINT a = v[i], b = v[(i + 1) % n];
    if (unit(rng) >= arc_share) {
      EXPECT_EQ(LiDraw(head, &k, &b), PA_OK);
      continue;
    }
    // Sweeping phi: bulging out (counter-clockwise, centre left of a -> b)
    // or in (clockwise, centre on the right).
    const double phi = 0.4 + 0.8 * unit(rng), len = std::hypot(b.x - a.x, b.y - a.y);
    const double t = (unit(rng) < 0.5 ? 1 : -1) * (len / 2) / std::tan(phi / 2);
    const GE_POINT c{(a.x + b.x) / 2 - t * (b.y - a.y) / len,
                     (a.y + b.y) / 2 + t * (b.x - a.x) / len};
    EXPECT_EQ(LiArc(head, &k, &b, &c, t > 0 ? 0 : 1), PA_OK);
  }
  return k;
}

}  // namespace polyarc_test
