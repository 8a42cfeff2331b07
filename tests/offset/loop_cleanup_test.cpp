// The offsets with their loops cut off: outward, inward and open kinds,
// what is kept, where a closed result starts, and random stars checked
// sample by sample.
#include <cmath>
#include <numbers>
#include <string>

#include "polyarc/fl.h"
#include "support/offset_support.h"

namespace polyarc_test {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr uint16_t kLeft = 1, kRight = 65535;

struct Result {
  uint16_t status;
  LI_TAB_STRUCT *k;
};

Result Clean(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, double d, uint16_t mode,
             int32_t examine = 1) {
  uint16_t counter = 1000;
  Result r{};
  r.status = FlParallClean(head, k, side, d, &r.k, mode, 0, 0, examine, &counter, 0);
  return r;
}

// Two 4 x 4 rooms joined by a corridor 1 wide, counter-clockwise, numbered
// from 1 along the bottom of the left room.
LI_TAB_STRUCT *Dumbbell(LI_HEAD *head) {
  LI_TAB_STRUCT *k = Polygon(head, {{0, 0},
                                    {4, 0},
                                    {4, 1.5},
                                    {6, 1.5},
                                    {6, 0},
                                    {10, 0},
                                    {10, 4},
                                    {6, 4},
                                    {6, 2.5},
                                    {4, 2.5},
                                    {4, 4},
                                    {0, 4}});
  uint16_t no = 0;
  LiNumKont(k, &no);
  return k;
}

TEST(ParallClean, InwardKeepsTheFirstLoopOutwardTheOuterOne) {
  Store store;
  LI_TAB_STRUCT *dumbbell = Dumbbell(store.get());
  // Inwards by 0.75 the corridor closes: two squares of side 2.5, and the
  // first loop, the left room's, is kept.
  const Result in = Clean(store.get(), dumbbell, kLeft, 0.75, FL_CORNER_SHARP);
  ASSERT_EQ(in.status, PA_OK);
  ASSERT_NE(in.k, nullptr);
  EXPECT_NEAR(LiKontArea(in.k), 2.5 * 2.5, 1e-9);
  EXPECT_EQ(in.k->no, 1);
  EXPECT_EQ(Winding(in.k, {2, 2}), 1);
  // With round corners the left room's loop bulges into the corridor's
  // mouth, along arcs about its corners.
  const Result round = Clean(store.get(), dumbbell, kLeft, 0.75, FL_CORNER_ROUND);
  ASSERT_EQ(round.status, PA_OK);
  EXPECT_TRUE(Winding(round.k, {2, 2}) == 1 && Winding(round.k, {3.35, 2}) == 1);
  EXPECT_LT(OffsetDeviation(round.k, dumbbell, 0.75), 1e-12);
  // Inwards by 0.25 it stays one loop, starting at the element numbered 1.
  const Result thin = Clean(store.get(), dumbbell, kLeft, 0.25, FL_CORNER_SHARP);
  ASSERT_EQ(thin.status, PA_OK);
  EXPECT_EQ(thin.k->no, 1);
  EXPECT_NEAR(LiKontArea(thin.k), 3.5 * 3.5 * 2 + 2.5 * 0.5, 1e-9);
  // Outwards with round corners by 0.75 the rooms merge over the corridor's
  // gaps; the result is one loop at the distance.
  const Result out = Clean(store.get(), dumbbell, kRight, 0.75, FL_CORNER_ROUND);
  ASSERT_EQ(out.status, PA_OK);
  EXPECT_EQ(out.k->no, 1);
  EXPECT_LT(OffsetDeviation(out.k, dumbbell, 0.75), 1e-12);
  EXPECT_FALSE(CrossesItself(out.k));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {dumbbell, in.k, round.k, thin.k, out.k}));
}

TEST(ParallClean, TooDeepInwardsLeavesNothing) {
  Store store;
  LI_TAB_STRUCT *square = Polygon(store.get(), {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
  for (const uint16_t mode : {FL_CORNER_SHARP, FL_CORNER_ROUND}) {
    for (const double d : {1.5, 3.0}) {
      const Result r = Clean(store.get(), square, kLeft, d, mode);
      EXPECT_EQ(r.status, PA_OK);
      EXPECT_EQ(r.k, nullptr) << "mode " << mode << " d " << d;
    }
  }
  // A circle of radius 1 offset inwards by 2 passes its centre.
  const GE_POINT centre{0, 0};
  LI_TAB_STRUCT c{};
  ASSERT_EQ(LiCreateCircle(&centre, 1, 1, &c), PA_OK);
  LI_TAB_STRUCT *circle = Chain(store.get(), {c});
  const Result r = Clean(store.get(), circle, kLeft, 2, FL_CORNER_ROUND);
  EXPECT_TRUE(r.status == PA_OK && r.k == nullptr);
  const Result half = Clean(store.get(), circle, kLeft, 0.5, FL_CORNER_ROUND);
  ASSERT_EQ(half.status, PA_OK);
  EXPECT_EQ(half.k->rad, 0.5);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {square, circle, half.k}));
}

// An open path: a line, a quarter arc of radius 1 turning left, a line.
// Offset to its left by more than the arc's radius, the arc passes its
// centre; the clean-up cuts that part off and the rest lies at the
// distance.
TEST(ParallClean, OpenPathDeeperThanAnArcsRadius) {
  Store store;
  LI_TAB_STRUCT *hook =
      Chain(store.get(),
            {Line({0, 0}, {2, 0}), Arc({2, 0}, {3, 1}, {2, 1}, LI_ARC_CCW), Line({3, 1}, {3, 3})});
  for (const uint16_t side : {kLeft, kRight}) {
    const Result r = Clean(store.get(), hook, side, 1.5, FL_CORNER_ROUND);
    ASSERT_EQ(r.status, PA_OK);
    ASSERT_NE(r.k, nullptr);
    EXPECT_LT(OffsetDeviation(r.k, hook, 1.5), 1e-9) << "side " << side;
    EXPECT_FALSE(CrossesItself(r.k));
    LI_TAB_STRUCT *k = r.k;
    LiRemove(store.get(), &k);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {hook}));
}

// Random stars of lines and arcs, offset both ways with round corners:
// every sample of the result lies at the distance, the result does not
// cross itself, and it lies on the offset side. Crossings are snapped to
// element ends within the tolerance, so the distance holds to the
// tolerance; with a tolerance of 1e-9 it holds to round-off.
void ExpectStarsAtTheDistance(double tol, double bound) {
  ToleranceScope scope(tol);
  Store store;
  int checked = 0;
  for (unsigned seed = 1; seed <= 30; ++seed) {
    LI_TAB_STRUCT *star = RandomStar(store.get(), seed, 6 + seed % 9, 3, 6, 0.4);
    for (const auto &[side, d] : {std::pair<uint16_t, double>{kRight, 0.4},
                                  {kRight, 1.3},
                                  {kLeft, 0.3},
                                  {kLeft, 0.8},
                                  {kLeft, 2.0}}) {
      Result r = Clean(store.get(), star, side, d, FL_CORNER_ROUND);
      ASSERT_EQ(r.status, PA_OK) << "seed " << seed;
      if (r.k == nullptr) continue;
      ++checked;
      const std::string where = "seed " + std::to_string(seed) + " d " + std::to_string(d);
      EXPECT_LT(OffsetDeviation(r.k, star, d), bound) << where;
      EXPECT_FALSE(CrossesItself(r.k)) << where;
      const int inside = side == kRight ? 0 : 1;
      for (LI_TAB_STRUCT *e : Elements(r.k))
        EXPECT_EQ(Winding(star, Samples(*e, 1e9)[0]), inside) << where;
      EXPECT_EQ(Winding(r.k, {0, 0}), 1) << where << ": counter-clockwise round the centre";
      LiRemove(store.get(), &r.k);
    }
    LiRemove(store.get(), &star);
  }
  EXPECT_GT(checked, 120);
}

TEST(ParallClean, RandomStarsLieAtTheDistance) {
  ExpectStarsAtTheDistance(5e-5, 5e-5);
  ExpectStarsAtTheDistance(1e-9, 1e-13);
}

// Runs the clean offset of the dumbbell inwards with `spare` records left
// and the failure armed; checks that a failing run reports running out and
// leaves no result, and that no run loses a record.
void RunOutOfMemory(InjectedFailure &failure, size_t spare) {
  Store store;
  LI_TAB_STRUCT *dumbbell = Dumbbell(store.get());
  LI_TAB_STRUCT *taken = TakeAllFreeBut(store.get(), spare);
  uint16_t counter = 0;
  LI_TAB_STRUCT *out = nullptr;
  failure.Arm();
  const uint16_t status = FlParallClean(store.get(), dumbbell, kLeft, 0.75, &out, FL_CORNER_ROUND,
                                        0, 0, 1, &counter, 0);
  failure.Disarm();
  // Some scratch arrays of the crossing code fall back to a plain scan when
  // they cannot be had, so a failure may also leave a whole result.
  if (status != PA_OK) {
    EXPECT_TRUE(failure.Fired());
    EXPECT_TRUE(status == PA_NO_MEMORY || status == PA_NO_RECORD) << status;
    EXPECT_EQ(out, nullptr);
  } else {
    EXPECT_NE(out, nullptr);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {dumbbell, taken, out}));
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

Result ConicClean(LI_HEAD *head, LI_TAB_STRUCT *k, uint16_t side, double d) {
  const std::vector<double> dist(2 * LiCountElem(k), d);
  Result r{};
  r.status = FlConicClean(head, k, side, dist.data(), nullptr, &r.k, 1);
  return r;
}

TEST(ConicClean, KeepsWhatTheParallelCleanUpKeeps) {
  Store store;
  LI_TAB_STRUCT *dumbbell = Dumbbell(store.get());
  // Outwards by a constant distance: the sharp offset, starting at the
  // element numbered like the source's first.
  const Result out = ConicClean(store.get(), dumbbell, kRight, 0.25);
  ASSERT_EQ(out.status, PA_OK);
  EXPECT_EQ(out.k->no, 1);
  EXPECT_NEAR(LiKontArea(out.k), 10.5 * 4.5 - 2 * 1.5 * 1.5, 1e-9) << "two notches of 1.5 x 1.5";
  // Inwards until the corridor closes: the first loop, a square of 2.5.
  const Result in = ConicClean(store.get(), dumbbell, kLeft, 0.75);
  ASSERT_EQ(in.status, PA_OK);
  EXPECT_NEAR(LiKontArea(in.k), 2.5 * 2.5, 1e-9);
  // Deeper than the rooms allow: nothing.
  const Result none = ConicClean(store.get(), dumbbell, kLeft, 2.5);
  EXPECT_TRUE(none.status == PA_OK && none.k == nullptr);
  const Result same = ConicClean(store.get(), dumbbell, kLeft, 0.0);
  EXPECT_TRUE(same.status == PA_OK && Vertices(same.k) == Vertices(dumbbell));
  LI_TAB_STRUCT *k = dumbbell;
  EXPECT_EQ(FlConicClean(store.get(), nullptr, kLeft, nullptr, nullptr, &k, 1), PA_INVALID);
  EXPECT_EQ(k, nullptr);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {dumbbell, out.k, in.k, same.k}));
  EXPECT_GT(ForEachAllocationFailure([](InjectedFailure &failure) {
              Store s;
              LI_TAB_STRUCT *source = Dumbbell(s.get());
              LI_TAB_STRUCT *taken = TakeAllFree(s.get());
              failure.Arm();
              const Result r = ConicClean(s.get(), source, kLeft, 0.75);
              failure.Disarm();
              EXPECT_TRUE(r.status == PA_OK || (r.k == nullptr && (r.status == PA_NO_MEMORY ||
                                                                   r.status == PA_NO_RECORD)));
              EXPECT_TRUE(AllRecordsAccounted(s.head(), {source, taken, r.k}));
            }),
            0u);
}

}  // namespace
}  // namespace polyarc_test
