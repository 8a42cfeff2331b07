// Classification of the crossings of a split crossing list: how B passes A
// at each crossing (mode, side, rev), removal of repeated and mirrored
// entries, resolution of overlaps, and the snapping of element ends onto
// the crossing points.
#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "boolean/crossing_list.h"
#include "geom/predicates.h"
#include "platform/memory.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// Two unit tangents with a dot product beyond this run roughly the same
// way (or, negated, against each other): within 60 degrees.
constexpr double kAlongCosine = 0.5;
constexpr uint16_t kSideLeft = 1;
constexpr uint16_t kSideRight = 65535;

bool IsVoid(const GE_CROSS &c) { return c.mode == FL_MODE_VOID; }

void Classify(GE_CROSS &c, uint16_t mode, int side, uint32_t rev) {
  c.mode = mode;
  c.side = side < 0 ? kSideRight : static_cast<uint16_t>(side);
  c.rev = rev;
}

void MakeVoid(GE_CROSS &c) { Classify(c, FL_MODE_VOID, 0, 0); }

bool SamePoint(const GE_CROSS &a, const GE_CROSS &b, double tol) {
  return CoincidePerAxis(a.pt, b.pt, tol);
}

// ---- One crossing ----------------------------------------------------------

constexpr bool kArriving = true, kLeaving = false;

// The element one step further away from the crossing than e: the one
// before an arriving half, the one after a leaving half.
const LI_TAB_STRUCT *Beyond(const LI_TAB_STRUCT *e, bool arriving) {
  return arriving ? e->prev : e->next;
}

// Where a half of a crossing leads away from it: the start of the element
// that arrives, the end of the one that leaves.
GE_POINT FarEnd(const LI_TAB_STRUCT *e, bool arriving) { return arriving ? e->ap : e->ep; }

// Whether f comes back past pt: its point nearest pt lies within tol of
// it (per axis, as the crossing list merges points) and not within tol of
// f's far end (f has no joint there, so no crossing of the list sits on
// that passage), and pt lies ahead of f's joint with the detour along f:
// f heads back towards pt, however near that joint its nearest point is
// when the detour is only a tol or two long.
bool PassesBy(const LI_TAB_STRUCT *f, bool arriving, GE_POINT pt, double tol) {
  GE_POINT nearest{};
  double dist = 0.0;
  GePtElemDist(f, &pt, &nearest, &dist);
  const GE_POINT joint = arriving ? f->ep : f->ap;
  const GE_POINT far = arriving ? f->ap : f->ep;
  const GE_POINT away = arriving ? -f->tan_ep : f->tan_ap;
  return CoincidePerAxis(nearest, pt, tol) && !CoincidePerAxis(nearest, far, tol) &&
         Dot(pt - joint, away) > 0.0;
}

// The element that stands for a half of one contour at pt. When the half
// is a detour of less than kReachTols x tol whose next element away from
// pt comes back past pt, the crossing list has merged the other contour's
// passage across that element into this crossing (its point lies within
// tol of pt): the detour's own direction would miss it, and a tip a few
// tol long past a vertex of the other contour would turn B's side round.
// The element beyond then stands for the half, as often as that repeats.
// The walk never steps onto `stop` (the contour's other half), onto a
// move, or round to where it began.
const LI_TAB_STRUCT *StandIn(const LI_TAB_STRUCT *own, bool arriving, const LI_TAB_STRUCT *stop,
                             GE_POINT pt, double tol) {
  const LI_TAB_STRUCT *e = own;
  for (;;) {
    const LI_TAB_STRUCT *f = Beyond(e, arriving);
    if (f == nullptr || f == own || f == stop || f->type == LI_MOVE ||
        !CoincideByDistance(FarEnd(e, arriving), pt, kReachTols * tol) ||
        !PassesBy(f, arriving, pt, tol))
      return e;
    e = f;
  }
}

// The crossing point and the elements that stand for its four halves:
// elem_a, next_a, elem_b and next_b, or the elements beyond them.
struct Halves {
  GE_POINT pt;
  const LI_TAB_STRUCT *a_in, *a_out, *b_in, *b_out;
};

// A half of A and a half of B that lead to one point away from the
// crossing, each within tol of the chord between, run together within the
// tolerance whatever angle their tangents make. Snapping joints onto two
// crossings a few tol apart leaves such pairs; their tangents still come
// from the old carriers and would split one passage into a crossing and
// a touch.
bool RunTogether(GE_POINT pt, const LI_TAB_STRUCT *a, bool a_arriving, const LI_TAB_STRUCT *b,
                 bool b_arriving) {
  const double tol = Tol();
  const GE_POINT far_a = FarEnd(a, a_arriving);
  return !CoincidePerAxis(far_a, pt, tol) && CoincidePerAxis(far_a, FarEnd(b, b_arriving), tol) &&
         Sagitta(*a) + Sagitta(*b) < tol;
}

// Whether the other contour's half on the same side of the crossing (its
// arriving half for an arriving one) runs together with half: the other
// contour goes along that detour in the same sense to its far end, where
// its passage has an entry of its own, so nothing was merged into this
// one.
bool Followed(GE_POINT pt, const LI_TAB_STRUCT *half, bool arriving, const LI_TAB_STRUCT *in,
              const LI_TAB_STRUCT *out) {
  return RunTogether(pt, half, arriving, arriving ? in : out, arriving);
}

Halves TakeHalves(const GE_CROSS &c) {
  Halves h{c.pt, c.elem_a, c.next_a, c.elem_b, c.next_b};
  if (!h.a_in || !h.a_out || !h.b_in || !h.b_out) return h;
  const double tol = Tol();
  const Halves own = h;
  const auto stand_in = [&](const LI_TAB_STRUCT *half, bool arriving, const LI_TAB_STRUCT *stop,
                            const LI_TAB_STRUCT *in, const LI_TAB_STRUCT *out) {
    return Followed(c.pt, half, arriving, in, out) ? half
                                                   : StandIn(half, arriving, stop, c.pt, tol);
  };
  h.a_in = stand_in(own.a_in, kArriving, own.a_out, own.b_in, own.b_out);
  h.a_out = stand_in(own.a_out, kLeaving, h.a_in, own.b_in, own.b_out);
  h.b_in = stand_in(own.b_in, kArriving, own.b_out, own.a_in, own.a_out);
  h.b_out = stand_in(own.b_out, kLeaving, h.b_in, own.a_in, own.a_out);
  return h;
}

struct Tangents {
  GE_POINT a_in, a_out, b_in, b_out;
};

uint16_t TakeTangents(const Halves &h, Tangents &t) {
  const std::pair<const LI_TAB_STRUCT *, GE_POINT *> take[] = {
      {h.a_in, &t.a_in}, {h.a_out, &t.a_out}, {h.b_in, &t.b_in}, {h.b_out, &t.b_out}};
  for (const auto &[e, out] : take) {
    if (const uint16_t status = GePtElemTan(e, &h.pt, out); status != PA_OK) return status;
  }
  return PA_OK;
}

// The side (-1, 0, +1) on which two touching elements part, or nothing
// when they do not touch.
std::optional<int> TanSide(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, int32_t sum) {
  uint16_t side = 0;
  if (GeTanSide(e1, e2, &side, sum) != PA_OK) return std::nullopt;
  return side == kSideRight ? -1 : side;
}

// The side on which a half of B parts from a half of A that it runs along:
// 0 when they run together or touch without parting; nothing when they
// neither run together nor touch.
std::optional<int> AlongSide(GE_POINT pt, const LI_TAB_STRUCT *a, bool a_arriving,
                             const LI_TAB_STRUCT *b, bool b_arriving, int32_t sum) {
  if (RunTogether(pt, a, a_arriving, b, b_arriving)) return 0;
  return TanSide(a, b, sum);
}

// What is known of how B arrives (in) and leaves (out); a side is unset
// until a tangency or the angular fallback settles it.
struct Sides {
  std::optional<int> in, out;
  uint32_t rev = 0;      // B arrives along A against A's direction
  uint32_t out_rev = 0;  // B leaves along A against A's direction
};

// A folds back on itself at the crossing: B's halves count as lying on the
// side opposite the fold's own, unless they run along A.
Sides FoldBackSides(const Halves &h, const Tangents &t, int fold) {
  Sides s{-fold, -fold};
  if (Dot(t.b_in, t.a_in) > kAlongCosine &&
      AlongSide(h.pt, h.a_in, kArriving, h.b_in, kArriving, 0) == 0) {
    s.in = 0;
  } else if (Dot(t.b_in, t.a_out) < -kAlongCosine &&
             AlongSide(h.pt, h.a_out, kLeaving, h.b_in, kArriving, 1) == 0) {
    s.in = 0;
    s.rev = 1;
  }
  if (Dot(t.b_out, t.a_out) > kAlongCosine &&
      AlongSide(h.pt, h.a_out, kLeaving, h.b_out, kLeaving, 0) == 0) {
    s.out = 0;
  } else if (Dot(t.b_out, t.a_in) < -kAlongCosine &&
             AlongSide(h.pt, h.a_in, kArriving, h.b_out, kLeaving, 1) == 0) {
    s.out = 0;
    s.out_rev = 1;
  }
  return s;
}

// The sides of B's halves where they touch A's halves tangentially.
Sides TangentSides(const Halves &h, const Tangents &t) {
  Sides s;
  if (Dot(t.b_in, t.a_in) > kAlongCosine) {
    s.in = AlongSide(h.pt, h.a_in, kArriving, h.b_in, kArriving, 0);
  }
  if (!s.in && Dot(t.b_in, t.a_out) < -kAlongCosine) {
    s.in = AlongSide(h.pt, h.a_out, kLeaving, h.b_in, kArriving, 1);
    if (s.in == 0) s.rev = 1;
  }
  if (Dot(t.b_out, t.a_out) > kAlongCosine) {
    s.out = AlongSide(h.pt, h.a_out, kLeaving, h.b_out, kLeaving, 0);
  }
  if (!s.out && Dot(t.b_out, t.a_in) < -kAlongCosine) {
    s.out = AlongSide(h.pt, h.a_in, kArriving, h.b_out, kLeaving, 1);
    if (s.out == 0) s.out_rev = 1;
  }
  return s;
}

// The clockwise angle from the backward arrival direction back to d, in
// [0, 2pi); a direction that runs straight back along A counts as 0.
double AngleFromBack(GE_POINT back, GE_POINT d) {
  if (Dot(d, back) > kAlongCosine && std::fabs(Cross(back, d)) < kParallelSine) return 0.0;
  return SweepOnce(Angle(back) - Angle(d));
}

// Settles the sides no tangency decided: a direction met before A's way
// out, turning clockwise from the way A came, lies on A's left.
void AngularFallback(const Tangents &t, Sides &s) {
  const GE_POINT back = -t.a_in;
  const double out = AngleFromBack(back, t.a_out);
  if (!s.in) s.in = out > AngleFromBack(back, -t.b_in) ? 1 : -1;
  if (!s.out) s.out = out > AngleFromBack(back, t.b_out) ? 1 : -1;
}

void Decide(GE_CROSS &c, const Sides &s) {
  const int in = *s.in;
  const int out = *s.out;
  if (in == out) return MakeVoid(c);  // a touch, or along A on both halves
  if (in == 0) return Classify(c, s.rev > 0 ? FL_MODE_JOIN : FL_MODE_LEAVE, out, s.rev);
  if (out != 0) return Classify(c, FL_MODE_CROSS, 0, 0);
  Classify(c, s.out_rev == 0 ? FL_MODE_JOIN : FL_MODE_LEAVE, in, s.out_rev);
}

uint16_t SetModeSideRev(GE_CROSS &c) {
  const Halves h = TakeHalves(c);
  Tangents t{};
  if (const uint16_t status = TakeTangents(h, t); status != PA_OK) {
    MakeVoid(c);
    return status;
  }
  if (Dot(t.a_out, t.a_in) < -kAlongCosine) {
    if (const std::optional<int> fold = TanSide(h.a_in, h.a_out, 1)) {
      // A runs straight back on itself: no side to tell B's halves apart.
      if (*fold == 0) {
        MakeVoid(c);
        return PA_IMPOSSIBLE;
      }
      Decide(c, FoldBackSides(h, t, *fold));
      return PA_OK;
    }
  }
  Sides s = TangentSides(h, t);
  AngularFallback(t, s);
  Decide(c, s);
  return PA_OK;
}

// ---- Repeated entries ------------------------------------------------------

// The entries of a list ordered by elem_a, then by index, so that the later
// entries on one element are found without comparing all pairs. When the
// scratch array cannot be had, a plain scan of the later entries finds the
// same entries in the same order, so the result never depends on memory.
class EntriesByElemA {
 public:
  EntriesByElemA(GE_CROSS *list, int16_t last) : list_(list), last_(last) {
    if (last < 1 || GrowBlock(order_, static_cast<size_t>(last) + 1, false) != PA_OK) return;
    for (int i = 0; i <= last; ++i) order_[i] = static_cast<int16_t>(i);
    std::sort(order_, order_ + last + 1,
              [this](int16_t x, int16_t y) { return Before(list_[x].elem_a, x, list_[y].elem_a, y); });
  }
  EntriesByElemA(const EntriesByElemA &) = delete;
  EntriesByElemA &operator=(const EntriesByElemA &) = delete;
  ~EntriesByElemA() {
    if (order_ != nullptr) FreeBlock(order_);
  }

  // Calls visit on every entry k > after whose elem_a is e, in increasing k.
  template <class Visit>
  void ForEachLater(const LI_TAB_STRUCT *e, int after, Visit visit) const {
    if (order_ == nullptr) {
      for (int k = after + 1; k <= last_; ++k) {
        if (list_[k].elem_a == e) visit(list_[k]);
      }
      return;
    }
    const auto below = [this](int16_t x, std::pair<const LI_TAB_STRUCT *, int> key) {
      return Before(list_[x].elem_a, x, key.first, key.second);
    };
    const int16_t *const begin = order_;
    const int16_t *const end = order_ + last_ + 1;
    const int16_t *it = std::lower_bound(begin, end, std::pair{e, after + 1}, below);
    for (; it != end && list_[*it].elem_a == e; ++it) visit(list_[*it]);
  }

 private:
  static bool Before(const LI_TAB_STRUCT *ex, int x, const LI_TAB_STRUCT *ey, int y) {
    if (ex != ey) return std::less<const LI_TAB_STRUCT *>()(ex, ey);
    return x < y;
  }

  GE_CROSS *list_;
  int16_t last_;
  int16_t *order_ = nullptr;
};

// A piece of a contour no longer than a detour that stands in for a half.
bool ShortPiece(const LI_TAB_STRUCT *e, double tol) {
  return CoincideByDistance(e->ap, e->ep, kReachTols * tol);
}

// Two live overlap ends of the same mode, side and sense, one after the
// other along A, with one short piece of A running from the first to the
// second and one short piece of B running back: A and B swap over within
// a stretch the tolerance makes one point, where one end of B's overlap
// was found twice. The second goes.
void DropTwistedRepeats(GE_CROSS *list, int16_t last, double tol) {
  int i = 0;
  while (i <= last && IsVoid(list[i])) ++i;
  for (int j = i + 1; j <= last; ++j) {
    if (IsVoid(list[j])) continue;
    const GE_CROSS &c = list[i];
    GE_CROSS &d = list[j];
    const bool overlap_end = c.mode == FL_MODE_JOIN || c.mode == FL_MODE_LEAVE;
    if (overlap_end && d.mode == c.mode && d.side == c.side && d.rev == c.rev &&
        c.next_a == d.elem_a && d.next_b == c.elem_b && ShortPiece(d.elem_a, tol) &&
        ShortPiece(c.elem_b, tol)) {
      MakeVoid(d);
      continue;
    }
    i = j;
  }
}

uint16_t SetIdentDel(GE_CROSS *list, int16_t last) {
  const double tol = Tol();
  const EntriesByElemA by_elem(list, last);
  for (int j = 0; j <= last; ++j) {
    GE_CROSS &c = list[j];
    if (c.mode != FL_MODE_CROSS) continue;
    if (const uint16_t status = SetModeSideRev(c); status != PA_OK) return status;
    if (IsVoid(c)) continue;
    by_elem.ForEachLater(c.elem_a, j, [&](GE_CROSS &k) {
      if (k.elem_b == c.elem_b && k.next_a == c.next_a && k.next_b == c.next_b &&
          SamePoint(k, c, tol))
        MakeVoid(k);
    });
  }
  DropTwistedRepeats(list, last, tol);
  return PA_OK;
}

void RemIdentInv(GE_CROSS *list, int16_t last, uint32_t flag) {
  const double tol = Tol();
  const EntriesByElemA by_elem(list, last);
  for (int j = 0; j <= last; ++j) {
    const GE_CROSS &c = list[j];
    if (IsVoid(c) || (flag == 0 && c.mode != FL_MODE_CROSS)) continue;
    // The twin found from the other side: the roles of A and B exchanged.
    by_elem.ForEachLater(c.elem_b, j, [&](GE_CROSS &k) {
      if (k.elem_b == c.elem_a && k.next_a == c.next_b && k.next_b == c.next_a &&
          SamePoint(k, c, tol))
        MakeVoid(k);
    });
  }
}

// ---- Overlaps --------------------------------------------------------------

// The next entry that is not void after each entry, cyclically, for
// entries asked in increasing order. A void entry never comes back to
// life, so the cursor only moves forward and a whole pass stays linear
// however many entries are void.
class NextLive {
 public:
  NextLive(const GE_CROSS *list, int16_t last) : list_(list), n_(last + 1) {}

  // The entry itself when no other entry is live.
  int After(int i) {
    if (cursor_ <= i) cursor_ = i + 1;
    while (cursor_ < i + n_ && IsVoid(list_[cursor_ % n_])) ++cursor_;
    return cursor_ % n_;
  }

 private:
  const GE_CROSS *list_;
  int n_;
  int cursor_ = 0;
};

// Calls pair(join, next) for every live mode 1 entry with its next live
// entry, in list order.
template <class Pair>
void ForEachJoin(GE_CROSS *list, int16_t last, Pair pair) {
  NextLive next(list, last);
  for (int i = 0; i <= last; ++i) {
    if (list[i].mode == FL_MODE_JOIN) pair(list[i], list[next.After(i)]);
  }
}

// B joined A from one side and left to the same side: it never crossed.
bool ReturnsToItsSide(const GE_CROSS &join, const GE_CROSS &leave) {
  return leave.mode == FL_MODE_LEAVE && join.side == leave.side && join.rev == 0;
}

// B passed to the other side along A: one end of the stretch stays the
// crossing, the one that gives the operation's loops.
void KeepOneEnd(GE_CROSS &join, GE_CROSS &leave, int32_t op) {
  const uint16_t void_join_side = op == FL_OP_UNION ? kSideLeft : kSideRight;
  MakeVoid(join.side == void_join_side ? join : leave);
}

void CheckCross(GE_CROSS *list, int16_t last, int32_t op) {
  ForEachJoin(list, last, [](GE_CROSS &join, GE_CROSS &next) {
    if (ReturnsToItsSide(join, next)) {
      MakeVoid(join);
      MakeVoid(next);
    }
  });
  ForEachJoin(list, last, [op](GE_CROSS &join, GE_CROSS &next) {
    if (ReturnsToItsSide(join, next)) {
      MakeVoid(join);
      MakeVoid(next);
    } else if (next.mode == FL_MODE_LEAVE && join.side != next.side) {
      KeepOneEnd(join, next, op);
    }
  });
  // An overlap end left alone has nothing to pair with.
  NextLive next(list, last);
  for (int i = 0; i <= last; ++i) {
    GE_CROSS &c = list[i];
    if ((c.mode == FL_MODE_JOIN || c.mode == FL_MODE_LEAVE) && next.After(i) == i) MakeVoid(c);
  }
}

void CheckCrossSingle(GE_CROSS *list, int16_t last) {
  ForEachJoin(list, last, [](GE_CROSS &join, GE_CROSS &next) {
    if (next.mode == FL_MODE_LEAVE && next.side == join.side) MakeVoid(next);
    MakeVoid(join);
  });
}

// ---- Snapping --------------------------------------------------------------

uint16_t Reexpand(LI_TAB_STRUCT *e) {
  if (IsArc(*e)) {
    if (const uint16_t status = LiRadKorr(e); status != PA_OK) return status;
  }
  return LiElemExpand(e);
}

// Puts the joint of e and its successor next exactly on p. Nothing to do
// (and the successor is left as it is) when e already ends there exactly.
uint16_t SnapJoint(LI_TAB_STRUCT *e, LI_TAB_STRUCT *next, GE_POINT p) {
  if (e->ep == p) return PA_OK;
  e->ep = p;
  if (const uint16_t status = Reexpand(e); status != PA_OK) return status;
  if (next == e || next == nullptr) return PA_OK;
  next->ap = p;
  return Reexpand(next);
}

bool AtEnd(uint16_t loc) { return loc == GE_AT_START || loc == GE_AT_END; }

// Whether an earlier live entry at the same joint of A put it at another
// point (the entries of one joint stand together in a list ordered along
// A). Snapping it again would leave the earlier entry's loops a gap; both
// points lie within tol of the joint, so at the tolerance they are one
// passage of B, and the earlier entry stands for it.
bool JointTakenElsewhere(const GE_CROSS *list, int i) {
  const GE_CROSS &c = list[i];
  for (int j = i - 1; j >= 0 && list[j].elem_a == c.elem_a; --j) {
    const GE_CROSS &d = list[j];
    if (!IsVoid(d) && AtEnd(d.loc_a) && !(d.pt == c.pt)) return true;
  }
  return false;
}

uint16_t CrossSetPt(GE_CROSS *list, int16_t last) {
  for (int i = 0; i <= last; ++i) {
    GE_CROSS &c = list[i];
    if (AtEnd(c.loc_a) && c.elem_a != nullptr && JointTakenElsewhere(list, i)) {
      MakeVoid(c);
      continue;
    }
    if (AtEnd(c.loc_a) && c.elem_a != nullptr) {
      if (const uint16_t status = SnapJoint(c.elem_a, c.next_a, c.pt); status != PA_OK)
        return status;
    }
    if (AtEnd(c.loc_b) && c.elem_b != nullptr) {
      if (const uint16_t status = SnapJoint(c.elem_b, c.next_b, c.pt); status != PA_OK)
        return status;
    }
  }
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlSetModeSideRev(GE_CROSS *cross) {
  if (cross == nullptr) return PA_INVALID;
  return SetModeSideRev(*cross);
}

extern "C" uint16_t FlSetIdentDel(GE_CROSS *list, int16_t last) {
  if (last < 0) return PA_OK;
  if (list == nullptr) return PA_INVALID;
  return SetIdentDel(list, last);
}

extern "C" void FlRemIdentInv(GE_CROSS *list, int16_t last, uint32_t flag) {
  if (list != nullptr && last >= 0) RemIdentInv(list, last, flag);
}

extern "C" uint16_t FlCheckCross(GE_CROSS *list, int16_t last, int32_t op) {
  if (list != nullptr && last >= 0) CheckCross(list, last, op);
  return PA_OK;
}

extern "C" uint16_t FlCheckCrossSingle(GE_CROSS *list, int16_t last) {
  if (list != nullptr && last >= 0) CheckCrossSingle(list, last);
  return PA_OK;
}

extern "C" uint16_t FlCrossSetPt(GE_CROSS *list, int16_t last) {
  if (last < 0) return PA_OK;
  if (list == nullptr) return PA_INVALID;
  return CrossSetPt(list, last);
}
