// The census of a store's records.
#include "support/record_census.h"

#include <functional>
#include <unordered_set>

#include "polyarc/li.h"
#include "polyarc/platform.h"

namespace polyarc_census {
namespace {

struct Block {
  const LI_TAB_STRUCT *first;
  size_t count;
};

bool Owned(const std::vector<Block> &blocks, const LI_TAB_STRUCT *p) {
  const std::less<const LI_TAB_STRUCT *> before;
  for (const Block &b : blocks) {
    if (!before(p, b.first) && before(p, b.first + b.count)) return true;
  }
  return false;
}

}  // namespace

std::string RecordCensus(const LI_HEAD &head, const std::vector<const LI_TAB_STRUCT *> &live) {
  std::vector<Block> blocks;
  size_t total = 0;
  for (uint32_t i = 0; i < head.nblocks; ++i) {
    const size_t count = MemTestBlockBytes(head.blocks[i]) / sizeof(LI_TAB_STRUCT);
    blocks.push_back({head.blocks[i], count});
    total += count;
  }
  std::unordered_set<const LI_TAB_STRUCT *> seen;
  auto take = [&](const LI_TAB_STRUCT *p, const std::string &where) -> std::string {
    if (!Owned(blocks, p)) return "a record in " + where + " is not the store's";
    if (!seen.insert(p).second) return "a record counted twice, in " + where;
    return {};
  };
  for (const LI_TAB_STRUCT *p = head.free; p != nullptr; p = p->next) {
    if (std::string why = take(p, "the free list"); !why.empty()) return why;
  }
  for (const LI_TAB_STRUCT *k : live) {
    if (k == nullptr) continue;
    if (LiCheck(k) != 1) return "a live contour has broken links";
    const LI_TAB_STRUCT *e = k;
    do {
      if (std::string why = take(e, "a live contour"); !why.empty()) return why;
      e = e->next;
    } while (e != k);
  }
  if (seen.size() == total) return {};
  return std::to_string(total - seen.size()) + " of " + std::to_string(total) +
         " records are neither free nor in a live contour";
}

}  // namespace polyarc_census
