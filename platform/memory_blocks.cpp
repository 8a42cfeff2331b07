// The memory-block service: growable blocks of items, optionally zero
// filled, with a size header so that growth knows what is new, plus the
// counters and the failure injection that tests use.
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "polyarc/platform.h"

namespace {

// Every block starts with its byte size; the payload follows at an offset
// that keeps the strictest alignment.
constexpr size_t kHeader = alignof(std::max_align_t) > sizeof(size_t) ? alignof(std::max_align_t)
                                                                      : sizeof(size_t);

unsigned long g_calls = 0;
unsigned long g_live = 0;
unsigned long g_fail_at = 0;  // absolute call number that fails, 0 = none

char *BaseOf(void *payload) { return static_cast<char *>(payload) - kHeader; }

size_t BytesOf(const void *payload) {
  size_t bytes;
  std::memcpy(&bytes, static_cast<const char *>(payload) - kHeader, sizeof bytes);
  return bytes;
}

bool InjectedFailure() {
  ++g_calls;
  if (g_fail_at != 0 && g_calls == g_fail_at) {
    g_fail_at = 0;
    return true;
  }
  return false;
}

}  // namespace

extern "C" uint16_t MemAllocBlock(void **block, size_t count, size_t size, int zero_fill,
                                  int /*reserved*/) {
  if (block == nullptr || count == 0 || size == 0) return PA_INVALID;
  if (InjectedFailure()) return PA_NO_MEMORY;
  if (count > (SIZE_MAX - kHeader) / size) return PA_NO_MEMORY;
  const size_t bytes = count * size;
  const size_t old_bytes = *block != nullptr ? BytesOf(*block) : 0;
  void *base = std::realloc(*block != nullptr ? BaseOf(*block) : nullptr, kHeader + bytes);
  if (base == nullptr) return PA_NO_MEMORY;
  std::memcpy(base, &bytes, sizeof bytes);
  char *payload = static_cast<char *>(base) + kHeader;
  if (zero_fill == 1 && bytes > old_bytes) std::memset(payload + old_bytes, 0, bytes - old_bytes);
  if (*block == nullptr) ++g_live;
  *block = payload;
  return PA_OK;
}

extern "C" void MemFreeMemory(void **block) {
  if (block == nullptr || *block == nullptr) return;
  std::free(BaseOf(*block));
  *block = nullptr;
  --g_live;
}

extern "C" void MemTestFailNth(unsigned long n) { g_fail_at = n == 0 ? 0 : g_calls + n; }

extern "C" unsigned long MemTestAllocCalls(void) { return g_calls; }

extern "C" unsigned long MemTestLiveBlocks(void) { return g_live; }

extern "C" size_t MemTestBlockBytes(const void *block) {
  return block != nullptr ? BytesOf(block) : 0;
}
