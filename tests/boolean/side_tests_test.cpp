// Which way one element turns off another, and whether two elements share
// a carrier.
#include "polyarc/fl.h"
#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(TangSide, CrossOfTheTangentsThenTheCurvatures) {
  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT line = Line({0, 0}, {1, 0});
  const LI_TAB_STRUCT ccw = Arc({0, 0}, {1, 1}, {0, 1}, LI_ARC_CCW);  // radius 1
  const GE_POINT east{1, 0}, west{-1, 0}, north{0, 1}, south{0, -1};
  struct Row {
    const LI_TAB_STRUCT *e2;
    GE_POINT t2;
    int32_t swap;
    int16_t side;
  } rows[] = {
      {&line, north, 0, 1}, {&line, north, 1, -1}, {&line, south, 0, -1}, {&line, south, 1, 1},
      {&line, east, 0, 0},  {&ccw, east, 0, -1},   {&ccw, east, 1, -1},  // parallel tangents: the
                                                                         // swap does not act
      {&ccw, west, 0, 1},  // opposite tangents add the curvatures
  };
  for (const Row &r : rows)
    EXPECT_EQ(FlTangSide(nullptr, &line, &east, r.e2, &r.t2, r.swap), r.side)
        << "t2 " << r.t2 << " swap " << r.swap << " type " << r.e2->type;
  EXPECT_EQ(FlTangSide(nullptr, &line, &east, nullptr, &east, 0), 0);
}

TEST(ParaTest, SameCarrierEitherWay) {
  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT y1 = Line({0, 1}, {2, 1});
  const LI_TAB_STRUCT arc = Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW);
  struct Row {
    LI_TAB_STRUCT e2;
    uint16_t same;
  } rows[] = {
      {Line({5, 1}, {9, 1}), 1},    // same sense, apart along the carrier
      {Line({2, 1}, {0, 1}), 1},    // opposite normal and opposite distance
      {Line({2, -1}, {0, -1}), 0},  // opposite normal, the same distance: y = -1
      {Line({0, 1.3}, {2, 1.3}), 0}, {Line({0, 1}, {2, 1.5}), 0}, {arc, 0},
  };
  for (const Row &r : rows)
    EXPECT_EQ(FlParaTest(nullptr, &y1, &r.e2), r.same) << r.e2.ap << " -> " << r.e2.ep;
  const LI_TAB_STRUCT cw = Arc({0, 1}, {1, 0}, {0.3, 0.3}, LI_ARC_CW);
  EXPECT_EQ(FlParaTest(nullptr, &arc, &cw), 0u) << "centres 0.3 apart per axis";
  const LI_TAB_STRUCT bigger = Arc({1.2, 0}, {0, 1.2}, {0, 0}, LI_ARC_CCW);
  EXPECT_EQ(FlParaTest(nullptr, &arc, &bigger), 1u) << "radii 0.2 apart";
  EXPECT_EQ(FlParaTest(nullptr, &arc, nullptr), 0u);
}

}  // namespace
}  // namespace polyarc_test
