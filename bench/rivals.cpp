// The rival libraries' Boolean operations and offsets on the benchmarks'
// polygons: Boost.Geometry, GEOS through its C API, and Clipper 6.
#include "rivals.h"

#include <geos_c.h>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <cmath>
#include <polyclipping/clipper.hpp>
#include <stdexcept>
#include <vector>

namespace bench {
namespace {

// Points on a full circle of radius d whose chords have sagitta kChordSagitta.
int PointsPerCircle(double d) {
  return int(std::ceil(kTwoPi / (2 * std::acos(1 - kChordSagitta / std::abs(d)))));
}

// ---- Boost.Geometry --------------------------------------------------------

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostPolygon = bg::model::polygon<BoostPoint, false>;  // counter-clockwise, closed
using BoostMulti = bg::model::multi_polygon<BoostPolygon>;

BoostPolygon ToBoost(const Polyline &p) {
  BoostPolygon out;
  for (const Point &q : p) out.outer().push_back({q.x, q.y});
  if (!p.empty()) out.outer().push_back({p[0].x, p[0].y});
  bg::correct(out);
  return out;
}

class BoostRival : public Rival {
 public:
  BoostRival(const Polyline &a, const Polyline &b) : a_(ToBoost(a)), b_(ToBoost(b)) {}

  void Boolean(BooleanOp op, double *area) override {
    BoostMulti out;
    if (op == BooleanOp::kUnion) bg::union_(a_, b_, out);
    if (op == BooleanOp::kIntersection) bg::intersection(a_, b_, out);
    if (op == BooleanOp::kDifference) bg::difference(a_, b_, out);
    if (area) *area = bg::area(out);
  }

  void Offset(double d, double *area) override {
    const int points = PointsPerCircle(d);
    BoostMulti out;
    bg::buffer(a_, out, bg::strategy::buffer::distance_symmetric<double>(d),
               bg::strategy::buffer::side_straight(), bg::strategy::buffer::join_round(points),
               bg::strategy::buffer::end_round(points),
               bg::strategy::buffer::point_circle(points));
    if (area) *area = bg::area(out);
  }

 private:
  BoostPolygon a_, b_;
};

// ---- GEOS ------------------------------------------------------------------

GEOSGeometry *ToGeos(GEOSContextHandle_t ctx, const Polyline &p) {
  std::vector<double> xy;
  xy.reserve(2 * p.size() + 2);
  for (const Point &q : p) xy.insert(xy.end(), {q.x, q.y});
  xy.insert(xy.end(), {p[0].x, p[0].y});
  GEOSCoordSequence *seq =
      GEOSCoordSeq_copyFromBuffer_r(ctx, xy.data(), p.size() + 1, 0, 0);
  return GEOSGeom_createPolygon_r(ctx, GEOSGeom_createLinearRing_r(ctx, seq), nullptr, 0);
}

class GeosRival : public Rival {
 public:
  GeosRival(const Polyline &a, const Polyline &b) : ctx_(GEOS_init_r()) {
    a_ = ToGeos(ctx_, a);
    if (!b.empty()) b_ = ToGeos(ctx_, b);
  }
  ~GeosRival() override {
    GEOSGeom_destroy_r(ctx_, a_);
    if (b_) GEOSGeom_destroy_r(ctx_, b_);
    GEOS_finish_r(ctx_);
  }

  void Boolean(BooleanOp op, double *area) override {
    GEOSGeometry *out = op == BooleanOp::kUnion          ? GEOSUnion_r(ctx_, a_, b_)
                        : op == BooleanOp::kIntersection ? GEOSIntersection_r(ctx_, a_, b_)
                                                         : GEOSDifference_r(ctx_, a_, b_);
    Finish(out, area);
  }

  void Offset(double d, double *area) override {
    const int quadrant = (PointsPerCircle(d) + 3) / 4;
    Finish(GEOSBufferWithStyle_r(ctx_, a_, d, quadrant, GEOSBUF_CAP_ROUND, GEOSBUF_JOIN_ROUND, 5.0),
           area);
  }

 private:
  void Finish(GEOSGeometry *out, double *area) {
    if (!out) throw std::runtime_error("GEOS failed");
    if (area) GEOSArea_r(ctx_, out, area);
    GEOSGeom_destroy_r(ctx_, out);
  }

  GEOSContextHandle_t ctx_;
  GEOSGeometry *a_ = nullptr, *b_ = nullptr;
};

// ---- Clipper 6 ---------------------------------------------------------------

ClipperLib::Path ToClipper(const Polyline &p) {
  ClipperLib::Path out;
  out.reserve(p.size());
  for (const Point &q : p)
    out.push_back({ClipperLib::cInt(std::llround(q.x * kClipperScale)),
                   ClipperLib::cInt(std::llround(q.y * kClipperScale))});
  return out;
}

double ClipperArea(const ClipperLib::Paths &paths) {
  double sum = 0;
  for (const ClipperLib::Path &p : paths) sum += ClipperLib::Area(p);
  return sum / (kClipperScale * kClipperScale);
}

class ClipperRival : public Rival {
 public:
  ClipperRival(const Polyline &a, const Polyline &b) : a_(ToClipper(a)), b_(ToClipper(b)) {}

  void Boolean(BooleanOp op, double *area) override {
    ClipperLib::Clipper c;
    c.AddPath(a_, ClipperLib::ptSubject, true);
    c.AddPath(b_, ClipperLib::ptClip, true);
    const ClipperLib::ClipType type = op == BooleanOp::kUnion          ? ClipperLib::ctUnion
                                      : op == BooleanOp::kIntersection ? ClipperLib::ctIntersection
                                                                       : ClipperLib::ctDifference;
    ClipperLib::Paths out;
    c.Execute(type, out, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    if (area) *area = ClipperArea(out);
  }

  void Offset(double d, double *area) override {
    ClipperLib::ClipperOffset c(2.0, kChordSagitta * kClipperScale);
    c.AddPath(a_, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    ClipperLib::Paths out;
    c.Execute(out, d * kClipperScale);
    if (area) *area = ClipperArea(out);
  }

 private:
  ClipperLib::Path a_, b_;
};

}  // namespace

std::unique_ptr<Rival> MakeRival(const std::string &name, const Polyline &a, const Polyline &b) {
  if (name == "boost") return std::make_unique<BoostRival>(a, b);
  if (name == "geos") return std::make_unique<GeosRival>(a, b);
  if (name == "clipper") return std::make_unique<ClipperRival>(a, b);
  throw std::invalid_argument("unknown rival " + name);
}

}  // namespace bench
