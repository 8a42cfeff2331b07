// What the offset commands share: the side an offset goes to, which way
// that is for a closed contour, and the loops kept of a raw result.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

#include "contour_list.h"
#include "options.h"

namespace polyarc_tool {

// Where an offset goes from its source.
struct OffsetWay {
  int16_t side = 1;     // 1 left of the direction of travel, -1 right
  bool closed = false;  // the source is closed: the offset runs outward or inward
  bool outward = false;
  // The orientation of the kept loops: the source's (1 ccw, -1 cw); for
  // an open source the side's, as the library's open clean-up takes it.
  int16_t sign = 1;
};

// The way from --side (left, right, out or in; out and in only for a
// closed source) or, without it, outward from a closed source and to the
// left of an open one. flip turns the side round (a negative distance).
// Returns nullopt with a message in usage for a bad --side.
std::optional<OffsetWay> ChooseWay(const LI_TAB_STRUCT *source, const Options &options, bool flip,
                                   std::string &usage);

// The file and block that an offset command reads its source from.
struct SourceBlock {
  std::string path;
  int block = 1;
};

class InputFiles;

// Reads the source of an offset command into files and chooses the way
// its offset goes (ChooseWay). usage holds the message of a usage error
// found before, if any (source is then empty). Returns kExitOk, or the
// exit code after telling err what is wrong.
int ReadSource(const char *command, const std::optional<SourceBlock> &source,
               const Options &options, bool flip, std::string &usage, InputFiles &files,
               OffsetWay &way, std::ostream &err);

// "to the left (outward)" and the like.
std::string WayText(const OffsetWay &way);

// Cuts the self-crossing loops off the raw offset raw (consumed) with the
// library's loop clean-up (FlCleanKont on the whole contour, no removal of
// short elements) and adds what is kept to loops:
//  - inward from a closed source: every loop of the source's orientation,
//    or the raw offset itself when nothing crosses and it kept that
//    orientation (an offset deeper than the contour allows turns round,
//    and leaves nothing);
//  - outward: the outer loop (or the raw offset, as inward);
//  - an open source: the loop that the clean-up's rule picks, or the raw
//    offset when nothing crosses.
// Arcs whose ends coincide in a result of several elements (tiny arcs
// shrunk by the offset, which would read as whole circles) go first.
// Returns the clean-up's status; on failure loops gets nothing.
uint16_t KeepLoops(LI_TAB_STRUCT *raw, const OffsetWay &way, ContourList &loops);

}  // namespace polyarc_tool
