// Test support for crossing lists.
#include "support/crossing_support.h"

#include <cmath>
#include <cstring>

namespace polyarc_test {

LI_TAB_STRUCT *Chain(LI_HEAD *head, const std::vector<LI_TAB_STRUCT> &elements) {
  LI_TAB_STRUCT *k = nullptr;
  for (const LI_TAB_STRUCT &e : elements) EXPECT_EQ(LiInsertElem2(head, &k, &e), PA_OK);
  return k;
}

LI_TAB_STRUCT *Chain(LI_HEAD *head, std::initializer_list<LI_TAB_STRUCT> elements) {
  return Chain(head, std::vector<LI_TAB_STRUCT>(elements));
}

LI_TAB_STRUCT Move(GE_POINT ap, GE_POINT ep) {
  LI_TAB_STRUCT e = Line(ap, ep);
  e.type = LI_MOVE;
  return e;
}

testing::AssertionResult Near(GE_POINT got, GE_POINT want) {
  if (std::fabs(got.x - want.x) <= 1e-9 && std::fabs(got.y - want.y) <= 1e-9)
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << got << " is not " << want;
}

testing::AssertionResult SameEntries(const GE_CROSS *a, int16_t a_last, const GE_CROSS *b,
                                     int16_t b_last) {
  if (a_last != b_last)
    return testing::AssertionFailure() << "last index " << a_last << " against " << b_last;
  for (int i = 0; i <= a_last; ++i) {
    if (std::memcmp(&a[i], &b[i], sizeof(GE_CROSS)) != 0) {
      return testing::AssertionFailure()
             << "entry " << i << " differs: " << a[i].pt << " against " << b[i].pt;
    }
  }
  return testing::AssertionSuccess();
}

}  // namespace polyarc_test
