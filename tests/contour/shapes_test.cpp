// The ready-made rectangle, rounded rectangle and circle.
#include <cmath>
#include <vector>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

// Signed area of the contour, from a fine polygon through points along
// every element (exact for lines, within 1e-3 for the arcs used here).
double SampledArea(LI_TAB_STRUCT *k) {
  std::vector<GE_POINT> pts;
  for (LI_TAB_STRUCT *e : Elements(k)) {
    for (int i = 0; i < 256; ++i) pts.push_back(LiElemPt(e, i / 256.0));
  }
  double twice = 0;
  for (size_t i = 0; i < pts.size(); ++i) {
    const GE_POINT a = pts[i], b = pts[(i + 1) % pts.size()];
    twice += a.x * b.y - a.y * b.x;
  }
  return twice / 2;
}

TEST(Shapes, RectangleElementByElement) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  ASSERT_EQ(LiCreateRect(store.get(), &k, 2, 1), PA_OK);
  const std::vector<LI_TAB_STRUCT *> e = Elements(k);
  ASSERT_EQ(e.size(), 4u);
  const GE_POINT corners[] = {{-2, 1}, {2, 1}, {2, -1}, {-2, -1}, {-2, 1}};
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(e[i]->type, LI_LINE) << i;
    EXPECT_EQ(e[i]->ap, corners[i]) << i;
    EXPECT_EQ(e[i]->ep, corners[i + 1]) << i;
  }
  EXPECT_EQ(LiKontLen(k), 12);
  EXPECT_EQ(SampledArea(k), -8) << "clockwise";
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Shapes, RoundedRectangleRunsClockwiseWithTheExpectedPerimeter) {
  Store store;
  const double a = 3, b = 2, r = 0.5;
  LI_TAB_STRUCT *k = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &k, a, b, r), PA_OK);
  const std::vector<LI_TAB_STRUCT *> e = Elements(k);
  ASSERT_EQ(e.size(), 8u);
  EXPECT_EQ(e[0]->ap, (GE_POINT{r - a, b}));
  for (size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(e[i]->type, i % 2 == 0 ? LI_LINE : LI_ARC_CW) << i;
    EXPECT_EQ(e[i]->ep, e[(i + 1) % 8]->ap) << "closed at every joint, " << i;
    if (i % 2 == 1) {
      EXPECT_EQ(e[i]->rad, r) << i;
    }
  }
  EXPECT_EQ(e[1]->mp, (GE_POINT{a - r, b - r}));
  EXPECT_NEAR(LiKontLen(k), 4 * (a + b) - (8 - 2 * kPi) * r, 1e-12);
  EXPECT_NEAR(SampledArea(k), -(4 * a * b - (4 - kPi) * r * r), 1e-3);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
}

TEST(Shapes, RoundedRectangleDropsEmptyEdgesAndCorners) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &k, 3, 1, 1), PA_OK);
  EXPECT_EQ(Elements(k).size(), 6u) << "the vertical edges have length 0";
  EXPECT_NEAR(LiKontLen(k), 16 - (8 - 2 * kPi), 1e-12);
  LI_TAB_STRUCT *sharp = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &sharp, 2, 1, 0), PA_OK);
  EXPECT_EQ(Elements(sharp).size(), 4u) << "corners of radius 0 add nothing";
  EXPECT_EQ(LiKontLen(sharp), 12);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {k, sharp}));
}

TEST(Shapes, CircleDirectionCodesAndStart) {
  const GE_POINT cen{1, 2};
  LI_TAB_STRUCT e{};
  ASSERT_EQ(LiCreateCircle(&cen, 3, 2, &e), PA_OK);
  EXPECT_EQ(e.type, LI_ARC_CW);
  EXPECT_EQ(e.ap, (GE_POINT{4, 2}));
  EXPECT_EQ(e.ep, e.ap);
  EXPECT_EQ(e.tan_ap, (GE_POINT{0, -1}));
  const double tol = GeEpsiGetTol();
  EXPECT_EQ(e.box.xmin, -2 - tol);
  EXPECT_EQ(e.box.ymax, 5 + tol);
  EXPECT_DOUBLE_EQ(LiElemLen(&e), 6 * kPi);
  for (uint16_t dir : {0, 1, 3}) {
    ASSERT_EQ(LiCreateCircle(&cen, 3, dir, &e), PA_OK);
    EXPECT_EQ(e.type, LI_ARC_CCW) << dir;
  }
  EXPECT_EQ(LiCreateCircle(&cen, 0, 1, &e), PA_ZERO_RADIUS);
  EXPECT_EQ(LiCreateCircle(nullptr, 1, 1, &e), PA_INVALID);
  EXPECT_EQ(LiCreateCircle(&cen, 1, 1, nullptr), PA_INVALID);
}

TEST(Shapes, NullHandleIsInvalid) {
  Store store;
  EXPECT_EQ(LiCreateRect(store.get(), nullptr, 1, 1), PA_INVALID);
  EXPECT_EQ(LiCreateRound(store.get(), nullptr, 1, 1, 0.5), PA_INVALID);
}

// With three records in the store the fourth stroke has to grow it; when
// that fails the three elements drawn stay in the contour.
TEST(Shapes, AllocationFailureKeepsWhatWasDrawn) {
  const auto check = [](auto create, size_t drawn_before_failure) {
    ForEachAllocationFailure([&](InjectedFailure &failure) {
      Store store;
      ASSERT_EQ(LiExpand(store.get(), 3), PA_OK);
      LI_TAB_STRUCT *k = nullptr;
      failure.Arm();
      const uint16_t status = create(store.get(), &k);
      failure.Disarm();
      if (failure.Fired()) {
        EXPECT_EQ(status, PA_NO_MEMORY);
        EXPECT_EQ(Elements(k).size(), drawn_before_failure);
      } else {
        EXPECT_EQ(status, PA_OK);
      }
      EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
    });
  };
  check([](LI_HEAD *h, LI_TAB_STRUCT **k) { return LiCreateRect(h, k, 2, 1); }, 3);
  check([](LI_HEAD *h, LI_TAB_STRUCT **k) { return LiCreateRound(h, k, 3, 2, 0.5); }, 3);
}

}  // namespace
}  // namespace polyarc_test
