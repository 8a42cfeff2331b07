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
//                        metadata of the test corpus: skipped
// Any other word is an error.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "contour_list.h"
#include "polyarc/li.h"

namespace polyarc_tool {

// A malformed text: the 1-based line and what is wrong there.
struct TextError {
  int line = 0;
  std::string message;
};

// Reads every block of the text and builds its contours with LiMove,
// LiDraw and LiArc in out's store. All or nothing: on an error nothing is
// added to out and every record taken for the text is given back. Zero-
// length segments without a bulge are dropped (LiDraw adds nothing);
// segments shorter than the tolerance on both axes count as zero-length,
// so a block whose vertices all lie that close to the first one gives a
// contour of a single move (a point).
std::optional<TextError> ReadContours(std::istream &in, ContourList &out);

// ReadContours on a file. On failure returns false and sets error to
// "path:line: message" (or "path: cannot open").
bool ReadContourFile(const std::string &path, ContourList &out, std::string &error);

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

}  // namespace polyarc_tool
