// The measures of a contour that the program shows (from the library's own
// measuring functions), and their presentation as an aligned table or as
// JSON.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "polyarc/li.h"

namespace polyarc_tool {

struct Measures {
  uint32_t elements = 0;
  uint32_t lines = 0;
  uint32_t arcs = 0;
  bool closed = false;
  double area = 0;  // signed, counter-clockwise positive; meaningful when closed
  double length = 0;
  GE_POINT lo{0, 0};  // the real bounding box, without the tolerance margin
  GE_POINT hi{0, 0};
};

// Measures of a non-null contour.
Measures Measure(const LI_TAB_STRUCT *k);

// "ccw" or "cw" by the sign of the area, "none" for a closed contour of
// zero area, "-" for an open contour (it has no orientation).
std::string Orientation(const Measures &m);

// A table printed with aligned columns: text left, numbers right.
class Table {
 public:
  enum class Align { kLeft, kRight };
  void AddColumn(std::string title, Align align);
  void AddRow(std::vector<std::string> cells);  // one cell per column
  void Print(std::ostream &out) const;

 private:
  std::vector<std::string> titles_;
  std::vector<Align> aligns_;
  std::vector<std::vector<std::string>> rows_;
};

// The measure columns, and one row's cells for them. Numbers carry ten
// significant digits; area and orientation of an open contour are "-".
void AddMeasureColumns(Table &table);
std::vector<std::string> MeasureCells(const Measures &m);

// The measures as the members of a JSON object (without the braces), with
// numbers that read back exactly; area and orientation of an open contour
// are null, and so is a number that is not finite.
std::string MeasureJsonMembers(const Measures &m);

// s as a JSON string literal, quotes included.
std::string JsonString(const std::string &s);

// x with ten significant digits, for people ("-0" is written as "0").
std::string FormatShort(double x);

}  // namespace polyarc_tool
