// The conic offset: distances that run from each element's start to its
// end, the joins between the offset elements.
#include <cmath>
#include <numbers>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

constexpr uint16_t kLeft = 1, kRight = 65535;

struct Result {
  uint16_t status;
  LI_TAB_STRUCT *k;
};

Result Conic(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, const std::vector<double> &dist,
             uint32_t closed, uint16_t mode = FL_CORNER_SHARP) {
  Result r{};
  r.status = FlConic(head, k, side, dist.data(), nullptr, &r.k, closed, mode);
  return r;
}

TEST(Conic, LinesAndArcsTaper) {
  Store store;
  // A line offset by 1 at its start and 2 at its end: the line between
  // the two offset points.
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {4, 0}});
  const Result l = Conic(store.get(), line, kLeft, {1, 2}, 0);
  ASSERT_EQ(l.status, PA_OK);
  EXPECT_EQ(Vertices(l.k), (Points{{0, 1}, {4, 2}}));
  // A band tapering from 0.5 to 1 along a quarter of radius 4: an arc from
  // radius 4.5 to radius 5, through the point at radius 4.75 half way.
  LI_TAB_STRUCT *quarter = Chain(store.get(), {Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW)});
  const Result a = Conic(store.get(), quarter, kRight, {0.5, 1}, 0);
  ASSERT_EQ(a.status, PA_OK);
  ASSERT_EQ(LiCountElem(a.k), 1u);
  EXPECT_EQ(a.k->type, LI_ARC_CCW);
  EXPECT_NEAR(a.k->ap.x, 4.5, 1e-12);
  EXPECT_NEAR(a.k->ep.y, 5, 1e-12);
  const double h = 4.75 * std::numbers::sqrt2 / 2;
  EXPECT_NEAR(std::hypot(h - a.k->mp.x, h - a.k->mp.y), a.k->rad, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {line, l.k, quarter, a.k}));
}

TEST(Conic, JoinsTrimLinesAndBridgeTheRest) {
  Store store;
  // A constant distance round a counter-clockwise square: the sharp
  // offset, a square of side 3.
  LI_TAB_STRUCT *square = Polygon(store.get(), {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
  const Result s = Conic(store.get(), square, kRight, std::vector<double>(8, 0.5), 1);
  ASSERT_EQ(s.status, PA_OK);
  EXPECT_EQ(Vertices(s.k), (Points{{-1.5, -1.5},
                                   {1.5, -1.5},
                                   {1.5, -1.5},
                                   {1.5, 1.5},
                                   {1.5, 1.5},
                                   {-1.5, 1.5},
                                   {-1.5, 1.5},
                                   {-1.5, -1.5}}));
  // Inside, with a taper along the bottom side: the neighbours are trimmed
  // to the bottom's slanted offset.
  const Result in = Conic(store.get(), square, kLeft, {0, 1, 1, 1, 0.5, 0.5, 0.5, 0.5}, 1);
  ASSERT_EQ(in.status, PA_OK);
  EXPECT_TRUE(VerticesNear(in.k, {{-0.5, -0.75},
                                  {0, -0.5},
                                  {0, -0.5},
                                  {0, 0.5},
                                  {0, 0.5},
                                  {-0.5, 0.5},
                                  {-0.5, 0.5},
                                  {-0.5, -0.75}}));
  // Where an arc's offset starts away from a line's end a connecting line
  // with number 0 bridges them.
  LI_TAB_STRUCT *hook =
      Chain(store.get(), {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, 1}, {2, 1}, LI_ARC_CCW)});
  for (LI_TAB_STRUCT *e : Elements(hook)) e->no = 4;
  const Result h = Conic(store.get(), hook, kRight, {0.5, 0.5, 1, 1}, 0);
  ASSERT_EQ(h.status, PA_OK);
  const std::vector<LI_TAB_STRUCT *> e = Elements(h.k);
  ASSERT_EQ(e.size(), 3u);
  EXPECT_TRUE(e[1]->type == LI_LINE && e[1]->no == 0 && e[1]->ap == (GE_POINT{2, -0.5}));
  EXPECT_TRUE(e[2]->type == LI_ARC_CCW && e[2]->no == 4);
  EXPECT_NEAR(e[2]->rad, 2, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, s.k, in.k, hook, h.k}));
}

TEST(ConicJoin, SideZeroMeetingEndsAndCrossingLines) {
  Store store;
  LI_TAB_STRUCT *out = nullptr;
  LI_TAB_STRUCT e1 = Line({0, 0}, {2, 0}), e2 = Line({1, -1}, {1, 1});
  ASSERT_EQ(FlConicJoin(store.get(), nullptr, nullptr, &e1, &e2, 0, &out), PA_OK);
  ASSERT_EQ(FlConicJoin(store.get(), nullptr, nullptr, &e1, &e2, kLeft, &out), PA_OK);
  EXPECT_EQ(Vertices(out), (Points{{0, 0}, {2, 0}, {0, 0}, {1, 0}}));
  EXPECT_EQ(e2.ap, (GE_POINT{1, 0}));
  EXPECT_EQ(FlConicJoin(store.get(), nullptr, nullptr, nullptr, &e2, kLeft, &out), PA_INVALID);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {out}));
}

TEST(Conic, BadInputAndAllocationFailure) {
  Store store;
  LI_TAB_STRUCT *out = nullptr;
  const double dist[2] = {1, 1};
  EXPECT_EQ(FlConic(store.get(), nullptr, kLeft, dist, nullptr, &out, 0, 0), PA_INVALID);
  EXPECT_EQ(out, nullptr);
  ExpectCleanAllocationFailures(
      PA_NO_MEMORY,
      [](LI_HEAD *head) {
        return Live{Polygon(head, {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}})};
      },
      [](LI_HEAD *head, Live &live) {
        const Result r = Conic(head, live[0], kRight, std::vector<double>(8, 0.5), 1);
        EXPECT_EQ(r.k == nullptr, r.status != PA_OK);
        live.push_back(r.k);
        return r.status;
      });
}

}  // namespace
}  // namespace polyarc_test
