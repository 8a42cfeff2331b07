// Element numbers: numbering contours, searching elements by number, and
// the fixed-size number lists.
#include "polyarc/li.h"

namespace polyarc {
namespace {

// A list holds its count in entry 0; adding stops before the count would
// reach the array's size, so at most 103 numbers fit.
uint16_t &Count(uint16_t *list) { return list[0]; }

uint16_t Position(const uint16_t *list, uint16_t n) {
  for (uint16_t i = 1; i <= list[0]; ++i) {
    if (list[i] == n) return i;
  }
  return 0;
}

// The first element from start whose number is n, ending before stop
// (stop is examined only when it is start).
LI_TAB_STRUCT *FindFrom(LI_TAB_STRUCT *stop, LI_TAB_STRUCT *start, uint16_t n) {
  if (start == nullptr) return nullptr;
  LI_TAB_STRUCT *e = start;
  do {
    if (e->no == n) return e;
    e = e->next;
  } while (e != stop && e != start);
  return nullptr;
}

}  // namespace
}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiNumKont(LI_TAB_STRUCT *k, uint16_t *counter) {
  if (k == nullptr || counter == nullptr) return PA_OK;
  LI_TAB_STRUCT *e = k;
  do {
    e->no = ++*counter;
    e = e->next;
  } while (e != k);
  return PA_OK;
}

extern "C" void LiSuchNo(LI_TAB_STRUCT *k, uint16_t n, LI_TAB_STRUCT **out) {
  if (out != nullptr) *out = FindFrom(k, k, n);
}

extern "C" LI_TAB_STRUCT *LiSuchNoFrom(LI_TAB_STRUCT *stop, LI_TAB_STRUCT *start, uint16_t n,
                                       LI_TAB_STRUCT **out) {
  LI_TAB_STRUCT *found = FindFrom(stop, start, n);
  if (out != nullptr) *out = found;
  return found;
}

extern "C" uint16_t LiSuchNextPair(LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb, LI_TAB_STRUCT *ea,
                                   LI_TAB_STRUCT *sb, LI_TAB_STRUCT **out_a,
                                   LI_TAB_STRUCT **out_b) {
  if (ka == nullptr || kb == nullptr || ea == nullptr || out_a == nullptr || out_b == nullptr)
    return PA_OK;
  LI_TAB_STRUCT *e = ea;
  do {
    if (LI_TAB_STRUCT *match = FindFrom(kb, sb, e->no); match != nullptr) {
      *out_a = e->prev;
      *out_b = match->prev;
      return PA_OK;
    }
    e = e->next;
  } while (e != ka);
  *out_a = ka->prev;
  *out_b = kb->prev;
  return PA_OK;
}

extern "C" uint16_t LiNumInListe(const uint16_t *list, uint16_t n) {
  return list != nullptr ? Position(list, n) : 0;
}

extern "C" uint16_t LiNumAusListe(uint16_t *list, uint16_t n) {
  if (list == nullptr) return PA_OK;
  const uint16_t at = Position(list, n);
  if (at == 0) return PA_OK;
  for (uint16_t i = at; i < Count(list); ++i) list[i] = list[i + 1];
  --Count(list);
  return PA_OK;
}

extern "C" uint16_t LiNumAufListe(uint16_t *list, uint16_t n) {
  if (list == nullptr) return PA_INVALID;
  if (Position(list, n) != 0) return PA_OK;
  if (Count(list) + 1 >= LI_NUM_LIST_SIZE) return PA_LIST_FULL;
  list[++Count(list)] = n;
  return PA_OK;
}

extern "C" uint16_t LiLtAufLt(uint16_t *dst, const uint16_t *src) {
  if (dst == nullptr || src == nullptr) return PA_INVALID;
  for (uint16_t i = 1; i <= src[0]; ++i) {
    if (const uint16_t status = LiNumAufListe(dst, src[i]); status != PA_OK) return status;
  }
  return PA_OK;
}
