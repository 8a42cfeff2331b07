// The per-element steps of LiRemShort, for callers that run them inside a
// walk of their own (the Boolean operations tidy and measure their copies
// in one walk).
#pragma once

#include <cstdint>

#include "polyarc/records.h"

namespace polyarc {

// An arc whose length differs from its chord by less than min and whose
// sagitta is below min becomes a line.
void FlattenArc(LI_TAB_STRUCT &e, double min, double tol);

// Whether LiRemShort deletes e; only is true when e is all that is left.
bool IsShort(const LI_TAB_STRUCT &e, bool only, double min);

// Recomputes one element after its joints moved; its status.
uint16_t Recompute(LI_TAB_STRUCT *e);

}  // namespace polyarc
