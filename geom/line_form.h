// The normal form of the line through two points, as a line element
// stores it.
#pragma once

#include "geom/vec.h"

namespace polyarc {

struct LineForm {
  GE_POINT dir;     // unit direction, (0, 0) for identical points
  GE_POINT normal;  // (dir.y, -dir.x)
  double c;         // normal . p1
  double t1;        // dir . p1
  double t2;        // dir . p2
  bool degenerate;  // the points are identical (length exactly 0)
};

inline LineForm LineFormOf(GE_POINT p1, GE_POINT p2) {
  const GE_POINT d = p2 - p1;
  const double len = Norm(d);
  LineForm f{};
  f.degenerate = len == 0.0;
  if (!f.degenerate) f.dir = {d.x / len, d.y / len};
  f.normal = RightNormal(f.dir);
  f.c = f.dir.y * p1.x - f.dir.x * p1.y;
  f.t1 = Dot(f.dir, p1);
  f.t2 = Dot(f.dir, p2);
  return f;
}

}  // namespace polyarc
