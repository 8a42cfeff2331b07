// Coincident stretches: joining two contours along the stretches they
// share, and removing spikes where a contour runs forward and straight
// back over itself.
#include <algorithm>
#include <array>
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

// ---- The stretch two elements share -------------------------------------

constexpr uint16_t kIdentStretch = 3;

// Distance travelled along e from its start to p (p on e's carrier). Just
// before an arc's start reads as a small negative distance, not as nearly
// a full turn.
double Along(const LI_TAB_STRUCT &e, GE_POINT p) {
  if (IsLine(e)) return LineParameter(e, p) - e.ang_ap;
  double sweep = SweepInSense(e.type, e.ang_ap, ArcAngleOf(Angle(p - e.mp), e.rad));
  if (sweep > 0.5 * (TravelSweep(e) + kTwoPi)) sweep -= kTwoPi;
  return sweep * std::fabs(e.rad);
}

double Length(const LI_TAB_STRUCT &e) {
  return IsLine(e) ? e.ang_ep - e.ang_ap : TravelSweep(e) * std::fabs(e.rad);
}

struct Shared {
  GE_POINT s, e;  // in e's sense of travel
  bool opposite;
};

// The stretch that e and f share, clipped to both and with its ends on
// real element ends: the later of the two starts and the earlier of the
// two ends. GeIdentElem decides the carrier, but its stretch is not used
// as it comes: for arcs it is f's whole extent (two arcs of one circle
// that only meet end to end would overlap), and for nearly parallel lines
// far from the origin its ends can lie many tolerances off.
bool SharedStretch(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &f, Shared &out) {
  const double tol = Tol();
  if (CoincidePerAxis(e.ap, e.ep, tol) || CoincidePerAxis(f.ap, f.ep, tol)) return false;
  uint16_t code = 0;
  uint32_t opposite = 0;
  GE_POINT p1{}, p2{};
  GeIdentElem(&e, &f, &code, &opposite, &p1, &p2);
  if (code != kIdentStretch) return false;
  out.opposite = opposite != 0;
  const GE_POINT fs = out.opposite ? f.ep : f.ap;
  const GE_POINT fe = out.opposite ? f.ap : f.ep;
  const double us = Along(e, fs), ue = Along(e, fe), len = Length(e);
  out.s = us > 0.0 ? fs : e.ap;
  out.e = ue < len ? fe : e.ep;
  const double length = std::min(ue, len) - std::max(us, 0.0);
  return length > tol && !CoincidePerAxis(out.s, out.e, tol);
}

// ---- Joining along shared stretches -------------------------------------

constexpr int kMaxStretches = 100;
constexpr uint16_t kUnseen = 0;
constexpr uint16_t kStretchPiece = 1;
constexpr uint16_t kExamined = 2;

// One entry of the table. Only elements that end at a stretch point are
// kept: a later cut (LiElemTeilen) leaves the cut record as the piece that
// ends where the element ended, so these pointers stay true.
struct Stretch {
  GE_POINT s, e;         // in contour 1's sense
  LI_TAB_STRUCT *in1;    // contour 1, outside, ends at s
  LI_TAB_STRUCT *last1;  // contour 1, the stretch's last piece, ends at e
  LI_TAB_STRUCT *in2;    // contour 2, outside, ends where 2 enters (e if opposite, else s)
  LI_TAB_STRUCT *last2;  // contour 2, the stretch's last piece in 2's sense
  bool opposite;
};

// g continues f on both contours, so the two are one stretch.
bool Continues(const Stretch &f, const Stretch &g) {
  if (f.opposite != g.opposite || g.in1 != f.last1) return false;
  if (f.opposite ? f.in2 != g.last2 : g.in2 != f.last2) return false;
  return CoincidePerAxis(f.e, g.s, Tol());
}

Stretch Joined(const Stretch &f, const Stretch &g) {
  Stretch j = f;
  j.e = g.e;
  j.last1 = g.last1;
  if (f.opposite) {
    j.in2 = g.in2;  // contour 2 runs g before f
  } else {
    j.last2 = g.last2;
  }
  return j;
}

// Makes into the one stretch of into and other when either continues the
// other.
bool JoinInto(Stretch &into, const Stretch &other) {
  if (Continues(into, other)) {
    into = Joined(into, other);
  } else if (Continues(other, into)) {
    into = Joined(other, into);
  } else {
    return false;
  }
  return true;
}

class StretchTable {
 public:
  int size() const { return count_; }
  Stretch &operator[](int i) { return entries_[static_cast<size_t>(i)]; }

  // Joins the new stretch to an entry it continues or that continues it
  // (and then joins what else has become adjacent), or appends it.
  uint16_t Enter(const Stretch &st) {
    for (int i = 0; i < count_; ++i) {
      if (!JoinInto(entries_[static_cast<size_t>(i)], st)) continue;
      JoinAround(i);
      return PA_OK;
    }
    if (count_ == kMaxStretches) return PA_NO_RECORD;
    entries_[static_cast<size_t>(count_++)] = st;
    return PA_OK;
  }

 private:
  void JoinAround(int at) {
    for (int i = 0; i < count_; ++i) {
      if (i == at || !JoinInto(entries_[static_cast<size_t>(at)], entries_[static_cast<size_t>(i)]))
        continue;
      entries_[static_cast<size_t>(i)] = entries_[static_cast<size_t>(--count_)];
      if (at == count_) at = i;
      i = -1;  // what is adjacent may have changed: look again
    }
  }

  std::array<Stretch, kMaxStretches> entries_{};
  int count_ = 0;
};

void SetMarks(LI_TAB_STRUCT *k, uint16_t mark) {
  LI_TAB_STRUCT *e = k;
  do {
    e->mark = mark;
    e = e->next;
  } while (e != k);
}

LI_TAB_STRUCT *FirstUnseen(LI_TAB_STRUCT *from) {
  LI_TAB_STRUCT *e = from;
  do {
    if (e->mark == kUnseen) return e;
    e = e->next;
  } while (e != from);
  return nullptr;
}

// Cuts e and f at both ends of the shared stretch and enters it.
uint16_t CutAndEnter(LI_HEAD *head, LI_TAB_STRUCT *e, LI_TAB_STRUCT *f, const Shared &sh,
                     StretchTable &table) {
  Stretch st{sh.s, sh.e, nullptr, nullptr, nullptr, nullptr, sh.opposite};
  // Contour 2 meets the stretch's ends in the other order when it runs
  // against contour 1.
  const GE_POINT f_first = sh.opposite ? sh.e : sh.s;
  const GE_POINT f_second = sh.opposite ? sh.s : sh.e;
  if (auto status = LiElemTeilen(head, e, &st.in1, &sh.s); status != PA_OK) return status;
  if (auto status = LiElemTeilen(head, e, &st.last1, &sh.e); status != PA_OK) return status;
  if (auto status = LiElemTeilen(head, f, &st.in2, &f_first); status != PA_OK) return status;
  if (auto status = LiElemTeilen(head, f, &st.last2, &f_second); status != PA_OK) return status;
  st.last1->mark = kStretchPiece;
  st.last2->mark = kStretchPiece;
  return table.Enter(st);
}

// The walk of contour 1: every element not yet examined is compared with
// the unshared elements of contour 2; a stretch cuts both, and the pieces
// around it are examined afresh.
uint16_t BuildTable(LI_HEAD *head, LI_TAB_STRUCT *k1, LI_TAB_STRUCT *k2, StretchTable &table) {
  SetMarks(k1, kUnseen);
  SetMarks(k2, kUnseen);
  LI_TAB_STRUCT *cursor = k1;
  while (LI_TAB_STRUCT *e = FirstUnseen(cursor)) {
    bool cut = false;
    LI_TAB_STRUCT *f = k2;
    do {
      Shared sh{};
      if (f->mark == kUnseen && SharedStretch(*e, *f, sh)) {
        if (auto status = CutAndEnter(head, e, f, sh, table); status != PA_OK) return status;
        cut = true;
        break;
      }
      f = f->next;
    } while (f != k2);
    if (!cut) e->mark = kExamined;
    cursor = e;
  }
  return PA_OK;
}

// An entry whose outside element is itself a stretch piece runs round a
// whole contour (the contours coincide) or meets another stretch: there is
// nothing to cut out.
bool Joinable(const Stretch &st) {
  return st.opposite && st.in1->mark != kStretchPiece && st.in2->mark != kStretchPiece;
}

// Contour 2 reversed: its outside element is now the one before the last
// piece, and its last piece the one before the old outside element.
void ReverseSecond(LI_TAB_STRUCT *&k2, StretchTable &table) {
  LiKontChgDir(&k2);
  for (int i = 0; i < table.size(); ++i) {
    Stretch &st = table[i];
    LI_TAB_STRUCT *in2 = st.last2->prev;
    st.last2 = st.in2->prev;
    st.in2 = in2;
    st.opposite = true;
  }
}

// Cuts the stretch out of both contours: contour 1 goes on with contour 2
// after the stretch's start, contour 2 with contour 1 after its end.
void CutOut(LI_HEAD *head, const Stretch &st) {
  LI_TAB_STRUCT *first1 = st.in1->next, *after1 = st.last1->next;
  LI_TAB_STRUCT *first2 = st.in2->next, *after2 = st.last2->next;
  Link(st.in1, after2);
  Link(st.in2, after1);
  Link(st.last1, first1);
  Link(st.last2, first2);
  LiRemove(head, &first1);
  LiRemove(head, &first2);
}

// The distinct loops that hold the given elements, in that order.
int DistinctLoops(std::array<LI_TAB_STRUCT *, 2 * kMaxStretches> &loops, int n) {
  for (int i = 0; i < n; ++i) SetMarks(loops[static_cast<size_t>(i)], kUnseen);
  int kept = 0;
  for (int i = 0; i < n; ++i) {
    LI_TAB_STRUCT *k = loops[static_cast<size_t>(i)];
    if (k->mark != kUnseen) continue;
    SetMarks(k, kExamined);
    loops[static_cast<size_t>(kept++)] = k;
  }
  for (int i = 0; i < kept; ++i) SetMarks(loops[static_cast<size_t>(i)], kUnseen);
  return kept;
}

struct UnionOut {
  LI_TAB_STRUCT **out;
  LI_TAB_STRUCT **out2;
  LI_TAB_STRUCT **loops;
  uint16_t capacity;
  int16_t *last;
};

// Moves the loops of the wanted sign out of the list: the first to out,
// later ones to out2 (a loop there before goes back to the store).
void TakeBySign(LI_HEAD *head, bool negative, const UnionOut &o) {
  int16_t kept = FL_EMPTY;
  for (int16_t i = 0; i <= *o.last; ++i) {
    LI_TAB_STRUCT *k = o.loops[i];
    const double area = LiKontArea(k);
    if (negative ? !(area < 0.0) : !(area > 0.0)) {
      o.loops[++kept] = k;
    } else if (*o.out == nullptr) {
      *o.out = k;
    } else {
      LiRemove(head, o.out2);
      *o.out2 = k;
    }
  }
  for (int16_t i = kept + 1; i <= *o.last; ++i) o.loops[i] = nullptr;
  *o.last = kept;
}

// Relinks every joinable entry and lists the loops that result. Loops
// beyond the list's capacity go back to the store (PA_NO_RECORD).
uint16_t JoinAll(LI_HEAD *head, StretchTable &table, const UnionOut &o) {
  std::array<LI_TAB_STRUCT *, 2 * kMaxStretches> held{};
  int n = 0;
  for (int i = 0; i < table.size(); ++i) {
    const Stretch &st = table[i];
    if (!Joinable(st)) continue;
    CutOut(head, st);
    held[static_cast<size_t>(n++)] = st.in1;
    held[static_cast<size_t>(n++)] = st.in2;
  }
  n = DistinctLoops(held, n);
  uint16_t status = PA_OK;
  for (int i = 0; i < n; ++i) {
    LI_TAB_STRUCT *k = held[static_cast<size_t>(i)];
    if (*o.last + 1 > o.capacity) {
      LiRemove(head, &k);
      status = PA_NO_RECORD;
    } else {
      o.loops[++*o.last] = k;
    }
  }
  return status;
}

uint16_t UnionIdent(LI_HEAD *head, LI_TAB_STRUCT *k1, LI_TAB_STRUCT *k2, bool negative,
                    const UnionOut &o) {
  StretchTable table;
  const uint16_t status = BuildTable(head, k1, k2, table);
  bool any_opposite = false, any_joinable = false;
  for (int i = 0; i < table.size(); ++i) {
    any_opposite = any_opposite || table[i].opposite;
    Stretch flipped = table[i];
    flipped.opposite = true;
    any_joinable = any_joinable || Joinable(flipped);
  }
  // Two contours of different orientation run their common stretches the
  // same way: turn the second round so that they join all the same.
  if (status == PA_OK && !any_opposite && any_joinable) ReverseSecond(k2, table);
  bool joins = false;
  for (int i = 0; i < table.size(); ++i) joins = joins || Joinable(table[i]);
  if (status != PA_OK || !joins) {
    SetMarks(k1, kUnseen);
    SetMarks(k2, kUnseen);
    *o.out = k1;
    *o.out2 = k2;
    return status;
  }
  const uint16_t listed = JoinAll(head, table, o);
  TakeBySign(head, negative, o);
  return listed;
}

// ---- Spikes --------------------------------------------------------------

// f runs straight back over e from their joint; far is where the shared
// stretch ends away from the joint.
bool Spike(const LI_TAB_STRUCT &e, const LI_TAB_STRUCT &f, GE_POINT &far) {
  const double tol = Tol();
  if (!CoincidePerAxis(e.ep, f.ap, tol)) return false;
  Shared sh{};
  if (!SharedStretch(e, f, sh) || !sh.opposite) return false;
  far = sh.s;
  return true;
}

// Removes the spikes; remaining counts the elements still to be looked at
// as the first of a pair (the start's predecessor only with whole set).
uint16_t CleanSpikes(LI_HEAD *head, LI_TAB_STRUCT **k, bool whole) {
  const double tol = Tol();
  const uint32_t n = LiCountElem(*k);
  int64_t remaining = whole ? n : int64_t{n} - 1;
  bool changed = false;
  LI_TAB_STRUCT *e = *k;
  while (remaining > 0 && *k != nullptr && e->next != e) {
    LI_TAB_STRUCT *f = e->next;
    GE_POINT far{};
    if (!Spike(*e, *f, far)) {
      e = f;
      --remaining;
      continue;
    }
    changed = true;
    if (CoincidePerAxis(e->ap, far, tol) && CoincidePerAxis(f->ep, far, tol)) {
      LI_TAB_STRUCT *g = f->next;  // e and f cancel
      LiDel(head, k, e);
      LiDel(head, k, f);
      e = g;
      remaining -= 2;
    } else if (CoincidePerAxis(e->ap, far, tol)) {
      f->ap = e->ap;  // f reaches back beyond e's start
      LiDel(head, k, e);
      --remaining;
      if (auto status = LiElemExpand(f); status != PA_OK) return status;
      e = f;
    } else {
      const bool f_first = *k == f;  // f ends inside e
      e->ep = f->ep;
      LiDel(head, k, f);
      if (f_first) *k = e;
      if (auto status = LiElemExpand(e); status != PA_OK) return status;
      e = e->next;
      remaining -= 2;
    }
  }
  if (!changed || *k == nullptr) return PA_OK;
  return LiCrunch(head, *k);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlUnionIdent(LI_HEAD *head, LI_TAB_STRUCT *k1, LI_TAB_STRUCT *k2, uint32_t sign,
                                 LI_TAB_STRUCT **out, LI_TAB_STRUCT **out2, LI_TAB_STRUCT **loops,
                                 uint16_t capacity, int16_t *last) {
  if (head == nullptr || out == nullptr || out2 == nullptr || loops == nullptr || last == nullptr)
    return PA_INVALID;
  *out = *out2 = nullptr;
  *last = FL_EMPTY;
  if (k1 == nullptr || k2 == nullptr || k1 == k2) return PA_INVALID;
  if (LiCheck(k1) == 0 || LiCheck(k2) == 0) return PA_NO_RECORD;
  return UnionIdent(head, k1, k2, sign != 0, UnionOut{out, out2, loops, capacity, last});
}

extern "C" uint16_t FlCleanIdent(LI_HEAD *head, LI_TAB_STRUCT **k, uint32_t whole) {
  if (head == nullptr || k == nullptr) return PA_INVALID;
  if (*k == nullptr) return PA_OK;
  return CleanSpikes(head, k, whole != 0);
}
