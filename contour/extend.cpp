// Extending a contour along the tangent at its start or end: a line or
// move is lengthened in place, an arc gets a new line in front or behind.
#include "contour/new_line.h"
#include "geom/predicates.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

uint16_t ExtendStart(LI_HEAD *head, LI_TAB_STRUCT **kont, double len) {
  LI_TAB_STRUCT *first = *kont;
  const GE_POINT q = first->ap - len * first->tan_ap;
  if (IsLine(*first)) {
    first->ap = q;
    return LiElemExpand(first);
  }
  LI_TAB_STRUCT *line = nullptr;
  if (const uint16_t status = NewExpandedLine(head, q, first->ap, line); status != PA_OK)
    return status;
  SpliceBefore(first, line);
  *kont = line;
  return PA_OK;
}

GE_POINT ExtendedEnd(const LI_TAB_STRUCT &last, double len) { return last.ep + len * last.tan_ep; }

uint16_t ExtendEnd(LI_HEAD *head, LI_TAB_STRUCT **kont, double len) {
  LI_TAB_STRUCT *last = (*kont)->prev;
  const GE_POINT q = ExtendedEnd(*last, len);
  if (IsLine(*last)) {
    last->ep = q;
    return LiElemExpand(last);
  }
  LI_TAB_STRUCT *line = nullptr;
  if (const uint16_t status = NewExpandedLine(head, last->ep, q, line); status != PA_OK)
    return status;
  SpliceAfter(last, line);
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiVerlKont(LI_HEAD *head, LI_TAB_STRUCT **kont, double len) {
  if (kont == nullptr) return PA_INVALID;
  if (*kont == nullptr) return PA_OK;
  if (const uint16_t status = ExtendStart(head, kont, len); status != PA_OK) {
    // The end still moves when it is a line, but is not re-expanded, and
    // no new element is made after a failure.
    LI_TAB_STRUCT *last = (*kont)->prev;
    if (IsLine(*last)) last->ep = ExtendedEnd(*last, len);
    return status;
  }
  return ExtendEnd(head, kont, len);
}

extern "C" uint16_t LiElemVerl(LI_HEAD *head, LI_TAB_STRUCT **kont, double len, int32_t at_start) {
  if (kont == nullptr) return PA_INVALID;
  if (*kont == nullptr) return PA_OK;
  if (at_start != 0) return ExtendStart(head, kont, len);
  return ExtendEnd(head, kont, len);
}
