// Every record of a store counted once: on the free list or in one live
// contour, nowhere else. The tests and the fuzz targets both ask it.
#pragma once

#include <string>
#include <vector>

#include "polyarc/records.h"

namespace polyarc_census {

// Empty when every record of head's blocks lies on the free list or in
// exactly one of the live contours (null entries are skipped) and the live
// contours' links hold; else what is wrong.
std::string RecordCensus(const LI_HEAD &head, const std::vector<const LI_TAB_STRUCT *> &live);

}  // namespace polyarc_census
