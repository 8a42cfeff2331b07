// The checks of the fuzz targets.
#include "store_audit.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "polyarc/platform.h"
#include "support/record_census.h"

namespace polyarc_fuzz {
namespace {

bool Finite(GE_POINT p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// Compares two records field by field, doubles by their bits, so that a
// NaN that stayed a NaN still counts as unchanged.
bool SameRecord(const LI_TAB_STRUCT &a, const LI_TAB_STRUCT &b) {
  auto same = [](const auto &x, const auto &y) { return std::memcmp(&x, &y, sizeof x) == 0; };
  return a.type == b.type && same(a.ap, b.ap) && same(a.ep, b.ep) && same(a.mp, b.mp) &&
         same(a.box, b.box) && same(a.tan_ap, b.tan_ap) && same(a.tan_ep, b.tan_ep) &&
         same(a.rad, b.rad) && same(a.ang_ap, b.ang_ap) && same(a.ang_ep, b.ang_ep) &&
         a.next == b.next && a.prev == b.prev && same(a.attr_val, b.attr_val) &&
         a.attr_id == b.attr_id && a.no == b.no && a.mark == b.mark;
}

// The largest coordinate difference between an element's end and its
// successor's start.
double LargestGap(const LI_TAB_STRUCT *k) {
  double gap = 0;
  const LI_TAB_STRUCT *e = k;
  do {
    gap = std::max({gap, std::fabs(e->ep.x - e->next->ap.x), std::fabs(e->ep.y - e->next->ap.y)});
    e = e->next;
  } while (e != k);
  return gap;
}

}  // namespace

void Fail(const char *what) {
  std::fprintf(stderr, "polyarc fuzz: %s\n", what);
  std::fflush(stderr);
  std::abort();
}

void RequireAllRecordsAccounted(const LI_HEAD &head, const std::vector<const LI_TAB_STRUCT *> &live,
                                const char *after) {
  const std::string why = polyarc_census::RecordCensus(head, live);
  if (why.empty()) return;
  std::fprintf(stderr, "after %s: %s\n", after, why.c_str());
  Fail("records not accounted for");
}

void RequireStatus(uint16_t status, std::initializer_list<uint16_t> allowed, const char *call) {
  for (uint16_t code : allowed) {
    if (status == code) return;
  }
  std::fprintf(stderr, "%s returned %u\n", call, static_cast<unsigned>(status));
  Fail("undocumented status");
}

void RequireSoundContour(const LI_TAB_STRUCT *k, double gap_limit, const char *what) {
  if (k == nullptr) return;
  if (LiCheck(k) != 1) {
    std::fprintf(stderr, "%s: broken links\n", what);
    Fail("unsound result");
  }
  const LI_TAB_STRUCT *e = k;
  do {
    const bool arc = e->type == LI_ARC_CW || e->type == LI_ARC_CCW;
    if (!Finite(e->ap) || !Finite(e->ep) || (arc && (!Finite(e->mp) || !std::isfinite(e->rad)))) {
      std::fprintf(stderr, "%s: an element with a coordinate that is not finite\n", what);
      Fail("unsound result");
    }
    e = e->next;
  } while (e != k);
  if (gap_limit > 0 && LargestGap(k) >= gap_limit) {
    std::fprintf(stderr, "%s: a gap of %g in a contour of %u elements that should be closed\n",
                 what, LargestGap(k), LiCountElem(k));
    Fail("unsound result");
  }
}

bool Tracing() {
  static const bool on = std::getenv("POLYARC_FUZZ_TRACE") != nullptr;
  return on;
}

void Trace(const char *format, ...) {
  if (!Tracing()) return;
  va_list args;
  va_start(args, format);
  std::vfprintf(stderr, format, args);
  va_end(args);
  std::fputc('\n', stderr);
}

void TraceContour(const char *name, const LI_TAB_STRUCT *k) {
  if (!Tracing()) return;
  std::fprintf(stderr, "%s:%s\n", name, k == nullptr ? " empty" : "");
  if (k == nullptr) return;
  const LI_TAB_STRUCT *e = k;
  do {
    std::fprintf(stderr,
                 "  type %u ap (%.17g, %.17g) ep (%.17g, %.17g) mp (%.17g, %.17g) rad %.17g no %u "
                 "attr_val %.17g\n",
                 e->type, e->ap.x, e->ap.y, e->ep.x, e->ep.y, e->mp.x, e->mp.y, e->rad, e->no,
                 e->attr_val);
    e = e->next;
  } while (e != k);
}

Snapshot::Snapshot(const LI_TAB_STRUCT *k) {
  if (k == nullptr) return;
  const LI_TAB_STRUCT *e = k;
  do {
    elements_.push_back(e);
    records_.push_back(*e);
    e = e->next;
  } while (e != k);
}

bool Snapshot::Matches(const LI_TAB_STRUCT *k) const {
  if (elements_.empty()) return k == nullptr;
  if (k != elements_.front()) return false;
  for (size_t i = 0; i < elements_.size(); ++i) {
    if (!SameRecord(*elements_[i], records_[i])) return false;
  }
  return true;
}

Shortage::Shortage(LI_HEAD *head, bool active, unsigned spare) : head_(head), active_(active) {
  if (!active_) return;
  // Hold every free record but the first `spare` in one chain.
  LI_TAB_STRUCT *keep_last = nullptr;
  LI_TAB_STRUCT *rest = head->free;
  for (unsigned i = 0; i < spare && rest != nullptr; ++i) {
    keep_last = rest;
    rest = rest->next;
  }
  if (keep_last != nullptr) {
    keep_last->next = nullptr;
  } else {
    head->free = nullptr;
  }
  if (rest != nullptr) {
    LI_TAB_STRUCT *last = rest;
    while (last->next != nullptr) {
      last->next->prev = last;
      last = last->next;
    }
    last->next = rest;
    rest->prev = last;
  }
  held_ = rest;
  MemTestFailNth(1);
}

void Shortage::Release() {
  if (!active_) return;
  MemTestFailNth(0);
  LiRemoveUnchecked(head_, held_);
  held_ = nullptr;
  active_ = false;
}

BlockCount::BlockCount() : before_(MemTestLiveBlocks()) {}

void BlockCount::RequireUnchanged() const {
  if (MemTestLiveBlocks() != before_) {
    std::fprintf(stderr, "%lu memory blocks before, %lu after\n", before_, MemTestLiveBlocks());
    Fail("a memory block outlived its store");
  }
}

}  // namespace polyarc_fuzz
