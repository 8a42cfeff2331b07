// Seeded star rings, their polyarc contours and their chorded copies.
#include "shapes.h"

#include <cmath>
#include <random>

#include "polyarc/li.h"

namespace bench {
namespace {

struct ArcGeometry {
  Point centre;
  double radius = 0, start = 0, sweep = 0;  // sweep signed: + counter-clockwise
};

ArcGeometry ArcOf(const Vertex &p, const Vertex &q) {
  const double dx = q.x - p.x, dy = q.y - p.y, chord = std::hypot(dx, dy);
  // The centre lies on the chord's bisector, chord (1 - b^2) / (4 b) to the left.
  const double d = chord * (1 - p.bulge * p.bulge) / (4 * p.bulge);
  ArcGeometry a;
  a.centre = {(p.x + q.x) / 2 - dy / chord * d, (p.y + q.y) / 2 + dx / chord * d};
  a.radius = std::hypot(p.x - a.centre.x, p.y - a.centre.y);
  a.start = std::atan2(p.y - a.centre.y, p.x - a.centre.x);
  a.sweep = 4 * std::atan(p.bulge);
  return a;
}

}  // namespace

Ring Star(const StarSpec &star) {
  std::mt19937 rng(star.seed);
  std::uniform_real_distribution<> unit(0.0, 1.0);
  const double r0 = star.n / kTwoPi;
  Ring ring(star.n);
  for (int i = 0; i < star.n; ++i) {
    const double t = star.phase + kTwoPi * i / star.n;
    const double r =
        r0 * (1 + star.lobes * std::sin(5 * t)) - star.shrink + star.noise * unit(rng);
    ring[i] = {r * std::cos(t), r * std::sin(t), 0};
  }
  return ring;
}

void AddArcs(Ring &ring, int every, double rel) {
  // A sagitta of rel x chord is a bulge of 2 rel.
  for (size_t i = 0; i < ring.size(); i += every) ring[i].bulge = (i / every) % 2 ? -2 * rel : 2 * rel;
}

Polyline Chorded(const Ring &ring) {
  Polyline out;
  out.reserve(ring.size());
  for (size_t i = 0; i < ring.size(); ++i) {
    const Vertex &p = ring[i], &q = ring[(i + 1) % ring.size()];
    out.push_back({p.x, p.y});
    if (p.bulge == 0) continue;
    const ArcGeometry a = ArcOf(p, q);
    const double step = 2 * std::acos(1 - kChordSagitta / a.radius);
    const int pieces = int(std::ceil(std::abs(a.sweep) / step));
    for (int j = 1; j < pieces; ++j) {
      const double t = a.start + a.sweep * j / pieces;
      out.push_back({a.centre.x + a.radius * std::cos(t), a.centre.y + a.radius * std::sin(t)});
    }
  }
  return out;
}

LI_TAB_STRUCT *Contour(LI_HEAD *head, const Ring &ring) {
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT first{ring[0].x, ring[0].y};
  LiMove(head, &k, &first);
  for (size_t i = 0; i < ring.size(); ++i) {
    const Vertex &p = ring[i], &q = ring[(i + 1) % ring.size()];
    const GE_POINT to{q.x, q.y};
    if (p.bulge == 0) {
      LiDraw(head, &k, &to);
    } else {
      const ArcGeometry a = ArcOf(p, q);
      const GE_POINT centre{a.centre.x, a.centre.y};
      LiArc(head, &k, &to, &centre, p.bulge > 0 ? 0 : 1);
    }
  }
  return k;
}

double Area(const Polyline &p) {
  double twice = 0;
  for (size_t i = 0, j = p.size() - 1; i < p.size(); j = i++)
    twice += p[j].x * p[i].y - p[i].x * p[j].y;
  return twice / 2;
}

double Length(const Polyline &p) {
  double sum = 0;
  for (size_t i = 0, j = p.size() - 1; i < p.size(); j = i++)
    sum += std::hypot(p[i].x - p[j].x, p[i].y - p[j].y);
  return sum;
}

double Area(LI_TAB_STRUCT *const *loops, int last) {
  double sum = 0;
  for (int i = 0; i <= last; ++i) sum += LiKontArea(loops[i]);
  return sum;
}

double Length(LI_TAB_STRUCT *const *loops, int last) {
  double sum = 0;
  for (int i = 0; i <= last; ++i) sum += LiKontLen(loops[i]);
  return sum;
}

bool AllClosed(LI_TAB_STRUCT *const *loops, int last) {
  for (int i = 0; i <= last; ++i)
    if (LiTestClosed(loops[i]) != 1) return false;
  return last >= 0;
}

double AreaBound(double length, double sagitta, double area) {
  return sagitta * length + 1e-9 * std::abs(area);
}

}  // namespace bench
