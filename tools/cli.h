// The program's entry point behind main(): subcommands and their help.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace polyarc_tool {

// Exit codes of the program.
// 1: a file cannot be read, is malformed or cannot be written, or the
// library refused an operation; 2: the command line is wrong.
enum ExitCode { kExitOk = 0, kExitFailure = 1, kExitUsage = 2 };

// Runs the program on its arguments (without the program name): results
// to out, errors and diagnostics to err. Returns the exit code.
int RunCli(const std::vector<std::string> &args, std::ostream &out, std::ostream &err);

}  // namespace polyarc_tool
