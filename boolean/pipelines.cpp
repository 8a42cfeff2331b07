// The crossing pipelines: two closed contours cut and rewired into loops,
// the choice of a Boolean operation's loops, one contour cut at its
// self-crossings, and the loop clean-up that offsetting runs.
#include <algorithm>
#include <new>
#include <utility>

#include "boolean/crossing_list.h"
#include "boolean/link.h"
#include "boolean/loop_list.h"
#include "boolean/pipelines.h"
#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"

namespace polyarc {
namespace {

// A tolerance below the default is too fine to find short elements with;
// it is scaled up for the short-element removal.
constexpr double kShortTolFloor = 5e-05;
constexpr double kShortTolScale = 100.0;

// Cleaning modes of FlCleanKont.
constexpr uint16_t kCleanInward = 2;
constexpr uint16_t kCleanOpen = 3;

enum : uint16_t { kSelectLargest = 4, kSelectWanted = 6 };

// A crossing list that is freed however the pipeline ends.
struct CrossingList {
  CrossingList() = default;
  CrossingList(const CrossingList &) = delete;
  CrossingList &operator=(const CrossingList &) = delete;
  ~CrossingList() { FlFreeCross(&list); }

  GE_CROSS *list = nullptr;
  int16_t last = FL_EMPTY;
};

// Cuts, snaps and classifies the crossings of two contours and rewires
// them into loops, measuring them when areas are wanted.
uint16_t LinkTwo(LI_HEAD *head, CrossingList &cross, LI_TAB_STRUCT *&a, LI_TAB_STRUCT *&b,
                 int32_t op, uint32_t &flags, LI_TAB_STRUCT **&loops, int16_t &last,
                 LoopAreas *areas) {
  if (uint16_t st = FlSplitCross(head, cross.list, cross.last, &flags, &a, &b); st != PA_OK)
    return st;
  if (uint16_t st = FlCrossSetPt(cross.list, cross.last); st != PA_OK) return st;
  if (uint16_t st = FlSetIdentDel(cross.list, cross.last); st != PA_OK) return st;
  FlCheckCross(cross.list, cross.last, op);
  if (areas != nullptr) {
    try {
      areas->resize(2 * static_cast<size_t>(cross.last + 1));
    } catch (const std::bad_alloc &) {
      return PA_NO_MEMORY;
    }
  }
  CrossLink(cross.list, cross.last, loops, last, areas != nullptr ? areas->data() : nullptr);
  return PA_OK;
}

}  // namespace

uint16_t CrossKonturClosed(LI_HEAD *head, LI_TAB_STRUCT *&a, LI_TAB_STRUCT *&b, int32_t op,
                           uint32_t &flags, LI_TAB_STRUCT **&loops, int16_t &last, LoopAreas *areas,
                           uint32_t size_a, uint32_t size_b) {
  flags = 0;
  loops = nullptr;
  last = FL_EMPTY;
  if (a == nullptr || b == nullptr) return PA_OK;
  CrossingList cross;
  if (uint16_t st = CrossList(a, b, size_a, size_b, cross.list, cross.last);
      st != PA_OK || cross.last < 0)
    return st;
  const uint16_t status = LinkTwo(head, cross, a, b, op, flags, loops, last, areas);
  if (last >= 0) a = b = nullptr;  // their elements now belong to the loops
  return status;
}

namespace {

// Self-crossings are found twice (a x b and b x a): the mirrored twins go
// before and after the overlaps are resolved.
uint16_t LinkOne(LI_HEAD *head, CrossingList &cross, LI_TAB_STRUCT *&k, LI_TAB_STRUCT **&loops,
                 int16_t &last) {
  uint32_t flags = 0;
  LI_TAB_STRUCT *no_b = nullptr;
  if (uint16_t st = FlSplitCross(head, cross.list, cross.last, &flags, &k, &no_b); st != PA_OK)
    return st;
  if (uint16_t st = FlCrossSetPt(cross.list, cross.last); st != PA_OK) return st;
  if (uint16_t st = FlSetIdentDel(cross.list, cross.last); st != PA_OK) return st;
  FlRemIdentInv(cross.list, cross.last, 0);
  FlCheckCrossSingle(cross.list, cross.last);
  FlRemIdentInv(cross.list, cross.last, 1);
  CrossLink(cross.list, cross.last, loops, last, nullptr);
  return PA_OK;
}

uint16_t CrossKonturSingle(LI_HEAD *head, LI_TAB_STRUCT *&k, LI_TAB_STRUCT **&loops,
                           int16_t &last, uint16_t n) {
  loops = nullptr;
  last = FL_EMPTY;
  if (k == nullptr) return PA_OK;
  CrossingList cross;
  const int16_t width = static_cast<int16_t>(n);
  if (uint16_t st = FlCrossListSingle(k, &cross.list, &cross.last, width);
      st != PA_OK || cross.last < 0)
    return st;
  const uint16_t status = LinkOne(head, cross, k, loops, last);
  if (last >= 0) k = nullptr;
  return status;
}

// ---- Choosing a Boolean operation's loops ----------------------------------

struct AreaLimits {
  double larger;   // the larger input area, less the area tolerance
  double smaller;  // the smaller input area, plus the area tolerance
  double t2;       // the area tolerance: the length tolerance squared
};

// Whether loop i, of the given area, fits the operation; a union's outer
// loop moves to index 0. Loops that do not fit are given back, leaving a
// null entry; measured loops were just walked whole, so they skip the
// link check.
uint16_t SortLoop(LI_HEAD *head, LI_TAB_STRUCT **loops, int i, double a, bool measured,
                  uint32_t op, const AreaLimits &lim, bool &success) {
  const bool positive = a >= lim.t2;
  bool keep = positive;
  switch (op) {
    case FL_OP_UNION:
      if (a >= lim.larger) {
        if (success) return PA_INVALID;  // a second outer loop
        std::swap(loops[0], loops[i]);
        success = true;
        return PA_OK;
      }
      keep = a <= -lim.t2;  // holes stay
      break;
    case FL_OP_INTERSECTION:
      keep = positive && a <= lim.smaller;
      success = success || keep;
      break;
    case FL_OP_DIFFERENCE:
      success = success || keep;
      break;
    default:
      success = success || positive;
      return PA_OK;
  }
  if (keep) return PA_OK;
  if (measured) {
    LiRemoveUnchecked(head, loops[i]);
    loops[i] = nullptr;
  } else {
    LiRemove(head, &loops[i]);
  }
  return PA_OK;
}

}  // namespace

uint16_t CrossKonturCleanClosed(LI_HEAD *head, double area_a, double area_b, uint32_t op,
                                LI_TAB_STRUCT **loops, int16_t &last, const double *areas) {
  if (last == 0) return PA_INVALID;  // one loop is no result of two crossing contours
  if (last < 0) return PA_IMPOSSIBLE;
  const double tol = Tol();
  const double t2 = tol * tol;
  const AreaLimits lim{std::max(area_a, area_b) - t2, std::min(area_a, area_b) + t2, t2};
  bool success = false;
  for (int i = 0; i <= last; ++i) {
    // Only entries not yet seen move (the outer loop swaps with entry 0),
    // so areas[i] is still loop i's.
    const double a = areas != nullptr ? areas[i] : LiKontArea(loops[i]);
    if (uint16_t st = SortLoop(head, loops, i, a, areas != nullptr, op, lim, success);
        st != PA_OK)
      return st;
  }
  if (!success) return PA_IMPOSSIBLE;
  last = CloseUp(loops, last);
  return PA_OK;
}

namespace {

// ---- Cleaning one contour --------------------------------------------------

void DropList(LI_HEAD *head, LI_TAB_STRUCT **&loops, int16_t &last) {
  FlFreeList(head, &loops, last);
  last = FL_EMPTY;
}

// An open contour keeps one loop: loop 1 when there is an even number of
// loops and it has the wanted sign, else loop 0.
void KeepByParity(LI_HEAD *head, int16_t sign, LI_TAB_STRUCT *&out, LI_TAB_STRUCT **&loops,
                  int16_t &last) {
  int k = last % 2;
  if (k == 1 && AreaSign(LiKontArea(loops[1]), Tol()) != sign) k = 0;
  out = loops[k];
  loops[k] = nullptr;
  LiCheckClosed(&out);
  DropList(head, loops, last);
}

uint16_t CleanKont(LI_HEAD *head, LI_TAB_STRUCT *&k, int16_t sign, uint16_t mode,
                   LI_TAB_STRUCT *&out, LI_TAB_STRUCT **&loops, int16_t &last, uint32_t &no_cross,
                   uint16_t n, int32_t rem_short) {
  out = nullptr;
  loops = nullptr;
  last = FL_EMPTY;
  if (rem_short != 0) {
    double min = Tol();
    if (min < kShortTolFloor) min *= kShortTolScale;
    const int32_t closed = mode != kCleanOpen ? 1 : 0;
    if (uint16_t st = LiRemShort(head, &k, closed, min, 0); st != PA_OK) return st;
  }
  if (uint16_t st = CrossKonturSingle(head, k, loops, last, n); st != PA_OK) {
    no_cross = 1;
    DropList(head, loops, last);
    return st;
  }
  if (last < 0) {
    no_cross = 1;
    return PA_OK;
  }
  no_cross = 0;
  if (mode == kCleanOpen) {
    KeepByParity(head, sign, out, loops, last);
    return PA_OK;
  }
  const uint16_t select = mode == kCleanInward ? kSelectWanted : kSelectLargest;
  if (uint16_t st = FlCheckList(head, loops, &last, static_cast<uint16_t>(sign), select, &out);
      st != PA_OK) {
    DropList(head, loops, last);
    return st;
  }
  return PA_OK;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t FlCrossKonturClosed(LI_HEAD *head, LI_TAB_STRUCT **a, LI_TAB_STRUCT **b,
                                        int32_t op, uint32_t *flags, LI_TAB_STRUCT ***loops,
                                        int16_t *last) {
  if (head == nullptr || a == nullptr || b == nullptr || flags == nullptr || loops == nullptr ||
      last == nullptr)
    return PA_INVALID;
  return CrossKonturClosed(head, *a, *b, op, *flags, *loops, *last, nullptr);
}

extern "C" uint16_t FlCrossKonturCleanClosed(LI_HEAD *head, double area_a, double area_b,
                                             uint32_t op, LI_TAB_STRUCT **loops, int16_t *last) {
  if (head == nullptr || last == nullptr || (loops == nullptr && *last >= 0)) return PA_INVALID;
  return CrossKonturCleanClosed(head, area_a, area_b, op, loops, *last, nullptr);
}

extern "C" uint16_t FlCrossKonturSingle(LI_HEAD *head, LI_TAB_STRUCT **k, LI_TAB_STRUCT ***loops,
                                        int16_t *last, uint16_t n) {
  if (head == nullptr || k == nullptr || loops == nullptr || last == nullptr) return PA_INVALID;
  return CrossKonturSingle(head, *k, *loops, *last, n);
}

extern "C" uint16_t FlCleanKont(LI_HEAD *head, LI_TAB_STRUCT **k, int16_t sign, uint16_t mode,
                                LI_TAB_STRUCT **out, LI_TAB_STRUCT ***loops, int16_t *last,
                                uint32_t *no_cross, uint16_t n, int32_t rem_short) {
  if (head == nullptr || k == nullptr || out == nullptr || loops == nullptr || last == nullptr ||
      no_cross == nullptr)
    return PA_INVALID;
  return CleanKont(head, *k, sign, mode, *out, *loops, *last, *no_cross, n, rem_short);
}
