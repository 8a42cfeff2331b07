// The winding tree of store/winding_tree.h.
//
// The point-in-contour walk adds up the angle each element's chord turns
// round the point (straight runs merged, an arc counted the long way when
// the point lies between it and its chord) and compares the sum with pi.
// The walk's chord to an element runs from where its previous counted
// element ended, or from the first start point; elements whose chord is
// not longer than tol are not counted. Seen from a point that stays
// kClearance tolerances away from every element and every such chord, each
// of these turns is the true angle the chord turns, in the branch the walk
// picks, and the long-way correction is the point's being inside the arc's
// circle on its bulging side. The chords follow on from one another, and
// the short segment from the last one's end back to the first start closes
// them into a polygon; round it the true angles add up to 2 pi times its
// winding number about the point, and the closing segment, which the
// clearance keeps away from the point, turns by less than pi. So the
// walk's sum reaches pi exactly when the winding number less the
// corrections is not zero; the tree counts that number by the signed
// crossings of a ray from the point, without an angle. It holds boxes over
// runs of the chain: a run whose box keeps off the point crosses the ray as
// the one chord from its first start to its last end does, and holds no
// correction, so only the runs whose boxes hold the point are opened. The
// walk counts an element whose chord line passes within tol of the point
// as no turn; at the clearance that drops at most asin(1/16) per element,
// and only a contour that crowds dozens of such elements round one point
// within a few tolerances could change an answer. The side tests stay
// exact while the contour lies within about 1e7 tolerances of the point.
#include "store/winding_tree.h"

#include <algorithm>
#include <cmath>

#include "geom/predicates.h"

namespace polyarc {
namespace {

constexpr GE_BOX kEmptyBox{HUGE_VAL, HUGE_VAL, -HUGE_VAL, -HUGE_VAL};

GE_BOX Including(GE_BOX b, GE_POINT p) {
  return {std::min(b.xmin, p.x), std::min(b.ymin, p.y), std::max(b.xmax, p.x),
          std::max(b.ymax, p.y)};
}

GE_BOX Union(const GE_BOX &a, const GE_BOX &b) {
  return {std::min(a.xmin, b.xmin), std::min(a.ymin, b.ymin), std::max(a.xmax, b.xmax),
          std::max(a.ymax, b.ymax)};
}

bool Finite(GE_POINT p) { return std::isfinite(p.x) && std::isfinite(p.y); }

double SegmentDistance2(GE_POINT p, GE_POINT s, GE_POINT t) {
  const GE_POINT d = t - s;
  const double len2 = Norm2(d);
  const double u = len2 > 0.0 ? Dot(p - s, d) / len2 : 0.0;
  return Norm2(p - (s + (u < 0.0 ? 0.0 : u > 1.0 ? 1.0 : u) * d));
}

// The length of e's chord: the walk's own measure (std::hypot) where it
// decides whether the chord is longer than tol, the cheaper square root
// where the two cannot disagree on that.
double ChordLength(const LI_TAB_STRUCT &e, double tol) {
  const double n2 = Norm2(e.ep - e.ap);
  const double quick = std::sqrt(n2);
  if (std::isnormal(n2) && std::fabs(quick - tol) > 1e-9 * quick) return quick;
  return Dist(e.ap, e.ep);
}

// The gap before an element's start: it only widens a clearance.
double Gap(GE_POINT end, GE_POINT start) { return std::sqrt(Norm2(start - end)); }

// The signed crossing of the segment s -> t with the ray from p towards
// +x: +1 upwards with p on its left, -1 downwards with p on its right.
// Half-open in y, so that chained segments count a crossing once.
int Crossing(GE_POINT s, GE_POINT t, GE_POINT p) {
  if (s.y <= p.y) return t.y > p.y && Cross(t - s, p - s) > 0.0 ? 1 : 0;
  return t.y <= p.y && Cross(t - s, p - s) < 0.0 ? -1 : 0;
}

// Whether p comes within r of e, or of the walk's chord to it from `from`
// when e is counted. Squared distances where the square root adds nothing.
bool Near(const LI_TAB_STRUCT &e, GE_POINT from, bool counted, GE_POINT p, double r) {
  const double r2 = r * r;
  if (Norm2(p - e.ap) < r2 || Norm2(p - e.ep) < r2) return true;
  if (!counted) return false;
  if (SegmentDistance2(p, from, e.ep) < r2) return true;
  if (IsLine(e)) return SegmentDistance2(p, e.ap, e.ep) < r2;
  return std::fabs(std::sqrt(Norm2(p - e.mp)) - std::fabs(e.rad)) < r;
}

// The walk's long-way correction of a counted arc, in full turns: when p
// lies inside the arc's circle on its bulging side, the arc passes round
// it the other way.
int Correction(const LI_TAB_STRUCT &e, GE_POINT from, GE_POINT p, double tol) {
  if (IsLine(e)) return 0;
  const double h = Cross(from - p, e.ep - p) / Dist(e.ap, e.ep);
  const int side = h > tol ? 1 : h < -tol ? -1 : 0;
  const int bulge = e.type == LI_ARC_CCW ? -1 : 1;
  return side == bulge && e.rad - Dist(p, e.mp) > 0.0 ? -side : 0;
}

}  // namespace

WindingTree::WindingTree(const LI_TAB_STRUCT *k, double tol) : tol_(tol) {
  Start at{k->ap, 0.0};
  GE_BOX leaf = kEmptyBox;
  const LI_TAB_STRUCT *e = k;
  do {
    if (elems_.size() % kBucket == 0) {
      if (!elems_.empty()) boxes_.push_back(Rounded(leaf));
      starts_.push_back(at);
      leaf = kEmptyBox;
    }
    AddElement(*e, at, elems_.empty() ? 0.0 : Gap(elems_.back()->ep, e->ap), leaf);
    elems_.push_back(e);
    e = e->next;
  } while (e != k);
  boxes_.push_back(Rounded(leaf));
  starts_.push_back(at);
  BuildLevels();
}

WindingTree::Box WindingTree::Rounded(const GE_BOX &b) {
  return {static_cast<float>(b.xmin), static_cast<float>(b.ymin), static_cast<float>(b.xmax),
          static_cast<float>(b.ymax)};
}

// Takes the walk past e, whose start lies gap after the previous end, and
// widens the leaf's box by where e can matter to a point: its ends, its
// chord and an arc's circle, each by its clearance. The chord may start
// anywhere along the chain since the last counted end, so the clearance
// grows by that length.
void WindingTree::AddElement(const LI_TAB_STRUCT &e, Start &at, double gap, GE_BOX &leaf) {
  finite_ = finite_ && Finite(e.ap) && Finite(e.ep) && Finite(e.mp) && std::isfinite(e.rad);
  at.slack += gap;
  const double chord = ChordLength(e, tol_);
  const bool counted = chord > tol_;
  GE_BOX box = Including(Including(kEmptyBox, e.ap), e.ep);
  if (counted) {
    box = Including(box, at.from);
    const double r = std::fabs(e.rad);
    if (!IsLine(e)) box = Union(box, {e.mp.x - r, e.mp.y - r, e.mp.x + r, e.mp.y + r});
  }
  const double w = kClearance * tol_ + at.slack;
  leaf = Union(leaf, {box.xmin - w, box.ymin - w, box.xmax + w, box.ymax + w});
  at = counted ? Start{e.ep, 0.0} : Start{at.from, at.slack + chord};
}

void WindingTree::BuildLevels() {
  level_begin_.push_back(0);
  level_span_.push_back(1);
  for (uint32_t l = 0, n = static_cast<uint32_t>(boxes_.size()); n > 1; ++l) {
    const uint32_t begin = level_begin_[l], end = static_cast<uint32_t>(boxes_.size());
    level_begin_.push_back(end);
    level_span_.push_back(level_span_[l] * kFan);
    for (uint32_t first = begin; first < end; first += kFan) {
      Box b = boxes_[first];
      for (uint32_t c = first + 1; c < std::min(first + kFan, end); ++c) {
        const Box &o = boxes_[c];
        b = {std::min(b.xmin, o.xmin), std::min(b.ymin, o.ymin), std::max(b.xmax, o.xmax),
             std::max(b.ymax, o.ymax)};
      }
      boxes_.push_back(b);
    }
    n = static_cast<uint32_t>(boxes_.size()) - end;
  }
  level_begin_.push_back(static_cast<uint32_t>(boxes_.size()));
  stack_.reserve(2 * kFan * level_begin_.size());
}

// Adds the crossings and corrections of the counted elements of a leaf
// that the point had to open; false when p is near one of its elements.
bool WindingTree::LeafWinding(uint32_t leaf, GE_POINT p, int &winding) const {
  Start at = starts_[leaf];
  const uint32_t end = std::min<uint32_t>((leaf + 1) * kBucket, uint32_t(elems_.size()));
  for (uint32_t i = leaf * kBucket; i < end; ++i) {
    const LI_TAB_STRUCT &e = *elems_[i];
    if (i > 0) at.slack += Gap(elems_[i - 1]->ep, e.ap);
    const double chord = ChordLength(e, tol_);
    const bool counted = chord > tol_;
    if (Near(e, at.from, counted, p, kClearance * tol_ + at.slack)) return false;
    if (counted) {
      winding += Crossing(at.from, e.ep, p) + Correction(e, at.from, p, tol_);
      at = {e.ep, 0.0};
    } else {
      at.slack += chord;
    }
  }
  return true;
}

WindingTree::Answer WindingTree::Locate(GE_POINT p) const {
  if (!finite_) return Answer::kNear;
  const float x = static_cast<float>(p.x), y = static_cast<float>(p.y);
  const uint32_t leaves = static_cast<uint32_t>(starts_.size() - 1);
  // The segment that closes the walk's chords into a polygon.
  int winding = Crossing(starts_[leaves].from, starts_[0].from, p);
  stack_.clear();
  stack_.push_back(0);
  stack_.push_back(static_cast<uint32_t>(level_begin_.size() - 2));
  while (!stack_.empty()) {
    const uint32_t level = stack_.back();
    stack_.pop_back();
    const uint32_t node = stack_.back();
    stack_.pop_back();
    const Box &b = boxes_[level_begin_[level] + node];
    if (!(b.xmin <= x && x <= b.xmax && b.ymin <= y && y <= b.ymax)) {
      const uint32_t first = node * level_span_[level];
      const uint32_t end = std::min(first + level_span_[level], leaves);
      winding += Crossing(starts_[first].from, starts_[end].from, p);
    } else if (level == 0) {
      if (!LeafWinding(node, p, winding)) return Answer::kNear;
    } else {
      const uint32_t below = level_begin_[level] - level_begin_[level - 1];
      for (uint32_t c = node * kFan; c < std::min(node * kFan + kFan, below); ++c) {
        stack_.push_back(c);
        stack_.push_back(level - 1);
      }
    }
  }
  return winding != 0 ? Answer::kInside : Answer::kOutside;
}

}  // namespace polyarc
