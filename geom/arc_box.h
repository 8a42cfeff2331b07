// The tight box of an arc, shared by GeArcRect and the element boxes.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

struct ArcBox {
  GE_POINT min;
  GE_POINT max;
};

// Box of the arc that runs clockwise about centre from p1 to p2.
ArcBox ClockwiseArcBox(GE_POINT centre, double radius, GE_POINT p1, GE_POINT p2);

}  // namespace polyarc
