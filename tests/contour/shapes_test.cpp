// The ready-made rectangle, rounded rectangle and circle.
#include <utility>
#include <vector>

#include "support/shape_support.h"

namespace polyarc_test {
namespace {

// Both rectangles run right along the top first, then down: clockwise. The
// circle starts at its rightmost point.
TEST(Shapes, RectanglesElementByElementAndTheCircle) {
  Store store;
  LI_TAB_STRUCT *rect = nullptr, *round = nullptr;
  ASSERT_EQ(LiCreateRect(store.get(), &rect, 2, 1), PA_OK);
  ASSERT_EQ(LiCreateRound(store.get(), &round, 3, 2, 0.5), PA_OK);
  const std::vector<GE_POINT> corners = {{-2, 1}, {2, 1}, {2, -1}, {-2, -1}};
  const std::vector<GE_POINT> starts = {{-2.5, 2}, {2.5, 2},   {3, 1.5},   {3, -1.5},
                                        {2.5, -2}, {-2.5, -2}, {-3, -1.5}, {-3, 1.5}};
  for (const auto &[k, pts] : {std::pair{rect, corners}, std::pair{round, starts}}) {
    const std::vector<LI_TAB_STRUCT *> e = Elements(k);
    ASSERT_EQ(e.size(), pts.size());
    for (size_t i = 0; i < e.size(); ++i) {
      EXPECT_EQ(e[i]->type, k == round && i % 2 == 1 ? LI_ARC_CW : LI_LINE) << i;
      EXPECT_TRUE(e[i]->ap == pts[i] && e[i]->ep == pts[(i + 1) % pts.size()]) << i;
    }
  }
  EXPECT_NEAR(LiKontLen(round), 4 * (3 + 2) - (8 - 2 * kPi) * 0.5, 1e-12);
  EXPECT_EQ(LiCreateRect(store.get(), nullptr, 1, 1), PA_INVALID);
  const GE_POINT cen{1, 2};  // for the circle, 2 means clockwise, unlike LiArc's direction
  LI_TAB_STRUCT e{};
  ASSERT_EQ(LiCreateCircle(&cen, 3, 2, &e), PA_OK);
  EXPECT_TRUE(e.type == LI_ARC_CW && e.ap == (GE_POINT{4, 2}) && e.ep == e.ap);
  EXPECT_TRUE(LiCreateCircle(&cen, 3, 1, &e) == PA_OK && e.type == LI_ARC_CCW);
  EXPECT_EQ(LiCreateCircle(nullptr, 1, 1, &e), PA_INVALID);
}

}  // namespace
}  // namespace polyarc_test
