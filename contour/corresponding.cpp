// Corresponding contours: pairing two contours element by element by
// their numbers (inserting zero-length partners where one contour lacks a
// number), testing pairs for blending, and blending contours at a fraction.
#include "geom/predicates.h"
#include "polyarc/ge.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

// Marks the end of a contour during the pairing walk; never seen outside.
constexpr uint16_t kSentinelType = 98;

// One contour during the pairing walk: its handle, its end marker and the
// element the walk stands on.
struct Walker {
  LI_TAB_STRUCT **kont;
  LI_TAB_STRUCT *sentinel;
  LI_TAB_STRUCT *at;

  bool AtEnd() const { return at == sentinel; }
  void Advance() {
    if (!AtEnd()) at = at->next;
  }
  // Whether number n occurs from the current element up to the end marker.
  bool HasAhead(uint16_t n) const {
    return LiSuchNoFrom(sentinel->next, at, n, nullptr) != nullptr;
  }
};

// The two end markers, chained in as the last element of each contour and
// taken out again on every path, failures included.
class Sentinels {
 public:
  Sentinels(LI_HEAD *head, LI_TAB_STRUCT **k1, LI_TAB_STRUCT **k2) : head_(head), kont_{k1, k2} {}
  Sentinels(const Sentinels &) = delete;
  Sentinels &operator=(const Sentinels &) = delete;
  ~Sentinels() {
    for (int i = 0; i < 2; ++i) {
      if (sentinel_[i] != nullptr) LiDel(head_, kont_[i], sentinel_[i]);
    }
  }

  uint16_t Install() {
    for (int i = 0; i < 2; ++i) {
      LI_TAB_STRUCT *s = nullptr;
      if (LiNew(head_, &s) != PA_OK) return PA_NO_MEMORY;
      LI_TAB_STRUCT *start = *kont_[i];
      s->type = kSentinelType;
      s->ap = s->ep = start->ap;
      s->no = 0;
      SpliceBefore(start, s);
      sentinel_[i] = s;
    }
    return PA_OK;
  }

  Walker Walk(int i) const { return {kont_[i], sentinel_[i], *kont_[i]}; }

 private:
  LI_HEAD *head_;
  LI_TAB_STRUCT **kont_[2];
  LI_TAB_STRUCT *sentinel_[2] = {nullptr, nullptr};
};

// Inserts into `into`, in front of its current element, a zero-length
// line at that element's start that stands in for from's current element,
// and moves `from` on.
uint16_t InsertPartner(LI_HEAD *head, Walker &into, Walker &from) {
  LI_TAB_STRUCT *e = nullptr;
  if (LiNew(head, &e) != PA_OK) return PA_NO_MEMORY;
  e->type = LI_LINE;
  e->ap = e->ep = into.at->ap;
  e->no = from.at->no;
  e->attr_val = from.at->attr_val;
  e->attr_id = from.at->attr_id;
  // A zero-length line always reports PA_ZERO_LENGTH; only its box matters.
  LiElemExpandDrawVectorized(e);
  SpliceBefore(into.at, e);
  if (from.at == *from.kont) *into.kont = e;
  from.Advance();
  return PA_OK;
}

// Walks both contours in step, inserting partners until every number has
// one. A number that each contour has further on, but in another order,
// cannot be paired, nor can two numbers that both lack a partner.
uint16_t PairUp(LI_HEAD *head, Walker &one, Walker &two) {
  while (!(one.AtEnd() && two.AtEnd())) {
    if (one.at->no == two.at->no) {
      one.Advance();
      two.Advance();
      continue;
    }
    const bool one_lacks = !one.HasAhead(two.at->no);
    const bool two_lacks = !two.HasAhead(one.at->no);
    if (one_lacks == two_lacks) return PA_NOT_PAIRED;
    const uint16_t status =
        one_lacks ? InsertPartner(head, one, two) : InsertPartner(head, two, one);
    if (status != PA_OK) return status;
  }
  return PA_OK;
}

bool Degenerate(const LI_TAB_STRUCT &e, double tol) { return CoincidePerAxis(e.ap, e.ep, tol); }

bool ArcLineCompatible(const LI_TAB_STRUCT &arc, const LI_TAB_STRUCT &line, double tol) {
  return arc.rad == 0.0 || (Degenerate(line, tol) && CoincidePerAxis(line.ap, arc.mp, tol) &&
                            CoincidePerAxis(line.ep, arc.mp, tol));
}

bool Compatible(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  const double tol = Tol();
  if (IsArc(a) && IsArc(b)) return a.type == b.type && CoincidePerAxis(a.mp, b.mp, tol);
  if (a.type == LI_LINE && b.type == LI_LINE)
    return Degenerate(a, tol) || Degenerate(b, tol) || Dot(a.mp, b.mp) > kParallelCosine;
  if (IsArc(a) && b.type == LI_LINE) return ArcLineCompatible(a, b, tol);
  if (a.type == LI_LINE && IsArc(b)) return ArcLineCompatible(b, a, tol);
  return false;
}

GE_POINT Lerp(GE_POINT a, GE_POINT b, double t) { return a + t * (b - a); }

// The point halfway along an element: a line's mean of its ends; on an
// arc, the point of its circle on the chord's perpendicular, on the side
// the arc bulges to (its end when the chord is too short to say).
GE_POINT Midpoint(const LI_TAB_STRUCT &e, double tol) {
  if (!IsArc(e)) return 0.5 * (e.ap + e.ep);
  GE_POINT r{e.ap.y - e.ep.y, e.ep.x - e.ap.x};
  if (e.type == LI_ARC_CCW) r = -r;
  const double len = Norm(r);
  if (len <= tol) return e.ep;
  return e.mp + e.rad * GE_POINT{r.x / len, r.y / len};
}

uint16_t ArcType(uint16_t sense) {
  if (sense == LI_ARC_CW || sense == LI_CIRCLE_CW) return LI_ARC_CW;
  if (sense == LI_ARC_CCW || sense == LI_CIRCLE_CCW) return LI_ARC_CCW;
  return LI_LINE;
}

// Gives e the shape at fraction t between e1 and e2: a line between the
// blended ends, or the arc through them and the blended midpoint when
// either is an arc and the arc can be made.
void Blend(LI_TAB_STRUCT &e, const LI_TAB_STRUCT &e1, const LI_TAB_STRUCT &e2, double t) {
  const double tol = Tol();
  e.type = LI_LINE;
  e.ap = Lerp(e1.ap, e2.ap, t);
  e.ep = Lerp(e1.ep, e2.ep, t);
  if (CoincidePerAxis(e.ap, e.ep, tol) || (!IsArc(e1) && !IsArc(e2))) return;
  // The construction may exchange its second and third points in place.
  GE_POINT start = e.ap, mid = Lerp(Midpoint(e1, tol), Midpoint(e2, tol), t), end = e.ep;
  GE_POINT centre{};
  double radius = 0.0;
  uint16_t sense = 0;
  if (GeArc3Points(&start, &mid, &end, &centre, &radius, &sense) != PA_OK) return;
  e.type = ArcType(sense);
  e.mp = centre;
  e.rad = radius;
}

// Blends two paired contours element by element into *out.
uint16_t BlendContours(LI_HEAD *head, const LI_TAB_STRUCT *k1, const LI_TAB_STRUCT *k2, double t,
                       LI_TAB_STRUCT *&out, uint32_t &compatible) {
  const LI_TAB_STRUCT *e1 = k1;
  const LI_TAB_STRUCT *e2 = k2;
  do {
    if (e1->no != e2->no) return PA_NOT_PAIRED;
    LI_TAB_STRUCT *e = nullptr;
    if (const uint16_t status = LiCoCoFactElem(head, e1, e2, t, &e); status != PA_OK) return status;
    if (compatible == 1) compatible = Compatible(*e1, *e2) ? 1 : 0;
    e->no = e1->no;
    Append(&out, e);
    e1 = e1->next;
    e2 = e2->next;
  } while (e1 != k1 && e2 != k2);
  if (e1 != k1 || e2 != k2) return PA_NOT_PAIRED;
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiCoCoExpKont(LI_HEAD *head, LI_TAB_STRUCT **k1, LI_TAB_STRUCT **k2) {
  if (k1 == nullptr || k2 == nullptr) return PA_INVALID;
  if (*k1 == nullptr || *k2 == nullptr) return PA_NOT_PAIRED;
  Sentinels sentinels(head, k1, k2);
  if (const uint16_t status = sentinels.Install(); status != PA_OK) return status;
  Walker one = sentinels.Walk(0);
  Walker two = sentinels.Walk(1);
  return PairUp(head, one, two);
}

extern "C" int LiCoCoCheckElem(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2) {
  if (e1 == nullptr || e2 == nullptr) return 0;
  return Compatible(*e1, *e2) ? 1 : 0;
}

extern "C" uint16_t LiCoCoFactElem(LI_HEAD *head, const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2,
                                   double t, LI_TAB_STRUCT **out) {
  if (e1 == nullptr || e2 == nullptr || out == nullptr) return PA_INVALID;
  LI_TAB_STRUCT *e = nullptr;
  if (const uint16_t status = LiNew(head, &e); status != PA_OK) return status;
  Blend(*e, *e1, *e2, t);
  // A blend may well degenerate (two zero-length partners); it is handed
  // out all the same, as far as it can be recomputed.
  LiElemExpand(e);
  *out = e;
  return PA_OK;
}

extern "C" uint16_t LiCoCoFactKont(LI_HEAD *head, const LI_TAB_STRUCT *k1, const LI_TAB_STRUCT *k2,
                                   double t, LI_TAB_STRUCT **out, uint32_t *compatible) {
  if (compatible != nullptr) *compatible = 1;
  if (!(t >= 0.0 && t <= 1.0) || k1 == nullptr || k2 == nullptr || out == nullptr ||
      *out != nullptr || compatible == nullptr)
    return PA_INVALID;
  LI_TAB_STRUCT *blend = nullptr;
  if (const uint16_t status = BlendContours(head, k1, k2, t, blend, *compatible); status != PA_OK) {
    LiRemove(head, &blend);
    return status;
  }
  *out = blend;
  return PA_OK;
}
