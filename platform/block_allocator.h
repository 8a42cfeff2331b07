// A standard allocator over the memory-block service, so that the library's
// working arrays are memory the allocation-failure tests can reach. It
// throws std::bad_alloc; the flat interface catches it and reports
// PA_NO_MEMORY.
#pragma once

#include <cstddef>
#include <new>
#include <vector>

#include "polyarc/platform.h"

namespace polyarc {

template <class T>
struct BlockAllocator {
  using value_type = T;

  BlockAllocator() = default;
  template <class U>
  BlockAllocator(const BlockAllocator<U> &) noexcept {}

  T *allocate(std::size_t n) {
    void *p = nullptr;
    if (MemAllocBlock(&p, n == 0 ? 1 : n, sizeof(T), 0, 0) != PA_OK) throw std::bad_alloc();
    return static_cast<T *>(p);
  }
  void deallocate(T *p, std::size_t) noexcept {
    void *raw = p;
    MemFreeMemory(&raw);
  }

  friend bool operator==(const BlockAllocator &, const BlockAllocator &) noexcept { return true; }
};

template <class T>
using BlockVector = std::vector<T, BlockAllocator<T>>;

}  // namespace polyarc
