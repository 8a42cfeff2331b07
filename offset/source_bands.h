// How near the source of an offset lies: its drawn elements cut into
// straight bands (arcs as chords with the slack of their sagitta) under a
// spatial index, which proves that an element of the raw offset lies
// wholly nearer than a reach, and tells whether a point lies nearer than a
// limit.
#pragma once

#include <cstdint>

#include "boolean/box_index.h"
#include "platform/block_allocator.h"
#include "polyarc/records.h"

namespace polyarc {

// A straight piece a-b of a source element and the slack its arc adds:
// every point of the piece of arc lies within slack of the chord, and
// every point of the chord within slack of the arc (for pieces of at most
// half a turn), so dist(p, arc) <= dist(p, chord) + slack.
struct Band {
  GE_POINT a;
  GE_POINT b;
  double slack;
  uint32_t element;
  double length;
  GE_POINT unit;  // from a to b; 0 when they coincide
};

// The parameters t at which a point p + t v lies in a band's neighbourhood:
// an interval, since the neighbourhood is convex (empty when lo > hi).
struct Span {
  double lo;
  double hi;
};

// The source k must outlive the bands and not change. Building them and
// the queries may throw std::bad_alloc (their arrays come from the memory
// service).
class SourceBands {
 public:
  SourceBands(const LI_TAB_STRUCT *k, double tol);

  // Marks the elements (in chain order) every point of which lies nearer
  // than reach to the source, as the bands prove: one band's
  // neighbourhood holds the element's hull, or the bands' neighbourhoods
  // together cover it (a raw arc taken as chords).
  void Bury(const BlockVector<LI_TAB_STRUCT *> &elements, double reach,
            BlockVector<uint8_t> &buried) const;

  // Whether a drawn element of the source lies nearer than limit to p.
  bool Nearer(GE_POINT p, double limit) const;

 private:
  bool Buries(const LI_TAB_STRUCT &e, double reach, bool start_far, bool *end_near) const;
  bool NearBand(GE_POINT p, double reach) const;
  bool Holds(uint32_t band, const GE_POINT *hull, int n, double reach) const;
  bool Covered(const LI_TAB_STRUCT &e, double reach) const;
  bool ChordCovered(GE_POINT p, GE_POINT q, double reach) const;

  double tol_;
  BlockVector<Band> bands_;
  BlockVector<GE_BOX> boxes_;
  BlockVector<const LI_TAB_STRUCT *> elements_;
  BoxIndex index_;
  // Scratch of the queries (the bands near a batch of elements, near one
  // element, their spans on a chord), and the band that held the last
  // element buried (its neighbour is likely held by it too).
  mutable BlockVector<uint32_t> found_;
  mutable BlockVector<uint32_t> near_;
  mutable BlockVector<Span> spans_;
  mutable uint32_t hint_;
};

}  // namespace polyarc
