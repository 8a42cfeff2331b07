/* Compiled as C11: every public header must be usable from C, and the
 * records must be plain structs that C code fills and reads. */
#include <stdio.h>
#include <string.h>

#include "polyarc/ge.h"
#include "polyarc/li.h"
#include "polyarc/platform.h"
#include "polyarc/records.h"

static int failures = 0;

static void check(int ok, const char *what) {
  if (!ok) {
    fprintf(stderr, "FAILED: %s\n", what);
    ++failures;
  }
}

int main(void) {
  LI_HEAD store;
  LI_TAB_STRUCT *kont = NULL;
  GE_POINT p0 = {0.0, 0.0}, p1 = {3.0, 0.0}, p2 = {3.0, 4.0};
  memset(&store, 0, sizeof store);

  check(LiMove(&store, &kont, &p0) == PA_OK, "LiMove");
  check(LiDraw(&store, &kont, &p1) == PA_OK, "LiDraw");
  check(LiDraw(&store, &kont, &p2) == PA_OK, "LiDraw");
  check(LiDraw(&store, &kont, &p0) == PA_OK, "LiDraw back");
  check(kont != NULL && kont->type == LI_LINE, "first element is a line");
  check(LiCheck(kont) == 1, "links consistent");
  check(kont->prev->ang_ep - kont->prev->ang_ap == 5.0, "hypotenuse of the 3-4-5 triangle");

  {
    GE_POINT pt = {1.5, 0.0};
    double par = 0.0;
    check(GePointOn(kont, &pt, &par) == GE_INSIDE && par == 1.5, "GePointOn inside");
  }
  check(GeEpsiGetTol() == 5e-05, "default tolerance");

  LiRemove(&store, &kont);
  check(kont == NULL, "LiRemove clears the handle");
  LiFreeMem(&store);
  check(store.blocks == NULL && store.nblocks == 0, "LiFreeMem empties the store");
  return failures == 0 ? 0 : 1;
}
