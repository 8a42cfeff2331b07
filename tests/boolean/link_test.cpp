// Rewiring contours at their crossings, and choosing loops by area.
#include "support/classify_support.h"

namespace polyarc_test {
namespace {

// The unit square and the one moved by (0.5, 0.5), each with a vertex
// where the other crosses it, and the crossings at those vertices.
struct TwoSquares {
  explicit TwoSquares(LI_HEAD *head)
      : a(Polygon(head, {{0, 0}, {1, 0}, {1, 0.5}, {1, 1}, {0.5, 1}, {0, 1}})),
        b(Polygon(head, {{0.5, 0.5}, {1, 0.5}, {1.5, 0.5}, {1.5, 1.5}, {0.5, 1.5}, {0.5, 1}})) {
    Fill(cross, {Joint(a->next, b), Joint(a->next->next->next, b->prev->prev)});
  }
  LI_TAB_STRUCT *a, *b;
  CrossList cross;
};

TEST(CrossLink, TwoSquaresRewireIntoOutlineAndOverlapInTheListStorage) {
  Store store;
  TwoSquares sq(store.get());
  const Points a = Vertices(sq.a), b = Vertices(sq.b);
  const void *storage = sq.cross.list;
  LI_TAB_STRUCT **loops = &sq.a;
  int16_t last = 7;
  sq.cross.list[0].mode = sq.cross.list[1].mode = FL_MODE_VOID;
  FlCrossLink(&sq.cross.list, &sq.cross.last, &loops, &last);
  EXPECT_TRUE(loops == nullptr && last == FL_EMPTY) << "no usable crossing";
  EXPECT_TRUE(sq.cross.list == storage && sq.cross.last == 1);
  EXPECT_TRUE(Vertices(sq.a) == a && Vertices(sq.b) == b);

  sq.cross.list[0].mode = sq.cross.list[1].mode = FL_MODE_CROSS;
  FlCrossLink(&sq.cross.list, &sq.cross.last, &loops, &last);
  EXPECT_TRUE(sq.cross.list == nullptr && sq.cross.last == 0);
  EXPECT_EQ(static_cast<const void *>(loops), storage);
  EXPECT_EQ(Areas(loops, last), (std::vector<double>{1.75, 0.25}));
  EXPECT_EQ(loops[0], sq.a->next) << "listed by the first element recorded on it";
  for (LI_TAB_STRUCT *k : Loops(loops, last)) {
    for (LI_TAB_STRUCT *e : Elements(k)) EXPECT_EQ(e->mark, 0);
  }
  EXPECT_TRUE(AllRecordsAccounted(store.head(), Loops(loops, last)));
  FlFreeList(store.get(), &loops, last);
}

TEST(CheckList, SelectionCodesAndWantedSign) {
  // Loops 0..5 of areas +1, -2.25, +1e-6 (sign 0), +4, +4, -9.
  struct Row {
    uint16_t sign, select;
    std::vector<int> kept;
    int extra;  // -1: none
  } rows[] = {
      {1, 4, {1, 5}, 3},     {1, 5, {0, 4}, -1},          {1, 6, {0, 3, 4}, -1},
      {1, 9, {0, 1, 3, 4, 5}, -1}, {65535, 4, {0, 3, 4}, 5}, {65535, 5, {1}, -1},
      {0, 6, {}, -1},
  };
  for (const Row &r : rows) {
    Store store;
    LI_HEAD *head = store.get();
    const Live all{OfArea(head, 1), OfArea(head, -2.25), OfArea(head, 1e-6),
                   OfArea(head, 4), OfArea(head, 4),     OfArea(head, -9)};
    LI_TAB_STRUCT **loops = ContourList(all);
    int16_t last = 5;
    LI_TAB_STRUCT *extra = all[2];  // overwritten, not given back
    EXPECT_EQ(FlCheckList(head, loops, &last, r.sign, r.select, &extra), PA_OK);
    Live kept;
    for (int i : r.kept) kept.push_back(all[i]);
    EXPECT_EQ(Loops(loops, last), kept) << "sign " << r.sign << ", code " << r.select;
    EXPECT_EQ(extra, r.extra < 0 ? nullptr : all[r.extra]);
    kept.push_back(extra);
    EXPECT_TRUE(AllRecordsAccounted(store.head(), kept));
    FlFreeList(head, &loops, last);
  }
}

}  // namespace
}  // namespace polyarc_test
