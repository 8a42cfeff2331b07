// The subcommands. Each takes its parsed options, writes results to out
// and messages to err, and returns the program's exit code.
#pragma once

#include <iosfwd>

#include "options.h"

namespace polyarc_tool {

int RunInfo(const Options &options, std::ostream &out, std::ostream &err);
int RunRender(const Options &options, std::ostream &out, std::ostream &err);
int RunDemo(const Options &options, std::ostream &out, std::ostream &err);
int RunOffset(const Options &options, std::ostream &out, std::ostream &err);
int RunUnion(const Options &options, std::ostream &out, std::ostream &err);
int RunIntersection(const Options &options, std::ostream &out, std::ostream &err);
int RunDifference(const Options &options, std::ostream &out, std::ostream &err);
int RunRectOffset(const Options &options, std::ostream &out, std::ostream &err);

}  // namespace polyarc_tool
