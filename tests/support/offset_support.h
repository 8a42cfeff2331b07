// Checks of offset results computed here from the element fields, not by
// the library: dense samples, distances to a contour, self-crossings and
// winding of the chorded contour; and random star contours.
#pragma once

#include "support/shape_support.h"

namespace polyarc_test {

// The largest |distance to the source - d| over samples every 0.01 of
// every result element, moves included (a move left in a result shows).
double OffsetDeviation(LI_TAB_STRUCT *result, LI_TAB_STRUCT *source, double d);

// Whether two chords of the chorded contour cross properly.
bool CrossesItself(LI_TAB_STRUCT *k);

// Winding number of the chorded closed contour round p.
int Winding(LI_TAB_STRUCT *k, GE_POINT p);

// The number of elements of type `type` (3 counts both arc types).
int Count(LI_TAB_STRUCT *k, uint16_t type);

// A counter-clockwise star of n vertices at radii in [rmin, rmax]; a share
// of its edges are arcs bulging in or out.
LI_TAB_STRUCT *RandomStar(LI_HEAD *head, unsigned seed, int n, double rmin, double rmax,
                          double arc_share);

}  // namespace polyarc_test
