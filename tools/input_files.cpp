// Reading the input files of a subcommand.
#include "input_files.h"

#include <charconv>
#include <ostream>

namespace polyarc_tool {
namespace {

// A block number: a whole number from 1.
std::optional<int> BlockNumber(const std::string &text) {
  int n = 0;
  const char *end = text.data() + text.size();
  const auto [stop, ec] = std::from_chars(text.data(), end, n);
  if (text.empty() || ec != std::errc() || stop != end || n < 1) return std::nullopt;
  return n;
}

}  // namespace

std::optional<BlockChoice> ChosenBlocks(const Options &options, std::string &usage) {
  BlockChoice choice;
  for (const std::string &text : options.Values("block")) {
    const auto n = BlockNumber(text);
    if (!n) {
      usage = "--block needs a block number from 1, not '" + text + "'";
      return std::nullopt;
    }
    choice.numbers.insert(*n);
  }
  choice.case_id = options.Value("case");
  if (options.Has("case") && choice.case_id.empty()) {
    usage = "--case needs a case ID";
    return std::nullopt;
  }
  return choice;
}

std::optional<int> OneBlock(const Options &options, const std::string &name, std::string &usage) {
  if (!options.Has(name)) return 1;
  const std::string text = options.Value(name);
  const auto n = BlockNumber(text);
  if (!n) usage = "--" + name + " needs a block number from 1, not '" + text + "'";
  return n;
}

InputFiles::~InputFiles() {
  lists_.clear();
  LiFreeMem(&store_);
}

bool InputFiles::Read(const std::vector<std::string> &paths, const BlockChoice &choice,
                      std::ostream &err) {
  bool all = true;
  for (const std::string &path : paths) all = Read(path, choice, err) && all;
  return all;
}

bool InputFiles::Read(const std::string &path, const BlockChoice &choice, std::ostream &err) {
  ContourList list(&store_);
  std::string error;
  if (!ReadContourFile(path, list, error, choice)) {
    err << "polyarc: " << error << '\n';
    return false;
  }
  paths_.push_back(path);
  lists_.push_back(std::move(list));
  return true;
}

}  // namespace polyarc_tool
