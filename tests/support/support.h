// Test support shared by every test file: a store that frees itself, a
// tolerance scope guard, element and contour builders, the store audit
// and allocation-failure injection.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "polyarc/ge.h"
#include "polyarc/li.h"
#include "polyarc/platform.h"

namespace polyarc_test {

// An element store that returns its memory when the test ends.
class Store {
 public:
  Store() = default;
  Store(const Store &) = delete;
  Store &operator=(const Store &) = delete;
  ~Store() { LiFreeMem(&head_); }
  LI_HEAD *get() { return &head_; }
  const LI_HEAD &head() const { return head_; }

 private:
  LI_HEAD head_{};
};

// Sets the process-wide tolerance for one scope and restores the old one.
class ToleranceScope {
 public:
  explicit ToleranceScope(double tol) : previous_(GeEpsiSetTol(tol)) {}
  ToleranceScope(const ToleranceScope &) = delete;
  ToleranceScope &operator=(const ToleranceScope &) = delete;
  ~ToleranceScope() { GeEpsiSetTol(previous_); }

 private:
  double previous_;
};

// Stand-alone expanded elements (not in any store), for geometry tests.
LI_TAB_STRUCT Line(GE_POINT ap, GE_POINT ep);
// An arc about mp from ap to ep; the radius is |ap - mp|. type 3 or 4.
LI_TAB_STRUCT Arc(GE_POINT ap, GE_POINT ep, GE_POINT mp, uint16_t type);

// An open polyline (or, when the last point repeats the first, a closed
// one) drawn with LiMove and LiDraw.
LI_TAB_STRUCT *Polyline(LI_HEAD *head, std::initializer_list<GE_POINT> points);
// The closed polygon through the points, back to the first.
LI_TAB_STRUCT *Polygon(LI_HEAD *head, std::initializer_list<GE_POINT> points);

// The elements of a contour in chain order.
std::vector<LI_TAB_STRUCT *> Elements(LI_TAB_STRUCT *k);

// The end points of a contour's elements in chain order: ap, ep, ap, ep...
using Points = std::vector<GE_POINT>;
Points Vertices(LI_TAB_STRUCT *k);

// Passes when every record the store got from the memory service is
// either in one of the given contours or on the free list, exactly once.
testing::AssertionResult AllRecordsAccounted(const LI_HEAD &head,
                                             std::initializer_list<const LI_TAB_STRUCT *> live);
testing::AssertionResult AllRecordsAccounted(const LI_HEAD &head,
                                             const std::vector<LI_TAB_STRUCT *> &live);

// Takes every free record of the store into one chain, so that the next
// allocation has to grow the store. Count the chain as live in audits.
LI_TAB_STRUCT *TakeAllFree(LI_HEAD *head);

// As TakeAllFree, but leaves n records on the free list, so that the
// (n + 1)-th record taken has to grow the store.
LI_TAB_STRUCT *TakeAllFreeBut(LI_HEAD *head, size_t n);

// Makes the n-th memory allocation after Arm() fail.
class InjectedFailure {
 public:
  explicit InjectedFailure(unsigned long n) : n_(n) {}
  InjectedFailure(const InjectedFailure &) = delete;
  InjectedFailure &operator=(const InjectedFailure &) = delete;
  ~InjectedFailure() { MemTestFailNth(0); }
  void Arm();
  // Stops injecting and notes whether the failure was reached.
  void Disarm();
  bool Fired() const { return fired_; }
  unsigned long n() const { return n_; }

 private:
  unsigned long n_;
  unsigned long start_ = 0;
  bool armed_ = false;
  bool fired_ = false;
};

// Runs body(InjectedFailure &) for n = 1, 2, ... until a run whose
// operation needed fewer than n allocations (the failure did not fire).
// The body builds its inputs, calls Arm(), runs the operation, calls
// Disarm() and checks the outcome. Returns the number of failing runs.
template <class Body>
unsigned long ForEachAllocationFailure(Body body) {
  for (unsigned long n = 1; n < 100000; ++n) {
    InjectedFailure failure(n);
    body(failure);
    if (!failure.Fired()) return n - 1;
  }
  ADD_FAILURE() << "the operation never ran without reaching the injected failure";
  return 0;
}

// Runs body(n, InjectedFailure &) for n = 0, 1, 2, ... with a failure that
// makes the store's next growth fail, until a run that did not reach it.
// The body builds its inputs, leaves n free records (TakeAllFreeBut),
// calls Arm(), runs the operation, calls Disarm() and checks the outcome;
// so the operation runs out of records at its (n + 1)-th record. Returns
// the number of failing runs.
template <class Body>
unsigned long ForEachRecordShortage(Body body) {
  for (unsigned long n = 0; n < 100000; ++n) {
    InjectedFailure failure(1);
    body(static_cast<size_t>(n), failure);
    if (!failure.Fired()) return n;
  }
  ADD_FAILURE() << "the operation never ran without running out of records";
  return 0;
}

// The contours a test holds: inputs that an operation may change, and
// outputs that it adds.
using Live = std::vector<LI_TAB_STRUCT *>;

// Checks that an operation fails cleanly whenever the store runs out,
// at its first record, its second, and so on: build(head) makes fresh
// inputs; op(head, live) runs the operation on them, may change the
// handles and push its outputs, and returns its status. Every run that
// ran out must give failure_status, the last run must succeed, and no run
// may lose a record.
template <class Build, class Op>
void ExpectCleanAllocationFailures(uint16_t failure_status, Build build, Op op) {
  const unsigned long failing = ForEachRecordShortage([&](size_t n, InjectedFailure &failure) {
    Store store;
    Live live = build(store.get());
    live.push_back(TakeAllFreeBut(store.get(), n));
    failure.Arm();
    const uint16_t status = op(store.get(), live);
    failure.Disarm();
    EXPECT_EQ(status, failure.Fired() ? failure_status : uint16_t{PA_OK})
        << "with " << n << " records to spare";
    EXPECT_TRUE(AllRecordsAccounted(store.head(), live));
  });
  EXPECT_GT(failing, 0u) << "the operation never took a record";
}

}  // namespace polyarc_test

inline bool operator==(GE_POINT a, GE_POINT b) { return a.x == b.x && a.y == b.y; }
inline std::ostream &operator<<(std::ostream &os, GE_POINT p) {
  return os << '(' << p.x << ", " << p.y << ')';
}
