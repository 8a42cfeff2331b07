// The subcommands of the program, their help texts and the dispatch.
#include "cli.h"

#include <ostream>

#include "commands.h"
#include "options.h"
#include "polyarc/records.h"

namespace polyarc_tool {
namespace {

struct Command {
  const char *name;
  const char *summary;
  std::string help;
  std::vector<OptionDef> options;
  int (*run)(const Options &options, std::ostream &out, std::ostream &err);
};

const char kUsage[] =
    "usage: polyarc COMMAND [OPTIONS] [FILE...]\n"
    "       polyarc COMMAND --help\n"
    "       polyarc --help | --version\n";

const char kFormat[] =
    "\n"
    "Contour files hold one contour per block, blocks separated by a blank line,\n"
    "one vertex per line: x y [bulge]. The bulge is tan(sweep/4) of the arc from\n"
    "this vertex to the next, positive counter-clockwise; 0 (the default) is a\n"
    "line. A closed contour's last vertex connects back to the first; 'open' as a\n"
    "block's first line makes it open. '#' starts a comment. '-' reads standard\n"
    "input.\n";

// The options that choose blocks, shared by info and render.
const char kSelectionOptions[] =
    "  --block N   only the N-th block of each file (1 for the first, as in the\n"
    "              '#' column of info); repeat it for several blocks\n"
    "  --case ID   only the blocks of the test corpus case ID (from its line\n"
    "              'case ID | ...'); with --block, the chosen blocks of the case\n";

const char kSelectionNote[] =
    "\n"
    "With --block or --case the other blocks are skipped unread, so that an\n"
    "error in them does not matter; a choice that finds no block in a file is\n"
    "an error.\n";

const char kExitStatus[] =
    "\n"
    "Exit status: 0 on success, 1 when a file cannot be read or is malformed\n"
    "(the message gives the file and line; nothing is printed then) or the\n"
    "output cannot be written, 2 for a usage error.\n";

const std::string kInfoHelp =
    std::string(
        "usage: polyarc info [--json] [--block N]... [--case ID] FILE...\n"
        "\n"
        "Prints the measures of every contour in the files: its elements (lines,\n"
        "arcs), whether it is closed, its orientation and signed area (counter-\n"
        "clockwise positive; '-' for an open contour), its length and its bounding\n"
        "box, in an aligned table. The reader merges a vertex that lies within the\n"
        "tolerance (on both axes) of the vertex before it, or, closing a contour, of\n"
        "its first vertex: the 'merged' column counts them and the lines below the\n"
        "table say which.\n"
        "\n"
        "options:\n"
        "  --json      the same as JSON, with numbers that read back exactly\n") +
    kSelectionOptions + "  -h, --help  this text\n" + kSelectionNote + kExitStatus;

const std::string kRenderHelp =
    std::string(
        "usage: polyarc render FILE... -o OUT.svg [--marks] [--title TEXT] [--width PX]\n"
        "                      [--block N]... [--case ID]\n"
        "\n"
        "Draws the contours of the files into one SVG picture, each file in its own\n"
        "colour, with a legend. Arcs are drawn as arcs, the y axis points up, and\n"
        "the picture fits the contours' bounding box with a margin.\n"
        "\n"
        "options:\n"
        "  -o, --output OUT.svg  where the picture goes ('-' for standard output)\n"
        "  --marks               mark each contour's start point and direction\n"
        "  --title TEXT          a title above the drawing\n"
        "  --width PX            width of the picture in pixels (default 640)\n") +
    kSelectionOptions + "  -h, --help            this text\n" + kSelectionNote + kExitStatus;

const std::string kDemoHelp = std::string(
    "usage: polyarc demo [-o DIR]\n"
    "\n"
    "Builds shapes with the library's own constructors (a rectangle, a rounded\n"
    "rectangle, a circle, a contour of lines and arcs of both senses, an arc\n"
    "split into a polyline) and operations (a plate offset out and in with each\n"
    "corner mode; union, intersection and difference of a rounded rectangle\n"
    "and a circle), prints their measures, and writes the picture DIR/demo.svg\n"
    "and the shapes as contour text in DIR/demo.txt.\n"
    "\n"
    "options:\n"
    "  -o, --output DIR  the directory to write to (default: the current one;\n"
    "                    created when missing)\n"
    "  -h, --help        this text\n"
    "\n"
    "Exit status: 0 on success, 1 when the library refuses an operation or the\n"
    "files cannot be written, 2 for a usage error.\n");

// The outputs of the commands that make contours.
const char kResultOptions[] =
    "  -o, --output OUT.txt  the result as contour text, a block per loop ('-' for\n"
    "                        standard output; the report then goes to standard\n"
    "                        error)\n"
    "  --svg OUT.svg         a picture: the input as an outline, the result filled\n";

const char kResultExitStatus[] =
    "\n"
    "Exit status: 0 on success, 1 when a file cannot be read or is malformed or\n"
    "an output cannot be written, or when the library refuses the operation\n"
    "(the message says what its status means), 2 for a usage error.\n";

// The help of union, intersection or difference: its usage line, what it
// computes and how it reads an answer without crossings.
std::string BooleanHelp(const char *command, const char *about) {
  return std::string("usage: polyarc ") + command +
         " A.txt B.txt [--a N] [--b N] [-o OUT.txt] [--svg OUT.svg]\n\n" + about +
         "\n"
         "A and B may run either way round, but neither may meet itself (a figure\n"
         "eight, a vertex on another side): the program refuses such a contour. The\n"
         "library works on copies of them, without their elements shorter than the\n"
         "tolerance. The report gives the library's status and the loops of the\n"
         "result with their areas; the loops written run counter-clockwise, holes\n"
         "clockwise.\n"
         "\n"
         "options:\n"
         "  --a N, --b N          the N-th block of A's or B's file; without it the\n"
         "                        file must hold a single block\n" +
         kResultOptions +
         "  -h, --help            this text\n"
         "\n"
         "Exit status: 0 on success, 1 when a file cannot be read, is malformed, or\n"
         "holds an open contour or one that meets itself, when an output cannot be\n"
         "written, or when the library refuses the operation (the message says what\n"
         "its status means), 2 for a usage error (also a file of several blocks\n"
         "without --a or --b). An empty result is a success.\n";
}

const std::string kUnionHelp =
    BooleanHelp("union",
                "The union of two closed contours A and B (FlUnionKont): an outer loop and\n"
                "the holes that A and B close off between them. When A and B do not cross,\n"
                "the library says how they nest, and the union is the outer one when one\n"
                "lies inside the other, both when they lie apart; the report says which.\n");

const std::string kIntersectionHelp =
    BooleanHelp("intersection",
                "The intersection of two closed contours A and B (FlIsectKont): a loop per\n"
                "piece. When A and B do not cross, the library says how they nest, and the\n"
                "intersection is the inner one when one lies inside the other, empty when\n"
                "they lie apart; the report says which. Contours that only share boundary\n"
                "(a common side) cross, but no loop is part of the intersection: the\n"
                "library answers that no loop fits, and the intersection is empty.\n");

const std::string kDifferenceHelp =
    BooleanHelp("difference",
                "The difference A - B of two closed contours (FlDiffKont): what is left of\n"
                "A outside B, a loop per piece. When A and B do not cross, the library says\n"
                "how they nest, and A - B is empty when A lies inside B, A with B as its\n"
                "hole when B lies inside A, and A when they lie apart; the report says\n"
                "which. When A lies inside B along a common side no loop is left: the\n"
                "library answers that no loop fits, and A - B is empty.\n");

const std::string kOffsetHelp =
    std::string(
        "usage: polyarc offset FILE -d D [--side left|right|out|in]\n"
        "                      [--corner round|sharp|gap] [--no-clean] [--check]\n"
        "                      [-o OUT.txt] [--svg OUT.svg] [--block N]\n"
        "\n"
        "Offsets one contour by the distance D: the contour that runs beside it at\n"
        "that distance, with the loops where it crosses itself cut off. Prints the\n"
        "status and the loops with their areas.\n"
        "\n"
        "A closed contour gives the offset of its region (FlParallelRegion): the\n"
        "loops that lie at the distance D. An inward offset that splits the contour\n"
        "(a dumbbell's waist) gives every piece, and one deeper than the contour\n"
        "allows gives nothing; an outward offset gives its outer loop and the holes\n"
        "it closes off. An open contour keeps the loop that the library's clean-up\n"
        "picks (FlParallClean).\n"
        "\n"
        "options:\n"
        "  -d, --distance D      the offset distance; a negative D goes to the other\n"
        "                        side\n"
        "  --side SIDE           left or right of the direction of travel, or out or\n"
        "                        in for a closed contour (default: out for a closed\n"
        "                        contour, left for an open one)\n"
        "  --corner MODE         how the offsets of neighbouring elements meet where\n"
        "                        they part: round (the default: an arc about the\n"
        "                        corner), sharp (extended to their crossing) or gap\n"
        "                        (left open)\n"
        "  --no-clean            the raw offset, loops and all\n"
        "  --check               samples every element of the result and reports the\n"
        "                        largest |distance to the source - D|, overall and\n"
        "                        away from the corners (where the nearest point of\n"
        "                        the source is not a vertex): sharp corners lie\n"
        "                        farther than D by design\n"
        "  --block N             the N-th block of the file (default 1)\n") +
    kResultOptions + "  -h, --help            this text\n" + kResultExitStatus;

const std::string kRectOffsetHelp =
    std::string(
        "usage: polyarc rect-offset FILE --dx DX --dy DY [--side left|right|out|in]\n"
        "                           [--no-clean] [-o OUT.txt] [--svg OUT.svg] [--block N]\n"
        "\n"
        "The outline that an axis-parallel rectangle of half-sides DX and DY sweeps\n"
        "on one side of a contour, in the library's order: arcs are split at their\n"
        "four axis points (FlOffsSplit), every element is moved by the rectangle's\n"
        "corner on that side (FlOffsElem), neighbours are bridged (FlOffsKon, also\n"
        "last to first for a closed contour), the open ends are carried out to the\n"
        "rectangle's corner (FlOffAnf), and the loops are cleaned as by 'polyarc\n"
        "offset' (FlCleanKont). Prints the status and the loops with their areas.\n"
        "\n"
        "options:\n"
        "  --dx DX, --dy DY      the rectangle's half-sides (from 0)\n"
        "  --side SIDE           left or right of the direction of travel, or out or\n"
        "                        in for a closed contour (default: out for a closed\n"
        "                        contour, left for an open one)\n"
        "  --no-clean            the outline before the loop clean-up\n"
        "  --block N             the N-th block of the file (default 1)\n") +
    kResultOptions + "  -h, --help            this text\n" + kResultExitStatus;

std::vector<OptionDef> BooleanOptions() {
  return {{"a", 0, true}, {"b", 0, true}, {"output", 'o', true}, {"svg", 0, true}};
}

const std::vector<Command> &Commands() {
  static const std::vector<Command> commands = {
      {"info",
       "measures of the contours in files",
       kInfoHelp,
       {{"json", 0, false}, {"block", 0, true}, {"case", 0, true}},
       RunInfo},
      {"render",
       "draw contours into an SVG picture",
       kRenderHelp,
       {{"output", 'o', true},
        {"marks", 0, false},
        {"title", 0, true},
        {"width", 0, true},
        {"block", 0, true},
        {"case", 0, true}},
       RunRender},
      {"union", "the union of two closed contours", kUnionHelp, BooleanOptions(), RunUnion},
      {"intersection", "the intersection of two closed contours", kIntersectionHelp,
       BooleanOptions(), RunIntersection},
      {"difference", "A - B of two closed contours", kDifferenceHelp, BooleanOptions(),
       RunDifference},
      {"offset",
       "the parallel offset of a contour",
       kOffsetHelp,
       {{"distance", 'd', true},
        {"side", 0, true},
        {"corner", 0, true},
        {"no-clean", 0, false},
        {"check", 0, false},
        {"block", 0, true},
        {"output", 'o', true},
        {"svg", 0, true}},
       RunOffset},
      {"rect-offset",
       "the outline a rectangle sweeps along a contour",
       kRectOffsetHelp,
       {{"dx", 0, true},
        {"dy", 0, true},
        {"side", 0, true},
        {"no-clean", 0, false},
        {"block", 0, true},
        {"output", 'o', true},
        {"svg", 0, true}},
       RunRectOffset},
      {"demo",
       "build shapes with the library, measure and draw them",
       kDemoHelp,
       {{"output", 'o', true}},
       RunDemo},
  };
  return commands;
}

const Command *Find(const std::string &name) {
  for (const Command &command : Commands()) {
    if (name == command.name) return &command;
  }
  return nullptr;
}

void PrintOverview(std::ostream &out) {
  out << "polyarc: contours of lines and circular arcs, from the command line\n\n"
      << kUsage << "\ncommands:\n";
  for (const Command &command : Commands()) {
    out << "  " << command.name << std::string(14 - std::string(command.name).size(), ' ')
        << command.summary << '\n';
  }
  out << "\n"
         "options:\n"
         "  -h, --help  this text\n"
         "  --version   the version of the polyarc library\n"
         "\n"
         "Run 'polyarc COMMAND --help' for a command's options.\n"
      << kFormat;
}

}  // namespace

int RunCli(const std::vector<std::string> &args, std::ostream &out, std::ostream &err) {
  if (args.empty()) {
    err << kUsage << "Run 'polyarc --help' for the commands.\n";
    return kExitUsage;
  }
  const std::string &first = args[0];
  if (first == "--help" || first == "-h" || first == "help") {
    const Command *command = args.size() > 1 ? Find(args[1]) : nullptr;
    if (command != nullptr) {
      out << command->help;
    } else {
      PrintOverview(out);
    }
    return kExitOk;
  }
  if (first == "--version") {
    out << "polyarc " << PaVersion() << '\n';
    return kExitOk;
  }
  const Command *command = Find(first);
  if (command == nullptr) {
    err << "polyarc: unknown command '" << first << "' (see 'polyarc --help')\n";
    return kExitUsage;
  }
  std::string error;
  const auto options =
      ParseOptions(std::vector<std::string>(args.begin() + 1, args.end()), command->options, error);
  if (!options) {
    err << "polyarc " << command->name << ": " << error << " (see 'polyarc " << command->name
        << " --help')\n";
    return kExitUsage;
  }
  if (options->help) {
    out << command->help;
    return kExitOk;
  }
  return command->run(*options, out, err);
}

}  // namespace polyarc_tool
