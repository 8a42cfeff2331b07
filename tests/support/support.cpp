// Test support: builders, the store audit and failure injection.
#include "support/support.h"

#include "support/record_census.h"

#include <cmath>

namespace polyarc_test {

LI_TAB_STRUCT Line(GE_POINT ap, GE_POINT ep) {
  LI_TAB_STRUCT e{};
  e.type = LI_LINE;
  e.ap = ap;
  e.ep = ep;
  e.next = e.prev = nullptr;
  LiElemExpand(&e);
  return e;
}

LI_TAB_STRUCT Arc(GE_POINT ap, GE_POINT ep, GE_POINT mp, uint16_t type) {
  LI_TAB_STRUCT e{};
  e.type = type;
  e.ap = ap;
  e.ep = ep;
  e.mp = mp;
  e.rad = std::hypot(ap.x - mp.x, ap.y - mp.y);
  LiElemExpand(&e);
  return e;
}

LI_TAB_STRUCT *Polyline(LI_HEAD *head, std::initializer_list<GE_POINT> points) {
  LI_TAB_STRUCT *k = nullptr;
  auto it = points.begin();
  EXPECT_EQ(LiMove(head, &k, &*it), PA_OK);
  for (++it; it != points.end(); ++it) EXPECT_EQ(LiDraw(head, &k, &*it), PA_OK);
  return k;
}

LI_TAB_STRUCT *Polygon(LI_HEAD *head, std::initializer_list<GE_POINT> points) {
  LI_TAB_STRUCT *k = Polyline(head, points);
  EXPECT_EQ(LiDraw(head, &k, &*points.begin()), PA_OK);
  return k;
}

std::vector<LI_TAB_STRUCT *> Elements(LI_TAB_STRUCT *k) {
  std::vector<LI_TAB_STRUCT *> out;
  if (k == nullptr) return out;
  LI_TAB_STRUCT *e = k;
  do {
    out.push_back(e);
    e = e->next;
  } while (e != k && out.size() < 10000000);
  return out;
}

Points Vertices(LI_TAB_STRUCT *k) {
  Points v;
  for (LI_TAB_STRUCT *e : Elements(k)) v.insert(v.end(), {e->ap, e->ep});
  return v;
}

namespace {

testing::AssertionResult Audit(const LI_HEAD &head,
                               const std::vector<const LI_TAB_STRUCT *> &live) {
  const std::string why = polyarc_census::RecordCensus(head, live);
  if (why.empty()) return testing::AssertionSuccess();
  return testing::AssertionFailure() << why;
}

}  // namespace

testing::AssertionResult AllRecordsAccounted(const LI_HEAD &head,
                                             std::initializer_list<const LI_TAB_STRUCT *> live) {
  return Audit(head, live);
}

testing::AssertionResult AllRecordsAccounted(const LI_HEAD &head,
                                             const std::vector<LI_TAB_STRUCT *> &live) {
  return Audit(head, {live.begin(), live.end()});
}

LI_TAB_STRUCT *TakeAllFree(LI_HEAD *head) {
  LI_TAB_STRUCT *chain = head->free;
  if (chain == nullptr) return nullptr;
  LI_TAB_STRUCT *last = chain;
  while (last->next != nullptr) {
    last->next->prev = last;
    last = last->next;
  }
  last->next = chain;
  chain->prev = last;
  head->free = nullptr;
  return chain;
}

LI_TAB_STRUCT *TakeAllFreeBut(LI_HEAD *head, size_t n) {
  size_t free = 0;
  for (const LI_TAB_STRUCT *p = head->free; p != nullptr; p = p->next) ++free;
  if (free < n) {
    EXPECT_EQ(LiExpand(head, static_cast<uint16_t>(n - free)), PA_OK);
  }
  LI_TAB_STRUCT *spare = TakeAllFree(head);
  for (size_t i = 0; i < n && spare != nullptr; ++i) LiDel(head, &spare, spare->prev);
  return spare;
}

void InjectedFailure::Arm() {
  start_ = MemTestAllocCalls();
  armed_ = true;
  MemTestFailNth(n_);
}

void InjectedFailure::Disarm() {
  if (!armed_) return;
  fired_ = MemTestAllocCalls() - start_ >= n_;
  armed_ = false;
  MemTestFailNth(0);
}

}  // namespace polyarc_test
