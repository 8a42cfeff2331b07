// Contours that the program holds: each with where it came from, all from
// one element store, and given back to that store when the list goes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "polyarc/li.h"

namespace polyarc_tool {

// A vertex line that the reader merged into an earlier vertex because the
// two coincide within the tolerance: the contour passes through the
// earlier vertex only.
struct MergedVertex {
  int line = 0;          // the merged vertex's line
  int into = 0;          // the line of the vertex it was merged into
  bool closing = false;  // a closed block's last vertex, merged into its first
};

// One contour and its origin in a text.
struct Contour {
  LI_TAB_STRUCT *k = nullptr;
  std::string header;  // the block's keyword line ("shell 0", "open"), empty when none
  int line = 0;        // the block's first line in its text
  int number = 0;      // the block's place among the text's blocks, from 1
  std::vector<MergedVertex> merged;
};

// Owns its contours: they go back to the store (LiRemove) when the list is
// cleared or destroyed. The store must outlive the list.
class ContourList {
 public:
  explicit ContourList(LI_HEAD *store) : store_(store) {}
  ContourList(const ContourList &) = delete;
  ContourList &operator=(const ContourList &) = delete;
  ContourList(ContourList &&other) noexcept
      : store_(other.store_), contours_(std::move(other.contours_)) {
    other.contours_.clear();
  }
  ContourList &operator=(ContourList &&) = delete;
  ~ContourList() { Clear(); }

  // Takes ownership of c.k (even when adding fails with an exception).
  void Add(Contour c) {
    try {
      contours_.push_back(std::move(c));
    } catch (...) {
      LiRemove(store_, &c.k);
      throw;
    }
  }
  // Takes ownership of k, a contour without origin (a result).
  void Add(LI_TAB_STRUCT *k) {
    Contour c;
    c.k = k;
    Add(std::move(c));
  }
  // Moves every contour of other (same store) to the end of this list.
  void Append(ContourList &&other) {
    contours_.reserve(contours_.size() + other.contours_.size());
    for (Contour &c : other.contours_) contours_.push_back(std::move(c));
    other.contours_.clear();
  }
  void Clear() {
    for (Contour &c : contours_) LiRemove(store_, &c.k);
    contours_.clear();
  }

  LI_HEAD *store() const { return store_; }
  const std::vector<Contour> &contours() const { return contours_; }
  std::size_t size() const { return contours_.size(); }
  bool empty() const { return contours_.empty(); }

 private:
  LI_HEAD *store_;
  std::vector<Contour> contours_;
};

}  // namespace polyarc_tool
