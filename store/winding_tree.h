// A tree of boxes over the chain of a closed contour that answers the
// point-in-contour walk for points clearly away from the contour in about
// logarithmic time, and says when a point is too near to be answered so.
#pragma once

#include <cstdint>

#include "platform/block_allocator.h"
#include "polyarc/records.h"

namespace polyarc {

class WindingTree {
 public:
  // How far a point must stay from every element, in tolerances, to be
  // answered from the tree (see store/winding_tree.cpp for why).
  static constexpr double kClearance = 16.0;

  enum class Answer { kInside, kOutside, kNear };

  // Builds the tree over the closed contour k (two elements or more) with
  // the tolerance tol, in one walk of the chain. Throws std::bad_alloc.
  WindingTree(const LI_TAB_STRUCT *k, double tol);

  // kInside or kOutside as the point-in-contour walk decides them, or
  // kNear when p lies within the clearance of an element (and for every
  // point when a coordinate of the contour is not finite).
  Answer Locate(GE_POINT p) const;

 private:
  static constexpr uint32_t kBucket = 8;  // elements per leaf
  static constexpr uint32_t kFan = 8;     // children per inner node

  // Single precision, rounded to the nearest: a point in a box stays in
  // it once both are rounded.
  struct Box {
    float xmin, ymin, xmax, ymax;
  };

  // Where the walk stands as it comes to the first element of a leaf: the
  // start of its next chord, and the length of chain since that point.
  struct Start {
    GE_POINT from;
    double slack;
  };

  static Box Rounded(const GE_BOX &b);
  void AddElement(const LI_TAB_STRUCT &e, Start &at, double gap, GE_BOX &leaf);
  void BuildLevels();
  bool LeafWinding(uint32_t leaf, GE_POINT p, int &winding) const;

  double tol_;
  bool finite_ = true;
  BlockVector<const LI_TAB_STRUCT *> elems_;
  // One per leaf, and one more: where the walk ends.
  BlockVector<Start> starts_;
  // The boxes of all levels, leaves first; node j of a level covers nodes
  // kFan j .. kFan j + kFan - 1 of the level below. Level l starts at
  // level_begin_[l]; the last entry is one past the root.
  BlockVector<Box> boxes_;
  BlockVector<uint32_t> level_begin_;
  BlockVector<uint32_t> level_span_;  // leaves under one node of level l
  mutable BlockVector<uint32_t> stack_;
};

}  // namespace polyarc
