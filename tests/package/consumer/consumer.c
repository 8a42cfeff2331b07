/* A program that uses an installed polyarc: the headers' version agrees
 * with the library's, and a 3-4-5 triangle has area 6. */
#include <stdio.h>
#include <string.h>

#include <polyarc/li.h>

int main(void) {
  char built[32];
  LI_HEAD store;
  LI_TAB_STRUCT *k = NULL;
  GE_POINT a = {0, 0}, b = {3, 0}, c = {3, 4};
  double area = 0;
  memset(&store, 0, sizeof store);
  snprintf(built, sizeof built, "%d.%d.%d", POLYARC_VERSION_MAJOR, POLYARC_VERSION_MINOR,
           POLYARC_VERSION_PATCH);
  if (strcmp(built, POLYARC_VERSION_STRING) != 0 || strcmp(PaVersion(), built) != 0) {
    fprintf(stderr, "versions differ: macros %s, string %s, library %s\n", built,
            POLYARC_VERSION_STRING, PaVersion());
    return 1;
  }
  if (LiMove(&store, &k, &a) == PA_OK && LiDraw(&store, &k, &b) == PA_OK &&
      LiDraw(&store, &k, &c) == PA_OK && LiDraw(&store, &k, &a) == PA_OK) {
    area = LiKontArea(k);
  }
  LiRemove(&store, &k);
  LiFreeMem(&store);
  printf("polyarc %s: area %g\n", PaVersion(), area);
  return area == 6 ? 0 : 1;
}
