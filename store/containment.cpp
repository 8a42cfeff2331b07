// Containment: whether a point lies inside, on or outside a contour (the
// walk that adds up the angle the contour turns round it), and whether one
// contour lies inside another, by its vertices and then by its pieces
// between crossings. The contour tests answer most vertices from a winding
// tree over the outer contour and walk only for the rest.
#include <cmath>
#include <new>
#include <optional>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"
#include "store/winding_tree.h"

namespace polyarc {
namespace {

// A pending straight run of the walk: its start vector, angle and side.
struct Run {
  bool pending = false;
  GE_POINT a0{};
  double alpha0 = 0.0;
  int side = 0;
};

// A line joins the run while the point stays farther than tol from the
// run's chord, on the same side.
bool Joins(const Run &run, GE_POINT b, double tol) {
  const double chord = Dist(run.a0, b);
  const double z = Cross(run.a0, b);
  return chord > tol && std::fabs(z) > chord * tol && run.side * z >= 0.0;
}

// The turn of a closed run, from its start vector to a.
double RunTurn(const Run &run, GE_POINT a) {
  const double beta = Angle(a);
  return run.side * SweepOnce(run.side > 0 ? beta - run.alpha0 : run.alpha0 - beta);
}

uint16_t PointInCircle(const LI_TAB_STRUCT &c, GE_POINT p, double tol) {
  const double d = Dist(p, c.mp);
  if (std::fabs(d - c.rad) < tol) return LI_PT_ON;
  return c.rad > d ? LI_PT_INSIDE : LI_PT_OUTSIDE;
}

// The turn of an element that is not part of a straight run, from a (at
// angle alpha) to b, its chord's ends seen from p; side is p's side of
// the chord. Sets on when p lies on the element.
double ElementTurn(const LI_TAB_STRUCT &e, GE_POINT p, double alpha, GE_POINT b, int side,
                   double tol, bool &on) {
  if (side == 0) {
    const double len = Dist(e.ap, e.ep);
    const double q = Dot(p - e.ap, e.ep - e.ap) / len;
    if (!(0.0 < q && q < len)) return 0.0;
    on = IsLine(e);
    return e.type == LI_ARC_CCW ? kPi : -kPi;
  }
  double turn = side * SweepOnce(side > 0 ? Angle(b) - alpha : alpha - Angle(b));
  const int bulge = e.type == LI_ARC_CCW ? -1 : 1;
  if (side == bulge) {
    // Between the arc and its chord the arc passes round the point the
    // long way.
    const double inside = e.rad - Dist(p, e.mp);
    if (std::fabs(inside) < tol) on = true;
    if (inside > 0.0) turn -= side * kTwoPi;
  }
  return turn;
}

// The state of the walk round one point.
struct Walk {
  Walk(GE_POINT point, double tolerance, GE_POINT start) : p(point), tol(tolerance) {
    MoveOn(start - p);
  }

  GE_POINT p;
  double tol;
  double sum = 0.0;
  GE_POINT a{};
  double alpha = 0.0;
  Run run;

  void MoveOn(GE_POINT b) {
    a = b;
    alpha = Angle(b);
  }

  // One element; true when p lies on it. A line that joins a run, or
  // starts one, still moves a on to its end, so that a row split into many
  // pieces turns as the whole row does; an element whose chord is not
  // longer than tol is skipped without moving a (a full circle inside a
  // longer contour is skipped too).
  bool Step(const LI_TAB_STRUCT &e) {
    const GE_POINT b = e.ep - p;
    if (std::fabs(b.x) < tol && std::fabs(b.y) < tol) return true;
    if (run.pending && IsLine(e) && Joins(run, b, tol)) {
      MoveOn(b);
      return false;
    }
    if (run.pending) {
      sum += RunTurn(run, a);
      run.pending = false;
    }
    const double len = Dist(e.ap, e.ep);
    if (len <= tol) return false;
    const double h = Cross(a, b) / len;
    const int side = h > tol ? 1 : h < -tol ? -1 : 0;
    bool on = false;
    if (IsLine(e) && side != 0) {
      run = {true, a, alpha, side};
    } else {
      sum += ElementTurn(e, p, alpha, b, side, tol, on);
    }
    MoveOn(b);
    return on;
  }
};

uint16_t WalkPointIn(const LI_TAB_STRUCT *k, GE_POINT p) {
  const double tol = Tol();
  if (k != nullptr && k->next == k && IsArc(*k) && CoincidePerAxis(k->ap, k->ep, tol))
    return PointInCircle(*k, p, tol);
  if (k == nullptr) return LI_PT_OUTSIDE;
  if (CoincidePerAxis(p, k->ap, tol)) return LI_PT_ON;
  Walk walk(p, tol, k->ap);
  const LI_TAB_STRUCT *e = k;
  do {
    if (walk.Step(*e)) return LI_PT_ON;
    e = e->next;
  } while (e != k);
  if (walk.run.pending) walk.sum += RunTurn(walk.run, walk.a);
  return std::fabs(walk.sum) >= kPi ? LI_PT_INSIDE : LI_PT_OUTSIDE;
}

// A point on the closing gap of an open contour counts as on it.
uint16_t OnClosingGap(const LI_TAB_STRUCT *k, GE_POINT p, uint16_t r) {
  if (r != LI_PT_OUTSIDE || k == nullptr || k->prev == k) return r;
  const double tol = Tol();
  const GE_POINT e = k->prev->ep, s = k->ap;
  const double len = Dist(e, s);
  if (len <= tol) return r;
  const GE_POINT u{(s.x - e.x) / len, (s.y - e.y) / len};
  const double t = Dot(u, p - e);
  if (std::fabs(Cross(u, p - e)) <= tol && 0.0 < t && t < len) return LI_PT_ON;
  return r;
}

// The outer contour of the contour tests: points clearly away from a closed
// contour are answered from its winding tree, the others by the walk. The
// answers are the walk's either way. Without memory for the tree every
// point is walked.
class Outer {
 public:
  explicit Outer(const LI_TAB_STRUCT *k) : k_(k) {
    if (k == nullptr || k->next == k || !CoincidePerAxis(k->prev->ep, k->ap, Tol())) return;
    try {
      tree_.emplace(k, Tol());
    } catch (const std::bad_alloc &) {
      tree_.reset();
    }
  }

  uint16_t PointIn(GE_POINT p) const {
    if (tree_) {
      const WindingTree::Answer answer = tree_->Locate(p);
      if (answer == WindingTree::Answer::kInside) return LI_PT_INSIDE;
      if (answer == WindingTree::Answer::kOutside) return LI_PT_OUTSIDE;
    }
    return WalkPointIn(k_, p);
  }

  uint16_t PtInKontClosedGap(GE_POINT p) const { return OnClosingGap(k_, p, PointIn(p)); }

 private:
  const LI_TAB_STRUCT *k_;
  std::optional<WindingTree> tree_;
};

int KontInKont(const LI_TAB_STRUCT *inner, const Outer &outer) {
  const LI_TAB_STRUCT *e = inner;
  do {
    if (outer.PointIn(e->ap) == LI_PT_OUTSIDE) return 0;
    e = e->next;
  } while (e != inner);
  const GE_POINT end = inner->prev->ep;
  if (!CoincidePerAxis(end, inner->ap, Tol())) return outer.PointIn(end) != LI_PT_OUTSIDE ? 1 : 0;
  return 1;
}

// The point halfway along the counter-clockwise arc about centre from a to
// b; the antipode of a when a and b coincide (a full circle).
GE_POINT ArcMidPoint(GE_POINT centre, GE_POINT a, GE_POINT b) {
  const double tol = Tol();
  const bool apart = std::fabs(a.x - b.x) >= tol || std::fabs(a.y - b.y) >= tol;
  const double direction = apart ? Angle(b - a) - kHalfPi : Angle(centre - a);
  return Polar(centre, std::hypot(a.x - centre.x, a.y - centre.y), direction);
}

// Whether the piece of e from `from` to `to` lies in outer, by a point
// halfway along it. A piece shorter than tol per axis passes.
bool PieceInside(const LI_TAB_STRUCT &e, GE_POINT from, GE_POINT to, const Outer &outer) {
  if (CoincidePerAxis(from, to, Tol())) return true;
  GE_POINT test{};
  if (IsLine(e)) {
    test = {(from.x + to.x) * 0.5, (from.y + to.y) * 0.5};
  } else {
    test = e.type == LI_ARC_CCW ? ArcMidPoint(e.mp, from, to) : ArcMidPoint(e.mp, to, from);
  }
  return outer.PtInKontClosedGap(test) != LI_PT_OUTSIDE;
}

// The pieces of the crossed elements of the inner contour between the
// crossings of the list, which follows the inner contour.
bool PiecesInside(const GE_CROSS *list, int last, const Outer &outer) {
  const LI_TAB_STRUCT *current = nullptr;
  GE_POINT from{};
  for (int i = 0; i <= last; ++i) {
    const LI_TAB_STRUCT *e = list[i].elem_a;
    if (e != current) {
      if (current != nullptr && !PieceInside(*current, from, current->ep, outer)) return false;
      if (!PieceInside(*e, e->ap, list[i].pt, outer)) return false;
    } else if (!PieceInside(*e, from, list[i].pt, outer)) {
      return false;
    }
    current = e;
    from = list[i].pt;
  }
  return current == nullptr || PieceInside(*current, from, current->ep, outer);
}

bool BoxesNest(GE_POINT imin, GE_POINT imax, GE_POINT omin, GE_POINT omax, double tol) {
  return !(omin.x - tol > imin.x || omax.x + tol < imax.x || omin.y - tol > imin.y ||
           omax.y + tol < imax.y);
}

// The crossings of inner with outer, each on the piece of inner that
// carries it; a list that cannot be made counts as no crossing.
int ExactInKont(const LI_TAB_STRUCT *inner, const LI_TAB_STRUCT *outer, const Outer &o) {
  if (KontInKont(inner, o) == 0) return 0;
  GE_CROSS *list = nullptr;
  int16_t last = FL_EMPTY;
  const uint16_t st = FlCrossList(const_cast<LI_TAB_STRUCT *>(inner),
                                  const_cast<LI_TAB_STRUCT *>(outer), &list, &last);
  int result = 1;
  for (int i = 0; st == PA_OK && i <= last && result == 1; ++i) {
    LI_TAB_STRUCT *e = nullptr;
    if (FlSeekPt(list[i].elem_a, &list[i].pt, &e) != PA_OK) result = 0;
    list[i].elem_a = e;
  }
  if (st == PA_OK && result == 1) result = PiecesInside(list, last, o) ? 1 : 0;
  FlFreeCross(&list);
  return result;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiPointInKont(const LI_TAB_STRUCT *k, const GE_POINT *p) {
  if (p == nullptr) return LI_PT_OUTSIDE;
  return WalkPointIn(k, *p);
}

extern "C" int LiKontInKont(const LI_TAB_STRUCT *inner, const LI_TAB_STRUCT *outer) {
  if (inner == nullptr) return 0;
  return KontInKont(inner, Outer(outer));
}

extern "C" int LiKontExactInKont(const LI_TAB_STRUCT *inner, const LI_TAB_STRUCT *outer,
                                 const GE_POINT *inner_min, const GE_POINT *inner_max,
                                 const GE_POINT *outer_min, const GE_POINT *outer_max) {
  if (inner == nullptr || inner_min == nullptr || inner_max == nullptr || outer_min == nullptr ||
      outer_max == nullptr)
    return 0;
  if (!BoxesNest(*inner_min, *inner_max, *outer_min, *outer_max, Tol())) return 0;
  return ExactInKont(inner, outer, Outer(outer));
}
