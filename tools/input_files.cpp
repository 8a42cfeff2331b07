// Reading the input files of a subcommand.
#include "input_files.h"

#include <charconv>
#include <ostream>

namespace polyarc_tool {

std::optional<BlockChoice> ChosenBlocks(const Options &options, std::string &usage) {
  BlockChoice choice;
  for (const std::string &text : options.Values("block")) {
    int n = 0;
    const char *end = text.data() + text.size();
    const auto [stop, ec] = std::from_chars(text.data(), end, n);
    if (text.empty() || ec != std::errc() || stop != end || n < 1) {
      usage = "--block needs a block number from 1, not '" + text + "'";
      return std::nullopt;
    }
    choice.numbers.insert(n);
  }
  choice.case_id = options.Value("case");
  if (options.Has("case") && choice.case_id.empty()) {
    usage = "--case needs a case ID";
    return std::nullopt;
  }
  return choice;
}

InputFiles::~InputFiles() {
  lists_.clear();
  LiFreeMem(&store_);
}

bool InputFiles::Read(const std::vector<std::string> &paths, const BlockChoice &choice,
                      std::ostream &err) {
  bool all = true;
  for (const std::string &path : paths) {
    ContourList list(&store_);
    std::string error;
    if (!ReadContourFile(path, list, error, choice)) {
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
