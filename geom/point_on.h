// Shared pieces of the point evaluation functions.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

// The position code of a point on e's carrier (1 at ap, 2 at ep, 3 inside,
// 4 before, 5 beyond), snapping p to the end it lies at; par receives its
// parameter.
uint16_t PointOn(const LI_TAB_STRUCT &e, GE_POINT &p, double &par);

// Nearest point of an arc to p: the radial foot when p's angle is in the
// range, else the nearer end (the start on a tie), with that end's stored
// angle and distance.
void NearestOnArc(GE_POINT p, const LI_TAB_STRUCT &arc, double &dist, GE_POINT &nearest,
                  double &angle);

}  // namespace polyarc
