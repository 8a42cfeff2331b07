// What the library says about itself: its version and the meaning of its
// status codes, so that callers need no table of their own.
#include "polyarc/records.h"

namespace polyarc {
namespace {

struct StatusMeaning {
  uint16_t status;
  const char *text;
};

// PA_NO_MEMORY and PA_IMPOSSIBLE share their code, so one text says both.
constexpr StatusMeaning kMeanings[] = {
    {PA_OK, "success"},
    {PA_NOT_ON, "not on, not near or outside the range (a result, not an error)"},
    {PA_NO_RECORD, "no record for a copy or a cut piece, or a table overflowed"},
    {PA_NO_MEMORY,
     "out of memory, or an impossible construction, invalid content or a failed search"},
    {PA_LIST_FULL, "a number list or crossing list is full"},
    {PA_ZERO_LENGTH, "a line of zero length"},
    {PA_PARALLEL, "parallel lines have no intersection"},
    {PA_CONCENTRIC, "circles with coincident centres"},
    {PA_ZERO_RADIUS, "radius below the tolerance"},
    {PA_NOT_PAIRED, "the contours cannot be paired element by element"},
    {PA_INVALID, "invalid argument or geometry"},
    {PA_DEGENERATE, "degenerate three-point configuration"},
    {PA_PARTIAL, "partial result"},
};

}  // namespace
}  // namespace polyarc

extern "C" const char *PaStatusText(uint16_t status) {
  for (const polyarc::StatusMeaning &meaning : polyarc::kMeanings) {
    if (meaning.status == status) return meaning.text;
  }
  return "unknown status";
}

extern "C" const char *PaVersion(void) { return POLYARC_VERSION_STRING; }
