// The bounding box of an arc, decided from the quarters of the circle that
// its end points lie in, without trigonometry.
#include <algorithm>
#include <utility>

#include "geom/arc_box.h"
#include "geom/vec.h"
#include "polyarc/ge.h"

namespace polyarc {
namespace {

// The counter-clockwise quarter [k pi/2, (k+1) pi/2) that holds v's angle.
int Quarter(GE_POINT v) {
  if (v.x > 0.0 && v.y >= 0.0) return 0;
  if (v.x <= 0.0 && v.y > 0.0) return 1;
  if (v.x < 0.0 && v.y <= 0.0) return 2;
  return 3;
}

}  // namespace

// Travelling clockwise from quarter q1 to quarter q2 crosses the quarter
// boundaries q1, q1 - 1, ..., q2 + 1; boundary k is the circle's extreme
// in direction k pi/2 (+x, +y, -x, -y).
ArcBox ClockwiseArcBox(GE_POINT centre, double radius, GE_POINT p1, GE_POINT p2) {
  ArcBox box{{std::min(p1.x, p2.x), std::min(p1.y, p2.y)},
             {std::max(p1.x, p2.x), std::max(p1.y, p2.y)}};
  const GE_POINT v1 = p1 - centre;
  const GE_POINT v2 = p2 - centre;
  const int q1 = Quarter(v1);
  const int q2 = Quarter(v2);
  // In one quarter the arc is either short, or runs almost a full turn
  // when the end lies counter-clockwise of the start.
  int crossed = (q1 - q2 + 4) % 4;
  if (crossed == 0 && Cross(v1, v2) > 0.0) crossed = 4;
  for (int i = 0, k = q1; i < crossed; ++i, k = (k + 3) % 4) {
    switch (k) {
      case 0:
        box.max.x = centre.x + radius;
        break;
      case 1:
        box.max.y = centre.y + radius;
        break;
      case 2:
        box.min.x = centre.x - radius;
        break;
      default:
        box.min.y = centre.y - radius;
        break;
    }
  }
  return box;
}

}  // namespace polyarc

extern "C" GE_POINT *GeArcRect(const GE_POINT *centre, double radius, int32_t clockwise,
                               GE_POINT *p1, GE_POINT *p2, GE_POINT *min, GE_POINT *max) {
  if (centre == nullptr || p1 == nullptr || p2 == nullptr || min == nullptr || max == nullptr)
    return nullptr;
  if (clockwise == 0) std::swap(*p1, *p2);
  const polyarc::ArcBox box = polyarc::ClockwiseArcBox(*centre, radius, *p1, *p2);
  *min = box.min;
  *max = box.max;
  return max;
}
