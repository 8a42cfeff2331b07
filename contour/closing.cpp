// Closedness of contours and closing their gaps, directly or through the
// x-axis.
#include <cmath>

#include "contour/new_line.h"
#include "geom/predicates.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

bool GapAfter(const LI_TAB_STRUCT &e, double tol) {
  return !CoincidePerAxis(e.ep, e.next->ap, tol);
}

// The first element followed by a gap, or null.
const LI_TAB_STRUCT *FirstGap(const LI_TAB_STRUCT *k) {
  const double tol = Tol();
  const LI_TAB_STRUCT *e = k;
  do {
    if (GapAfter(*e, tol)) return e;
    e = e->next;
  } while (e != k);
  return nullptr;
}

// Chains a new line a -> b after *after and advances *after to it; the
// status of the allocation or expansion.
uint16_t AddLine(LI_HEAD *head, LI_TAB_STRUCT *&after, GE_POINT a, GE_POINT b) {
  LI_TAB_STRUCT *line = nullptr;
  const uint16_t status = NewExpandedLine(head, a, b, line);
  if (status == PA_OK) {
    SpliceAfter(after, line);
    after = line;
  }
  return status;
}

// Closes the gap after e through the x-axis: down (or up) to the axis,
// along it, and up (or down) to the successor's start.
uint16_t CloseThroughAxis(LI_HEAD *head, LI_TAB_STRUCT *e, double tol) {
  const GE_POINT from = e->ep;
  const GE_POINT to = e->next->ap;
  const bool leave = std::fabs(from.y) > tol;
  const bool arrive = std::fabs(to.y) > tol;
  LI_TAB_STRUCT *after = e;
  GE_POINT at = from;
  uint16_t status = PA_OK;
  if (leave) {
    status = AddLine(head, after, at, {from.x, 0.0});
    at = {from.x, 0.0};
  }
  const GE_POINT axis_end = arrive ? GE_POINT{to.x, 0.0} : to;
  if (status != PA_NO_MEMORY) status = AddLine(head, after, at, axis_end);
  if (arrive && status != PA_NO_MEMORY) status = AddLine(head, after, axis_end, to);
  return status;
}

// Calls close(e) for every element followed by a gap; the original
// successors are taken before anything is inserted, so new lines are not
// visited. Returns the status of the last gap handled.
template <class Close>
uint16_t CloseEveryGap(LI_TAB_STRUCT *k, Close close) {
  const double tol = Tol();
  uint16_t status = PA_OK;
  LI_TAB_STRUCT *e = k;
  do {
    LI_TAB_STRUCT *next = e->next;
    if (GapAfter(*e, tol)) status = close(e, tol);
    e = next;
  } while (e != k);
  return status;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiCloseKont(LI_HEAD *head, LI_TAB_STRUCT *k) {
  if (k == nullptr) return PA_OK;
  return CloseEveryGap(k, [head](LI_TAB_STRUCT *e, double) {
    LI_TAB_STRUCT *after = e;
    return AddLine(head, after, e->ep, e->next->ap);
  });
}

extern "C" uint16_t LiCloseKontToY0(LI_HEAD *head, LI_TAB_STRUCT *k) {
  if (k == nullptr) return PA_OK;
  return CloseEveryGap(
      k, [head](LI_TAB_STRUCT *e, double tol) { return CloseThroughAxis(head, e, tol); });
}

extern "C" int LiCheckClosed(LI_TAB_STRUCT **kont) {
  if (kont == nullptr || *kont == nullptr) return 1;
  const LI_TAB_STRUCT *gap = FirstGap(*kont);
  if (gap == nullptr) return 1;
  *kont = gap->next;
  return 0;
}

extern "C" int LiTestClosed(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return 1;
  return FirstGap(k) == nullptr ? 1 : 0;
}
