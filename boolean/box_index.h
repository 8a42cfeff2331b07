// A static spatial index over boxes: a packed R-tree whose leaves are the
// boxes sorted along a Hilbert curve through their centres, 16 to a node.
// Built once, it answers "which boxes meet this box" in about logarithmic
// time plus the answers. Items are positions (0 .. n - 1), not pointers.
#pragma once

#include <cstdint>

#include "platform/block_allocator.h"
#include "polyarc/records.h"

namespace polyarc {

class BoxIndex {
 public:
  // Indexes boxes[0 .. n - 1]; item i is boxes[i]. Throws std::bad_alloc.
  explicit BoxIndex(const BlockVector<GE_BOX> &boxes);

  // Appends to out every item whose box meets q, edges included (and every
  // item whose box has a coordinate that is not finite), in no particular
  // order. Throws std::bad_alloc when out cannot grow.
  void Query(const GE_BOX &q, BlockVector<uint32_t> &out) const;

 private:
  static constexpr uint32_t kNodeSize = 16;

  // The boxes of all levels, leaves first; for a leaf child_ holds the
  // item, for an inner node the position of its first child in boxes_.
  BlockVector<GE_BOX> boxes_;
  BlockVector<uint32_t> child_;
  // level_end_[l] is one past the last node of level l; the root is last.
  BlockVector<uint32_t> level_end_;
  // Items whose boxes cannot be placed on the curve; every query gets them.
  BlockVector<uint32_t> unplaced_;
  mutable BlockVector<uint32_t> stack_;
};

// Whether two boxes meet, edges included.
constexpr bool BoxesMeet(const GE_BOX &a, const GE_BOX &b) {
  return a.xmin <= b.xmax && b.xmin <= a.xmax && a.ymin <= b.ymax && b.ymin <= a.ymax;
}

}  // namespace polyarc
