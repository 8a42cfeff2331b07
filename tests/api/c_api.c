/* Compiled as C11: every public header must be usable from C, and the
 * records must be plain structs that C code fills and reads. */
#include <stdio.h>
#include <string.h>

#include "polyarc/fl.h"
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
  {
    GE_POINT c1 = {0.0, 0.0}, c2 = {2.0, 0.0}, q1, q2;
    GE_POINT3 a = {1.0, 0.0, 0.0}, b = {0.0, 1.0, 0.0}, m = {0.0, 0.0, 0.0};
    uint16_t count = 0;
    check(GeIseCirCir(&c1, 1.0, &c2, 1.0, &count, &q1, &q2) == PA_OK && count == 1,
          "touching circles");
    check(GeArcToLinesSplit(&a, &b, &m, LI_ARC_CCW, 3) != NULL, "arc-to-lines buffer");
  }

  LiRemove(&store, &kont);
  check(kont == NULL, "LiRemove clears the handle");
  LiFreeMem(&store);
  check(store.blocks == NULL && store.nblocks == 0, "LiFreeMem empties the store");
  return failures == 0 ? 0 : 1;
}
