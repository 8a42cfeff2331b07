// Offsetting one element in place.
#include <cmath>
#include <cstddef>
#include <cstring>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

bool SameGeometry(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  const size_t size = offsetof(LI_TAB_STRUCT, next) - offsetof(LI_TAB_STRUCT, ap);
  return a.type == b.type && std::memcmp(&a.ap, &b.ap, size) == 0;
}

// The centre is on the left of a counter-clockwise arc and on the right of
// a clockwise one. The result equals the element expanded afresh.
TEST(ParElem, LinesMoveSidewaysArcsChangeTheirRadius) {
  using Row = std::tuple<LI_TAB_STRUCT, int16_t, LI_TAB_STRUCT>;
  for (const auto &[elem, side, expected] :
       {Row{Line({0, 0}, {10, 0}), 1, Line({0, 1}, {10, 1})},
        Row{Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW), 1, Arc({4, 0}, {0, 4}, {0, 0}, LI_ARC_CCW)},
        Row{Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW), 1, Arc({0, 6}, {6, 0}, {0, 0}, LI_ARC_CW)},
        Row{Arc({0, 5}, {5, 0}, {0, 0}, LI_ARC_CW), -1, Arc({0, 4}, {4, 0}, {0, 0}, LI_ARC_CW)}}) {
    LI_TAB_STRUCT e = elem;
    ASSERT_EQ(LiParElem(&e, side, 1), PA_OK);
    EXPECT_TRUE(SameGeometry(e, expected)) << "type " << e.type << ", side " << side;
  }
  EXPECT_EQ(LiParElem(nullptr, 1, 1), PA_INVALID);
}

// A counter-clockwise quarter of radius 5 moved towards its centre by 1 at
// the start, 2 in the middle and 3 at the end.
TEST(ConicElem, EndsMoveByTheirOwnDistances) {
  LI_TAB_STRUCT e = Arc({5, 0}, {0, 5}, {0, 0}, LI_ARC_CCW);
  ASSERT_EQ(LiConicElem(&e, 1, 1, 3), PA_OK);
  const GE_POINT middle{3 * std::sqrt(0.5), 3 * std::sqrt(0.5)};
  EXPECT_EQ(e.ap, (GE_POINT{4, 0}));
  EXPECT_NEAR(std::hypot(e.ep.x, e.ep.y - 2), 0, 1e-15) << e.ep;
  EXPECT_EQ(LiPtOnElem(&e, &middle), 1);
  EXPECT_EQ(LiConicElem(nullptr, 1, 1, 1), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test
