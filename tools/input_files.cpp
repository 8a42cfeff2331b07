// Reading the input files of a subcommand.
#include "input_files.h"

#include <ostream>

#include "text_format.h"

namespace polyarc_tool {

InputFiles::~InputFiles() {
  lists_.clear();
  LiFreeMem(&store_);
}

bool InputFiles::Read(const std::vector<std::string> &paths, std::ostream &err) {
  bool all = true;
  for (const std::string &path : paths) {
    ContourList list(&store_);
    std::string error;
    if (!ReadContourFile(path, list, error)) {
      err << "polyarc: " << error << '\n';
      all = false;
      continue;
    }
    paths_.push_back(path);
    lists_.push_back(std::move(list));
  }
  return all;
}

}  // namespace polyarc_tool
