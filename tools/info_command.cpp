// polyarc info: the measures of every contour in the given files.
#include <ostream>
#include <sstream>

#include "cli.h"
#include "commands.h"
#include "input_files.h"
#include "measures.h"
#include "polyarc/ge.h"

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

// Calls f(path, contour) for every contour of every file, in order.
template <typename F>
void ForEachContour(const InputFiles &files, F f) {
  for (std::size_t i = 0; i < files.lists().size(); ++i) {
    for (const Contour &c : files.lists()[i].contours()) f(files.paths()[i], c);
  }
}

// One line per merged vertex, under the table: where it was, what it was
// merged into and why.
void PrintMerges(const InputFiles &files, std::ostream &out) {
  std::ostringstream notes;
  ForEachContour(files, [&](const std::string &path, const Contour &c) {
    for (const MergedVertex &m : c.merged) {
      notes << path << ':' << m.line << ": vertex merged into the "
            << (m.closing ? "first vertex" : "vertex") << " on line " << m.into
            << (m.closing ? ", where the contour closes" : "") << '\n';
    }
  });
  if (notes.str().empty()) return;
  out << "\nMerged vertices (each lies within the tolerance " << FormatShort(GeEpsiGetTol())
      << " of the vertex it joins, on both axes):\n"
      << notes.str();
}

void PrintTable(const InputFiles &files, std::ostream &out) {
  Table table;
  table.AddColumn("file", Table::Align::kLeft);
  table.AddColumn("#", Table::Align::kRight);
  table.AddColumn("block", Table::Align::kLeft);
  table.AddColumn("line", Table::Align::kRight);
  table.AddColumn("merged", Table::Align::kRight);
  AddMeasureColumns(table);
  ForEachContour(files, [&](const std::string &path, const Contour &c) {
    std::vector<std::string> row = {path, std::to_string(c.number), Label(c.header),
                                    std::to_string(c.line), std::to_string(c.merged.size())};
    for (std::string &cell : MeasureCells(Measure(c.k))) row.push_back(std::move(cell));
    table.AddRow(std::move(row));
  });
  table.Print(out);
  PrintMerges(files, out);
}

std::string JsonMerges(const std::vector<MergedVertex> &merged) {
  std::string json = "[";
  for (const MergedVertex &m : merged) {
    json += (json.size() > 1 ? ", " : "") + std::string("{\"line\": ") + std::to_string(m.line) +
            ", \"into\": " + std::to_string(m.into) +
            ", \"closing\": " + (m.closing ? "true" : "false") + "}";
  }
  return json + "]";
}

void PrintJson(const InputFiles &files, std::ostream &out) {
  out << "{\"contours\": [";
  const char *separator = "\n";
  ForEachContour(files, [&](const std::string &path, const Contour &c) {
    out << separator << "  {\"file\": " << JsonString(path) << ", \"index\": " << c.number
        << ", \"block\": " << JsonString(Label(c.header)) << ", \"line\": " << c.line
        << ", \"merged\": " << JsonMerges(c.merged) << ", " << MeasureJsonMembers(Measure(c.k))
        << '}';
    separator = ",\n";
  });
  out << "\n]}\n";
}

}  // namespace

int RunInfo(const Options &options, std::ostream &out, std::ostream &err) {
  std::string usage = options.operands.empty() ? "no file given" : "";
  const auto choice = ChosenBlocks(options, usage);
  if (!usage.empty()) {
    err << "polyarc info: " << usage << " (see 'polyarc info --help')\n";
    return kExitUsage;
  }
  InputFiles files;
  if (!files.Read(options.operands, *choice, err)) return kExitFailure;
  if (options.Has("json")) {
    PrintJson(files, out);
  } else {
    PrintTable(files, out);
  }
  return kExitOk;
}

}  // namespace polyarc_tool
