// The packed Hilbert R-tree of boolean/box_index.h.
#include "boolean/box_index.h"

#include <algorithm>
#include <cmath>

namespace polyarc {
namespace {

constexpr uint32_t kCurveSide = 1u << 16;

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

bool Finite(const GE_BOX &b) {
  return std::isfinite(b.xmin) && std::isfinite(b.ymin) && std::isfinite(b.xmax) &&
         std::isfinite(b.ymax);
}

bool HasNaN(const GE_BOX &b) {
  return std::isnan(b.xmin) || std::isnan(b.ymin) || std::isnan(b.xmax) || std::isnan(b.ymax);
}

GE_BOX Union(const GE_BOX &a, const GE_BOX &b) {
  return {std::min(a.xmin, b.xmin), std::min(a.ymin, b.ymin), std::max(a.xmax, b.xmax),
          std::max(a.ymax, b.ymax)};
}

// Maps a coordinate of [lo, lo + span] onto the curve's grid.
uint32_t GridCoordinate(double v, double lo, double span) {
  if (!(span > 0.0)) return 0;
  const double cell = (v - lo) / span * (kCurveSide - 1);
  return static_cast<uint32_t>(std::clamp(cell, 0.0, double(kCurveSide - 1)));
}

// The items with finite boxes, as (curve position << 32 | item), sorted.
BlockVector<uint64_t> CurveOrder(const BlockVector<GE_BOX> &boxes,
                                 BlockVector<uint32_t> &unplaced) {
  double lo_x = HUGE_VAL, lo_y = HUGE_VAL, hi_x = -HUGE_VAL, hi_y = -HUGE_VAL;
  for (uint32_t i = 0; i < boxes.size(); ++i) {
    const GE_BOX &b = boxes[i];
    if (!Finite(b)) {
      unplaced.push_back(i);
      continue;
    }
    const double cx = 0.5 * (b.xmin + b.xmax), cy = 0.5 * (b.ymin + b.ymax);
    lo_x = std::min(lo_x, cx);
    hi_x = std::max(hi_x, cx);
    lo_y = std::min(lo_y, cy);
    hi_y = std::max(hi_y, cy);
  }
  BlockVector<uint64_t> keys;
  keys.reserve(boxes.size() - unplaced.size());
  for (uint32_t i = 0; i < boxes.size(); ++i) {
    const GE_BOX &b = boxes[i];
    if (!Finite(b)) continue;
    const uint32_t gx = GridCoordinate(0.5 * (b.xmin + b.xmax), lo_x, hi_x - lo_x);
    const uint32_t gy = GridCoordinate(0.5 * (b.ymin + b.ymax), lo_y, hi_y - lo_y);
    keys.push_back(uint64_t{HilbertPosition(gx, gy)} << 32 | i);
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

}  // namespace

BoxIndex::BoxIndex(const BlockVector<GE_BOX> &boxes) {
  const BlockVector<uint64_t> order = CurveOrder(boxes, unplaced_);
  if (order.empty()) return;
  size_t nodes = order.size();
  for (size_t level = order.size(); level > 1; level = (level + kNodeSize - 1) / kNodeSize)
    nodes += (level + kNodeSize - 1) / kNodeSize;
  boxes_.reserve(nodes);
  child_.reserve(nodes);
  for (const uint64_t key : order) {
    const uint32_t item = static_cast<uint32_t>(key & 0xffffffffu);
    boxes_.push_back(boxes[item]);
    child_.push_back(item);
  }
  level_end_.push_back(static_cast<uint32_t>(boxes_.size()));
  uint32_t begin = 0;
  while (level_end_.back() - begin > 1) {
    const uint32_t end = level_end_.back();
    for (uint32_t first = begin; first < end; first += kNodeSize) {
      GE_BOX box = boxes_[first];
      for (uint32_t c = first + 1; c < std::min(first + kNodeSize, end); ++c)
        box = Union(box, boxes_[c]);
      boxes_.push_back(box);
      child_.push_back(first);
    }
    begin = end;
    level_end_.push_back(static_cast<uint32_t>(boxes_.size()));
  }
  stack_.reserve(2 * kNodeSize * level_end_.size());
}

void BoxIndex::Query(const GE_BOX &q, BlockVector<uint32_t> &out) const {
  out.insert(out.end(), unplaced_.begin(), unplaced_.end());
  if (boxes_.empty()) return;
  if (HasNaN(q)) {
    // A box test with a NaN cannot rule anything out.
    for (uint32_t i = 0; i < level_end_[0]; ++i) out.push_back(child_[i]);
    return;
  }
  const uint32_t root = static_cast<uint32_t>(boxes_.size() - 1);
  if (!BoxesMeet(boxes_[root], q)) return;
  stack_.clear();
  stack_.push_back(root);
  stack_.push_back(static_cast<uint32_t>(level_end_.size() - 1));
  while (!stack_.empty()) {
    const uint32_t level = stack_.back();
    stack_.pop_back();
    const uint32_t node = stack_.back();
    stack_.pop_back();
    if (level == 0) {
      out.push_back(child_[node]);
      continue;
    }
    const uint32_t first = child_[node];
    const uint32_t end = std::min(first + kNodeSize, level_end_[level - 1]);
    for (uint32_t c = first; c < end; ++c) {
      if (!BoxesMeet(boxes_[c], q)) continue;
      if (level == 1) {
        out.push_back(child_[c]);
      } else {
        stack_.push_back(c);
        stack_.push_back(level - 1);
      }
    }
  }
}

}  // namespace polyarc
