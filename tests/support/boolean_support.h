// Test support for the Boolean operations: running one and reading its
// result as the region a caller draws from it, and a few closed shapes.
#pragma once

#include <vector>

#include "polyarc/fl.h"
#include "support/support.h"

namespace polyarc_test {

enum class Op { kUnion, kIntersection, kDifference };
const char *OpName(Op op);

// The result of one Boolean operation; gives its list back when it goes.
class Outcome {
 public:
  Outcome(LI_HEAD *head, Op op, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
          double short_len = 0.0, int32_t keep = 1);
  Outcome(const Outcome &) = delete;
  Outcome &operator=(const Outcome &) = delete;
  ~Outcome() { FlFreeList(head_, &list_, last_); }

  uint16_t status() const { return status_; }
  uint32_t no_cross() const { return no_cross_; }
  int16_t contain() const { return contain_; }
  LI_TAB_STRUCT **list() const { return list_; }
  std::vector<LI_TAB_STRUCT *> loops() const;
  std::vector<double> loop_areas() const;
  // The area of the region the result stands for: the sum of the loops'
  // signed areas, or, when nothing crossed, what the containment value
  // says (A inside B: A for the intersection, B for the union, nothing for
  // A - B; apart: both, nothing, A; B inside A: B, A, A less B).
  double RegionArea(double area_a, double area_b) const;

 private:
  LI_HEAD *head_;
  Op op_;
  uint16_t status_;
  LI_TAB_STRUCT **list_ = nullptr;
  int16_t last_ = 7;
  uint32_t no_cross_ = 7;
  int16_t contain_ = 7;
};

// A closed counter-clockwise contour: the rectangle [x0, x1] x [y0, y1];
// the circle of two half arcs starting at its rightmost point.
LI_TAB_STRUCT *Rect(LI_HEAD *head, double x0, double y0, double x1, double y1);
LI_TAB_STRUCT *Circle(LI_HEAD *head, GE_POINT centre, double r);

// Every field of every element but the links, to check that an input did
// not change.
std::vector<LI_TAB_STRUCT> Snapshot(const LI_TAB_STRUCT *k);
bool SameContents(const std::vector<LI_TAB_STRUCT> &a, const std::vector<LI_TAB_STRUCT> &b);

}  // namespace polyarc_test
