// The last repair of a raw offset, shared by the parallel and the conic
// offsets.
#pragma once

#include "polyarc/records.h"

namespace polyarc {

// The last step of an offset that made *out with `status`: the repair
// (not in the gap corner mode: LiKorrKont, which removes tiny elements and
// closes the joints, after every arc that nearly closes on itself was cut
// in two at its middle, since LiKorrKont judges elements by their chord
// and would delete a whole circle's worth of arc), PA_INVALID for an empty result (also one
// that the repair emptied), and on any failure the result released.
uint16_t FinishOffset(LI_HEAD *head, LI_TAB_STRUCT **out, uint16_t status, bool closed,
                      uint16_t mode);

}  // namespace polyarc
