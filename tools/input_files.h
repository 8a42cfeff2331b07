// The contour files that a subcommand reads, all into one store.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "contour_list.h"

namespace polyarc_tool {

// The store and, per file, its contours. The store is freed last.
class InputFiles {
 public:
  InputFiles() = default;
  InputFiles(const InputFiles &) = delete;
  InputFiles &operator=(const InputFiles &) = delete;
  ~InputFiles();

  // Reads every file; each failure is reported to err as "polyarc:
  // FILE:LINE: message". Returns true when all files were read.
  bool Read(const std::vector<std::string> &paths, std::ostream &err);

  const std::vector<std::string> &paths() const { return paths_; }
  const std::vector<ContourList> &lists() const { return lists_; }

 private:
  LI_HEAD store_{};
  std::vector<std::string> paths_;
  std::vector<ContourList> lists_;
};

}  // namespace polyarc_tool
