// The contour edits that take records, one of each kind, with the store
// running out at their first record, their second, and so on: the
// documented status, what the edit promises to leave behind, and no record
// lost.
#include <functional>

#include "support/crossing_support.h"

namespace polyarc_test {
namespace {

using Build = std::function<Live(LI_HEAD *)>;
using Op = std::function<uint16_t(LI_HEAD *, Live &)>;

// A quarter arc from (1, 0) to (0, 1) about the origin, then a line up to
// (0, 3).
Live ArcThenLine(LI_HEAD *head) {
  return {Chain(head, {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW), Line({0, 1}, {0, 3})})};
}

// The square (0,0) (4,0) (4,4) (0,4), numbered 1 to 4.
Live NumberedSquare(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polygon(head, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  uint16_t counter = 0;
  LiNumKont(k, &counter);
  return {k};
}

// Two numbered polylines, each lacking one number of the other.
Live Alternating(LI_HEAD *head) {
  Live k{Polyline(head, {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}),
         Polyline(head, {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}})};
  const uint16_t numbers[2][4] = {{1, 5, 2, 3}, {1, 2, 6, 3}};
  for (int i = 0; i < 2; ++i) {
    for (int j = 0; LI_TAB_STRUCT * e : Elements(k[i])) e->no = numbers[i][j++];
  }
  return k;
}

bool NoSentinel(const Live &live) {
  for (LI_TAB_STRUCT *k : live)
    for (LI_TAB_STRUCT *e : Elements(k))
      if (e->type == 98) return false;  // the temporary end marker
  return true;
}

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
      {"LiVerlKont", PA_NO_MEMORY, ArcThenLine,
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
      {"LiSplitKont", PA_NO_RECORD, NumberedSquare,
       [&](LI_HEAD *h, Live &l) {
         l.resize(4);  // after the records held back
         return LiSplitKont(h, &l[0], &l[2], &l[3], 1, &q1, 2, &q2);
       }},
      // Partners and end markers come from the store; no marker is left.
      {"LiCoCoExpKont", PA_NO_MEMORY, Alternating,
       [](LI_HEAD *h, Live &l) {
         const uint16_t st = LiCoCoExpKont(h, &l[0], &l[1]);
         EXPECT_TRUE(NoSentinel(l));
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
