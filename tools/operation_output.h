// What the commands that make new contours (union, intersection,
// difference, offset, rect-offset) share: the report of their loops, and
// the contour text and the picture they write.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "contour_list.h"
#include "options.h"

namespace polyarc_tool {

// An input of the operation, drawn as an outline beside the result.
struct Operand {
  std::string label;
  const LI_TAB_STRUCT *k = nullptr;
};

// An operation's result and how to describe it.
struct OperationResult {
  std::string command;  // "union", "offset", ...
  std::string title;    // what was done, e.g. "union of a.txt and b.txt"
  std::vector<Operand> operands;
  const ContourList *loops = nullptr;
};

// One row per loop with its measures (as polyarc info prints them), then,
// when a loop is closed, the total signed area of the closed loops: holes
// run clockwise, so they count negative.
void PrintLoops(const ContourList &loops, std::ostream &out);

// The total signed area of the closed loops.
double TotalArea(const ContourList &loops);

// Writes the loops as contour text to the path of --output ('-' for
// standard output) and the picture of the operands and the result to the
// path of --svg, when given, and says so in the report. Returns false
// after telling err that a file cannot be written.
bool WriteResult(const OperationResult &result, const Options &options, std::ostream &out,
                 std::ostream &err);

// Where the report goes: standard output, or standard error when the
// contour text goes to standard output (so that it can be piped on).
std::ostream &Report(const Options &options, std::ostream &out, std::ostream &err);

}  // namespace polyarc_tool
