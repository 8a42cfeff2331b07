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
  // the tolerance tol. Throws std::bad_alloc.
  WindingTree(const LI_TAB_STRUCT *k, double tol);

  // kInside or kOutside as the point-in-contour walk decides them, or
  // kNear when p lies within the clearance of an element.
  Answer Locate(GE_POINT p) const;

 private:
  // Elements per leaf of the tree.
  static constexpr uint32_t kBucket = 8;

  struct Node {
    GE_BOX box;     // the reach of every element below, clearance included
    int32_t first;  // first and last counted element below, -1 when none
    int32_t last;
  };

  void BuildLeaves(const LI_TAB_STRUCT *k);
  void BuildNodes();
  GE_BOX Reach(uint32_t i) const;
  bool NearLeaf(uint32_t i, GE_POINT p) const;
  double LeafTurn(uint32_t i, GE_POINT p) const;
  double ChainTurn(const Node &n, GE_POINT p) const;

  double tol_;
  uint32_t size_ = 1;  // leaves of kBucket elements, a power of two
  BlockVector<const LI_TAB_STRUCT *> elems_;
  BlockVector<GE_POINT> from_;    // where the walk's chord to each element starts
  BlockVector<double> reach_;     // the clearance of each element
  BlockVector<uint8_t> counted_;  // 1 when the walk does not skip the element
  BlockVector<Node> nodes_;       // 1-based heap order, leaf of element i at size_ + i / kBucket
  mutable BlockVector<uint32_t> stack_;
};

}  // namespace polyarc
