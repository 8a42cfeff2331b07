// Typed access to the memory-block service for the library's own code.
#pragma once

#include "polyarc/platform.h"

namespace polyarc {

// Grows (or first allocates) p to hold count items of T. The pointer is
// passed through a void* so that no T* is written through a void**.
template <class T>
uint16_t GrowBlock(T *&p, size_t count, bool zero_fill) {
  void *raw = p;
  const uint16_t status = MemAllocBlock(&raw, count, sizeof(T), zero_fill ? 1 : 0, 0);
  if (status == PA_OK) p = static_cast<T *>(raw);
  return status;
}

template <class T>
void FreeBlock(T *&p) {
  void *raw = p;
  MemFreeMemory(&raw);
  p = nullptr;
}

}  // namespace polyarc
