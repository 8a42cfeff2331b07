// Independent checks of offset results: samples, distances, crossings and
// winding computed here from the element fields, not by the library.
#include "support/offset_support.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

bool Coincide(GE_POINT a, GE_POINT b) { return std::hypot(a.x - b.x, a.y - b.y) < 1e-12; }

// Where an arc's ends really lie on its circle (an arc offset past its
// centre may carry its source's end angles with a negative radius), and
// the angle it sweeps from there in its sense of travel; 2 pi for a full
// circle.
double StartAngle(const LI_TAB_STRUCT &e) { return std::atan2(e.ap.y - e.mp.y, e.ap.x - e.mp.x); }

double Sweep(const LI_TAB_STRUCT &e) {
  if (Coincide(e.ap, e.ep)) return 2 * kPi;
  const double a = StartAngle(e), b = std::atan2(e.ep.y - e.mp.y, e.ep.x - e.mp.x);
  double s = e.type == LI_ARC_CW ? a - b : b - a;
  if (s < 0) s += 2 * kPi;
  return s;
}

bool IsArcType(const LI_TAB_STRUCT &e) { return e.type == LI_ARC_CW || e.type == LI_ARC_CCW; }

double SegmentDistance(GE_POINT p, GE_POINT a, GE_POINT b) {
  const double dx = b.x - a.x, dy = b.y - a.y, len2 = dx * dx + dy * dy;
  double u = len2 > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / len2 : 0.0;
  u = std::clamp(u, 0.0, 1.0);
  return std::hypot(p.x - a.x - u * dx, p.y - a.y - u * dy);
}

double ArcDistance(GE_POINT p, const LI_TAB_STRUCT &e) {
  const double r = std::fabs(e.rad);
  const double to_ends =
      std::min(std::hypot(p.x - e.ap.x, p.y - e.ap.y), std::hypot(p.x - e.ep.x, p.y - e.ep.y));
  const double a = std::atan2(p.y - e.mp.y, p.x - e.mp.x);
  double from_start = e.type == LI_ARC_CW ? StartAngle(e) - a : a - StartAngle(e);
  while (from_start < 0) from_start += 2 * kPi;
  while (from_start >= 2 * kPi) from_start -= 2 * kPi;
  if (from_start > Sweep(e)) return to_ends;
  return std::fabs(std::hypot(p.x - e.mp.x, p.y - e.mp.y) - r);
}

double Orient(GE_POINT a, GE_POINT b, GE_POINT c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool ProperCross(GE_POINT a, GE_POINT b, GE_POINT c, GE_POINT d) {
  const double eps = 1e-12;
  const double o1 = Orient(a, b, c), o2 = Orient(a, b, d);
  const double o3 = Orient(c, d, a), o4 = Orient(c, d, b);
  return ((o1 > eps && o2 < -eps) || (o1 < -eps && o2 > eps)) &&
         ((o3 > eps && o4 < -eps) || (o3 < -eps && o4 > eps));
}

}  // namespace

Points Samples(const LI_TAB_STRUCT &e, double step) {
  Points out;
  if (!IsArcType(e)) {
    const double len = std::hypot(e.ep.x - e.ap.x, e.ep.y - e.ap.y);
    const int n = std::max(1, static_cast<int>(std::ceil(len / step)));
    for (int i = 0; i <= n; ++i) {
      const double u = static_cast<double>(i) / n;
      out.push_back({e.ap.x + u * (e.ep.x - e.ap.x), e.ap.y + u * (e.ep.y - e.ap.y)});
    }
    return out;
  }
  const double r = std::fabs(e.rad), sweep = Sweep(e);
  const double sense = e.type == LI_ARC_CW ? -1.0 : 1.0;
  const int n = std::max(1, static_cast<int>(std::ceil(sweep * r / step)));
  for (int i = 0; i <= n; ++i) {
    const double a = StartAngle(e) + sense * sweep * i / n;
    out.push_back({e.mp.x + r * std::cos(a), e.mp.y + r * std::sin(a)});
  }
  return out;
}

Points ChordedPoints(LI_TAB_STRUCT *k, double step) {
  Points out;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    const Points s = Samples(*e, step);
    out.insert(out.end(), out.empty() ? s.begin() : s.begin() + 1, s.end());
  }
  return out;
}

double DistanceToContour(GE_POINT p, LI_TAB_STRUCT *k) {
  double best = HUGE_VAL;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    if (e->type == LI_MOVE) continue;
    best = std::min(best, IsArcType(*e) ? ArcDistance(p, *e) : SegmentDistance(p, e->ap, e->ep));
  }
  return best;
}

double OffsetDeviation(LI_TAB_STRUCT *result, LI_TAB_STRUCT *source, double d) {
  double worst = 0.0;
  for (LI_TAB_STRUCT *e : Elements(result)) {
    for (GE_POINT p : Samples(*e, 0.01))
      worst = std::max(worst, std::fabs(DistanceToContour(p, source) - d));
  }
  return worst;
}

bool CrossesItself(LI_TAB_STRUCT *k) {
  const Points p = ChordedPoints(k, 0.05);
  const size_t n = p.size() - 1;  // chords p[i] -> p[i + 1]
  for (size_t i = 0; i < n; ++i) {
    for (size_t j = i + 2; j < n; ++j) {
      if (i == 0 && j == n - 1) continue;
      if (ProperCross(p[i], p[i + 1], p[j], p[j + 1])) return true;
    }
  }
  return false;
}

int Winding(LI_TAB_STRUCT *k, GE_POINT q) {
  const Points p = ChordedPoints(k, 0.01);
  int w = 0;
  for (size_t i = 0; i + 1 < p.size(); ++i) {
    const GE_POINT a = p[i], b = p[i + 1];
    if (a.y <= q.y) {
      if (b.y > q.y && Orient(a, b, q) > 0) ++w;
    } else if (b.y <= q.y && Orient(a, b, q) < 0) {
      --w;
    }
  }
  return w;
}

testing::AssertionResult VerticesNear(LI_TAB_STRUCT *k, const Points &want, double eps) {
  const Points got = Vertices(k);
  bool same = got.size() == want.size();
  for (size_t i = 0; same && i < got.size(); ++i)
    same = std::fabs(got[i].x - want[i].x) <= eps && std::fabs(got[i].y - want[i].y) <= eps;
  if (same) return testing::AssertionSuccess();
  testing::AssertionResult r = testing::AssertionFailure() << "vertices";
  for (GE_POINT p : got) r << ' ' << p;
  return r;
}

TypeCount CountTypes(LI_TAB_STRUCT *k) {
  TypeCount c;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    if (e->type == LI_LINE) ++c.lines;
    if (e->type == LI_MOVE) ++c.moves;
    if (IsArcType(*e)) ++c.arcs;
  }
  return c;
}

LI_TAB_STRUCT *RandomStar(LI_HEAD *head, unsigned seed, int n, double rmin, double rmax,
                          double arc_share) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> radius(rmin, rmax), jitter(-0.3, 0.3), unit(0.0, 1.0);
  std::vector<GE_POINT> v;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * kPi * (i + 0.5 + jitter(rng)) / n, r = radius(rng);
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
    // An arc sweeping phi from a to b, bulging out (counter-clockwise,
    // centre on the left of a -> b) or in (clockwise, centre on the right).
    const double phi = 0.4 + 0.8 * unit(rng), len = std::hypot(b.x - a.x, b.y - a.y);
    const double t = (len / 2) / std::tan(phi / 2), out = unit(rng) < 0.5 ? 1.0 : -1.0;
    const GE_POINT left{-(b.y - a.y) / len, (b.x - a.x) / len};
    const GE_POINT c{(a.x + b.x) / 2 + out * t * left.x, (a.y + b.y) / 2 + out * t * left.y};
    EXPECT_EQ(LiArc(head, &k, &b, &c, out > 0 ? 0 : 1), PA_OK);
  }
  return k;
}

}  // namespace polyarc_test
