// Contour measures and their table and JSON forms.
#include "measures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ostream>

#include "text_format.h"

namespace polyarc_tool {

Measures Measure(const LI_TAB_STRUCT *k) {
  Measures m;
  m.elements = LiCountElem(k);
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type == LI_LINE) ++m.lines;
    if (e->type == LI_ARC_CW || e->type == LI_ARC_CCW) ++m.arcs;
  } while ((e = e->next) != k);
  m.closed = LiTestClosed(k) == 1;
  m.area = LiKontArea(k);
  m.length = LiKontLen(k);
  LiKontRealBox(k, &m.lo, &m.hi);
  return m;
}

std::string Orientation(const Measures &m) {
  if (!m.closed) return "-";
  if (m.area > 0) return "ccw";
  if (m.area < 0) return "cw";
  return "none";
}

void Table::AddColumn(std::string title, Align align) {
  titles_.push_back(std::move(title));
  aligns_.push_back(align);
}

void Table::AddRow(std::vector<std::string> cells) {
  cells.resize(titles_.size());
  rows_.push_back(std::move(cells));
}

void Table::Print(std::ostream &out) const {
  std::vector<std::size_t> widths(titles_.size());
  for (std::size_t c = 0; c < titles_.size(); ++c) {
    widths[c] = titles_[c].size();
    for (const auto &row : rows_) widths[c] = std::max(widths[c], row[c].size());
  }
  auto print_row = [&](const std::vector<std::string> &cells) {
    std::string line;
    for (std::size_t c = 0; c < cells.size(); ++c) {
      const std::string pad(widths[c] - cells[c].size(), ' ');
      if (c > 0) line += "  ";
      line += aligns_[c] == Align::kRight ? pad + cells[c] : cells[c] + pad;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  };
  print_row(titles_);
  for (const auto &row : rows_) print_row(row);
}

void AddMeasureColumns(Table &table) {
  using A = Table::Align;
  for (const char *title : {"elements", "lines", "arcs"}) table.AddColumn(title, A::kRight);
  table.AddColumn("closed", A::kLeft);
  table.AddColumn("orientation", A::kLeft);
  for (const char *title : {"area", "length", "xmin", "ymin", "xmax", "ymax"}) {
    table.AddColumn(title, A::kRight);
  }
}

std::vector<std::string> MeasureCells(const Measures &m) {
  return {
      std::to_string(m.elements),   std::to_string(m.lines), std::to_string(m.arcs),
      m.closed ? "closed" : "open", Orientation(m),          m.closed ? FormatShort(m.area) : "-",
      FormatShort(m.length),        FormatShort(m.lo.x),     FormatShort(m.lo.y),
      FormatShort(m.hi.x),          FormatShort(m.hi.y)};
}

std::string MeasureJsonMembers(const Measures &m) {
  // JSON has no NaN or infinity.
  auto number = [](double x) { return std::isfinite(x) ? FormatNumber(x) : "null"; };
  return "\"elements\": " + std::to_string(m.elements) + ", \"lines\": " + std::to_string(m.lines) +
         ", \"arcs\": " + std::to_string(m.arcs) +
         ", \"closed\": " + (m.closed ? "true" : "false") +
         ", \"orientation\": " + (m.closed ? JsonString(Orientation(m)) : "null") +
         ", \"area\": " + (m.closed ? number(m.area) : "null") +
         ", \"length\": " + number(m.length) + ", \"box\": {\"xmin\": " + number(m.lo.x) +
         ", \"ymin\": " + number(m.lo.y) + ", \"xmax\": " + number(m.hi.x) +
         ", \"ymax\": " + number(m.hi.y) + "}";
}

std::string JsonString(const std::string &s) {
  std::string out = "\"";
  for (const char c : s) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char buffer[8];
      std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(c));
      out += buffer;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

std::string FormatShort(double x) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.10g", x == 0 ? 0.0 : x);
  return buffer;
}

}  // namespace polyarc_tool
