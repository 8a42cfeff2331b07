// The pieces of the crossing-list builders that the index-driven search
// and the containment tests share.
#pragma once

#include <cstdint>

#include "polyarc/records.h"

namespace polyarc {

// A crossing list under construction: the caller's array, its capacity
// and its last index.
struct CrossListRef {
  GE_CROSS *&list;
  uint16_t &capacity;
  int16_t &last;
};

// The box of an element of A as the crossing search sees it: widened by
// 10 x tol on every side.
GE_BOX WidenedBox(const GE_BOX &box, double tol);

// The box test of the crossing search: A's widened box against B's box as
// it is. Touching boxes overlap.
bool CrossBoxesOverlap(const GE_BOX &a_widened, const GE_BOX &b);

// Crosses a with b and enters the results that lie on both elements
// (position codes up to GE_INSIDE) with NewCross; first is the first entry
// of a. Returns the first failing status.
uint16_t CrossPair(CrossListRef ref, int16_t first, LI_TAB_STRUCT *a, LI_TAB_STRUCT *b);

// FlNewCross on references.
uint16_t NewCross(CrossListRef ref, int16_t first, const IsectPoint &pt, LI_TAB_STRUCT *elem_a,
                  LI_TAB_STRUCT *elem_b);

}  // namespace polyarc
