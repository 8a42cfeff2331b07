// Inputs that the offset fuzz target found, each pinned down as a test.
#include "polyarc/fl.h"
#include "support/shape_support.h"

namespace polyarc_test {
namespace {

// A closed offset that shrinks the contour to a point left one open line,
// which FlParallClean handed back as the closed result.
TEST(OffsetFuzzRegression, OffsetToTheInradiusLeavesNothing) {
  // Counter-clockwise 3-4-5 triangles, inradius 1: exact, and with two
  // vertices nudged by 2 and 10.1 tolerances off the vertical.
  for (const double nudge : {0.0, 1.0}) {
    Store store;
    LI_TAB_STRUCT *k =
        Polygon(store.get(), {{3 + 1e-4 * nudge, -1}, {3 + 5.05e-4 * nudge, 3}, {0, -1}});
    for (const uint16_t mode :
         {uint16_t{FL_CORNER_SHARP}, uint16_t{FL_CORNER_ROUND}, uint16_t{7}}) {
      uint16_t counter = 1000;
      LI_TAB_STRUCT *out = nullptr;
      EXPECT_EQ(FlParallClean(store.get(), k, kLeft, 1.0, &out, mode, 0, 1, 1, &counter, 0), PA_OK);
      EXPECT_EQ(out, nullptr) << "nudge " << nudge << ", mode " << mode;
      LiRemove(store.get(), &out);
    }
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {k}));
  }
}

}  // namespace
}  // namespace polyarc_test
