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
// circle on its bulging side; the sum is then 2 pi times the winding number
// of the chords plus the corrections. The tree holds boxes over runs of the
// chain: a run whose box keeps off the point turns by the difference of the
// angles of its ends and holds no correction, so only the runs whose boxes
// hold the point are opened. The walk counts an element whose chord line
// passes within tol of the point as no turn; at the clearance that drops at
// most asin(1/16) per element, and only a contour that crowds dozens of such
// elements round one point within a few tolerances could change an answer.
// The walk's own angle differences stay resolvable while the contour lies
// within about 1e7 tolerances of the point.
#include "store/winding_tree.h"

#include <algorithm>
#include <cmath>

#include "geom/predicates.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

constexpr GE_BOX kEmptyBox{HUGE_VAL, HUGE_VAL, -HUGE_VAL, -HUGE_VAL};

GE_BOX Including(GE_BOX b, GE_POINT p) {
  return {std::fmin(b.xmin, p.x), std::fmin(b.ymin, p.y), std::fmax(b.xmax, p.x),
          std::fmax(b.ymax, p.y)};
}

GE_BOX Union(const GE_BOX &a, const GE_BOX &b) {
  return {std::fmin(a.xmin, b.xmin), std::fmin(a.ymin, b.ymin), std::fmax(a.xmax, b.xmax),
          std::fmax(a.ymax, b.ymax)};
}

bool Holds(const GE_BOX &b, GE_POINT p) {
  return b.xmin <= p.x && p.x <= b.xmax && b.ymin <= p.y && p.y <= b.ymax;
}

// The angle from `from` to `to` seen from p, in [-pi, pi]: the difference
// of their polar angles brought into that range, in one atan2.
double TurnBetween(GE_POINT from, GE_POINT to, GE_POINT p) {
  const GE_POINT u = from - p, v = to - p;
  return std::atan2(Cross(u, v), Dot(u, v));
}

double DistanceToSegment(GE_POINT p, GE_POINT s, GE_POINT t) {
  const GE_POINT d = t - s;
  const double len2 = Norm2(d);
  const double u = len2 > 0.0 ? Dot(p - s, d) / len2 : 0.0;
  return Dist(p, s + (u < 0.0 ? 0.0 : u > 1.0 ? 1.0 : u) * d);
}

}  // namespace

WindingTree::WindingTree(const LI_TAB_STRUCT *k, double tol) : tol_(tol) {
  BuildLeaves(k);
  BuildNodes();
}

void WindingTree::BuildLeaves(const LI_TAB_STRUCT *k) {
  elems_.reserve(LiCountElem(k));
  const LI_TAB_STRUCT *e = k;
  do {
    elems_.push_back(e);
    e = e->next;
  } while (e != k);
  const size_t n = elems_.size();
  from_.resize(n);
  reach_.resize(n);
  counted_.resize(n);
  GE_POINT from = k->ap;
  // The chain's length from `from` to the element's start: the walk's
  // chord may start anywhere along it, so the clearance grows by it.
  double slack = 0.0;
  for (size_t i = 0; i < n; ++i) {
    e = elems_[i];
    if (i > 0) slack += Dist(elems_[i - 1]->ep, e->ap);
    const double chord = Dist(e->ap, e->ep);
    counted_[i] = chord > tol_ ? 1 : 0;
    from_[i] = from;
    reach_[i] = kClearance * tol_ + slack;
    if (counted_[i]) {
      from = e->ep;
      slack = 0.0;
    } else {
      slack += chord;
    }
  }
}

// Where element i can matter to a point: its ends, its chord and an arc's
// circle, widened by its clearance.
GE_BOX WindingTree::Reach(uint32_t i) const {
  const LI_TAB_STRUCT &e = *elems_[i];
  GE_BOX box = Including(Including(kEmptyBox, e.ap), e.ep);
  if (counted_[i]) {
    box = Including(box, from_[i]);
    const double r = std::fabs(e.rad);
    if (!IsLine(e)) box = Union(box, {e.mp.x - r, e.mp.y - r, e.mp.x + r, e.mp.y + r});
  }
  const double w = reach_[i];
  return {box.xmin - w, box.ymin - w, box.xmax + w, box.ymax + w};
}

void WindingTree::BuildNodes() {
  const uint32_t n = static_cast<uint32_t>(elems_.size());
  while (size_ * kBucket < n) size_ *= 2;
  nodes_.assign(2 * size_, Node{kEmptyBox, -1, -1});
  for (uint32_t i = 0; i < n; ++i) {
    Node &leaf = nodes_[size_ + i / kBucket];
    leaf.box = Union(leaf.box, Reach(i));
    if (counted_[i]) {
      if (leaf.first < 0) leaf.first = int32_t(i);
      leaf.last = int32_t(i);
    }
  }
  for (uint32_t j = size_ - 1; j >= 1; --j) {
    const Node &l = nodes_[2 * j], &r = nodes_[2 * j + 1];
    nodes_[j] = {Union(l.box, r.box), l.first >= 0 ? l.first : r.first,
                 r.last >= 0 ? r.last : l.last};
  }
  uint32_t depth = 1;
  for (uint32_t s = size_; s > 1; s /= 2) ++depth;
  stack_.reserve(2 * depth);
}

bool WindingTree::NearLeaf(uint32_t i, GE_POINT p) const {
  const LI_TAB_STRUCT &e = *elems_[i];
  const double r = reach_[i];
  if (Dist(p, e.ap) < r || Dist(p, e.ep) < r) return true;
  if (!counted_[i]) return false;
  if (DistanceToSegment(p, from_[i], e.ep) < r) return true;
  if (IsLine(e)) return DistanceToSegment(p, e.ap, e.ep) < r;
  return std::fabs(Dist(p, e.mp) - std::fabs(e.rad)) < r;
}

// The turn of one counted element: its chord's, plus a full turn the
// other way when p lies inside an arc's circle on its bulging side.
double WindingTree::LeafTurn(uint32_t i, GE_POINT p) const {
  const LI_TAB_STRUCT &e = *elems_[i];
  double turn = TurnBetween(from_[i], e.ep, p);
  if (IsLine(e)) return turn;
  const double h = Cross(from_[i] - p, e.ep - p) / Dist(e.ap, e.ep);
  const int side = h > tol_ ? 1 : h < -tol_ ? -1 : 0;
  const int bulge = e.type == LI_ARC_CCW ? -1 : 1;
  if (side == bulge && e.rad - Dist(p, e.mp) > 0.0) turn -= side * kTwoPi;
  return turn;
}

double WindingTree::ChainTurn(const Node &n, GE_POINT p) const {
  return TurnBetween(from_[n.first], elems_[n.last]->ep, p);
}

WindingTree::Answer WindingTree::Locate(GE_POINT p) const {
  double turn = 0.0;
  stack_.clear();
  stack_.push_back(1);
  while (!stack_.empty()) {
    const uint32_t j = stack_.back();
    stack_.pop_back();
    const Node &n = nodes_[j];
    if (!Holds(n.box, p)) {
      if (n.first >= 0) turn += ChainTurn(n, p);
    } else if (j >= size_) {
      const uint32_t end = std::min<uint32_t>((j - size_ + 1) * kBucket, uint32_t(elems_.size()));
      for (uint32_t i = (j - size_) * kBucket; i < end; ++i) {
        if (NearLeaf(i, p)) return Answer::kNear;
        if (counted_[i]) turn += LeafTurn(i, p);
      }
    } else {
      stack_.push_back(2 * j);
      stack_.push_back(2 * j + 1);
    }
  }
  return std::fabs(turn) >= kPi ? Answer::kInside : Answer::kOutside;
}

}  // namespace polyarc
