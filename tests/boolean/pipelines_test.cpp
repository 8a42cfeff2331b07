// The crossing pipelines: loops chosen by operation, a figure-eight
// cleaned, and the pipelines under allocation failure.
#include <cmath>

#include "support/classify_support.h"

namespace polyarc_test {
namespace {

TEST(CrossKonturCleanClosed, KeepsWhatEachOperationWantsWithinTolSquared) {
  ToleranceScope tol(0.25);  // area tolerance 0.0625; inputs of areas 1 and 2
  struct Row {
    uint32_t op;
    std::vector<double> areas;
    uint16_t status;
    std::vector<double> after;  // 0 for a removed entry left in place
  } rows[] = {
      {4, {1.875, 1.9375, -0.5, 0.03125}, PA_OK, {1.9375, -0.5}},
      {4, {1.9375, 2.5}, PA_INVALID, {1.9375, 2.5}},
      {4, {1.9375}, PA_INVALID, {1.9375}},
      {5, {1.9375, 1.0625, 1.125, 0.0625}, PA_OK, {1.0625, 0.0625}},
      {6, {-0.5, 0.0625, 0.03125}, PA_OK, {0.0625}},
      {6, {-0.5, 0.03125}, PA_IMPOSSIBLE, {0, 0}},
      {9, {-0.5, 0.0625}, PA_OK, {-0.5, 0.0625}},
      {9, {-0.5, -1}, PA_IMPOSSIBLE, {-0.5, -1}},
  };
  for (const Row &r : rows) {
    Store store;
    Live live;
    for (double a : r.areas) live.push_back(OfArea(store.get(), a));
    LI_TAB_STRUCT **loops = ContourList(live);
    int16_t last = static_cast<int16_t>(live.size() - 1);
    EXPECT_EQ(FlCrossKonturCleanClosed(store.get(), 1, 2, r.op, loops, &last), r.status);
    EXPECT_EQ(Areas(loops, last), r.after) << "op " << r.op << ", first area " << r.areas[0];
    EXPECT_TRUE(AllRecordsAccounted(store.head(), Loops(loops, last)));
    FlFreeList(store.get(), &loops, last);
  }
  Store store;
  int16_t none = FL_EMPTY;
  EXPECT_EQ(FlCrossKonturCleanClosed(store.get(), 1, 1, 4, nullptr, &none), PA_IMPOSSIBLE);
}

// Lobes of area +1 (left, loop 0) and -1 (right, loop 1) crossing at (1, 1).
LI_TAB_STRUCT *FigureEight(LI_HEAD *head) {
  return Polygon(head, {{0, 0}, {2, 2}, {2, 0}, {0, 2}});
}

TEST(CleanKont, FigureEightByModeAndSign) {
  struct Row {
    uint16_t mode;
    int16_t sign;
    double out;                 // 0: none
    std::vector<double> loops;  // areas of what stays in the list
  } rows[] = {{1, 1, 1, {-1}}, {1, -1, -1, {1}}, {2, 1, 0, {1}}, {3, 1, 1, {}}, {3, -1, -1, {}}};
  for (const Row &r : rows) {
    Store store;
    LI_TAB_STRUCT *k = FigureEight(store.get()), *out = k, **loops;
    int16_t last = 0;
    uint32_t no_cross = 1;
    EXPECT_EQ(FlCleanKont(store.get(), &k, r.sign, r.mode, &out, &loops, &last, &no_cross, 0, 0),
              PA_OK);
    EXPECT_TRUE(no_cross == 0 && k == nullptr);
    EXPECT_NEAR(LiKontArea(out), r.out, 1e-12) << "mode " << r.mode << ", sign " << r.sign;
    ASSERT_EQ(last + 1, static_cast<int>(r.loops.size())) << "mode " << r.mode;
    for (int i = 0; i <= last; ++i) EXPECT_NEAR(LiKontArea(loops[i]), r.loops[i], 1e-12);
    Live live = Loops(loops, last);
    live.push_back(out);
    EXPECT_TRUE(AllRecordsAccounted(store.head(), live));
    FlFreeList(store.get(), &loops, last);
  }
}

TEST(CleanKont, NoSelfCrossingLeavesTheContourButShortElementsGo) {
  // The last side (0, 5e-4) -> (0, 0) goes when shorter than 100 x a fine
  // tolerance, and stays against the default one.
  for (auto [tol, rem_short, count] : {std::tuple{1e-5, 1, 4u}, {5e-5, 1, 5u}, {1e-5, 0, 5u}}) {
    ToleranceScope scope(tol);
    Store store;
    LI_TAB_STRUCT *k = Polygon(store.get(), {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 5e-4}});
    LI_TAB_STRUCT *first = k, *out = k, **loops = &k;
    int16_t last = 0;
    uint32_t no_cross = 0;
    EXPECT_EQ(FlCleanKont(store.get(), &k, 1, 1, &out, &loops, &last, &no_cross, 0, rem_short),
              PA_OK);
    EXPECT_TRUE(no_cross == 1 && k == first && out == nullptr && loops == nullptr && last == -1);
    EXPECT_EQ(LiCountElem(k), count) << "tolerance " << tol << ", removal " << rem_short;
  }
}

TEST(Pipelines, UnderAllocationFailure) {
  // A failing list or search gives PA_NO_MEMORY, a failing cut PA_NO_RECORD;
  // the repeat finder's scratch memory only falls back.
  const auto clean = [](uint16_t st) { return st == PA_NO_MEMORY || st == PA_NO_RECORD; };
  for (bool two : {true, false}) {
    const unsigned long failing = ForEachAllocationFailure([&](InjectedFailure &failure) {
      Store store;
      LI_TAB_STRUCT *a = two ? Square(store.get(), 0) : FigureEight(store.get());
      LI_TAB_STRUCT *b = two ? Square(store.get(), 0.5) : nullptr, *out = nullptr, **loops;
      LI_TAB_STRUCT *spare = TakeAllFree(store.get());
      const double length = LiKontLen(a) + LiKontLen(b);
      int16_t last;
      uint32_t flags;
      failure.Arm();
      const uint16_t st =
          two ? FlCrossKonturClosed(store.get(), &a, &b, FL_OP_UNION, &flags, &loops, &last)
              : FlCleanKont(store.get(), &a, 1, 1, &out, &loops, &last, &flags, 0, 0);
      failure.Disarm();
      EXPECT_TRUE(st == PA_OK ? a == nullptr && last == (two ? 1 : 0) : clean(st) && !loops) << st;
      EXPECT_NEAR(LiKontLen(a) + LiKontLen(b), st == PA_OK ? 0 : length, 1e-12) << "inputs whole";
      Live live = Loops(loops, last);
      live.insert(live.end(), {a, b, out, spare});
      EXPECT_TRUE(AllRecordsAccounted(store.head(), live));
      FlFreeList(store.get(), &loops, last);
    });
    EXPECT_GE(failing, 3u) << "the list, the store and the scratch array";
  }
}

}  // namespace
}  // namespace polyarc_test
