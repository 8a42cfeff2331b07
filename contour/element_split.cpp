// Cutting an element in two at a point. LiElemSplit keeps the first piece
// in the element and chains the second after it; LiElemTeilen keeps the
// second piece and chains the first before it, and corrects arc radii.
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// A whole-record copy of e (payload, number and mark included) as a
// one-element chain, or null when the store cannot grow.
LI_TAB_STRUCT *Duplicate(LI_HEAD *head, const LI_TAB_STRUCT &e) {
  LI_TAB_STRUCT *copy = LiNewNoInit(head);
  if (copy == nullptr) return nullptr;
  *copy = e;
  copy->next = copy->prev = copy;
  return copy;
}

uint16_t SplitAfter(LI_HEAD *head, LI_TAB_STRUCT &e, LI_TAB_STRUCT *&out, GE_POINT p) {
  const double tol = Tol();
  if (CoincidePerAxis(p, e.ap, tol)) {
    out = &e;
    return PA_OK;
  }
  if (CoincidePerAxis(p, e.ep, tol)) {
    out = e.next;
    return PA_OK;
  }
  LI_TAB_STRUCT *second = Duplicate(head, e);
  if (second == nullptr) {
    out = nullptr;
    return PA_NO_RECORD;
  }
  second->ap = p;
  e.ep = p;
  // A piece may come out degenerate; it is kept all the same.
  LiElemExpand(&e);
  LiElemExpand(second);
  LiChain(&e, second);
  out = second;
  return PA_OK;
}

// Puts both ends of an arc at distance |rad| from its centre by moving the
// centre: to the crossing of the circles of radius |rad| about the two ends
// that is nearer the old centre, or, when the ends are too far apart, to
// the middle of the chord with half the chord as radius. A negative radius
// keeps its sign, so that an arc moved past its centre stays one.
uint16_t CorrectRadius(LI_TAB_STRUCT &e) {
  const double tol = Tol();
  const double r = std::fabs(e.rad);
  if (r <= tol || IsFullCircle(e, tol)) return PA_OK;
  if (std::fabs(Dist(e.ap, e.mp) - r) <= tol && std::fabs(Dist(e.ep, e.mp) - r) <= tol)
    return PA_OK;
  uint16_t count = 0;
  GE_POINT first{}, second{};
  if (const uint16_t status = GeIseCirCir(&e.ap, r, &e.ep, r, &count, &first, &second);
      status != PA_OK) {
    return status;
  }
  if (count == 0) {
    e.mp = (e.ap + e.ep) * 0.5;
    e.rad = std::copysign(Dist(e.ap, e.ep) * 0.5, e.rad);
  } else if (count == 1 || Norm2(first - e.mp) <= Norm2(second - e.mp)) {
    e.mp = first;
  } else {
    e.mp = second;
  }
  return PA_OK;
}

uint16_t SplitBefore(LI_HEAD *head, LI_TAB_STRUCT &e, LI_TAB_STRUCT *&out, GE_POINT p) {
  const double tol = Tol();
  if (CoincidePerAxis(p, e.ap, tol)) {
    out = e.prev;
    return PA_OK;
  }
  if (CoincidePerAxis(p, e.ep, tol)) {
    out = &e;
    return PA_OK;
  }
  LI_TAB_STRUCT *first = Duplicate(head, e);
  if (first == nullptr) {
    out = nullptr;
    return PA_NO_RECORD;
  }
  first->ep = p;
  e.ap = p;
  uint16_t status = PA_OK;
  if (IsArc(e)) {
    // Each piece gets its own centre; a piece whose correction fails keeps
    // the old one.
    if (std::fabs(e.rad) >= tol) {
      CorrectRadius(*first);
      CorrectRadius(e);
    } else {
      status = PA_ZERO_RADIUS;
    }
  }
  LiElemExpand(first);
  LiElemExpand(&e);
  LiChainPrev(&e, first);
  out = first;
  return status;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiElemSplit(LI_HEAD *head, LI_TAB_STRUCT *e, LI_TAB_STRUCT **out,
                                const GE_POINT *p) {
  if (e == nullptr || out == nullptr || p == nullptr) return PA_INVALID;
  return SplitAfter(head, *e, *out, *p);
}

extern "C" uint16_t LiElemTeilen(LI_HEAD *head, LI_TAB_STRUCT *e, LI_TAB_STRUCT **out,
                                 const GE_POINT *p) {
  if (e == nullptr || out == nullptr || p == nullptr) return PA_INVALID;
  return SplitBefore(head, *e, *out, *p);
}

extern "C" uint16_t LiRadKorr(LI_TAB_STRUCT *e) {
  if (e == nullptr || !IsArc(*e)) return PA_INVALID;
  return CorrectRadius(*e);
}
