// Making the connecting lines that contour operations add.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

// A new expanded line a -> b in out. When it cannot be expanded it is
// given back and the expansion's status returned, so that no degenerate
// element is left in a contour; PA_NO_MEMORY when no record can be had.
uint16_t NewExpandedLine(LI_HEAD *head, GE_POINT a, GE_POINT b, LI_TAB_STRUCT *&out);

}  // namespace polyarc
