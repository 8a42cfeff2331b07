// Decoding of the fuzzer's bytes into contours.
#include "fuzz_input.h"

#include <cmath>

#include "polyarc/ge.h"

namespace polyarc_fuzz {
namespace {

// Nudges of a grid coordinate, in units of the tolerance: on it, just
// inside and just outside it, ten times it, and a few far from it.
constexpr double kNudges[] = {0, 0, 0, 0, 0, 0, 0.5, 0.99, 1, 1.01, 2, 9.9, 10.1, -0.5, -1, -10};
// Far nudges, in drawing units, for arcs of tiny and huge radius.
constexpr double kFarNudges[] = {0, 1e-9, 1e-3, 0.1};
// Bulges: mostly lines; quarter, half and three-quarter arcs of both
// senses, a flat one, a nearly straight one and one of almost a full turn.
constexpr double kBulges[] = {0,   0,    0,          0,           0,    0,
                              0,   0,    0.41421356, -0.41421356, 1,    -1,
                              0.1, -0.1, 2.41421356, -2.41421356, 1e-5, -40};
constexpr double kRadii[] = {0.25, 0.5, 1, 1, 2, 3, 1e-4, 1.5e-4};
constexpr double kDistances[] = {0, 0.25, 0.5, 0.5, 1, 1, 1.5, 2, 3, 4, -0.5, -1, 0.2, 1e-3};
constexpr double kDistanceTols[] = {0.5, 1, 2, 10};

// Grid positions that the bytes shift, so that zero bytes (and the short
// inputs that a fuzzer starts with) make a hexagon, not one point.
constexpr int kHexagon[6][2] = {{3, 1}, {5, 2}, {5, 4}, {3, 5}, {1, 4}, {1, 2}};

double Tol() { return GeEpsiGetTol(); }

GE_POINT PickVertex(Bytes &in, int index, int shift) {
  const uint8_t gx = in.Next(), gy = in.Next(), nudge = in.Next();
  const double tol = Tol();
  const int *base = kHexagon[index % 6];
  GE_POINT p{static_cast<double>((gx + base[0] + shift) % 7) - 3,
             static_cast<double>((gy + base[1] + shift) % 7) - 3};
  p.x += kNudges[nudge & 15] * tol;
  p.y += kNudges[nudge >> 4] * tol;
  // The top bits of the grid bytes add a far nudge now and then.
  p.x += kFarNudges[(gx >> 6) & 3];
  p.y -= kFarNudges[(gy >> 6) & 3];
  return p;
}

// The centre of the arc from p to q with the given bulge (non-zero).
GE_POINT BulgeCentre(GE_POINT p, GE_POINT q, double bulge) {
  const double dx = q.x - p.x, dy = q.y - p.y;
  const double k = (1 - bulge * bulge) / (4 * bulge);
  return {(p.x + q.x) / 2 - dy * k, (p.y + q.y) / 2 + dx * k};
}

// Runs one stroke; when the library refuses it, puts the contour back as
// it was: an element that the stroke appended goes back to the store, a
// trailing move that it reused in place gets its old fields back.
template <class Draw>
bool Attempt(LI_HEAD *head, LI_TAB_STRUCT **k, Draw draw) {
  LI_TAB_STRUCT *last = (*k)->prev;
  const LI_TAB_STRUCT saved = *last;
  const uint32_t count = LiCountElem(*k);
  if (draw() == PA_OK) return true;
  if (LiCountElem(*k) > count) {
    LiDel(head, k, (*k)->prev);
  } else {
    *last = saved;
  }
  return false;
}

// A stroke from the contour's end to q: an arc for a non-zero bulge when
// the library takes it, else a line (which it skips when too short).
void Stroke(LI_HEAD *head, LI_TAB_STRUCT **k, GE_POINT q, double bulge) {
  if (bulge != 0) {
    const GE_POINT centre = BulgeCentre((*k)->prev->ep, q, bulge);
    const int32_t dir = bulge < 0 ? 1 : 0;
    if (Attempt(head, k, [&] { return LiArc(head, k, &q, &centre, dir); })) return;
  }
  Attempt(head, k, [&] { return LiDraw(head, k, &q); });
}

LI_TAB_STRUCT *FullCircle(LI_HEAD *head, Bytes &in, int shift) {
  const GE_POINT centre = PickVertex(in, 0, shift);
  const double r = in.Pick(kRadii);
  const uint16_t dir = in.Flag() ? 2 : 1;
  LI_TAB_STRUCT circle{};
  if (LiCreateCircle(&centre, r, dir, &circle) != PA_OK) return nullptr;
  LI_TAB_STRUCT *k = nullptr;
  if (LiInsertElem2(head, &k, &circle) != PA_OK) return nullptr;
  return k;
}

}  // namespace

LI_TAB_STRUCT *BuildContour(LI_HEAD *head, Bytes &in, const ContourOptions &options) {
  const uint8_t shape = in.Next();
  if (options.closed && (shape & 15) == 15) return FullCircle(head, in, options.shift);
  const int span = options.max_vertices - options.min_vertices + 1;
  const int n = options.max_vertices - (shape >> 4) % span;
  LI_TAB_STRUCT *k = nullptr;
  GE_POINT first{};
  double bulge = 0;
  for (int i = 0; i < n; ++i) {
    const GE_POINT p = PickVertex(in, i, options.shift);
    const double next_bulge = options.arcs ? in.Pick(kBulges) : (in.Next(), 0.0);
    if (i == 0) {
      first = p;
      if (LiMove(head, &k, &p) != PA_OK) return k;
    } else {
      Stroke(head, &k, p, bulge);
    }
    bulge = next_bulge;
  }
  if (options.closed && k != nullptr) Stroke(head, &k, first, bulge);
  return k;
}

bool HasArcs(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return false;
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type == LI_ARC_CW || e->type == LI_ARC_CCW) return true;
    e = e->next;
  } while (e != k);
  return false;
}

double PickDistance(Bytes &in) {
  const uint8_t b = in.Next();
  if (b >= 240) return kDistanceTols[b & 3] * Tol() * ((b & 4) != 0 ? -1 : 1);
  return kDistances[b % (sizeof kDistances / sizeof kDistances[0])];
}

}  // namespace polyarc_fuzz
