// Recomputation of derived fields and the element boxes.
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

// A zero-length line and an arc of radius below tol keep zero directions;
// the arc still gets its box. |rad| == tol is not below tol.
TEST(Expand, DirectionsAndTheirDegenerateCases) {
  LI_TAB_STRUCT line = Line({1, 1}, {4, 5});
  EXPECT_EQ(line.tan_ap, (GE_POINT{0.6, 0.8}));
  EXPECT_EQ(line.mp, (GE_POINT{0.8, -0.6}));
  line.ep = line.ap;
  EXPECT_EQ(LiElemExpand(&line), PA_ZERO_LENGTH);
  EXPECT_EQ(line.tan_ap, (GE_POINT{0, 0}));
  LI_TAB_STRUCT arc = Arc({0, 2}, {2, 0}, {0, 0}, LI_ARC_CW);
  EXPECT_EQ(arc.tan_ap, (GE_POINT{1, 0}));
  EXPECT_EQ(arc.tan_ep, (GE_POINT{0, -1}));
  arc.rad = 0;
  arc.box = {};
  EXPECT_EQ(LiElemExpand(&arc), PA_ZERO_RADIUS);
  EXPECT_EQ(arc.tan_ap, (GE_POINT{0, 0}));
  EXPECT_EQ(arc.tan_ep, (GE_POINT{0, 0}));
  EXPECT_LT(arc.box.xmin, arc.box.xmax);
  ToleranceScope tol(0.5);
  for (double rad : {0.5, -0.5, 0.25}) {
    arc.rad = rad;
    EXPECT_EQ(LiElemExpand(&arc), rad == 0.25 ? PA_ZERO_RADIUS : PA_OK) << rad;
  }
  EXPECT_EQ(LiElemExpand(nullptr), PA_INVALID);
  EXPECT_EQ(LiElemExpandDrawVectorized(nullptr), PA_INVALID);
}

TEST(Boxes, ElementBoxIsTheRealBoxPushedOutByTol) {
  ToleranceScope tol(0.25);
  using Row = std::tuple<LI_TAB_STRUCT, GE_POINT, GE_POINT>;
  for (const auto &[elem, lo, hi] :
       {Row{Line({0, 0}, {2, 1}), {0, 0}, {2, 1}},
        Row{Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CW), {-1, -1}, {1, 1}},      // three quarters
        Row{Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW), {0, 0}, {1, 1}},       // one quarter
        Row{Arc({3, 0}, {3, 0}, {1, 0}, LI_ARC_CCW), {-1, -2}, {3, 2}}}) {  // full circle
    GE_POINT real_lo{}, real_hi{};
    LiElemRealBox(&elem, &real_lo, &real_hi);
    EXPECT_EQ(real_lo, lo) << elem.type;
    EXPECT_EQ(real_hi, hi) << elem.type;
    LI_TAB_STRUCT e = elem;
    e.box = {};
    LiElemBox(&e);
    EXPECT_EQ((GE_POINT{e.box.xmin, e.box.ymin}), (GE_POINT{lo.x - 0.25, lo.y - 0.25}));
    EXPECT_EQ((GE_POINT{e.box.xmax, e.box.ymax}), (GE_POINT{hi.x + 0.25, hi.y + 0.25}));
  }
  LiElemBox(nullptr);
  LiElemRealBox(nullptr, nullptr, nullptr);
}

}  // namespace
}  // namespace polyarc_test
