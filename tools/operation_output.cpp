// The report, the contour text and the picture of an operation's result.
#include "operation_output.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <ostream>
#include <sstream>

#include "measures.h"
#include "svg.h"
#include "text_format.h"

namespace polyarc_tool {
namespace {

// The result stands out against the operands' outlines.
constexpr double kResultFill = 0.3;

std::string LoopCount(std::size_t n) { return std::to_string(n) + (n == 1 ? " loop" : " loops"); }

std::string ResultText(const OperationResult &result) {
  std::string text = "# " + result.title + ": " + LoopCount(result.loops->size()) + "\n\n";
  std::size_t i = 0;
  for (const Contour &c : result.loops->contours()) {
    const Measures m = Measure(c.k);
    std::string comment = "loop " + std::to_string(++i);
    if (m.closed) comment += ": " + Orientation(m) + ", area " + FormatShort(m.area);
    std::ostringstream block;
    WriteContour(block, c.k, comment);
    text += block.str();
  }
  return text;
}

std::string Picture(const OperationResult &result) {
  // The result first, so that the operands' outlines lie on top of it.
  SvgPanel panel{result.title, {}};
  SvgLayer filled{result.command + " (" + LoopCount(result.loops->size()) + ")", {}};
  for (const Contour &c : result.loops->contours()) filled.contours.push_back(c.k);
  filled.fill = kResultFill;
  panel.layers.push_back(std::move(filled));
  for (const Operand &operand : result.operands) {
    SvgLayer outline{operand.label, {operand.k}};
    outline.fill = 0;
    panel.layers.push_back(std::move(outline));
  }
  return RenderSvg({panel}, SvgOptions{});
}

bool WriteFile(const std::string &command, const std::string &path, const std::string &content,
               std::ostream &err) {
  std::ofstream file(path, std::ios::binary);
  if (file << content && file.flush()) return true;
  err << "polyarc " << command << ": cannot write " << path << " (" << std::strerror(errno)
      << ")\n";
  return false;
}

}  // namespace

void PrintLoops(const ContourList &loops, std::ostream &out) {
  if (loops.empty()) {
    out << "result: empty (no loop)\n";
    return;
  }
  out << "result: " << LoopCount(loops.size()) << '\n';
  Table table;
  table.AddColumn("loop", Table::Align::kRight);
  AddMeasureColumns(table);
  std::size_t i = 0;
  for (const Contour &c : loops.contours()) {
    std::vector<std::string> row = {std::to_string(++i)};
    for (std::string &cell : MeasureCells(Measure(c.k))) row.push_back(std::move(cell));
    table.AddRow(std::move(row));
  }
  table.Print(out);
  for (const Contour &c : loops.contours()) {
    if (LiTestClosed(c.k) == 1) {
      out << "total area: " << FormatShort(TotalArea(loops)) << '\n';
      return;
    }
  }
}

double TotalArea(const ContourList &loops) {
  double area = 0;
  for (const Contour &c : loops.contours()) {
    if (LiTestClosed(c.k) == 1) area += LiKontArea(c.k);
  }
  return area;
}

bool WriteResult(const OperationResult &result, const Options &options, std::ostream &out,
                 std::ostream &err) {
  const std::string text = options.Value("output"), svg = options.Value("svg");
  std::ostream &report = Report(options, out, err);
  if (text == "-") {
    out << ResultText(result);
  } else if (!text.empty()) {
    if (!WriteFile(result.command, text, ResultText(result), err)) return false;
    report << "wrote " << text << '\n';
  }
  if (!svg.empty()) {
    if (!WriteFile(result.command, svg, Picture(result), err)) return false;
    report << "wrote " << svg << '\n';
  }
  return true;
}

std::ostream &Report(const Options &options, std::ostream &out, std::ostream &err) {
  return options.Value("output") == "-" ? err : out;
}

}  // namespace polyarc_tool
