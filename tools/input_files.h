// The contour files that a subcommand reads, all into one store, and the
// options that choose their blocks.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "contour_list.h"
#include "options.h"
#include "text_format.h"

namespace polyarc_tool {

// The blocks that --block N (repeatable) and --case ID choose. Returns
// nullopt with a message in usage when a block number is not a whole
// number from 1.
std::optional<BlockChoice> ChosenBlocks(const Options &options, std::string &usage);

// The block number given with the option name (a whole number from 1), or
// 1 when it is not given. Returns nullopt with a message in usage when the
// value is not a block number.
std::optional<int> OneBlock(const Options &options, const std::string &name, std::string &usage);

// The store and, per file, its contours. The store is freed last.
class InputFiles {
 public:
  InputFiles() = default;
  InputFiles(const InputFiles &) = delete;
  InputFiles &operator=(const InputFiles &) = delete;
  ~InputFiles();

  // Reads the chosen blocks of every file; each failure is reported to err
  // as "polyarc: FILE:LINE: message". Returns true when all files were read.
  bool Read(const std::vector<std::string> &paths, const BlockChoice &choice, std::ostream &err);
  // The same for one file, whose contours become the next list.
  bool Read(const std::string &path, const BlockChoice &choice, std::ostream &err);

  // The store of every contour read, for the results made from them.
  LI_HEAD *store() { return &store_; }

  const std::vector<std::string> &paths() const { return paths_; }
  const std::vector<ContourList> &lists() const { return lists_; }

 private:
  LI_HEAD store_{};
  std::vector<std::string> paths_;
  std::vector<ContourList> lists_;
};

}  // namespace polyarc_tool
