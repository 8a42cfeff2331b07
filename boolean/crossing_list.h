// The pieces of the crossing-list code that the list builders share.
#pragma once

#include <algorithm>
#include <cstdint>

#include "polyarc/records.h"

namespace polyarc {

// A crossing list under construction: the caller's array, its capacity
// and its last index. A list the caller grows entry by entry keeps steps
// of FL_CROSS_STEP; the searches, which own their list until they return
// it, grow it by half its size (still a multiple of the step), so that a
// list of 10^4 crossings is not copied a thousand times.
struct CrossListRef {
  GE_CROSS *&list;
  uint16_t &capacity;
  int16_t &last;
  bool by_half = false;
};

// How far, in tolerances, the crossing search reaches beyond an element:
// what lies nearer may belong to a crossing with it.
constexpr double kReachTols = 10.0;

// The box of an element of A as the crossing search sees it: widened by
// the reach on every side. Inline, as both run once per pair of the search.
inline GE_BOX WidenedBox(const GE_BOX &box, double tol) {
  const double w = kReachTols * tol;
  return {box.xmin - w, box.ymin - w, box.xmax + w, box.ymax + w};
}

// The box test of the crossing search: A's widened box against B's box as
// it is. Touching boxes overlap.
inline bool CrossBoxesOverlap(const GE_BOX &a, const GE_BOX &b) {
  return !(std::max(a.xmin, b.xmin) > std::min(a.xmax, b.xmax) ||
           std::max(a.ymin, b.ymin) > std::min(a.ymax, b.ymax));
}

// How far along a a point with parameter par lies (a line's position, an
// arc's angle from its start in its sense of travel), and the tolerance
// in that measure.
double PositionAlong(const LI_TAB_STRUCT &a, double par);
double ToleranceAlong(const LI_TAB_STRUCT &a, double tol);

// What the entries of the current element of A hold: the farthest
// position along it and the box of their points. A crossing that is
// neither farther back than the farthest entry nor within tol of any
// point goes to the end of the list, where the scan would put it, without
// the scan; so one element crossed many times in its own direction costs
// linear time. Start a new run for every element of A.
class ElementRun {
 public:
  bool NothingAtOrBeyond(const LI_TAB_STRUCT &a, const IsectPoint &pt, double tol) const;
  void Add(const LI_TAB_STRUCT &a, const GE_CROSS &entry);

 private:
  bool empty_ = true;
  double farthest_ = 0.0;
  GE_BOX points_{};
};

// FlNewCross on references; run (may be null) is the current element's
// run, whose entries must be exactly first .. last.
uint16_t NewCross(CrossListRef ref, int16_t first, const IsectPoint &pt, LI_TAB_STRUCT *elem_a,
                  LI_TAB_STRUCT *elem_b, ElementRun *run);

// Crosses a with b and enters the results that lie on both elements
// (position codes up to GE_INSIDE); first is the first entry of a.
// Returns the first failing status.
uint16_t CrossPair(CrossListRef ref, int16_t first, LI_TAB_STRUCT *a, LI_TAB_STRUCT *b,
                   ElementRun &run);

// FlCrossList, told (when not 0) at least how many elements a and b hold,
// so that its working arrays are had at once rather than by doubling.
uint16_t CrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, uint32_t size_a, uint32_t size_b,
                   GE_CROSS *&list, int16_t &last);

}  // namespace polyarc
