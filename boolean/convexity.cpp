// Making contours convex: the test whether a joint turns against the
// contour's orientation, flattening of inward arcs into their chords, and
// the bridge of a concave joint along the common outer tangent.
#include <cmath>
#include <initializer_list>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

constexpr int16_t kClockwise = -1;
constexpr int16_t kCounterClockwise = 1;

// An arc that bulges into a contour of this orientation.
bool BulgesInwards(const LI_TAB_STRUCT &e, int16_t orient) {
  return (orient == kCounterClockwise && e.type == LI_ARC_CW) ||
         (orient == kClockwise && e.type == LI_ARC_CCW);
}

bool TurnsAgainst(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &f, int16_t orient) {
  if (BulgesInwards(f, orient)) return true;
  const double turn = Cross(e.tan_ep, f.tan_ap);
  // A turn below the tolerance spread over f still counts as straight on;
  // a degenerate f cannot turn at all.
  const double size = IsArc(f) ? f.rad : f.ang_ep - f.ang_ap;
  if (!(size > 0.0)) return false;
  const double h = Tol() / size;
  if (orient == kClockwise) return turn > h;
  if (orient == kCounterClockwise) return turn < -h;
  return false;
}

uint16_t FlattenInwardArcs(LI_TAB_STRUCT *k, int16_t orient, uint32_t &changed) {
  LI_TAB_STRUCT *e = k;
  do {
    if (BulgesInwards(*e, orient)) {
      e->type = LI_LINE;
      changed = 1;
      if (const uint16_t status = LiElemExpand(e); status != PA_OK) return status;
    }
    e = e->next;
  } while (e != k);
  return PA_OK;
}

// The foot of centre on the line n.p = c.
GE_POINT Foot(GE_POINT centre, GE_POINT n, double c) { return centre - (Dot(n, centre) - c) * n; }

struct Tangent {
  GE_POINT n;
  double c;
};

// Touching points of the tangent on the elements taken as circles; the
// tangent fits when each lies on its own element.
bool TangentFits(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &f, bool e_circle, bool f_circle,
                 Tangent t, GE_POINT &t1, GE_POINT &t2) {
  const GE_POINT p1 = e_circle ? Foot(e.mp, t.n, t.c) : t1;
  const GE_POINT p2 = f_circle ? Foot(f.mp, t.n, t.c) : t2;
  if (e_circle && GePtOnElem(&e, &p1) == 0) return false;
  if (f_circle && GePtOnElem(&f, &p2) == 0) return false;
  t1 = p1;
  t2 = p2;
  return true;
}

uint16_t OuterTangent(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &f, bool e_circle, bool f_circle,
                      GE_POINT &t1, GE_POINT &t2) {
  if (!e_circle) t1 = e.ap;
  if (!f_circle) t2 = f.ep;
  if (!e_circle && !f_circle) return PA_OK;
  const GE_POINT c1 = e_circle ? e.mp : t1;
  const GE_POINT c2 = f_circle ? f.mp : t2;
  const double r1 = e_circle ? e.rad : 0.0;
  const double r2 = f_circle ? f.rad : 0.0;
  Tangent first{}, second{};
  if (const uint16_t status =
          GeCirCirTan(&c1, r1, &c2, r2, 0, &first.n, &first.c, &second.n, &second.c);
      status != PA_OK)
    return status;
  if (TangentFits(e, f, e_circle, f_circle, first, t1, t2)) return PA_OK;
  return TangentFits(e, f, e_circle, f_circle, second, t1, t2) ? PA_OK : PA_IMPOSSIBLE;
}

// The variants in order: both arcs as circles, e as its start point, f as
// its end point, both as points. Lines are always points.
int16_t SeekTangent(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &f, GE_POINT &t1, GE_POINT &t2) {
  const bool e_arc = IsArc(e), f_arc = IsArc(f);
  if (OuterTangent(e, f, e_arc, f_arc, t1, t2) == PA_OK) return PA_OK;
  if (e_arc && OuterTangent(e, f, false, f_arc, t1, t2) == PA_OK) return PA_OK;
  if (f_arc && OuterTangent(e, f, e_arc, false, t1, t2) == PA_OK) return PA_OK;
  if (!e_arc || !f_arc) return PA_IMPOSSIBLE;
  return OuterTangent(e, f, false, false, t1, t2) == PA_OK ? PA_OK : PA_IMPOSSIBLE;
}

uint16_t ExpandAll(std::initializer_list<LI_TAB_STRUCT *> elements) {
  for (LI_TAB_STRUCT *e : elements)
    if (const uint16_t status = LiElemExpand(e); status != PA_OK) return status;
  return PA_OK;
}

void MakeLine(LI_TAB_STRUCT *e, GE_POINT a, GE_POINT b) {
  e->type = LI_LINE;
  e->ap = a;
  e->ep = b;
}

// The bridge t1-t2 replaces the concave stretch from t1 on e to t2 on f.
uint16_t Bridge(LI_HEAD *head, LI_TAB_STRUCT **k, LI_TAB_STRUCT *e, GE_POINT t1, GE_POINT t2) {
  LI_TAB_STRUCT *f = e->next;
  const double tol = Tol();
  const bool t1_inside = !CoincidePerAxis(t1, e->ap, tol);
  const bool t2_at_end = CoincidePerAxis(t2, f->ep, tol);
  if (t2_at_end && t1_inside) {
    e->ep = t1;
    MakeLine(f, t1, t2);
    return ExpandAll({f, e});
  }
  if (t2_at_end) {
    LiDel(head, k, f);
    MakeLine(e, e->ap, t2);
    return ExpandAll({e});
  }
  if (t1_inside) {
    LI_TAB_STRUCT *n = nullptr;
    if (const uint16_t status = LiNew(head, &n); status != PA_OK) return status;
    SpliceAfter(e, n);
    MakeLine(n, t1, t2);
    e->ep = t1;
    f->ap = t2;
    return ExpandAll({n, e, f});
  }
  MakeLine(e, t1, t2);
  f->ap = t2;
  return ExpandAll({e, f});
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlTestKonvex(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f, int16_t orient,
                                 uint32_t *convex) {
  if (e == nullptr || f == nullptr || convex == nullptr) return PA_INVALID;
  *convex = TurnsAgainst(*e, *f, orient) ? 0 : 1;
  return PA_OK;
}

extern "C" uint16_t FlRemBogKonk(LI_TAB_STRUCT *k, uint16_t orient, uint32_t *changed) {
  if (changed == nullptr) return PA_INVALID;
  *changed = 0;
  if (k == nullptr) return PA_OK;
  return FlattenInwardArcs(k, static_cast<int16_t>(orient), *changed);
}

extern "C" uint16_t FlKonnKonvex(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f, int32_t e_circle,
                                 int32_t f_circle, GE_POINT *t1, GE_POINT *t2) {
  if (e == nullptr || f == nullptr || t1 == nullptr || t2 == nullptr) return PA_INVALID;
  return OuterTangent(*e, *f, e_circle != 0, f_circle != 0, *t1, *t2);
}

extern "C" int16_t FlSeekKon(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f, GE_POINT *t1,
                             GE_POINT *t2) {
  if (e == nullptr || f == nullptr || t1 == nullptr || t2 == nullptr) return PA_IMPOSSIBLE;
  return SeekTangent(*e, *f, *t1, *t2);
}

extern "C" uint16_t FlRemKonkav(LI_HEAD *head, LI_TAB_STRUCT **k, LI_TAB_STRUCT *e) {
  if (head == nullptr || k == nullptr || *k == nullptr || e == nullptr) return PA_INVALID;
  if (e->next == e) return PA_IMPOSSIBLE;
  GE_POINT t1{}, t2{};
  if (const int16_t status = SeekTangent(*e, *e->next, t1, t2); status != PA_OK)
    return static_cast<uint16_t>(status);
  return Bridge(head, k, e, t1, t2);
}
