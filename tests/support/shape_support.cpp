// Shapes and checks shared by the tests of several folders.
#include "support/shape_support.h"

namespace polyarc_test {

LI_TAB_STRUCT *FullCircle(LI_HEAD *head, GE_POINT centre, double r, uint16_t dir) {
  LI_TAB_STRUCT circle{};
  EXPECT_EQ(LiCreateCircle(&centre, r, dir, &circle), PA_OK);
  return Chain(head, {circle});
}

LI_TAB_STRUCT *Numbered(LI_TAB_STRUCT *k) {
  uint16_t counter = 0;
  EXPECT_EQ(LiNumKont(k, &counter), PA_OK);
  return k;
}

LI_TAB_STRUCT *Ring(LI_HEAD *head, const std::vector<double> &xy) {
  std::vector<LI_TAB_STRUCT> lines;
  for (size_t i = 0, n = xy.size(); i < n; i += 2)
    lines.push_back(Line({xy[i], xy[i + 1]}, {xy[(i + 2) % n], xy[(i + 3) % n]}));
  return Chain(head, lines);
}

Live Alternating(LI_HEAD *head) {
  Live k{Polyline(head, {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}),
         Polyline(head, {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}})};
  const uint16_t numbers[2][4] = {{1, 5, 2, 3}, {1, 2, 6, 3}};
  for (int i = 0; i < 2; ++i) {
    for (int j = 0; LI_TAB_STRUCT * e : Elements(k[i])) e->no = numbers[i][j++];
  }
  return k;
}

LI_TAB_STRUCT *ArcThenLine(LI_HEAD *head) {
  return Chain(head, {Arc({1, 0}, {0, 1}, {0, 0}, LI_ARC_CCW), Line({0, 1}, {0, 3})});
}

bool NoSentinel(LI_TAB_STRUCT *k) {
  for (const LI_TAB_STRUCT *e : Elements(k))
    if (e->type == 98) return false;
  return true;
}

}  // namespace polyarc_test
