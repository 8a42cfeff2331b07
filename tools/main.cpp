// The polyarc command-line program.
#include <iostream>
#include <string>
#include <vector>

#include "cli.h"

int main(int argc, char **argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  return polyarc_tool::RunCli(args, std::cout, std::cerr);
}
