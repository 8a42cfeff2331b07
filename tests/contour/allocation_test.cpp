// The contour edits that take records, one of each kind, with the store running out at each
// record in turn: the documented status, what the edit leaves behind, no record lost.
#include <functional>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

using Build = std::function<Live(LI_HEAD *)>;
using Op = std::function<uint16_t(LI_HEAD *, Live &)>;

TEST(ContourEdits, RunningOutOfRecordsLosesNone) {
  const GE_POINT o{0, 0}, a{2, 0}, b{2, 2}, c{1, 1}, mid{1, 0}, q1{1, 0}, q2{4, 3};
  const Build nothing = [](LI_HEAD *) { return Live{nullptr, nullptr}; };
  const Build line = [](LI_HEAD *h) { return Live{Polyline(h, {{0, 0}, {2, 0}})}; };
  const struct {
    const char *name;
    uint16_t status;
    Build build;
    Op op;
  } edits[] = {
      {"drawing", PA_NO_MEMORY, nothing,
       [&](LI_HEAD *h, Live &l) {
         uint16_t st = LiMove(h, &l[0], &o);
         if (st == PA_OK) st = LiDraw(h, &l[0], &a);  // turns the move into a line
         if (st == PA_OK) st = LiDraw(h, &l[0], &b);
         if (st == PA_OK) st = LiArc(h, &l[0], &o, &c, 0);
         return st == PA_OK ? LiDrawNew(h, &l[1], &o, &a) : st;
       }},
      {"LiCloseKontToY0", PA_NO_MEMORY,
       [](LI_HEAD *h) {
         return Live{Polyline(h, {{2, 0}, {2, 3}, {0, 3}, {0, 0}})};
       },
       [](LI_HEAD *h, Live &l) { return LiCloseKontToY0(h, l[0]); }},
      // A failing start is reported at once; the end line still moves.
      {"LiVerlKont", PA_NO_MEMORY, [](LI_HEAD *h) { return Live{ArcThenLine(h)}; },
       [](LI_HEAD *h, Live &l) {
         const uint16_t st = LiVerlKont(h, &l[0], 1);
         EXPECT_EQ(l[0]->prev->ep, (GE_POINT{0, 4}));
         return st;
       }},
      // A failed cut leaves the element whole.
      {"LiElemSplit", PA_NO_RECORD, line,
       [&](LI_HEAD *h, Live &l) {
         LI_TAB_STRUCT *out = nullptr;
         const uint16_t st = LiElemSplit(h, l[0], &out, &mid);
         EXPECT_TRUE(st == PA_OK || (!out && l[0]->ep == a && l[0]->next == l[0]));
         return st;
       }},
      {"LiSplitKont", PA_NO_RECORD,
       [](LI_HEAD *h) {
         return Live{Numbered(Polygon(h, {{0, 0}, {4, 0}, {4, 4}, {0, 4}}))};
       },
       [&](LI_HEAD *h, Live &l) {
         l.resize(4);  // after the records held back
         return LiSplitKont(h, &l[0], &l[2], &l[3], 1, &q1, 2, &q2);
       }},
      // Partners and end markers come from the store; no marker is left.
      {"LiCoCoExpKont", PA_NO_MEMORY, Alternating,
       [](LI_HEAD *h, Live &l) {
         const uint16_t st = LiCoCoExpKont(h, &l[0], &l[1]);
         EXPECT_TRUE(NoSentinel(l[0]) && NoSentinel(l[1]));
         return st;
       }},
  };
  for (const auto &edit : edits) {
    SCOPED_TRACE(edit.name);
    ExpectCleanAllocationFailures(edit.status, edit.build, edit.op);
  }
}

}  // namespace
}  // namespace polyarc_test
