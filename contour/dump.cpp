// The diagnostic text dump of a contour, one line per element, and two
// entry points that are kept for old callers and do nothing.
#include <cstdio>

#include "polyarc/li.h"

extern "C" uint16_t LiDebDumpLi(const LI_TAB_STRUCT *k, FILE *stream) {
  if (stream == nullptr) stream = stderr;
  if (k == nullptr || stream == nullptr) return PA_OK;
  const LI_TAB_STRUCT *e = k;
  do {
    std::fprintf(stream, "%11p %2d %10g %10g %10g %10g %d\n", static_cast<const void *>(e),
                 static_cast<int>(e->type), e->ap.x, e->ap.y, e->ep.x, e->ep.y,
                 static_cast<int>(e->no));
    // Flushed line by line, so that a dump survives a crash right after it.
    std::fflush(stream);
    e = e->next;
  } while (e != k);
  return PA_OK;
}

extern "C" uint16_t LiDebLi(const LI_TAB_STRUCT *) { return PA_OK; }

extern "C" uint16_t LiDebElem(const LI_TAB_STRUCT *) { return PA_OK; }
