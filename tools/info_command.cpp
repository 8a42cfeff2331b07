// polyarc info: the measures of every contour in the given files.
#include <ostream>
#include <sstream>

#include "cli.h"
#include "commands.h"
#include "input_files.h"
#include "measures.h"

namespace polyarc_tool {
namespace {

// The block's keyword and number ("shell 0", "open"), without the corpus's
// attributes.
std::string Label(const std::string &header) {
  std::istringstream words(header);
  std::string word, label;
  for (int i = 0; i < 2 && words >> word && word.find('=') == std::string::npos; ++i) {
    label += (label.empty() ? "" : " ") + word;
  }
  return label;
}

void PrintTable(const InputFiles &files, std::ostream &out) {
  Table table;
  table.AddColumn("file", Table::Align::kLeft);
  table.AddColumn("#", Table::Align::kRight);
  table.AddColumn("block", Table::Align::kLeft);
  table.AddColumn("line", Table::Align::kRight);
  AddMeasureColumns(table);
  for (std::size_t f = 0; f < files.lists().size(); ++f) {
    const auto &contours = files.lists()[f].contours();
    for (std::size_t i = 0; i < contours.size(); ++i) {
      std::vector<std::string> row = {files.paths()[f], std::to_string(i + 1),
                                      Label(contours[i].header), std::to_string(contours[i].line)};
      for (std::string &cell : MeasureCells(Measure(contours[i].k))) row.push_back(std::move(cell));
      table.AddRow(std::move(row));
    }
  }
  table.Print(out);
}

void PrintJson(const InputFiles &files, std::ostream &out) {
  out << "{\"contours\": [";
  const char *separator = "\n";
  for (std::size_t f = 0; f < files.lists().size(); ++f) {
    const auto &contours = files.lists()[f].contours();
    for (std::size_t i = 0; i < contours.size(); ++i) {
      out << separator << "  {\"file\": " << JsonString(files.paths()[f])
          << ", \"index\": " << i + 1 << ", \"block\": " << JsonString(Label(contours[i].header))
          << ", \"line\": " << contours[i].line << ", "
          << MeasureJsonMembers(Measure(contours[i].k)) << '}';
      separator = ",\n";
    }
  }
  out << "\n]}\n";
}

}  // namespace

int RunInfo(const Options &options, std::ostream &out, std::ostream &err) {
  if (options.operands.empty()) {
    err << "polyarc info: no file given (see 'polyarc info --help')\n";
    return kExitUsage;
  }
  InputFiles files;
  if (!files.Read(options.operands, err)) return kExitFailure;
  if (options.Has("json")) {
    PrintJson(files, out);
  } else {
    PrintTable(files, out);
  }
  return kExitOk;
}

}  // namespace polyarc_tool
