// Rewiring two contours (or one with itself) into closed loops at the
// crossings that survived classification, and choosing loops of a contour
// list by the sign and size of their areas.
#include <cmath>
#include <cstring>

#include "boolean/link.h"
#include "boolean/loop_list.h"
#include "contour/element_area.h"
#include "geom/predicates.h"
#include "polyarc/fl.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

// The crossing list's storage reused as a sequence of element pointers:
// first the elements recorded at the crossings, then the contour list.
// Both are written behind what is still to be read, so one array serves.
class PointerSlots {
 public:
  explicit PointerSlots(void *storage) : bytes_(static_cast<unsigned char *>(storage)) {}
  LI_TAB_STRUCT *Get(size_t i) const {
    LI_TAB_STRUCT *e = nullptr;
    std::memcpy(&e, bytes_ + i * sizeof e, sizeof e);
    return e;
  }
  void Set(size_t i, LI_TAB_STRUCT *e) { std::memcpy(bytes_ + i * sizeof e, &e, sizeof e); }

 private:
  unsigned char *bytes_;
};

// The two pointers recorded at crossing u (u <= i) must end before entry
// i + 1, which is read later.
static_assert(sizeof(GE_CROSS) >= 2 * sizeof(LI_TAB_STRUCT *));

// The mark of an element recorded at a crossing whose loop is not listed
// yet. Other elements may carry any mark; the walks set them all to 0.
constexpr uint16_t kUnlisted = 0xFFFF;

// Exchanges the successors of a and b at every usable crossing and records
// a and b; returns the number of pointers recorded.
size_t Rewire(GE_CROSS *list, int16_t last, PointerSlots &slots) {
  size_t recorded = 0;
  for (int i = 0; i <= last; ++i) {
    const GE_CROSS &c = list[i];
    if (c.mode == FL_MODE_VOID || c.elem_a == nullptr || c.elem_b == nullptr) continue;
    LI_TAB_STRUCT *a = c.elem_a;
    LI_TAB_STRUCT *b = c.elem_b;
    LI_TAB_STRUCT *a_next = a->next;
    Link(a, b->next);
    Link(b, a_next);
    a->mark = kUnlisted;
    b->mark = kUnlisted;
    slots.Set(recorded++, a);
    slots.Set(recorded++, b);
  }
  return recorded;
}

// Lists each loop once, by the first recorded element on it: listing a
// loop walks it once and clears every mark on it, so its other recorded
// elements are passed over. With areas given, the same walk sums each
// loop's signed area as LiKontArea would, from the listed element on.
// Marks are written only where they are set: at 10^5 elements a walk that
// dirties every record costs twice the memory traffic.
int16_t ListLoops(PointerSlots &slots, size_t recorded, double *areas) {
  const double tol = Tol();
  int count = 0;
  for (size_t p = 0; p < recorded; ++p) {
    LI_TAB_STRUCT *start = slots.Get(p);
    if (start->mark != kUnlisted) continue;
    slots.Set(static_cast<size_t>(count), start);
    double area = 0.0;
    LI_TAB_STRUCT *e = start;
    do {
      PrefetchAlong(e);
      if (e->mark != 0) e->mark = 0;
      if (areas != nullptr) area += ElementArea(*e, tol);
      e = e->next;
    } while (e != start);
    if (areas != nullptr) areas[count] = area;
    ++count;
  }
  return static_cast<int16_t>(count - 1);
}

}  // namespace

void CrossLink(GE_CROSS *&list, int16_t &last, LI_TAB_STRUCT **&loops, int16_t &loops_last,
               double *areas) {
  loops = nullptr;
  loops_last = FL_EMPTY;
  if (list == nullptr || last < 0) return;
  PointerSlots slots(list);
  const size_t recorded = Rewire(list, last, slots);
  if (recorded == 0) return;
  loops_last = ListLoops(slots, recorded, areas);
  loops = reinterpret_cast<LI_TAB_STRUCT **>(list);
  list = nullptr;
  last = 0;
}

namespace {

// ---- Choosing loops by area ------------------------------------------------

enum Select : uint16_t { kTakeLargest = 4, kDropLargest = 5, kKeepWanted = 6 };

void Remove(LI_HEAD *head, LI_TAB_STRUCT *&loop) { LiRemove(head, &loop); }

void CheckList(LI_HEAD *head, LI_TAB_STRUCT **loops, int16_t &last, int wanted, uint16_t select,
               LI_TAB_STRUCT *&extra) {
  const double tol = Tol();
  extra = nullptr;
  double largest = -1.0;  // below any area, so the first wanted loop is the largest so far
  int largest_at = -1;    // code 5: the largest wanted loop, removed at the end
  for (int i = 0; i <= last; ++i) {
    LI_TAB_STRUCT *&loop = loops[i];
    const double area = LiKontArea(loop);
    const int sign = AreaSign(area, tol);
    if (sign == 0) {
      Remove(head, loop);
      continue;
    }
    const bool is_wanted = sign == wanted;
    // Strictly larger: on a tie the earlier loop stays the largest.
    const bool larger = is_wanted && std::fabs(area) > largest;
    if (larger) largest = std::fabs(area);
    switch (select) {
      case kTakeLargest:
        if (!is_wanted) break;
        if (!larger) {
          Remove(head, loop);
          break;
        }
        if (extra != nullptr) Remove(head, extra);
        extra = loop;
        loop = nullptr;
        break;
      case kDropLargest:
        if (!is_wanted) Remove(head, loop);
        if (larger) largest_at = i;
        break;
      case kKeepWanted:
        if (!is_wanted) Remove(head, loop);
        break;
      default:
        break;
    }
  }
  if (largest_at >= 0) Remove(head, loops[largest_at]);
  last = CloseUp(loops, last);
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" void FlCrossLink(GE_CROSS **list, int16_t *last, LI_TAB_STRUCT ***loops,
                            int16_t *loops_last) {
  if (loops == nullptr || loops_last == nullptr) return;
  if (list == nullptr || last == nullptr) {
    *loops = nullptr;
    *loops_last = FL_EMPTY;
    return;
  }
  CrossLink(*list, *last, *loops, *loops_last, nullptr);
}

extern "C" uint16_t FlCheckList(LI_HEAD *head, LI_TAB_STRUCT **loops, int16_t *last, uint16_t sign,
                                uint16_t select, LI_TAB_STRUCT **extra) {
  if (head == nullptr || last == nullptr || extra == nullptr) return PA_INVALID;
  if (*last < 0) {
    *extra = nullptr;
    return PA_OK;
  }
  if (loops == nullptr) return PA_INVALID;
  CheckList(head, loops, *last, static_cast<int16_t>(sign), select, *extra);
  return PA_OK;
}
