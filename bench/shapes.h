// The seeded shapes that the rival benchmarks share: closed rings of
// vertices with bulges (a bulge of tan(sweep/4) makes the edge after the
// vertex an arc), their polyarc contours and their chorded copies.
#pragma once

#include <vector>

#include "polyarc/records.h"

namespace bench {

struct Vertex {
  double x = 0, y = 0;
  double bulge = 0;  // tan(sweep/4) of the edge to the next vertex, + counter-clockwise
};
using Ring = std::vector<Vertex>;  // closed: the last vertex joins the first

struct Point {
  double x = 0, y = 0;
};
using Polyline = std::vector<Point>;  // closed, the first point not repeated

constexpr double kTwoPi = 6.283185307179586;

// The sagitta of the chords that stand for arcs in the rivals' copies.
constexpr double kChordSagitta = 1e-3;

// A star of n vertices 1 apart along its rim, so that the shapes keep their
// proportions to the tolerance as they grow: vertex i at the polar angle
// phase + 2 pi i / n and radius r(t) = R (1 + lobes sin(5 t)) - shrink +
// noise u, with R = n / (2 pi) and u uniform in [0, 1) from seed.
struct StarSpec {
  int n = 1000;
  double lobes = 0;   // relative depth of five smooth lobes
  double noise = 1;   // radial noise, in units of the vertex spacing
  double shrink = 0;  // pulls the rim in
  double phase = 0;
  unsigned seed = 1;
};
Ring Star(const StarSpec &star);

// Turns every `every`-th edge into an arc of sagitta `rel` x its chord,
// bulging out and in by turns.
void AddArcs(Ring &ring, int every, double rel);

// The polygon that the rivals get: every arc replaced by chords whose
// sagitta is at most kChordSagitta, their ends on the arc.
Polyline Chorded(const Ring &ring);

// The ring drawn as a closed polyarc contour with lines and arcs.
LI_TAB_STRUCT *Contour(LI_HEAD *head, const Ring &ring);

// Signed area and length of a closed polygon.
double Area(const Polyline &p);
double Length(const Polyline &p);

// The area of the loops of a polyarc contour list, signed by orientation.
double Area(LI_TAB_STRUCT *const *loops, int last);
// The total length of the loops, and whether every one is closed.
double Length(LI_TAB_STRUCT *const *loops, int last);
bool AllClosed(LI_TAB_STRUCT *const *loops, int last);

// Largest area difference that the chords and the rivals' grids explain
// for a result of the given boundary length: sagitta per unit length plus
// a part in 10^9 of the area.
double AreaBound(double length, double sagitta, double area);

}  // namespace bench
