// The rewiring at crossings, for the pipelines that want each loop's area
// from the same walk that lists the loops.
#pragma once

#include <cstdint>

#include "polyarc/records.h"

namespace polyarc {

// FlCrossLink. areas, when given, must have room for 2 * (last + 1)
// entries and receives each listed loop's signed area, summed as
// LiKontArea sums it.
void CrossLink(GE_CROSS *&list, int16_t &last, LI_TAB_STRUCT **&loops, int16_t &loops_last,
               double *areas);

}  // namespace polyarc
