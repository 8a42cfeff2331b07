// Turns the fuzzer's bytes into small choices and small contours of lines
// and arcs whose vertices sit on a coarse grid, nudged by amounts around
// the tolerance, so that touches, shared edges, collinear pieces, gaps
// near the tolerance and arcs of every size turn up often.
#pragma once

#include <cstddef>
#include <cstdint>

#include "polyarc/li.h"

namespace polyarc_fuzz {

// The input read front to back, one byte per choice; 0 once it runs out,
// so that every input, however short, decodes to something.
class Bytes {
 public:
  Bytes(const uint8_t *data, size_t size) : data_(data), size_(size) {}
  uint8_t Next() { return pos_ < size_ ? data_[pos_++] : 0; }
  bool Flag() { return (Next() & 1) != 0; }
  template <class T, size_t N>
  T Pick(const T (&table)[N]) {
    return table[Next() % N];
  }

 private:
  const uint8_t *data_;
  size_t size_;
  size_t pos_ = 0;
};

// What a decoded contour is made of.
struct ContourOptions {
  int min_vertices = 1;
  int max_vertices = 6;
  bool closed = true;  // draw back to the first vertex
  bool arcs = true;    // bulges become arcs; else every stroke is a line
  int shift = 0;       // grid steps added to both coordinates' positions
};

// Builds a contour in head: usually a polygon of up to max_vertices
// vertices whose strokes are lines or arcs (bulge = tan(sweep / 4),
// drawn with LiArc about the centre that the bulge gives), sometimes a
// full circle. Strokes the library refuses are drawn as lines instead, or
// left out. The result may be a single move, or null when the store
// failed.
LI_TAB_STRUCT *BuildContour(LI_HEAD *head, Bytes &in, const ContourOptions &options);

// Whether the contour holds an arc.
bool HasArcs(const LI_TAB_STRUCT *k);

// A distance from the bytes: exact multiples of the grid, values near the
// tolerance and a few odd ones.
double PickDistance(Bytes &in);

}  // namespace polyarc_fuzz
