// Test support for the Boolean operations.
#include "support/boolean_support.h"

#include <cstring>

namespace polyarc_test {

const char *OpName(Op op) {
  static const char *const kNames[] = {"union", "intersection", "difference"};
  return kNames[static_cast<int>(op)];
}

Outcome::Outcome(LI_HEAD *head, Op op, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                 double short_len, int32_t keep)
    : head_(head), op_(op) {
  auto fn = op == Op::kUnion ? FlUnionKont : op == Op::kIntersection ? FlIsectKont : FlDiffKont;
  status_ = fn(head, a, b, short_len, keep, &list_, &last_, &no_cross_, &contain_);
}

std::vector<LI_TAB_STRUCT *> Outcome::loops() const {
  std::vector<LI_TAB_STRUCT *> out;
  for (int16_t i = 0; list_ != nullptr && i <= last_; ++i) out.push_back(list_[i]);
  return out;
}

std::vector<double> Outcome::loop_areas() const {
  std::vector<double> out;
  for (LI_TAB_STRUCT *k : loops()) out.push_back(LiKontArea(k));
  return out;
}

double Outcome::RegionArea(double area_a, double area_b) const {
  if (no_cross_ == 0) {
    double sum = 0;
    for (double area : loop_areas()) sum += area;
    return sum;
  }
  const bool a_in_b = contain_ == 1, b_in_a = contain_ == -1;
  switch (op_) {
    case Op::kUnion:
      return a_in_b ? area_b : b_in_a ? area_a : area_a + area_b;
    case Op::kIntersection:
      return a_in_b ? area_a : b_in_a ? area_b : 0.0;
    case Op::kDifference:
      return a_in_b ? 0.0 : b_in_a ? area_a - area_b : area_a;
  }
  return 0.0;
}

LI_TAB_STRUCT *Rect(LI_HEAD *head, double x0, double y0, double x1, double y1) {
  return Polygon(head, {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

LI_TAB_STRUCT *Circle(LI_HEAD *head, GE_POINT centre, double r) {
  const GE_POINT right{centre.x + r, centre.y}, left{centre.x - r, centre.y};
  LI_TAB_STRUCT *k = nullptr;
  EXPECT_EQ(LiMove(head, &k, &right), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &left, &centre, 0), PA_OK);
  EXPECT_EQ(LiArc(head, &k, &right, &centre, 0), PA_OK);
  return k;
}

std::vector<LI_TAB_STRUCT> Snapshot(const LI_TAB_STRUCT *k) {
  std::vector<LI_TAB_STRUCT> out;
  const LI_TAB_STRUCT *e = k;
  do {
    LI_TAB_STRUCT copy = *e;
    copy.next = copy.prev = nullptr;
    out.push_back(copy);
    e = e->next;
  } while (e != k);
  return out;
}

bool SameContents(const std::vector<LI_TAB_STRUCT> &a, const std::vector<LI_TAB_STRUCT> &b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(a[0])) == 0;
}

}  // namespace polyarc_test
