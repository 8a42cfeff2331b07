// The contour text format, read and written.
//
// One contour per block, blocks separated by blank lines, one vertex per
// line "x y [bulge]". The bulge (default 0) is tan(sweep / 4) of the arc
// from this vertex to the next, positive counter-clockwise; 0 is a line.
// The last vertex of a closed block connects back to the first. "#"
// starts a comment; a line with only a comment neither ends nor starts a
// block. A line that starts with a word is a keyword line:
//   open                 as a block's first line: the contour is open and
//                        the last vertex's bulge is ignored
//   shell, hole, path    as a block's first line: labels a closed contour
//   case, geometry, note, expect, point, precision, end
//                        metadata of the test corpus: skipped, except that
//                        "case ID | ..." names the case of the blocks after it
// Any other word is an error.
#pragma once

#include <iosfwd>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "contour_list.h"
#include "polyarc/li.h"

namespace polyarc_tool {

// A malformed text: the 1-based line and what is wrong there; line 0 when
// the fault is the text's as a whole.
struct TextError {
  int line = 0;
  std::string message;
};

// The blocks to read; the default chooses all. A block is chosen when its
// number is in numbers (or numbers is empty) and it follows the line
// "case case_id | ..." (or case_id is empty).
struct BlockChoice {
  std::set<int> numbers;  // block numbers in the text, from 1
  std::string case_id;
};

// Reads the chosen blocks of the text and builds their contours with
// LiMove, LiDraw and LiArc in out's store; the other blocks are skipped
// unread. All or nothing: on an error nothing is added to out and every
// record taken for the text is given back. A choice that misses (a number
// beyond the last block, a case without blocks) is an error of line 0.
//
// The contours' joints meet exactly. A vertex that coincides with the one
// kept before it (both differences below the tolerance) is merged into it,
// and so is a closed block's last vertex that coincides with its first:
// the contour runs through the kept vertex, and the segment that started
// at the merged vertex starts there (a bulge on the vanishing segment is an
// error). Each merge is listed in the contour's merged. A block whose
// vertices all merge into the first gives a contour of a single move (a
// point). An element whose numbers, length or area come out non-finite
// (say, from a huge bulge) is refused with the line of its vertex.
std::optional<TextError> ReadContours(std::istream &in, ContourList &out,
                                      const BlockChoice &choice = {});

// ReadContours on a file. On failure returns false and sets error to
// "path:line: message" ("path: message" for line 0, "path: cannot open").
bool ReadContourFile(const std::string &path, ContourList &out, std::string &error,
                     const BlockChoice &choice = {});

// Writes k as text that reads back to the same geometry (coordinates are
// written so that they read back exactly). A closed contour gives one
// block; an open one gives an "open" block. Moves and gaps cannot be
// written inside a block, so a contour with moves or gaps gives one open
// block per connected run, starting after a gap. A full circle becomes two
// half circles. comment, when not empty, goes before the first block as a
// "#" line. Every block ends with a blank line. A null k writes nothing.
void WriteContour(std::ostream &out, const LI_TAB_STRUCT *k, const std::string &comment = "");

// The shortest text that reads back to exactly x ("-0" is written as "0").
std::string FormatNumber(double x);

// A finite number written as the reader reads coordinates, or nullopt.
std::optional<double> ParseDecimal(std::string_view text);

}  // namespace polyarc_tool
