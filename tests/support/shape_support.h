// Shapes and checks that tests of several folders share: a full circle as
// a contour, numbered contours, polygons from coordinate lists, the sides
// of an offset.
#pragma once

#include <numbers>
#include <vector>

#include "support/crossing_support.h"

namespace polyarc_test {

constexpr double kPi = std::numbers::pi;
// Offset sides: left of the travel, right of it.
constexpr uint16_t kLeft = 1, kRight = 65535;

// A contour of one full circle from its rightmost point; dir 1 runs
// counter-clockwise, 2 clockwise.
LI_TAB_STRUCT *FullCircle(LI_HEAD *head, GE_POINT centre, double r, uint16_t dir);

// k with its elements numbered 1, 2, ... in chain order.
LI_TAB_STRUCT *Numbered(LI_TAB_STRUCT *k);

// The closed polygon of lines through x0, y0, x1, y1, ...
LI_TAB_STRUCT *Ring(LI_HEAD *head, const std::vector<double> &xy);

// Two open polylines of four lines numbered 1 5 2 3 and 1 2 6 3: each lacks one number of the
// other.
Live Alternating(LI_HEAD *head);

// A quarter arc from (1, 0) to (0, 1) about the origin, then a line up to (0, 3).
LI_TAB_STRUCT *ArcThenLine(LI_HEAD *head);

// Whether no element of the temporary end-marker type (98) is left.
bool NoSentinel(LI_TAB_STRUCT *k);

}  // namespace polyarc_test
