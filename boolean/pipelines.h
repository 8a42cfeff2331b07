// The two-contour pipeline as the Boolean operations run it: the loops'
// areas come out of the walk that lists them, so the loop choice need not
// walk every loop again.
#pragma once

#include <cstdint>

#include "platform/block_allocator.h"
#include "polyarc/records.h"

namespace polyarc {

using LoopAreas = BlockVector<double>;

// FlCrossKonturClosed; with areas given, each listed loop's signed area
// lands in (*areas)[i], and PA_NO_MEMORY reports that areas could not grow.
// size_a and size_b, when not 0, are at least the contours' element counts.
uint16_t CrossKonturClosed(LI_HEAD *head, LI_TAB_STRUCT *&a, LI_TAB_STRUCT *&b, int32_t op,
                           uint32_t &flags, LI_TAB_STRUCT **&loops, int16_t &last, LoopAreas *areas,
                           uint32_t size_a = 0, uint32_t size_b = 0);

// FlCrossKonturCleanClosed, taking the loops' areas from areas when given
// (the loops then come from CrossKonturClosed above) instead of walking.
uint16_t CrossKonturCleanClosed(LI_HEAD *head, double area_a, double area_b, uint32_t op,
                                LI_TAB_STRUCT **loops, int16_t &last, const double *areas);

}  // namespace polyarc
