// polyarc render: the contours of the given files in one SVG picture.
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <ostream>

#include "cli.h"
#include "commands.h"
#include "input_files.h"
#include "svg.h"

namespace polyarc_tool {
namespace {

// The picture's width from --width: a number of pixels from 100 to 10000.
bool ParseWidth(const std::string &text, double &width) {
  char *end = nullptr;
  width = std::strtod(text.c_str(), &end);
  return !text.empty() && *end == '\0' && width >= 100 && width <= 10000;
}

SvgPanel Picture(const InputFiles &files, const std::string &title) {
  SvgPanel panel{title, {}};
  for (std::size_t f = 0; f < files.lists().size(); ++f) {
    const ContourList &list = files.lists()[f];
    SvgLayer layer;
    layer.label = files.paths()[f] + " (" + std::to_string(list.size()) +
                  (list.size() == 1 ? " contour)" : " contours)");
    for (const Contour &c : list.contours()) layer.contours.push_back(c.k);
    panel.layers.push_back(std::move(layer));
  }
  return panel;
}

}  // namespace

int RunRender(const Options &options, std::ostream &out, std::ostream &err) {
  const std::string output = options.Value("output");
  SvgOptions svg_options;
  svg_options.marks = options.Has("marks");
  std::string usage;
  if (options.operands.empty()) usage = "no file given";
  if (output.empty()) usage = "no output given (-o OUT.svg)";
  if (options.Has("width") && !ParseWidth(options.Value("width"), svg_options.panel_width)) {
    usage = "--width needs a number of pixels from 100 to 10000";
  }
  const auto choice = ChosenBlocks(options, usage);
  if (!usage.empty()) {
    err << "polyarc render: " << usage << " (see 'polyarc render --help')\n";
    return kExitUsage;
  }
  InputFiles files;
  if (!files.Read(options.operands, *choice, err)) return kExitFailure;
  const std::string svg = RenderSvg({Picture(files, options.Value("title"))}, svg_options);
  if (output == "-") {
    out << svg;
    return kExitOk;
  }
  std::ofstream file(output, std::ios::binary);
  if (!(file << svg) || !file.flush()) {
    err << "polyarc render: cannot write " << output << " (" << std::strerror(errno) << ")\n";
    return kExitFailure;
  }
  std::size_t contours = 0;
  for (const ContourList &list : files.lists()) contours += list.size();
  out << "wrote " << output << " (" << contours << (contours == 1 ? " contour" : " contours")
      << " from " << files.paths().size() << (files.paths().size() == 1 ? " file" : " files")
      << ")\n";
  return kExitOk;
}

}  // namespace polyarc_tool
