// Hand-made crossing lists and contour lists for the crossing tests.
#include "support/classify_support.h"

#include <algorithm>
#include <cmath>

namespace polyarc_test {

void Fill(CrossList &cross, std::initializer_list<GE_CROSS> entries) {
  void *raw = nullptr;
  ASSERT_EQ(MemAllocBlock(&raw, entries.size(), sizeof(GE_CROSS), 1, 0), PA_OK);
  cross.list = static_cast<GE_CROSS *>(raw);
  for (const GE_CROSS &c : entries) cross.list[++cross.last] = c;
}

GE_CROSS Joint(LI_TAB_STRUCT *ea, LI_TAB_STRUCT *eb) {
  GE_CROSS c{};
  c.pt = ea->ep;
  c.loc_a = c.loc_b = GE_AT_END;
  c.elem_a = ea, c.elem_b = eb, c.next_a = ea->next, c.next_b = eb->next;
  return c;
}

LI_TAB_STRUCT **ContourList(const Live &loops) {
  void *raw = nullptr;
  EXPECT_EQ(MemAllocBlock(&raw, loops.size(), sizeof(LI_TAB_STRUCT *), 1, 0), PA_OK);
  std::copy(loops.begin(), loops.end(), static_cast<LI_TAB_STRUCT **>(raw));
  return static_cast<LI_TAB_STRUCT **>(raw);
}

Live Loops(LI_TAB_STRUCT **loops, int16_t last) { return Live(loops, loops + last + 1); }

std::vector<double> Areas(LI_TAB_STRUCT **loops, int16_t last) {
  std::vector<double> out;
  for (LI_TAB_STRUCT *k : Loops(loops, last)) out.push_back(LiKontArea(k));
  return out;
}

LI_TAB_STRUCT *Square(LI_HEAD *head, double d) {
  return Polygon(head, {{d, d}, {d + 1, d}, {d + 1, d + 1}, {d, d + 1}});
}

LI_TAB_STRUCT *OfArea(LI_HEAD *head, double a) {
  const GE_POINT top{0.5, 2 * std::fabs(a)};
  return a < 0 ? Polygon(head, {{0, 0}, top, {1, 0}}) : Polygon(head, {{0, 0}, {1, 0}, top});
}

}  // namespace polyarc_test
