// The record layout is the binary interface: an element record must begin
// with exactly the fields of GE_LI_ELEM, and the records keep their field
// order. These checks hold the two hand-written field lists together.
#include <cstddef>

#include "polyarc/records.h"

namespace polyarc {
namespace {

static_assert(offsetof(GE_LI_ELEM, type) == offsetof(LI_TAB_STRUCT, type));
static_assert(offsetof(GE_LI_ELEM, ap) == offsetof(LI_TAB_STRUCT, ap));
static_assert(offsetof(GE_LI_ELEM, ep) == offsetof(LI_TAB_STRUCT, ep));
static_assert(offsetof(GE_LI_ELEM, mp) == offsetof(LI_TAB_STRUCT, mp));
static_assert(offsetof(GE_LI_ELEM, box) == offsetof(LI_TAB_STRUCT, box));
static_assert(offsetof(GE_LI_ELEM, tan_ap) == offsetof(LI_TAB_STRUCT, tan_ap));
static_assert(offsetof(GE_LI_ELEM, tan_ep) == offsetof(LI_TAB_STRUCT, tan_ep));
static_assert(offsetof(GE_LI_ELEM, rad) == offsetof(LI_TAB_STRUCT, rad));
static_assert(offsetof(GE_LI_ELEM, ang_ap) == offsetof(LI_TAB_STRUCT, ang_ap));
static_assert(offsetof(GE_LI_ELEM, ang_ep) == offsetof(LI_TAB_STRUCT, ang_ep));

static_assert(sizeof(GE_LI_ELEM) <= offsetof(LI_TAB_STRUCT, next));
static_assert(offsetof(LI_TAB_STRUCT, ang_ep) < offsetof(LI_TAB_STRUCT, next));
static_assert(offsetof(LI_TAB_STRUCT, next) < offsetof(LI_TAB_STRUCT, prev));
static_assert(offsetof(LI_TAB_STRUCT, prev) < offsetof(LI_TAB_STRUCT, attr_val));
static_assert(offsetof(LI_TAB_STRUCT, attr_val) < offsetof(LI_TAB_STRUCT, attr_id));
static_assert(offsetof(LI_TAB_STRUCT, attr_id) < offsetof(LI_TAB_STRUCT, no));
static_assert(offsetof(LI_TAB_STRUCT, no) < offsetof(LI_TAB_STRUCT, mark));
static_assert(offsetof(LI_HEAD, free) < offsetof(LI_HEAD, blocks));
static_assert(offsetof(LI_HEAD, blocks) < offsetof(LI_HEAD, nblocks));
static_assert(offsetof(IsectPoint, par2) < offsetof(IsectPoint, pos1));

// A crossing record begins with the point record that GeCross fills.
static_assert(offsetof(GE_CROSS, pt) == offsetof(IsectPoint, x));
static_assert(offsetof(GE_CROSS, par_a) == offsetof(IsectPoint, par1));
static_assert(offsetof(GE_CROSS, par_b) == offsetof(IsectPoint, par2));
static_assert(offsetof(GE_CROSS, loc_a) == offsetof(IsectPoint, pos1));
static_assert(offsetof(GE_CROSS, loc_b) == offsetof(IsectPoint, pos2));
static_assert(sizeof(IsectPoint) == offsetof(GE_CROSS, elem_a));
static_assert(offsetof(GE_CROSS, elem_a) < offsetof(GE_CROSS, elem_b));
static_assert(offsetof(GE_CROSS, elem_b) < offsetof(GE_CROSS, next_a));
static_assert(offsetof(GE_CROSS, next_a) < offsetof(GE_CROSS, next_b));
static_assert(offsetof(GE_CROSS, next_b) < offsetof(GE_CROSS, mode));
static_assert(offsetof(GE_CROSS, mode) < offsetof(GE_CROSS, side));
static_assert(offsetof(GE_CROSS, side) < offsetof(GE_CROSS, rev));

}  // namespace
}  // namespace polyarc
