// Test support for crossing lists.
#include "support/crossing_support.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace polyarc_test {

LI_TAB_STRUCT *Chain(LI_HEAD *head, const std::vector<LI_TAB_STRUCT> &elements) {
  LI_TAB_STRUCT *k = nullptr;
  for (const LI_TAB_STRUCT &e : elements) EXPECT_EQ(LiInsertElem2(head, &k, &e), PA_OK);
  return k;
}

LI_TAB_STRUCT *Chain(LI_HEAD *head, std::initializer_list<LI_TAB_STRUCT> elements) {
  return Chain(head, std::vector<LI_TAB_STRUCT>(elements));
}

LI_TAB_STRUCT Move(GE_POINT ap, GE_POINT ep) {
  LI_TAB_STRUCT e = Line(ap, ep);
  e.type = LI_MOVE;
  return e;
}

std::vector<GE_POINT> Shapes::Star(int n, GE_POINT c, double r0, double r1, bool shuffled) {
  const double two_pi = 6.283185307179586;
  std::vector<double> angles;
  for (int i = 0; i < n; ++i) angles.push_back(two_pi * (i + Real(0, 0.5)) / n);
  if (shuffled) std::shuffle(angles.begin(), angles.end(), rng_);
  std::vector<GE_POINT> p;
  for (double t : angles) {
    const double r = Real(r0, r1);
    p.push_back({c.x + r * std::cos(t), c.y + r * std::sin(t)});
  }
  return p;
}

std::vector<GE_POINT> Shapes::GridWalk(int n, int side) {
  std::vector<GE_POINT> p{{double(Int(0, side)), double(Int(0, side))}};
  while (int(p.size()) < n) {
    const GE_POINT last = p.back();
    const GE_POINT next{double(Int(0, side)), double(Int(0, side))};
    if (next == last) continue;
    const int pieces = Int(1, 3);
    for (int k = 1; k <= pieces; ++k) {
      p.push_back(
          {last.x + (next.x - last.x) * k / pieces, last.y + (next.y - last.y) * k / pieces});
    }
  }
  return p;
}

std::vector<LI_TAB_STRUCT> Shapes::Edges(const std::vector<GE_POINT> &p, double arcs, double moves,
                                         double gaps) {
  std::vector<LI_TAB_STRUCT> e;
  for (size_t i = 0; i < p.size(); ++i) {
    GE_POINT from = p[i];
    const GE_POINT to = p[(i + 1) % p.size()];
    if (Chance(gaps)) from = {from.x + Real(-0.1, 0.1), from.y + Real(-0.1, 0.1)};
    if (Chance(moves)) {
      e.push_back(Move(from, to));
    } else if (Chance(arcs)) {
      e.push_back(Bulge(from, to));
    } else {
      e.push_back(Line(from, to));
    }
  }
  return e;
}

// An arc from p to q whose centre lies on the chord's bisector.
LI_TAB_STRUCT Shapes::Bulge(GE_POINT p, GE_POINT q) {
  const GE_POINT m{(p.x + q.x) / 2, (p.y + q.y) / 2};
  const GE_POINT n{-(q.y - p.y), q.x - p.x};
  const double t = Real(-1.5, 1.5);
  return Arc(p, q, {m.x + t * n.x, m.y + t * n.y}, Chance(0.5) ? LI_ARC_CW : LI_ARC_CCW);
}

testing::AssertionResult SameEntries(const GE_CROSS *a, int16_t a_last, const GE_CROSS *b,
                                     int16_t b_last) {
  if (a_last != b_last)
    return testing::AssertionFailure() << "last index " << a_last << " against " << b_last;
  for (int i = 0; i <= a_last; ++i) {
    if (std::memcmp(&a[i], &b[i], sizeof(GE_CROSS)) != 0) {
      return testing::AssertionFailure()
             << "entry " << i << " differs: " << a[i].pt << " against " << b[i].pt;
    }
  }
  return testing::AssertionSuccess();
}

namespace {

struct Building {
  GE_CROSS **list;
  int16_t *last;
  uint16_t capacity = 0;
};

bool Joined(GE_POINT p, GE_POINT q, double tol) {
  return std::fabs(p.x - q.x) < tol && std::fabs(p.y - q.y) < tol;
}

// One pair of the all-pairs loop: the widened box test, GeCross, and the
// points that lie on both elements entered in order.
uint16_t Pair(Building &b, int16_t first, LI_TAB_STRUCT *ea, LI_TAB_STRUCT *eb, double tol) {
  if (ea->type == LI_MOVE || eb->type == LI_MOVE) return PA_OK;
  const double w = 10.0 * tol;
  if (std::max(ea->box.xmin - w, eb->box.xmin) > std::min(ea->box.xmax + w, eb->box.xmax) ||
      std::max(ea->box.ymin - w, eb->box.ymin) > std::min(ea->box.ymax + w, eb->box.ymax))
    return PA_OK;
  IsectPoint i[2]{};
  const uint16_t count = GeCross(ea, eb, &i[0], &i[1]);
  for (int j = 0; j < count; ++j) {
    if (i[j].pos1 > GE_INSIDE || i[j].pos2 > GE_INSIDE) continue;
    if (const uint16_t st = FlNewCross(b.list, &b.capacity, b.last, first, &i[j], ea, eb))
      return st;
  }
  return PA_OK;
}

uint16_t Neighbours(Building &b, LI_TAB_STRUCT *a, int n, double tol) {
  const int16_t first = static_cast<int16_t>(*b.last + 1);
  LI_TAB_STRUCT *e = a;
  for (int step = 0; step < n && Joined(e->ap, e->prev->ep, tol); ++step) e = e->prev;
  for (int remaining = 2 * n + 1; remaining > 0; --remaining) {
    if (const uint16_t st = Pair(b, first, a, e, tol)) return st;
    if (!Joined(e->ep, e->next->ap, tol)) break;
    e = e->next;
  }
  return PA_OK;
}

uint16_t AllPairs(Building &b, LI_TAB_STRUCT *a, LI_TAB_STRUCT *other, int n) {
  const double tol = GeEpsiGetTol();
  const std::vector<LI_TAB_STRUCT *> others = Elements(other);
  for (LI_TAB_STRUCT *ea : Elements(a)) {
    if (ea->type == LI_MOVE) continue;
    if (n > 0) {
      if (const uint16_t st = Neighbours(b, ea, n, tol)) return st;
      continue;
    }
    const int16_t first = static_cast<int16_t>(*b.last + 1);
    for (LI_TAB_STRUCT *eb : others) {
      if (const uint16_t st = Pair(b, first, ea, eb, tol)) return st;
    }
  }
  return PA_OK;
}

}  // namespace

uint16_t AllPairsCrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, GE_CROSS **list, int16_t *last) {
  *last = FL_EMPTY;
  if (a == nullptr) return PA_OK;
  Building building{list, last};
  const bool self = b == nullptr || b == a;
  const uint16_t st = AllPairs(building, a, self ? a : b, 0);
  if (st != PA_OK || self) return st;
  const double tol = GeEpsiGetTol();
  if (*last > 0 && !Joined((*list)[0].pt, a->ap, tol)) return st;
  while (*last > 0 && Joined((*list)[*last].pt, (*list)[0].pt, tol)) --*last;
  return st;
}

uint16_t AllPairsCrossListSingle(LI_TAB_STRUCT *k, GE_CROSS **list, int16_t *last, int16_t n) {
  *last = FL_EMPTY;
  if (k == nullptr) return PA_OK;
  Building building{list, last};
  return AllPairs(building, k, k, n);
}

}  // namespace polyarc_test
