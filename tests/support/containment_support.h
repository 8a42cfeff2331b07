// Test support for containment: a reader of the point expectations of the
// external corpus (the contour text format: one closed contour per block,
// "x y bulge" per vertex).
#pragma once

#include <string>
#include <vector>

#include "support/support.h"

namespace polyarc_test {

struct CorpusRing {
  int polygon;  // polygon of the areal operand it belongs to
  bool hole;
  std::vector<GE_POINT> vertices;
};

struct CorpusPoint {
  GE_POINT p;
  int expected;  // 1 interior, 0 boundary, -1 exterior
};

struct CorpusCase {
  std::string id;
  std::vector<CorpusRing> rings;
  std::vector<CorpusPoint> points;
};

// The cases of a corpus file of straight-edged polygons; a vertex with a
// non-zero bulge fails the test.
std::vector<CorpusCase> ReadPointCases(const std::string &path);

// The closed polygon through the vertices (LiMove, LiDraw, back to the
// first).
LI_TAB_STRUCT *Ring(LI_HEAD *head, const std::vector<GE_POINT> &vertices);

}  // namespace polyarc_test
