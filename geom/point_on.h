// Shared pieces of the point evaluation functions.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

// Nearest point of an arc to p: the radial foot when p's angle is in the
// range, else the nearer end (the start on a tie), with that end's stored
// angle and distance.
void NearestOnArc(GE_POINT p, const LI_TAB_STRUCT &arc, double &dist, GE_POINT &nearest,
                  double &angle);

}  // namespace polyarc
