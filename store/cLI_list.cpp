// The element store: blocks of records threaded onto a free list, and the
// unlink and splice primitives that all chain editing rests on. Records
// are never cleared or released one by one; a whole chain goes back to the
// free list with two pointer writes.
#include <cstring>

#include "platform/memory.h"
#include "polyarc/li.h"
#include "store/chain_links.h"

namespace polyarc {
namespace {

constexpr uint32_t kTableStep = 128;
constexpr uint16_t kDefaultBlock = 256;

uint16_t GrowTableIfFull(LI_HEAD &head) {
  if (head.nblocks % kTableStep != 0) return PA_OK;
  return GrowBlock(head.blocks, head.nblocks + kTableStep, true) == PA_OK ? PA_OK : PA_NO_MEMORY;
}

// Threads the records of a new block onto the free list in address order,
// in front of the records that were free before.
void ThreadBlock(LI_HEAD &head, LI_TAB_STRUCT *block, uint16_t count) {
  for (uint16_t i = 0; i + 1 < count; ++i) block[i].next = &block[i + 1];
  block[count - 1].next = head.free;
  head.free = block;
}

}  // namespace

uint16_t Expand(LI_HEAD &head, uint16_t count) {
  if (count == 0) return PA_OK;
  if (GrowTableIfFull(head) != PA_OK) return PA_NO_MEMORY;
  LI_TAB_STRUCT *&slot = head.blocks[head.nblocks];
  slot = nullptr;
  // Records are deliberately not zero-filled: only LiNew clears one.
  if (GrowBlock(slot, count, false) != PA_OK) return PA_NO_MEMORY;
  ++head.nblocks;
  ThreadBlock(head, slot, count);
  return PA_OK;
}

LI_TAB_STRUCT *PopFree(LI_HEAD &head, uint16_t grow_by) {
  if (head.free == nullptr && Expand(head, grow_by) != PA_OK) return nullptr;
  LI_TAB_STRUCT *e = head.free;
  head.free = e->next;
  return e;
}

void SpliceIntoFree(LI_HEAD &head, LI_TAB_STRUCT *first) {
  first->prev->next = head.free;
  head.free = first;
}

}  // namespace polyarc

using namespace polyarc;

extern "C" uint16_t LiExpand(LI_HEAD *head, uint16_t count) {
  if (head == nullptr) return PA_NO_MEMORY;
  return Expand(*head, count);
}

extern "C" LI_TAB_STRUCT *LiNewNoInit(LI_HEAD *head) {
  return head != nullptr ? PopFree(*head, kDefaultBlock) : nullptr;
}

extern "C" uint16_t LiNew(LI_HEAD *head, LI_TAB_STRUCT **out) {
  if (out == nullptr) return PA_NO_MEMORY;
  LI_TAB_STRUCT *e = LiNewNoInit(head);
  if (e == nullptr) return PA_NO_MEMORY;
  std::memset(static_cast<void *>(e), 0, sizeof *e);
  e->next = e->prev = e;
  *out = e;
  return PA_OK;
}

extern "C" void LiDel(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT *e) {
  if (head == nullptr || kont == nullptr || e == nullptr) return;
  if (*kont == e) *kont = e->next != e ? e->next : nullptr;
  Unlink(e);
  e->next = head->free;
  head->free = e;
}

extern "C" void LiRemove(LI_HEAD *head, LI_TAB_STRUCT **kont) {
  if (head == nullptr || kont == nullptr || *kont == nullptr) return;
  if (LiCheck(*kont) == 0) {
    // A corrupt chain threaded into the free list would poison every later
    // allocation, so its records are abandoned instead.
    DebugAssert("cLI_list", 479, "LiRemove", 3, "*** FATALER FEHLER ***", "FALSE", 0);
    *kont = nullptr;
    return;
  }
  SpliceIntoFree(*head, *kont);
  *kont = nullptr;
}

extern "C" void LiRemoveUnchecked(LI_HEAD *head, LI_TAB_STRUCT *first) {
  if (head == nullptr || first == nullptr) return;
  SpliceIntoFree(*head, first);
}

extern "C" void LiFreeMem(LI_HEAD *head) {
  if (head == nullptr || head->blocks == nullptr) return;
  head->free = nullptr;
  for (uint32_t i = 0; i < head->nblocks; ++i) FreeBlock(head->blocks[i]);
  FreeBlock(head->blocks);
  head->nblocks = 0;
}

extern "C" void LiUnchain(LI_TAB_STRUCT *e) {
  if (e != nullptr) Unlink(e);
}

extern "C" void LiChainPrev(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  if (a != nullptr && b != nullptr) SpliceBefore(a, b);
}

extern "C" void LiUnchainBlock(LI_TAB_STRUCT **kont, LI_TAB_STRUCT *first, LI_TAB_STRUCT *last) {
  if (kont == nullptr || first == nullptr || last == nullptr) return;
  LI_TAB_STRUCT *before = first->prev;
  LI_TAB_STRUCT *after = last->next;
  // The caller's contour is re-based onto the element after the run, even
  // when its first element was outside the run.
  *kont = (after == first || before == last) ? nullptr : after;
  Link(last, first);
  Link(before, after);
}

extern "C" void LiDelBlock(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT *first,
                           LI_TAB_STRUCT *last) {
  if (head == nullptr || kont == nullptr || first == nullptr || last == nullptr) return;
  LiUnchainBlock(kont, first, last);
  LI_TAB_STRUCT *run = first;
  LiRemove(head, &run);
}
