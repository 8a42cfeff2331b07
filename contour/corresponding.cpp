// Corresponding contours: pairing two contours element by element by
// their numbers (inserting zero-length partners where one contour lacks a
// number), testing pairs for blending, and blending contours at a fraction.
#include "geom/predicates.h"
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
  Sentinels(LI_HEAD *head, LI_TAB_STRUCT **k1, LI_TAB_STRUCT **k2)
      : head_(head), kont_{k1, k2} {}
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
    const uint16_t status = one_lacks ? InsertPartner(head, one, two) : InsertPartner(head, two, one);
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
