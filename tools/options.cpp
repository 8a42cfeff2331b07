// Parsing of the subcommands' options.
#include "options.h"

namespace polyarc_tool {
namespace {

const OptionDef *FindLong(const std::vector<OptionDef> &defs, const std::string &name) {
  for (const OptionDef &def : defs) {
    if (def.name == name) return &def;
  }
  return nullptr;
}

const OptionDef *FindShort(const std::vector<OptionDef> &defs, char letter) {
  for (const OptionDef &def : defs) {
    if (def.letter != 0 && def.letter == letter) return &def;
  }
  return nullptr;
}

}  // namespace

std::optional<Options> ParseOptions(const std::vector<std::string> &args,
                                    const std::vector<OptionDef> &defs, std::string &error) {
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
    const OptionDef *def =
        is_long ? FindLong(defs, name) : (name.size() == 1 ? FindShort(defs, name[0]) : nullptr);
    if (def == nullptr) {
      error = "unknown option '" + (is_long ? "--" + name : arg) + "'";
      return std::nullopt;
    }
    if (!def->takes_value) {
      if (is_long && equals != std::string::npos) {
        error = "option '--" + def->name + "' takes no value";
        return std::nullopt;
      }
      options.flags.insert(def->name);
    } else if (is_long && equals != std::string::npos) {
      options.values[def->name].push_back(arg.substr(equals + 1));
    } else if (i + 1 < args.size()) {
      options.values[def->name].push_back(args[++i]);
    } else {
      error = "option '--" + def->name + "' needs a value";
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace polyarc_tool
