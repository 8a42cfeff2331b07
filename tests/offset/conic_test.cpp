// The conic offset: distances that run from each element's start to its
// end, and the joins between the offset elements.
#include <cmath>
#include <vector>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

LI_TAB_STRUCT *Conic(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side,
                     const std::vector<double> &dist, uint32_t closed) {
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(FlConic(head, k, side, dist.data(), nullptr, &out, closed, FL_CORNER_SHARP), PA_OK);
  return out;
}

TEST(Conic, TapersAlongLinesAndArcs) {
  Store store;
  // A line offset by 1 at its start and 2 at its end.
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {4, 0}});
  LI_TAB_STRUCT *l = Conic(store.get(), line, kLeft, {1, 2}, 0);
  EXPECT_EQ(Vertices(l), (Points{{0, 1}, {4, 2}}));
  // Tapering from 0.5 to 1 along a quarter of radius 4: an arc through 4.75 half way.
  LI_TAB_STRUCT *quarter = Chain(store.get(), {Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW)});
  LI_TAB_STRUCT *a = Conic(store.get(), quarter, kRight, {0.5, 1}, 0);
  ASSERT_TRUE(a->next == a && a->type == LI_ARC_CCW);
  const double h = 4.75 * std::numbers::sqrt2 / 2;
  EXPECT_NEAR(a->ap.x, 4.5, 1e-12);
  EXPECT_NEAR(a->ep.y, 5, 1e-12);
  EXPECT_NEAR(std::hypot(h - a->mp.x, h - a->mp.y), a->rad, 1e-12);
  // Round a square a constant distance gives the sharp offset; a taper along the bottom
  // trims its neighbours to the slanted side.
  LI_TAB_STRUCT *sq = Polygon(store.get(), {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
  LI_TAB_STRUCT *s = Conic(store.get(), sq, kRight, std::vector<double>(8, 0.5), 1);
  EXPECT_NEAR(LiKontArea(s), 9, 1e-12);
  LI_TAB_STRUCT *in = Conic(store.get(), sq, kLeft, {0, 1, 1, 1, 0.5, 0.5, 0.5, 0.5}, 1);
  const Points v = Vertices(in);
  EXPECT_TRUE(std::fabs(v[0].y + 0.75) < 1e-12 && std::fabs(v[1].y + 0.5) < 1e-12);
  EXPECT_NEAR(LiKontArea(in), 0.5 * 1.125, 1e-12) << "a trapezoid, 0.5 wide";
  // Where an arc's offset starts away from a line's end a line numbered 0 bridges them.
  LI_TAB_STRUCT *hook =
      Chain(store.get(), {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, 1}, {2, 1}, LI_ARC_CCW)});
  LI_TAB_STRUCT *h2 = Conic(store.get(), hook, kRight, {0.5, 0.5, 1, 1}, 0);
  ASSERT_EQ(LiCountElem(h2), 3u);
  EXPECT_TRUE(h2->next->type == LI_LINE && h2->next->no == 0 &&
              h2->next->ap == (GE_POINT{2, -0.5}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {line, l, quarter, a, sq, s, in, hook, h2}));
}

TEST(Conic, JoinBadInputAndAllocationFailure) {
  Store store;
  LI_TAB_STRUCT *out = nullptr;
  LI_TAB_STRUCT e1 = Line({0, 0}, {2, 0}), e2 = Line({1, -1}, {1, 1});
  ASSERT_EQ(FlConicJoin(store.get(), nullptr, nullptr, &e1, &e2, 0, &out), PA_OK);
  ASSERT_EQ(FlConicJoin(store.get(), nullptr, nullptr, &e1, &e2, kLeft, &out), PA_OK);
  EXPECT_EQ(Vertices(out), (Points{{0, 0}, {2, 0}, {0, 0}, {1, 0}})) << "side 0: e1 as it is";
  EXPECT_EQ(e2.ap, (GE_POINT{1, 0}));
  LI_TAB_STRUCT *none = out;
  const double dist[2] = {1, 1};
  EXPECT_EQ(FlConic(store.get(), nullptr, kLeft, dist, nullptr, &none, 0, 0), PA_INVALID);
  EXPECT_TRUE(none == nullptr && AllRecordsAccounted(store.head(), {out}));
  ExpectCleanAllocationFailures(
      PA_NO_MEMORY,
      [](LI_HEAD *head) {
        return Live{Polygon(head, {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}})};
      },
      [](LI_HEAD *head, Live &live) {
        const std::vector<double> d(8, 0.5);
        LI_TAB_STRUCT *r = nullptr;
        const uint16_t status = FlConic(head, live[0], kRight, d.data(), nullptr, &r, 1, 0);
        live.push_back(r);
        return status;
      });
}

}  // namespace
}  // namespace polyarc_test
