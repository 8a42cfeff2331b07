// Touching carriers, the side two touching elements part to, parallel and
// concentric elements, and shared carriers with their common stretch.
#include <cmath>

#include "support/support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = 3.141592653589793;

GE_POINT At(GE_POINT c, double r, double a) {
  return {c.x + r * std::cos(a), c.y + r * std::sin(a)};
}

TEST(TestTang, ConcentricTangentBandAndCollinear) {
  const GE_POINT o{0, 0};
  const double tol = GeEpsiGetTol();
  const LI_TAB_STRUCT small = Arc({1, 0}, {0, 1}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT big = Arc({3, 0}, {0, -3}, o, LI_ARC_CW);
  EXPECT_EQ(GeTestTang(&small, &big), 1) << "concentric, whatever the radii";
  const LI_TAB_STRUCT touching = Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW);
  const LI_TAB_STRUCT crossing = Arc({0.5, 0}, {1.5, 1}, {1.5, 0}, LI_ARC_CW);
  EXPECT_EQ(GeTestTang(&small, &touching), 1);
  EXPECT_EQ(GeTestTang(&small, &crossing), 0);

  const double y = 1 + 0.5 * tol;
  const LI_TAB_STRUCT band = Line({-2, y}, {2, y}), cut = Line({-2, 0.5}, {2, 0.5});
  EXPECT_EQ(GeTestTang(&small, &band), 1) << "r + tol/2: in the tangent band";
  EXPECT_EQ(GeTestTang(&band, &small), 1);
  EXPECT_EQ(GeTestTang(&cut, &small), 0);

  const LI_TAB_STRUCT a = Line({0, 0}, {1, 0}), b = Line({3, 0}, {5, 0}), c = Line({3, 0}, {5, 1});
  EXPECT_EQ(GeTestTang(&a, &b), 1) << "collinear, apart";
  EXPECT_EQ(GeTestTang(&a, &c), 0);
}

TEST(TanSide, CurvatureDifferenceAgainstTheTolerance) {
  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT ccw = Arc({1, 0}, {0, 1}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT tangent = Line({1, -1}, {1, 1});
  uint16_t side = 9;
  EXPECT_EQ(GeTanSide(&ccw, &tangent, &side, 0), PA_OK);
  EXPECT_EQ(side, 65535) << "s = -1 for a counter-clockwise arc of radius 1";
  EXPECT_EQ(GeTanSide(&tangent, &ccw, &side, 0), PA_OK);
  EXPECT_EQ(side, 1);

  // Touching from outside at (1, 0): clockwise radius 1 against ccw.
  const LI_TAB_STRUCT cw = Arc({1, 0}, {2, 1}, {2, 0}, LI_ARC_CW);
  EXPECT_EQ(GeTanSide(&cw, &ccw, &side, 1), PA_OK);
  EXPECT_EQ(side, 0) << "1 + (-1) = 0";
  EXPECT_EQ(GeTanSide(&cw, &ccw, &side, 0), PA_OK);
  EXPECT_EQ(side, 1);

  ToleranceScope tol(0.5);
  const LI_TAB_STRUCT wide = Arc({1, 0}, {3, 2}, {3, 0}, LI_ARC_CW);  // k = 0.5
  EXPECT_EQ(GeTanSide(&wide, &tangent, &side, 0), PA_OK);
  EXPECT_EQ(side, 0) << "s = tol is not beyond it";

  const LI_TAB_STRUCT away = Line({5, -1}, {5, 1});
  side = 9;
  EXPECT_EQ(GeTanSide(&ccw, &away, &side, 0), PA_IMPOSSIBLE);
  EXPECT_EQ(side, 0);
}

LI_TAB_STRUCT Rotated(double angle) {
  return Line({0, 0}, {std::cos(angle), std::sin(angle)});
}

TEST(ElemTestParallel, FixedCosineLimitConcentricAndPointLike) {
  const LI_TAB_STRUCT x = Line({0, 0}, {1, 0});
  const LI_TAB_STRUCT near = Rotated(0.00005), far = Rotated(0.001), back = Rotated(kPi - 0.00005);
  EXPECT_EQ(GeElemTestParallel(&x, &near), 2) << "dot 0.99999999875";
  EXPECT_EQ(GeElemTestParallel(&x, &far), 0);
  EXPECT_EQ(GeElemTestParallel(&x, &back), 65535);

  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT a3 = Arc({1, 0}, {0, -1}, o, LI_ARC_CW),
                      a4 = Arc({2, 0}, {0, 2}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT b4 = Arc({0, 3}, {-3, 0}, o, LI_ARC_CCW),
                      off = Arc({2, 0}, {1, 1}, {1, 0}, LI_ARC_CCW);
  EXPECT_EQ(GeElemTestParallel(&a3, &a4), 65535);
  EXPECT_EQ(GeElemTestParallel(&a4, &b4), 2);
  EXPECT_EQ(GeElemTestParallel(&a4, &off), 0);

  ToleranceScope tol(0.25);
  const LI_TAB_STRUCT dot = Line({0, 0}, {0.125, 0.125});
  EXPECT_EQ(GeElemTestParallel(&x, &dot), 1) << "a degenerate line";
  EXPECT_EQ(GeElemTestParallel(&dot, &x), 1);
  EXPECT_EQ(GeElemTestParallel(&dot, &a4), 1) << "both ends at the arc's centre";
  EXPECT_EQ(GeElemTestParallel(&a4, &dot), 1);
  EXPECT_EQ(GeElemTestParallel(&x, &a4), 0);
}

struct IdentResult {
  uint16_t code = 0;
  uint32_t opposite = 9;
  GE_POINT p1{9, 9}, p2{9, 9};
};

IdentResult Ident(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  IdentResult r;
  GeIdentElem(&a, &b, &r.code, &r.opposite, &r.p1, &r.p2);
  return r;
}

TEST(IdentElem, LinesShareAStretchClippedToTheFirst) {
  const LI_TAB_STRUCT a = Line({0, 0}, {4, 0});
  IdentResult r = Ident(a, Line({2, 0}, {6, 0}));
  EXPECT_EQ(r.code, 3);
  EXPECT_EQ(r.opposite, 0u);
  EXPECT_EQ(r.p1, (GE_POINT{2, 0}));
  EXPECT_EQ(r.p2, (GE_POINT{4, 0}));
  r = Ident(a, Line({6, 0}, {2, 0}));
  EXPECT_EQ(r.code, 3);
  EXPECT_EQ(r.opposite, 1u);
  EXPECT_EQ(r.p1, (GE_POINT{2, 0})) << "in the first line's sense";
  EXPECT_EQ(r.p2, (GE_POINT{4, 0}));
  r = Ident(a, Line({-1, 0}, {9, 0}));
  EXPECT_EQ(r.p1, (GE_POINT{0, 0})) << "the first line lies inside the second";
  EXPECT_EQ(r.p2, (GE_POINT{4, 0}));

  EXPECT_EQ(Ident(a, Line({4, 0}, {6, 0})).code, 2) << "meeting at a point only";
  r = Ident(a, Line({6, 1}, {2, 1}));
  EXPECT_EQ(r.code, 1) << "parallel, another carrier";
  EXPECT_EQ(r.opposite, 1u);
  EXPECT_EQ(r.p1, (GE_POINT{0, 0}));
  LI_TAB_STRUCT move = Line({0, 0}, {4, 0});
  move.type = LI_MOVE;
  EXPECT_EQ(Ident(a, move).code, 1) << "moves never take part";
  EXPECT_EQ(Ident(move, a).code, 1);
}

TEST(IdentElem, ArcsReportTheSecondArcsOwnEnds) {
  const GE_POINT o{0, 0};
  const LI_TAB_STRUCT upper = Arc({1, 0}, {-1, 0}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT left_ccw = Arc({0, 1}, {0, -1}, o, LI_ARC_CCW);
  const LI_TAB_STRUCT left_cw = Arc({0, -1}, {0, 1}, o, LI_ARC_CW);
  for (const LI_TAB_STRUCT *b : {&left_ccw, &left_cw}) {
    const IdentResult r = Ident(upper, *b);
    EXPECT_EQ(r.code, 3);
    EXPECT_EQ(r.opposite, b->type == LI_ARC_CW ? 1u : 0u);
    EXPECT_NEAR(r.p1.y, 1, 1e-15);
    EXPECT_NEAR(r.p2.y, -1, 1e-15) << "not clipped to the first arc";
  }
  const LI_TAB_STRUCT apart = Arc(At(o, 1, -kPi / 2), At(o, 1, -kPi / 4), o, LI_ARC_CCW);
  EXPECT_EQ(Ident(upper, apart).code, 2);
  const LI_TAB_STRUCT bigger = Arc({2, 0}, {-2, 0}, o, LI_ARC_CW);
  const IdentResult r = Ident(upper, bigger);
  EXPECT_EQ(r.code, 1);
  EXPECT_EQ(r.opposite, 1u) << "the sense is reported even for another circle";
  EXPECT_EQ(Ident(upper, Line({0, 0}, {1, 0})).code, 1);
}

}  // namespace
}  // namespace polyarc_test
