// Hand-made crossing lists and contour lists for the tests of
// classification, linking and loop choice.
#pragma once

#include <initializer_list>

#include "polyarc/fl.h"
#include "support/crossing_support.h"

namespace polyarc_test {

// Fills an empty crossing list with the entries, its array taken from the
// memory-block service as the list builders take it.
void Fill(CrossList &cross, std::initializer_list<GE_CROSS> entries);

// A split crossing at the joint after ea and after eb: the point is ea's
// end, next_a and next_b their successors, both locations "at the end".
GE_CROSS Joint(LI_TAB_STRUCT *ea, LI_TAB_STRUCT *eb);

// A contour list from the memory-block service holding the contours.
LI_TAB_STRUCT **ContourList(const Live &loops);

// The contours of a contour list, and their areas, entries 0..last.
Live Loops(LI_TAB_STRUCT **loops, int16_t last);
std::vector<double> Areas(LI_TAB_STRUCT **loops, int16_t last);

// The unit square moved by (d, d), counter-clockwise.
LI_TAB_STRUCT *Square(LI_HEAD *head, double d);

// A triangle of signed area a (clockwise when negative) whose sides stay
// longer than any tolerance the tests use with it.
LI_TAB_STRUCT *OfArea(LI_HEAD *head, double a);

}  // namespace polyarc_test
