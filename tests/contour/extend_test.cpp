// Extending contours along their end tangents.
#include "support/shape_support.h"

namespace polyarc_test {
namespace {

TEST(Extend, LinesAreLengthenedAndArcsGetANewLine) {
  Store store;
  LI_TAB_STRUCT *line = Polyline(store.get(), {{0, 0}, {1, 0}});
  EXPECT_EQ(LiElemVerl(store.get(), &line, 2, 0), PA_OK);
  EXPECT_TRUE(line->ep == (GE_POINT{3, 0}) && line->ang_ep - line->ang_ap == 3) << "re-expanded";
  EXPECT_EQ(LiElemVerl(store.get(), &line, -3, 1), PA_ZERO_LENGTH) << "shortened to nothing";

  LI_TAB_STRUCT *k = ArcThenLine(store.get());
  LI_TAB_STRUCT *arc = k;
  EXPECT_EQ(LiElemVerl(store.get(), &k, 2, 1), PA_OK);
  EXPECT_TRUE(k->ap == (GE_POINT{1, -2}) && k->next == arc) << "back along the start tangent";
  LI_TAB_STRUCT *fresh = ArcThenLine(store.get());
  EXPECT_EQ(LiElemVerl(store.get(), &fresh, 0, 1), PA_ZERO_LENGTH);
  EXPECT_EQ(LiCountElem(fresh), 2u) << "a new line of zero length is not kept";
  LiKontChgDir(&fresh);  // now the arc ends it, running clockwise down to (1, 0)
  EXPECT_EQ(LiElemVerl(store.get(), &fresh, 1, 0), PA_OK);
  EXPECT_TRUE(LiCountElem(fresh) == 3 && fresh->prev->ep == (GE_POINT{1, -1}));

  LI_TAB_STRUCT *both = ArcThenLine(store.get());
  ASSERT_EQ(LiVerlKont(store.get(), &both, 1), PA_OK);
  EXPECT_TRUE(LiCountElem(both) == 3 && both->ap == (GE_POINT{1, -1}) &&
              both->prev->ep == (GE_POINT{0, 4}));
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {line, k, fresh, both}));
}

}  // namespace
}  // namespace polyarc_test
