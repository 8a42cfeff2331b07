// The packed R-tree of boolean/box_index.h.
#include "boolean/box_index.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace polyarc {
namespace {

using Box = BoxIndex::Box;

constexpr uint32_t kCurveSide = 1u << 16;

// Leaves in the given order are kept while the runs that share a node
// spread at most this many times as far as their boxes do alone (half
// perimeters summed). A chain of joined elements stays well below it,
// whatever their shape; scattered pieces go far above.
constexpr double kSpreadLimit = 2.0;

// Stands for a box that is not finite: it meets every box, so the query
// that would not rule it out gets it.
constexpr Box kEverywhere{-HUGE_VALF, -HUGE_VALF, HUGE_VALF, HUGE_VALF};

// Rounding to the nearest float never puts two coordinates out of order
// (it may make them equal), so boxes that meet still meet once rounded.
Box Rounded(const GE_BOX &b) {
  return {static_cast<float>(b.xmin), static_cast<float>(b.ymin), static_cast<float>(b.xmax),
          static_cast<float>(b.ymax)};
}

bool Finite(const Box &b) {
  return std::isfinite(b.xmin) && std::isfinite(b.ymin) && std::isfinite(b.xmax) &&
         std::isfinite(b.ymax);
}

bool Meet(const Box &a, const Box &b) {
  return a.xmin <= b.xmax && b.xmin <= a.xmax && a.ymin <= b.ymax && b.ymin <= a.ymax;
}

Box Union(const Box &a, const Box &b) {
  return {std::min(a.xmin, b.xmin), std::min(a.ymin, b.ymin), std::max(a.xmax, b.xmax),
          std::max(a.ymax, b.ymax)};
}

double HalfPerimeter(const Box &b) { return double(b.xmax - b.xmin) + double(b.ymax - b.ymin); }

// Whether the runs of `run` leaves in their present order stay compact
// enough to share nodes.
bool CompactRuns(const BlockVector<Box> &leaves, uint32_t run) {
  double alone = 0.0, together = 0.0;
  for (size_t first = 0; first < leaves.size(); first += run) {
    bool any = false;
    Box u{};
    for (size_t i = first; i < std::min<size_t>(first + run, leaves.size()); ++i) {
      if (!Finite(leaves[i])) continue;
      alone += HalfPerimeter(leaves[i]);
      u = any ? Union(u, leaves[i]) : leaves[i];
      any = true;
    }
    if (any) together += HalfPerimeter(u);
  }
  return together <= kSpreadLimit * alone;
}

// The position of cell (x, y) of a 2^16 x 2^16 grid along the Hilbert
// curve that fills it.
uint32_t HilbertPosition(uint32_t x, uint32_t y) {
  uint32_t d = 0;
  for (uint32_t s = kCurveSide / 2; s > 0; s /= 2) {
    const uint32_t rx = (x & s) != 0 ? 1 : 0;
    const uint32_t ry = (y & s) != 0 ? 1 : 0;
    d += s * s * ((3 * rx) ^ ry);
    // Turn the quadrant so that the curve inside it runs the standard way.
    if (ry == 0) {
      if (rx == 1) {
        x = kCurveSide - 1 - x;
        y = kCurveSide - 1 - y;
      }
      std::swap(x, y);
    }
  }
  return d;
}

// Maps a coordinate of [lo, lo + span] onto the curve's grid.
uint32_t GridCoordinate(double v, double lo, double span) {
  if (!(span > 0.0)) return 0;
  const double cell = (v - lo) / span * (kCurveSide - 1);
  return static_cast<uint32_t>(std::clamp(cell, 0.0, double(kCurveSide - 1)));
}

// The leaves as (curve position << 32 | leaf), sorted; boxes that are not
// finite come first.
BlockVector<uint64_t> CurveOrder(const BlockVector<Box> &leaves) {
  double lo_x = HUGE_VAL, lo_y = HUGE_VAL, hi_x = -HUGE_VAL, hi_y = -HUGE_VAL;
  for (const Box &b : leaves) {
    if (!Finite(b)) continue;
    const double cx = 0.5 * (double(b.xmin) + b.xmax), cy = 0.5 * (double(b.ymin) + b.ymax);
    lo_x = std::min(lo_x, cx);
    hi_x = std::max(hi_x, cx);
    lo_y = std::min(lo_y, cy);
    hi_y = std::max(hi_y, cy);
  }
  BlockVector<uint64_t> keys;
  keys.reserve(leaves.size());
  for (uint32_t i = 0; i < leaves.size(); ++i) {
    const Box &b = leaves[i];
    uint64_t position = 0;
    if (Finite(b)) {
      const uint32_t gx = GridCoordinate(0.5 * (double(b.xmin) + b.xmax), lo_x, hi_x - lo_x);
      const uint32_t gy = GridCoordinate(0.5 * (double(b.ymin) + b.ymax), lo_y, hi_y - lo_y);
      position = uint64_t{HilbertPosition(gx, gy)} + 1;
    }
    keys.push_back(position << 32 | i);
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

}  // namespace

BoxIndex::Box BoxIndex::Leaf(const GE_BOX &b) {
  const Box f = Rounded(b);
  return Finite(f) ? f : kEverywhere;
}

BoxIndex::BoxIndex(Leaves leaves) : leaves_(std::move(leaves)) {
  if (leaves_.empty()) return;
  if (!CompactRuns(leaves_, kNodeSize)) SortLeaves();
  BuildLevels();
}

// Puts the leaves in the order of the curve, remembering their items.
void BoxIndex::SortLeaves() {
  const BlockVector<uint64_t> order = CurveOrder(leaves_);
  Leaves sorted;
  sorted.reserve(leaves_.size());
  leaf_items_.reserve(order.size());
  for (const uint64_t key : order) {
    const uint32_t item = static_cast<uint32_t>(key & 0xffffffffu);
    sorted.push_back(leaves_[item]);
    leaf_items_.push_back(item);
  }
  leaves_.swap(sorted);
}

// The inner levels over the leaves, kNodeSize children to a node.
void BoxIndex::BuildLevels() {
  size_t inner = 0;
  for (size_t n = leaves_.size(); n > 1; n = (n + kNodeSize - 1) / kNodeSize)
    inner += (n + kNodeSize - 1) / kNodeSize;
  nodes_.reserve(inner);
  level_begin_.push_back(0);  // the leaves live in leaves_
  for (uint32_t l = 0, n = LevelSize(0); n > 1; ++l) {
    const uint32_t begin = static_cast<uint32_t>(nodes_.size());
    level_begin_.push_back(begin);
    const Box *below = Level(l);  // nodes_ is reserved: it stays put
    for (uint32_t first = 0; first < n; first += kNodeSize) {
      Box box = below[first];
      for (uint32_t c = first + 1; c < std::min(first + kNodeSize, n); ++c)
        box = Union(box, below[c]);
      nodes_.push_back(box);
    }
    n = static_cast<uint32_t>(nodes_.size()) - begin;
  }
  level_begin_.push_back(static_cast<uint32_t>(nodes_.size()));
  stack_.reserve(2 * kNodeSize * level_begin_.size());
}

bool BoxIndex::Query(const GE_BOX &q, BlockVector<uint32_t> &out, size_t limit) const {
  if (leaves_.empty()) return true;
  const size_t most = out.size() + std::min(limit, SIZE_MAX - out.size());
  const uint32_t leaves = LevelSize(0);
  if (std::isnan(q.xmin) || std::isnan(q.ymin) || std::isnan(q.xmax) || std::isnan(q.ymax)) {
    // A box test with a NaN cannot rule anything out.
    for (uint32_t i = 0; i < leaves && out.size() < most; ++i) out.push_back(LeafItem(i));
    return leaves <= limit;
  }
  const Box box = Rounded(q);
  const uint32_t root_level = static_cast<uint32_t>(level_begin_.size() - 2);
  if (!Meet(Level(root_level)[0], box)) return true;
  if (root_level == 0) {
    if (limit == 0) return false;
    out.push_back(LeafItem(0));
    return true;
  }
  // (node within its level, level) pairs of inner nodes; children go on
  // in reverse so that they come off in order.
  stack_.clear();
  stack_.push_back(0);
  stack_.push_back(root_level);
  while (!stack_.empty()) {
    const uint32_t level = stack_.back();
    stack_.pop_back();
    const uint32_t node = stack_.back();
    stack_.pop_back();
    const Box *below = Level(level - 1);
    const uint32_t first = node * kNodeSize;
    const uint32_t end = std::min(first + kNodeSize, LevelSize(level - 1));
    if (level == 1) {
      for (uint32_t c = first; c < end; ++c) {
        if (!Meet(below[c], box)) continue;
        if (out.size() == most) return false;
        out.push_back(LeafItem(c));
      }
      continue;
    }
    for (uint32_t c = end; c-- > first;) {
      if (!Meet(below[c], box)) continue;
      stack_.push_back(c);
      stack_.push_back(level - 1);
    }
  }
  return true;
}

}  // namespace polyarc
