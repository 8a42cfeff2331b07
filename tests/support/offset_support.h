// Checks of offset results that do not rely on the library's own distance
// and crossing code: dense samples of every element, the distance of a
// point from a contour, self-crossings of the chorded result, winding.
#pragma once

#include <vector>

#include "support/crossing_support.h"
#include "support/support.h"

namespace polyarc_test {

// Points along element e, ends included, about `step` apart (at least
// two per element). Arcs are sampled on their circle whatever the sign of
// their radius; an arc whose ends coincide is a full circle.
Points Samples(const LI_TAB_STRUCT &e, double step);

// The points of a contour's elements, chained (each element's samples
// after the previous element's, its first point left out).
Points ChordedPoints(LI_TAB_STRUCT *k, double step);

// The distance from p to the nearest point of the contour's drawn
// elements (moves take no part).
double DistanceToContour(GE_POINT p, LI_TAB_STRUCT *k);

// The largest |distance to the source - d| over dense samples of every
// element of the result, moves included (a move is not drawn, so one
// that is left in a result shows up here).
double OffsetDeviation(LI_TAB_STRUCT *result, LI_TAB_STRUCT *source, double d);

// Whether two chords of the chorded contour cross properly (adjacent
// chords, which share an end, are not compared).
bool CrossesItself(LI_TAB_STRUCT *k);

// Winding number of the chorded closed contour round p (+1 inside a
// counter-clockwise one).
int Winding(LI_TAB_STRUCT *k, GE_POINT p);

// Vertices(k) equals want within eps in each coordinate.
testing::AssertionResult VerticesNear(LI_TAB_STRUCT *k, const Points &want, double eps = 1e-12);

// Counts the elements of each type: lines, moves, arcs.
struct TypeCount {
  int lines = 0;
  int moves = 0;
  int arcs = 0;
};
TypeCount CountTypes(LI_TAB_STRUCT *k);

// A random star: n vertices about the origin at radii drawn from [rmin,
// rmax] and evenly spread angles (jittered), counter-clockwise; a share of
// the edges are arcs bulging in or out.
LI_TAB_STRUCT *RandomStar(LI_HEAD *head, unsigned seed, int n, double rmin, double rmax,
                          double arc_share);

}  // namespace polyarc_test
