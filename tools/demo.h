// The demo: sections that each build shapes with operations of the
// library, so that a person sees what the library does before writing a
// line of code. Each section becomes a row of the printed table and a
// panel of the picture.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "polyarc/li.h"

namespace polyarc_tool {

// One section: a title and the shapes it built. The section owns the
// shapes and gives them back to the store when it goes.
class DemoSection {
 public:
  struct Shape {
    std::string label;
    LI_TAB_STRUCT *k = nullptr;
    bool vertices = false;
    bool outline = false;  // drawn without fill, as the input of an operation
  };

  DemoSection(LI_HEAD *store, std::string title) : store_(store), title_(std::move(title)) {}
  DemoSection(const DemoSection &) = delete;
  DemoSection &operator=(const DemoSection &) = delete;
  ~DemoSection() {
    for (Shape &shape : shapes_) LiRemove(store_, &shape.k);
  }

  LI_HEAD *store() const { return store_; }
  const std::string &title() const { return title_; }
  const std::deque<Shape> &shapes() const { return shapes_; }

  // A new empty contour for the section to fill with the library's
  // constructors; it is measured and drawn under label (with a dot at each
  // vertex when vertices is set). The reference stays valid as long as the
  // section does.
  LI_TAB_STRUCT *&NewShape(std::string label, bool vertices = false) {
    shapes_.push_back({std::move(label), nullptr, vertices});
    return shapes_.back().k;
  }
  // The same for a shape drawn as an outline only, so that the filled
  // result of an operation on it stands out.
  LI_TAB_STRUCT *&NewOutline(std::string label) {
    shapes_.push_back({std::move(label), nullptr, false, true});
    return shapes_.back().k;
  }

 private:
  LI_HEAD *store_;
  std::string title_;
  std::deque<Shape> shapes_;
};

// A section's builder: fills the section's shapes and returns the first
// non-zero status of the library, or 0.
using DemoBuilder = uint16_t (*)(DemoSection &section);

struct DemoEntry {
  const char *title;
  DemoBuilder build;
};

}  // namespace polyarc_tool
