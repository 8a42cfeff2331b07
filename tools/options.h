// Command-line options of the subcommands: "--name value", "--name=value",
// "-x value", flags without a value, "--" before operands that begin with
// a dash, and "-" as an operand (standard input or output).
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace polyarc_tool {

struct OptionDef {
  std::string name;  // long name without the dashes, e.g. "output"
  char letter = 0;   // short form, e.g. 'o'; 0 for none
  bool takes_value = false;
};

struct Options {
  std::vector<std::string> operands;
  std::map<std::string, std::vector<std::string>> values;  // by long name, in order given
  std::set<std::string> flags;                             // by long name
  bool help = false;                                       // --help or -h was given

  bool Has(const std::string &name) const { return flags.count(name) || values.count(name); }
  // The last value given, for options that take one.
  std::string Value(const std::string &name, const std::string &fallback = "") const {
    const auto it = values.find(name);
    return it == values.end() ? fallback : it->second.back();
  }
  // Every value given, for options that may be repeated.
  std::vector<std::string> Values(const std::string &name) const {
    const auto it = values.find(name);
    return it == values.end() ? std::vector<std::string>{} : it->second;
  }
};

// Parses args against the option definitions. Returns the options, or nullopt with a
// message in error ("unknown option '--x'", "option '--output' needs a
// value"). Every value of a repeated option is kept.
std::optional<Options> ParseOptions(const std::vector<std::string> &args,
                                    const std::vector<OptionDef> &defs, std::string &error);

}  // namespace polyarc_tool
