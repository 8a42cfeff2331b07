// Splitting a closed contour at two points into two open chains, and
// sorting loose elements into one connected chain.
#include "geom/predicates.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

// Cuts the element e at q; a receives the piece that ends at q.
uint16_t CutAt(LI_HEAD *head, LI_TAB_STRUCT *e, GE_POINT q, LI_TAB_STRUCT *&a) {
  a = nullptr;
  if (e == nullptr) return PA_INVALID;
  const uint16_t status = LiElemTeilen(head, e, &a, &q);
  if (status == PA_OK && a == nullptr) return PA_INVALID;
  return status;
}

class Sorter {
 public:
  Sorter(LI_TAB_STRUCT **kont, LI_TAB_STRUCT *rest) : kont_(kont), rest_(rest) {}

  // One search of rest from its head; places the first element that
  // continues the sorted chain at either end.
  bool PlaceOne(bool reverse) {
    if (rest_ == nullptr) return false;
    const double tol = Tol();
    LI_TAB_STRUCT *e = rest_;
    do {
      LI_TAB_STRUCT *next = e->next;
      if (TryPlace(e, reverse, tol)) return true;
      e = next;
    } while (e != rest_);
    return false;
  }

  bool Closed() const { return CoincidePerAxis((*kont_)->prev->ep, (*kont_)->ap, Tol()); }
  LI_TAB_STRUCT *rest() const { return rest_; }

 private:
  bool TryPlace(LI_TAB_STRUCT *e, bool reverse, double tol) {
    const GE_POINT start = (*kont_)->ap;
    const GE_POINT end = (*kont_)->prev->ep;
    if (CoincidePerAxis(e->ap, end, tol)) return Place(e, false, false);
    if (reverse && CoincidePerAxis(e->ep, end, tol)) return Place(e, true, false);
    if (CoincidePerAxis(e->ep, start, tol)) return Place(e, false, true);
    if (reverse && CoincidePerAxis(e->ap, start, tol)) return Place(e, true, true);
    return false;
  }

  bool Place(LI_TAB_STRUCT *e, bool reversed, bool in_front) {
    if (rest_ == e) rest_ = e->next != e ? e->next : nullptr;
    Unlink(e);
    if (reversed) LiElemUmdreh(e);
    SpliceBefore(*kont_, e);
    if (in_front) *kont_ = e;
    return true;
  }

  LI_TAB_STRUCT **kont_;
  LI_TAB_STRUCT *rest_;
};

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiSplitKont(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT **out1,
                                LI_TAB_STRUCT **out2, uint16_t num1, const GE_POINT *q1,
                                uint16_t num2, const GE_POINT *q2) {
  if (kont == nullptr || out1 == nullptr || out2 == nullptr || q1 == nullptr || q2 == nullptr)
    return PA_INVALID;
  *out1 = *out2 = nullptr;
  LI_TAB_STRUCT *e1 = nullptr;
  LiSuchNo(*kont, num1, &e1);
  LI_TAB_STRUCT *a = nullptr;
  if (const uint16_t status = CutAt(head, e1, *q1, a); status != PA_OK) return status;
  LI_TAB_STRUCT *e2 = nullptr;
  if (num2 != num1) {
    LiSuchNo(*kont, num2, &e2);
  } else {
    e2 = GePtOnElem(a->next, q2) != 0 ? a->next : a;
  }
  LI_TAB_STRUCT *b = nullptr;
  if (const uint16_t status = CutAt(head, e2, *q2, b); status != PA_OK) return status;
  // Cutting twice at one point leaves nothing to separate.
  if (b == a) return PA_INVALID;
  // Taken after both cuts: a second cut on the piece after q1 puts a new
  // element between a and its old successor.
  LI_TAB_STRUCT *s1 = a->next;
  LI_TAB_STRUCT *s2 = b->next;
  Link(b, s1);
  Link(a, s2);
  *kont = nullptr;
  *out1 = s1;
  *out2 = s2;
  return PA_OK;
}

extern "C" LI_TAB_STRUCT *LiSortKont(LI_TAB_STRUCT **kont, int32_t keep_dir, int32_t stop_closed) {
  if (kont == nullptr || *kont == nullptr || (*kont)->next == *kont) return nullptr;
  LI_TAB_STRUCT *first = *kont;
  LI_TAB_STRUCT *rest = first->next;
  Unlink(first);
  if (stop_closed != 0 && IsArc(*first) && IsFullCircle(*first, Tol())) return rest;
  Sorter sorter(kont, rest);
  const bool reverse_first = keep_dir == 0;
  bool reverse = reverse_first;
  while (sorter.rest() != nullptr) {
    if (sorter.PlaceOne(reverse)) {
      reverse = reverse_first;
      if (stop_closed != 0 && sorter.Closed()) break;
    } else if (reverse) {
      break;  // even reversing finds no continuation
    } else {
      reverse = true;
    }
  }
  return sorter.rest();
}
