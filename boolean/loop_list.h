// What the functions that choose result loops share: the sign of a loop's
// area and the closing up of a contour list after removals.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

// -1, 0 or +1: the sign of an area, 0 within tol of zero.
constexpr int AreaSign(double area, double tol) {
  if (area < -tol) return -1;
  return area > tol ? 1 : 0;
}

// Moves the non-null entries of loops[0..last] to the front in their order
// and returns the new last index (FL_EMPTY when none is left).
inline int16_t CloseUp(LI_TAB_STRUCT **loops, int16_t last) {
  int kept = 0;
  for (int i = 0; i <= last; ++i) {
    if (loops[i] != nullptr) loops[kept++] = loops[i];
  }
  return static_cast<int16_t>(kept - 1);
}

}  // namespace polyarc
