// How far an offset strays from the distance it should keep from its
// source: every drawn element of the result is sampled densely and each
// sample's distance to the nearest point of the source is compared with
// the offset distance.
#pragma once

#include <cstddef>
#include <vector>

#include "contour_list.h"
#include "polyarc/li.h"

namespace polyarc_tool {

// The nearest point of a contour's drawn elements to any point, found
// through a grid of the elements' boxes.
class NearestPoint {
 public:
  struct Found {
    double distance = 0;
    GE_POINT at{0, 0};
  };

  // k must outlive the search and not change.
  explicit NearestPoint(const LI_TAB_STRUCT *k);
  // Nothing found (an infinite distance) for a contour of moves only.
  Found Find(GE_POINT p) const;

 private:
  void Visit(int cx, int cy, GE_POINT p, Found &best) const;
  double Covered(GE_POINT p, int cx, int cy, int r) const;

  std::vector<const LI_TAB_STRUCT *> elements_;
  std::vector<std::vector<std::size_t>> cells_;  // element indices, row by row
  GE_POINT lo_{0, 0};
  double cell_ = 1;
  int nx_ = 0, ny_ = 0;
};

// Samples per element: the ends and kCheckSteps - 1 points between.
constexpr int kCheckSteps = 64;

struct Deviation {
  std::size_t samples = 0;
  double worst = 0;  // largest |distance to the source - d| over all samples
  GE_POINT worst_at{0, 0};
  bool worst_at_corner = false;
  // The same over the samples off the corners: on the offset of a source
  // element, beside the element itself (its foot on the element lies
  // inside it). A sharp corner extends the offsets of its two elements
  // beyond their ends, where they lie farther than d from the source by
  // design; round corners are arcs about the source's vertices.
  std::size_t inside_samples = 0;
  double worst_inside = 0;
  GE_POINT worst_inside_at{0, 0};
};

// The deviation of the loops' drawn elements from the distance d to
// source. The source's elements must carry the numbers 1, 2, ... in chain
// order (LiNumKont from 0), which the offset passes on to their offsets;
// connectors carry higher numbers.
Deviation MeasureDeviation(const LI_TAB_STRUCT *source, const ContourList &loops, double d);

// The point at fraction u of the way along a line or an arc (also a full
// circle, and an arc whose radius went negative).
GE_POINT PointAlong(const LI_TAB_STRUCT *e, double u);

}  // namespace polyarc_tool
