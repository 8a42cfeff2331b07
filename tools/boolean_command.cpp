// polyarc union, intersection and difference: a Boolean operation on two
// closed contours, and the region that the library's answer stands for
// when the contours do not cross.
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <utility>

#include "cli.h"
#include "commands.h"
#include "input_files.h"
#include "measures.h"
#include "operation_output.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "status_text.h"

namespace polyarc_tool {
namespace {

// What an operand becomes in a region drawn without crossings.
enum class Part { kNone, kOuter, kHole };

struct Drawn {
  Part a, b;
  const char *what;  // "B", "A with B as its hole", "empty"
};

using BooleanFn = decltype(&FlUnionKont);  // and FlIsectKont, FlDiffKont

struct Operation {
  const char *command;  // "union"
  const char *result;   // "the union", "A - B"
  BooleanFn run;
  // The region when nothing crosses, by the library's containment value:
  // A inside B (1), B inside A (-1), apart (0).
  Drawn a_in_b, b_in_a, apart;
  // Why "crossed, but no loop fits" means an empty result (null when it
  // is a failure): contours that only share boundary have no common area,
  // and A along the inside of B leaves nothing.
  const char *empty_because;
};

constexpr Operation kUnion{"union",
                           "the union",
                           FlUnionKont,
                           {Part::kNone, Part::kOuter, "B"},
                           {Part::kOuter, Part::kNone, "A"},
                           {Part::kOuter, Part::kOuter, "A and B"},
                           nullptr};
constexpr Operation kIntersection{"intersection",
                                  "the intersection",
                                  FlIsectKont,
                                  {Part::kOuter, Part::kNone, "A"},
                                  {Part::kNone, Part::kOuter, "B"},
                                  {Part::kNone, Part::kNone, "empty"},
                                  "A and B only share boundary"};
constexpr Operation kDifference{"difference",
                                "A - B",
                                FlDiffKont,
                                {Part::kNone, Part::kNone, "empty"},
                                {Part::kOuter, Part::kHole, "A with B as its hole"},
                                {Part::kOuter, Part::kNone, "A"},
                                "A lies inside B and shares boundary with it"};

// One operand: its name, the option that chooses its block, its file and
// that block.
struct Source {
  const char *name;    // "A"
  const char *option;  // "a"
  std::string path;
  std::optional<int> block;
  std::string Label() const {
    return block ? path + " (block " + std::to_string(*block) + ")" : path;
  }
};

std::optional<std::pair<Source, Source>> ParseRequest(const Options &options, std::string &usage) {
  if (options.operands.size() != 2) {
    usage = options.operands.size() < 2 ? "two files needed (A.txt B.txt)" : "two files only";
    return std::nullopt;
  }
  std::pair<Source, Source> sources{{"A", "a", options.operands[0], std::nullopt},
                                    {"B", "b", options.operands[1], std::nullopt}};
  for (Source *source : {&sources.first, &sources.second}) {
    if (options.Has(source->option) && usage.empty()) {
      source->block = OneBlock(options, source->option, usage);
    }
  }
  if (!usage.empty()) return std::nullopt;
  return sources;
}

// The first point where k meets itself away from the joints of its
// neighbouring elements, if any. The library's reading of a result (a
// region, or no loop of the operation's kind) holds for contours that do
// not: a figure eight would pass for two contours that only touch. A
// search that fails (no memory) finds nothing, and the operation goes on.
std::optional<GE_POINT> SelfCrossing(LI_TAB_STRUCT *k) {
  GE_CROSS *list = nullptr;
  int16_t last = FL_EMPTY;
  std::optional<GE_POINT> at;
  if (FlCrossListSingle(k, &list, &last, 0) == PA_OK && last != FL_EMPTY) at = list[0].pt;
  FlFreeCross(&list);
  return at;
}

// Reads the operand into files. Without a chosen block the file must hold
// exactly one. Returns kExitOk, or the exit code after telling err why.
int ReadOperand(const char *command, const Source &source, InputFiles &files, std::ostream &err) {
  const BlockChoice choice{source.block ? std::set<int>{*source.block} : std::set<int>{}, ""};
  if (!files.Read(source.path, choice, err)) return kExitFailure;
  const ContourList &list = files.lists().back();
  const std::string prefix = std::string("polyarc ") + command + ": " + source.Label();
  if (list.empty()) {
    err << prefix << " holds no contour\n";
    return kExitFailure;
  }
  if (list.size() > 1) {
    err << prefix << " holds " << list.size() << " blocks: choose one with --" << source.option
        << " N (see 'polyarc " << command << " --help')\n";
    return kExitUsage;
  }
  LI_TAB_STRUCT *k = list.contours()[0].k;
  if (LiTestClosed(k) != 1) {
    err << prefix << ": " << source.name << " is open; Boolean operations need closed contours\n";
    return kExitFailure;
  }
  if (const auto at = SelfCrossing(k)) {
    err << prefix << ": " << source.name << " meets itself at (" << FormatShort(at->x) << ", "
        << FormatShort(at->y) << "); Boolean operations need contours that do not\n";
    return kExitFailure;
  }
  return kExitOk;
}

// A copy of k as part of a region: an outer loop runs counter-clockwise,
// a hole clockwise.
uint16_t AddCopy(const LI_TAB_STRUCT *k, Part part, ContourList &loops) {
  LI_TAB_STRUCT *copy = LiCopyBlock(loops.store(), k, k->prev);
  if (copy == nullptr) return PA_NO_RECORD;
  const double area = LiKontArea(copy);
  if (part == Part::kOuter ? area < 0 : area > 0) LiKontChgDir(&copy);
  loops.Add(copy);
  return PA_OK;
}

const char *Nesting(int16_t contain) {
  return contain == 1 ? "A lies inside B" : contain == -1 ? "B lies inside A" : "A and B lie apart";
}

// The region that a no-crossing answer stands for, from copies of A and B.
uint16_t DrawNesting(const Operation &op, int16_t contain, const LI_TAB_STRUCT *a,
                     const LI_TAB_STRUCT *b, ContourList &loops, std::string &note) {
  const Drawn &drawn = contain == 1 ? op.a_in_b : contain == -1 ? op.b_in_a : op.apart;
  note = std::string("no crossing: ") + Nesting(contain) + "; " + op.result + " is " + drawn.what;
  for (const auto &[k, part] : {std::pair{a, drawn.a}, std::pair{b, drawn.b}}) {
    if (part == Part::kNone) continue;
    if (const uint16_t status = AddCopy(k, part, loops); status != PA_OK) return status;
  }
  return PA_OK;
}

struct Answer {
  uint16_t status = PA_OK;  // the library's, or that of a copy for a drawn region
  bool region = false;      // loops holds the result
  std::string note;         // how the region was read from the answer, if not the loops
};

Answer Combine(const Operation &op, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
               ContourList &loops) {
  LI_HEAD *store = loops.store();
  LI_TAB_STRUCT **list = nullptr;
  int16_t last = FL_EMPTY, contain = 0;
  uint32_t no_cross = 1;
  // Elements shorter than the tolerance are left out of the library's
  // copies; arcs stay arcs.
  Answer answer;
  answer.status = op.run(store, a, b, GeEpsiGetTol(), 1, &list, &last, &no_cross, &contain);
  if (answer.status == PA_OK && no_cross == 0) {
    for (int16_t i = 0; i <= last; ++i) loops.Add(std::exchange(list[i], nullptr));
    answer.region = true;
  } else if (answer.status == PA_OK) {
    answer.status = DrawNesting(op, contain, a, b, loops, answer.note);
    answer.region = answer.status == PA_OK;
  } else if (answer.status == PA_IMPOSSIBLE && no_cross == 0 && op.empty_because != nullptr) {
    answer.region = true;
    answer.note = std::string("the contours cross, but no loop is part of ") + op.result + " (" +
                  op.empty_because + "): " + op.result + " is empty";
  }
  FlFreeList(store, &list, last);
  return answer;
}

int RunBoolean(const Operation &op, const Options &options, std::ostream &out, std::ostream &err) {
  std::string usage;
  const auto request = ParseRequest(options, usage);
  if (!request) {
    err << "polyarc " << op.command << ": " << usage << " (see 'polyarc " << op.command
        << " --help')\n";
    return kExitUsage;
  }
  InputFiles files;
  for (const Source *source : {&request->first, &request->second}) {
    if (const int code = ReadOperand(op.command, *source, files, err); code != kExitOk) {
      return code;
    }
  }
  const LI_TAB_STRUCT *a = files.lists()[0].contours()[0].k;
  const LI_TAB_STRUCT *b = files.lists()[1].contours()[0].k;
  std::ostream &report = Report(options, out, err);
  const std::string title =
      std::string(op.command) + " of " + request->first.Label() + " and " + request->second.Label();
  report << title << '\n';
  ContourList loops(files.store());
  const Answer answer = Combine(op, a, b, loops);
  report << "status: " << StatusText(answer.status) << '\n';
  if (!answer.region) {
    err << "polyarc " << op.command << ": the " << op.command
        << " failed: " << StatusText(answer.status) << '\n';
    return kExitFailure;
  }
  if (!answer.note.empty()) report << answer.note << '\n';
  PrintLoops(loops, report);
  const OperationResult result{
      op.command,
      title,
      {{"A: " + request->first.path, a}, {"B: " + request->second.path, b}},
      &loops};
  return WriteResult(result, options, out, err) ? kExitOk : kExitFailure;
}

}  // namespace

int RunUnion(const Options &options, std::ostream &out, std::ostream &err) {
  return RunBoolean(kUnion, options, out, err);
}

int RunIntersection(const Options &options, std::ostream &out, std::ostream &err) {
  return RunBoolean(kIntersection, options, out, err);
}

int RunDifference(const Options &options, std::ostream &out, std::ostream &err) {
  return RunBoolean(kDifference, options, out, err);
}

}  // namespace polyarc_tool
