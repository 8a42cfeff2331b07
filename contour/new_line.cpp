// Making the connecting lines that contour operations add.
#include "contour/new_line.h"

#include "polyarc/li.h"

uint16_t polyarc::NewExpandedLine(LI_HEAD *head, GE_POINT a, GE_POINT b, LI_TAB_STRUCT *&out) {
  LI_TAB_STRUCT *e = nullptr;
  if (LiNew(head, &e) != PA_OK) return PA_NO_MEMORY;
  e->type = LI_LINE;
  e->ap = a;
  e->ep = b;
  if (const uint16_t status = LiElemExpand(e); status != PA_OK) {
    LiRemove(head, &e);
    return status;
  }
  out = e;
  return PA_OK;
}
