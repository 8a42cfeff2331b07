// The offsets with their loops cut off: what is kept inwards, outwards and
// on open paths, where a closed result starts, too-deep offsets, and
// random stars checked sample by sample.
#include <cmath>
#include <string>
#include <vector>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

LI_TAB_STRUCT *Clean(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, double d, uint16_t mode) {
  uint16_t counter = 1000;
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(FlParallClean(head, k, side, d, &out, mode, 0, 0, 1, &counter, 0), PA_OK);
  return out;
}

LI_TAB_STRUCT *ConicClean(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, double d) {
  const std::vector<double> dist(2 * LiCountElem(k), d);
  LI_TAB_STRUCT *out = nullptr;
  EXPECT_EQ(FlConicClean(head, k, side, dist.data(), nullptr, &out, 1), PA_OK);
  return out;
}

// Two 4 x 4 rooms joined by a corridor 1 wide, counter-clockwise, numbered from 1 along the
// bottom of the left room.
LI_TAB_STRUCT *Dumbbell(LI_HEAD *head) {
  return Numbered(Ring(
      head, {0, 0, 4, 0, 4, 1.5, 6, 1.5, 6, 0, 10, 0, 10, 4, 6, 4, 6, 2.5, 4, 2.5, 4, 4, 0, 4}));
}

TEST(ParallClean, WhatIsKeptAndWhereItStarts) {
  Store store;
  LI_TAB_STRUCT *db = Dumbbell(store.get());
  // Inwards by 0.75 the corridor closes and two loops remain: the first,
  // the left room's square of side 2.5, starting at number 1, is kept.
  LI_TAB_STRUCT *in = Clean(store.get(), db, kLeft, 0.75, FL_CORNER_SHARP);
  EXPECT_TRUE(in->no == 1 && std::fabs(LiKontArea(in) - 6.25) < 1e-9);
  // The conic clean-up keeps the same; outwards it gives the sharp offset,
  // two notches of 1.5 x 1.5 less than its 10.5 x 4.5 box.
  LI_TAB_STRUCT *cin = ConicClean(store.get(), db, kLeft, 0.75);
  LI_TAB_STRUCT *cout = ConicClean(store.get(), db, kRight, 0.25);
  EXPECT_NEAR(LiKontArea(cin), 6.25, 1e-9);
  EXPECT_TRUE(cout->no == 1 && std::fabs(LiKontArea(cout) - (10.5 * 4.5 - 2 * 1.5 * 1.5)) < 1e-9);
  // Round corners: inwards the left room's loop bulges into the corridor's
  // mouth; outwards one loop. Both lie at the distance.
  LI_TAB_STRUCT *round_in = Clean(store.get(), db, kLeft, 0.75, FL_CORNER_ROUND);
  LI_TAB_STRUCT *round_out = Clean(store.get(), db, kRight, 0.75, FL_CORNER_ROUND);
  EXPECT_TRUE(Winding(round_in, {3.35, 2}) == 1 && round_out->no == 1);
  EXPECT_LT(OffsetDeviation(round_in, db, 0.75) + OffsetDeviation(round_out, db, 0.75), 1e-12);
  // A line, a quarter of radius 1 turning left, a line, offset 1.5 left: the arc passes its
  // centre and the loop it makes is cut off.
  LI_TAB_STRUCT *hook =
      Chain(store.get(),
            {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, 1}, {2, 1}, LI_ARC_CCW), Line({3, 1}, {3, 3})});
  LI_TAB_STRUCT *open = Clean(store.get(), hook, kLeft, 1.5, FL_CORNER_ROUND);
  EXPECT_TRUE(OffsetDeviation(open, hook, 1.5) < 1e-12 && !CrossesItself(open));
  EXPECT_TRUE(
      AllRecordsAccounted(store.head(), {db, in, cin, cout, round_in, round_out, hook, open}));
}

TEST(ParallClean, TooDeepInwardsLeavesNothing) {
  Store store;
  LI_TAB_STRUCT *square = Polygon(store.get(), {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
  LI_TAB_STRUCT *c = FullCircle(store.get(), {0, 0}, 1, 1);
  // Status 0 and no contour: a square turned round, a circle past its centre.
  for (const uint16_t mode : {FL_CORNER_SHARP, FL_CORNER_ROUND}) {
    EXPECT_EQ(Clean(store.get(), square, kLeft, 1.5, mode), nullptr);
    EXPECT_EQ(Clean(store.get(), square, kLeft, 3, mode), nullptr);
  }
  EXPECT_EQ(Clean(store.get(), c, kLeft, 2, FL_CORNER_ROUND), nullptr);
  LI_TAB_STRUCT *half = Clean(store.get(), c, kLeft, 0.5, FL_CORNER_ROUND);
  EXPECT_EQ(half->rad, 0.5);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, c, half}));
}

// Random stars offset both ways with round corners lie at the distance, on the offset side,
// without crossing themselves; crossings snap to ends within tol, so the distance holds to it.
void ExpectStarsAtTheDistance(double tol, double bound) {
  ToleranceScope scope(tol);
  Store store;
  int checked = 0;
  for (unsigned seed = 1; seed <= 12; ++seed) {
    LI_TAB_STRUCT *star = RandomStar(store.get(), seed, 6 + seed % 9, 3, 6, 0.4);
    for (const auto &[side, d] : {std::pair<uint16_t, double>{kRight, 0.4},
                                  {kRight, 1.3},
                                  {kLeft, 0.3},
                                  {kLeft, 0.8},
                                  {kLeft, 2.0}}) {
      LI_TAB_STRUCT *r = Clean(store.get(), star, side, d, FL_CORNER_ROUND);
      if (r == nullptr) continue;
      ++checked;
      const std::string where = "seed " + std::to_string(seed) + " d " + std::to_string(d);
      EXPECT_LT(OffsetDeviation(r, star, d), bound) << where;
      EXPECT_FALSE(CrossesItself(r)) << where;
      for (LI_TAB_STRUCT *e : Elements(r))
        EXPECT_EQ(Winding(star, e->ap), side == kLeft ? 1 : 0) << where;
      LiRemove(store.get(), &r);
    }
    LiRemove(store.get(), &star);
  }
  EXPECT_GT(checked, 45);
}

TEST(ParallClean, RandomStarsLieAtTheDistance) {
  ExpectStarsAtTheDistance(5e-5, 5e-5);
  ExpectStarsAtTheDistance(1e-9, 1e-13);
}

// The dumbbell inwards with `spare` records left and the failure armed: a failing run leaves
// no result (or, where scratch arrays fall back to plain scans, a whole one) and no record lost.
void RunOutOfMemory(InjectedFailure &failure, size_t spare) {
  Store store;
  LI_TAB_STRUCT *db = Dumbbell(store.get());
  LI_TAB_STRUCT *taken = TakeAllFreeBut(store.get(), spare), *out = nullptr;
  uint16_t counter = 0;
  failure.Arm();
  const uint16_t status =
      FlParallClean(store.get(), db, kLeft, 0.75, &out, FL_CORNER_ROUND, 0, 0, 1, &counter, 0);
  failure.Disarm();
  if (status != PA_OK) {
    EXPECT_TRUE(failure.Fired() && (status == PA_NO_MEMORY || status == PA_NO_RECORD)) << status;
    EXPECT_EQ(out, nullptr);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {db, taken, out}));
}

TEST(ParallClean, AllocationFailureLosesNoRecord) {
  // Every memory allocation in turn: store growth and crossing lists.
  EXPECT_GT(ForEachAllocationFailure([](InjectedFailure &f) { RunOutOfMemory(f, 0); }), 0u);
  // The store running out at every record in turn (past the records the
  // offset takes, the crossing list's allocation fails instead).
  for (size_t spare = 0; spare < 120; ++spare) {
    InjectedFailure failure(1);
    RunOutOfMemory(failure, spare);
  }
}

}  // namespace
}  // namespace polyarc_test
