// Offsetting one element in place.
#include <cmath>
#include <cstddef>
#include <cstring>

#include "support/support.h"

namespace polyarc_test {
namespace {

// The geometric fields, derived ones included, bit for bit.
bool SameGeometry(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  const size_t size = offsetof(LI_TAB_STRUCT, next) - offsetof(LI_TAB_STRUCT, ap);
  return a.type == b.type && std::memcmp(&a.ap, &b.ap, size) == 0;
}

// The centre is on the left of a counter-clockwise arc and on the right of
// a clockwise one. The result equals the element expanded afresh.
TEST(ParElem, LinesMoveSidewaysArcsChangeTheirRadius) {
  const struct {
    LI_TAB_STRUCT e;
    int16_t side;
    double d;
    LI_TAB_STRUCT expected;
  } rows[] = {
      {Line({0, 0}, {10, 0}), 1, 1, Line({0, 1}, {10, 1})},
      {Line({0, 0}, {10, 0}), -1, 2, Line({0, -2}, {10, -2})},
      {Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW), 1, 1, Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW)},
      {Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW), 1, 1, Arc({0, 6}, {6, 0}, {0, 0}, LI_ARC_CW)},
      {Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW), -1, 1, Arc({0, 4}, {4, 0}, {0, 0}, LI_ARC_CW)},
  };
  for (const auto &row : rows) {
    LI_TAB_STRUCT e = row.e;
    ASSERT_EQ(LiParElem(&e, row.side, row.d), PA_OK);
    EXPECT_TRUE(SameGeometry(e, row.expected)) << "type " << e.type << ", side " << row.side;
  }
  EXPECT_EQ(LiParElem(nullptr, 1, 1), PA_INVALID);
}

TEST(ConicElem, EndsMoveByTheirOwnDistances) {
  LI_TAB_STRUCT line = Line({0, 0}, {10, 0});
  ASSERT_EQ(LiConicElem(&line, -1, 1, 3), PA_OK);
  EXPECT_TRUE(SameGeometry(line, Line({0, -1}, {10, -3})));
  // A counter-clockwise quarter of radius 5, moved towards its centre by 1
  // at the start, 2 in the middle and 3 at the end.
  LI_TAB_STRUCT e = Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiConicElem(&e, 1, 1, 3), PA_OK);
  EXPECT_EQ(e.type, LI_ARC_CCW);
  EXPECT_EQ(e.ap, (GE_POINT{4, 0}));
  EXPECT_NEAR(std::hypot(e.ep.x - 0, e.ep.y - 2), 0, 1e-15) << e.ep;
  const GE_POINT middle{3 * std::sqrt(0.5), 3 * std::sqrt(0.5)};
  for (GE_POINT p : {e.ap, e.ep, middle}) {
    EXPECT_NEAR(std::hypot(p.x - e.mp.x, p.y - e.mp.y), e.rad, 1e-12) << p;
  }
  EXPECT_EQ(LiPtOnElem(&e, &middle), 1) << "re-expanded";
  // An arc of radius 0 has zero tangents, so its ends stay put while the
  // middle moves: no arc runs from a point back to itself through another.
  LI_TAB_STRUCT dot = Arc({1, 1}, {1, 1}, {1, 1}, LI_ARC_CCW);
  const LI_TAB_STRUCT before = dot;
  EXPECT_EQ(LiConicElem(&dot, 1, 1, 2), PA_IMPOSSIBLE);
  EXPECT_TRUE(SameGeometry(dot, before));
  EXPECT_EQ(LiConicElem(nullptr, 1, 1, 1), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test
