// Parsing of the subcommands' options.
#include "options.h"

namespace polyarc_tool {
namespace {

const OptionSpec *FindLong(const std::vector<OptionSpec> &specs, const std::string &name) {
  for (const OptionSpec &spec : specs) {
    if (spec.name == name) return &spec;
  }
  return nullptr;
}

const OptionSpec *FindShort(const std::vector<OptionSpec> &specs, char letter) {
  for (const OptionSpec &spec : specs) {
    if (spec.letter != 0 && spec.letter == letter) return &spec;
  }
  return nullptr;
}

}  // namespace

std::optional<Options> ParseOptions(const std::vector<std::string> &args,
                                    const std::vector<OptionSpec> &specs, std::string &error) {
  Options options;
  bool operands_only = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string &arg = args[i];
    if (operands_only || arg == "-" || arg.empty() || arg[0] != '-') {
      options.operands.push_back(arg);
      continue;
    }
    if (arg == "--") {
      operands_only = true;
      continue;
    }
    if (arg == "--help" || arg == "-h") {
      options.help = true;
      continue;
    }
    const bool is_long = arg.rfind("--", 0) == 0;
    const auto equals = arg.find('=');
    const std::string name =
        is_long ? arg.substr(2, equals == std::string::npos ? equals : equals - 2) : arg.substr(1);
    const OptionSpec *spec =
        is_long ? FindLong(specs, name) : (name.size() == 1 ? FindShort(specs, name[0]) : nullptr);
    if (spec == nullptr) {
      error = "unknown option '" + (is_long ? "--" + name : arg) + "'";
      return std::nullopt;
    }
    if (!spec->takes_value) {
      if (is_long && equals != std::string::npos) {
        error = "option '--" + spec->name + "' takes no value";
        return std::nullopt;
      }
      options.flags.insert(spec->name);
    } else if (is_long && equals != std::string::npos) {
      options.values[spec->name] = arg.substr(equals + 1);
    } else if (i + 1 < args.size()) {
      options.values[spec->name] = args[++i];
    } else {
      error = "option '--" + spec->name + "' needs a value";
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace polyarc_tool
