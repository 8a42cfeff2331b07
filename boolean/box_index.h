// A static spatial index over boxes: a packed R-tree, 16 boxes to a node,
// built once, that answers "which boxes meet this box" in about
// logarithmic time plus the answers. Items are positions (0 .. n - 1) in
// the array of leaves it was built from, not pointers.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/block_allocator.h"
#include "polyarc/records.h"

namespace polyarc {

class BoxIndex {
 public:
  // A box of the tree: single precision, half the memory of an element's
  // box, rounded to the nearest (which keeps every box test that passes).
  struct Box {
    float xmin, ymin, xmax, ymax;
  };
  using Leaves = BlockVector<Box>;

  // The leaf for an element's box; a box with a coordinate that is not
  // finite (or beyond single precision) stands for the whole plane.
  static Box Leaf(const GE_BOX &b);

  // Indexes the leaves; item i is leaves[i]. Leaves given in the chain
  // order of a contour mostly lie next to their neighbours; they then keep
  // that order, which costs nothing to build. Where runs of neighbours
  // spread too far (moves, scattered pieces) they are sorted along a
  // Hilbert curve through their centres instead. Throws std::bad_alloc.
  explicit BoxIndex(Leaves leaves);

  // Appends to out every item whose box may meet q, edges included: every
  // one that does, and a few that come within the rounding of the tree
  // (every item whose box is not finite too). When the leaves keep
  // the given order the items come ascending; otherwise in no particular
  // order. Stops and returns false once more than limit items have been
  // appended. Throws std::bad_alloc when out cannot grow.
  bool Query(const GE_BOX &q, BlockVector<uint32_t> &out, size_t limit = SIZE_MAX) const;

  // Whether Query gives its items ascending.
  bool Ordered() const { return leaf_items_.empty(); }

 private:
  static constexpr uint32_t kNodeSize = 16;

  void SortLeaves();
  void BuildLevels();
  const Box *Level(uint32_t l) const {
    return l == 0 ? leaves_.data() : nodes_.data() + level_begin_[l];
  }
  uint32_t LevelSize(uint32_t l) const {
    return l == 0 ? static_cast<uint32_t>(leaves_.size()) : level_begin_[l + 1] - level_begin_[l];
  }
  uint32_t LeafItem(uint32_t leaf) const { return Ordered() ? leaf : leaf_items_[leaf]; }

  Leaves leaves_;
  // The item of each leaf; empty when leaf i is item i.
  BlockVector<uint32_t> leaf_items_;
  // The inner levels, the leaves' parents first, each in node order: the
  // children of node j of a level are nodes 16 j .. 16 j + 15 of the level
  // below. Level l (from 1) starts at level_begin_[l]; the last entry is
  // one past the root.
  Leaves nodes_;
  BlockVector<uint32_t> level_begin_;
  mutable BlockVector<uint32_t> stack_;
};

// Whether two boxes meet, edges included.
constexpr bool BoxesMeet(const GE_BOX &a, const GE_BOX &b) {
  return a.xmin <= b.xmax && b.xmin <= a.xmax && a.ymin <= b.ymax && b.ymin <= a.ymax;
}

}  // namespace polyarc
