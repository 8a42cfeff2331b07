// The last repair of a raw offset, shared by the parallel and the conic
// offsets.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

// LiKorrKont on the offset, after cutting every arc that nearly closes on
// itself (its ends closer than the repair's 10 x tol, its sweep long) in
// two at its middle: the repair judges elements by their chord and would
// otherwise delete a whole circle's worth of arc. Returns PA_NO_MEMORY
// when no record is left for a cut, else LiKorrKont's status.
uint16_t RepairOffset(LI_HEAD *head, LI_TAB_STRUCT **k, bool closed);

}  // namespace polyarc
