// Checks that a fuzz target applies after every call: every record of the
// store accounted for, inputs unchanged, documented statuses and sound
// result contours. A failed check prints what failed and aborts, which
// libFuzzer reports as a crash and saves the input.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "polyarc/li.h"

namespace polyarc_fuzz {

// Prints "polyarc fuzz: <what>" and aborts.
[[noreturn]] void Fail(const char *what);
inline void Require(bool ok, const char *what) {
  if (!ok) Fail(what);
}

// Every record that the store got from the memory service is on the free
// list or in one of the live contours, exactly once; the live contours
// have sound links.
void RequireAllRecordsAccounted(const LI_HEAD &head, const std::vector<const LI_TAB_STRUCT *> &live,
                                const char *after);

// The status is one of the allowed codes.
void RequireStatus(uint16_t status, std::initializer_list<uint16_t> allowed, const char *call);

// A result contour: sound links (LiCheck) and finite coordinates; with a
// gap_limit above 0 also closed: every element's end within gap_limit of
// its successor's start in both coordinates.
void RequireSoundContour(const LI_TAB_STRUCT *k, double gap_limit, const char *what);

// With POLYARC_FUZZ_TRACE set in the environment, what a target decoded
// and called is printed to standard error (to turn a failing input into a
// test): printf-style lines, and contours one element a line with every
// digit of type, ap, ep, mp and rad.
bool Tracing();
void Trace(const char *format, ...) __attribute__((format(printf, 1, 2)));
void TraceContour(const char *name, const LI_TAB_STRUCT *k);

// A copy of every field of a contour's records, to check afterwards that
// an operation left it exactly as it was.
class Snapshot {
 public:
  explicit Snapshot(const LI_TAB_STRUCT *k);
  bool Matches(const LI_TAB_STRUCT *k) const;

 private:
  std::vector<const LI_TAB_STRUCT *> elements_;
  std::vector<LI_TAB_STRUCT> records_;
};

// Checks that no memory block outlives the store of one input: the number
// of live blocks when it ends equals that when it began.
class BlockCount {
 public:
  BlockCount();
  void RequireUnchanged() const;

 private:
  unsigned long before_;
};

// Runs an operation short of records now and then: the store keeps only
// `spare` free records (the others are held aside) and its next growth
// fails, so the operation runs out at its (spare + 1)-th record, or at its
// first other allocation. Release() ends the shortage and gives the held
// records back.
class Shortage {
 public:
  Shortage(LI_HEAD *head, bool active, unsigned spare);
  Shortage(const Shortage &) = delete;
  Shortage &operator=(const Shortage &) = delete;
  ~Shortage() { Release(); }
  void Release();
  bool Active() const { return active_; }
  // The held records, to count as live in an audit while the shortage lasts.
  const LI_TAB_STRUCT *Held() const { return held_; }

 private:
  LI_HEAD *head_;
  bool active_;
  LI_TAB_STRUCT *held_ = nullptr;
};

}  // namespace polyarc_fuzz
