// The ready-made rectangle, rounded rectangle and circle.
#include <utility>
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

// Both run right along the top first, then down: clockwise.
TEST(Shapes, RectanglesElementByElement) {
  Store store;
  LI_TAB_STRUCT *rect = nullptr, *round = nullptr, *pill = nullptr;
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
      EXPECT_EQ(e[i]->ap, pts[i]) << i;
      EXPECT_EQ(e[i]->ep, pts[(i + 1) % pts.size()]) << i;
    }
  }
  EXPECT_EQ(round->next->mp, (GE_POINT{2.5, 1.5}));
  EXPECT_NEAR(LiKontLen(round), 4 * (3 + 2) - (8 - 2 * kPi) * 0.5, 1e-12);
  ASSERT_EQ(LiCreateRound(store.get(), &pill, 3, 1, 1), PA_OK);
  EXPECT_EQ(Elements(pill).size(), 6u) << "the vertical edges have length 0";
  EXPECT_NEAR(LiKontLen(pill), 4 * (3 + 1) - (8 - 2 * kPi) * 1, 1e-12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {rect, round, pill}));
}

TEST(Shapes, CircleDirectionCodesAndStart) {
  const GE_POINT cen{1, 2};
  LI_TAB_STRUCT e{};
  ASSERT_EQ(LiCreateCircle(&cen, 3, 2, &e), PA_OK);
  EXPECT_EQ(e.type, LI_ARC_CW);
  EXPECT_EQ(e.ap, (GE_POINT{4, 2}));
  EXPECT_EQ(e.ep, e.ap);
  for (uint16_t dir : {0, 1, 3}) {
    ASSERT_EQ(LiCreateCircle(&cen, 3, dir, &e), PA_OK);
    EXPECT_EQ(e.type, LI_ARC_CCW) << dir;
  }
  EXPECT_EQ(LiCreateCircle(&cen, 0, 1, &e), PA_ZERO_RADIUS);
  EXPECT_EQ(LiCreateCircle(nullptr, 1, 1, &e), PA_INVALID);
  EXPECT_EQ(LiCreateCircle(&cen, 1, 1, nullptr), PA_INVALID);
  Store store;
  EXPECT_EQ(LiCreateRect(store.get(), nullptr, 1, 1), PA_INVALID);
  EXPECT_EQ(LiCreateRound(store.get(), nullptr, 1, 1, 0.5), PA_INVALID);
}

// With three records in the store the fourth stroke has to grow it; when
// that fails the three elements drawn stay in the contour.
TEST(Shapes, AllocationFailureKeepsWhatWasDrawn) {
  const auto check = [](auto create, size_t all) {
    ForEachAllocationFailure([&](InjectedFailure &failure) {
      Store store;
      ASSERT_EQ(LiExpand(store.get(), 3), PA_OK);
      LI_TAB_STRUCT *k = nullptr;
      failure.Arm();
      const uint16_t status = create(store.get(), &k);
      failure.Disarm();
      EXPECT_EQ(status, failure.Fired() ? PA_NO_MEMORY : PA_OK);
      EXPECT_EQ(Elements(k).size(), failure.Fired() ? 3u : all);
      EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
    });
  };
  check([](LI_HEAD *h, LI_TAB_STRUCT **k) { return LiCreateRect(h, k, 2, 1); }, 4);
  check([](LI_HEAD *h, LI_TAB_STRUCT **k) { return LiCreateRound(h, k, 3, 2, 0.5); }, 8);
}

}  // namespace
}  // namespace polyarc_test
