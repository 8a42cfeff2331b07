// polyarc offset: the parallel offset of one contour (of the region a
// closed one bounds), and a check of its distance.
#include <cmath>
#include <ostream>
#include <utility>

#include "cli.h"
#include "commands.h"
#include "input_files.h"
#include "measures.h"
#include "offset_check.h"
#include "offset_steps.h"
#include "operation_output.h"
#include "polyarc/fl.h"
#include "status_text.h"
#include "text_format.h"

namespace polyarc_tool {
namespace {

struct Corner {
  const char *name;
  uint16_t mode;
  const char *text;
};

constexpr Corner kCorners[] = {
    {"round", FL_CORNER_ROUND, "round corners"},
    {"sharp", FL_CORNER_SHARP, "sharp corners"},
    {"gap", FL_CORNER_GAP, "corners left open"},
};

struct Request {
  SourceBlock source;
  double distance = 0;  // as given; its sign turns the side round
  const Corner *corner = &kCorners[0];
};

std::optional<Request> ParseRequest(const Options &options, std::string &usage) {
  Request request;
  if (options.operands.size() != 1) {
    usage = options.operands.empty() ? "no file given" : "one file only";
    return std::nullopt;
  }
  request.source.path = options.operands[0];
  const auto distance = ParseDecimal(options.Value("distance"));
  if (!options.Has("distance")) {
    usage = "no distance given (-d D)";
  } else if (!distance) {
    usage = "-d needs a number, not '" + options.Value("distance") + "'";
  } else {
    request.distance = *distance;
  }
  const std::string corner = options.Value("corner", "round");
  request.corner = nullptr;
  for (const Corner &c : kCorners) {
    if (corner == c.name) request.corner = &c;
  }
  if (request.corner == nullptr) usage = "--corner needs round, sharp or gap, not '" + corner + "'";
  const auto block = OneBlock(options, "block", usage);
  if (!usage.empty()) return std::nullopt;
  request.source.block = *block;
  return request;
}

// The result as the library gives it: for a closed contour the offset of
// the region it bounds (FlParallelRegion), for an open one, or with
// --no-clean, what FlParallClean leaves.
uint16_t Offset(LI_TAB_STRUCT *source, const OffsetWay &way, double d, uint16_t mode, bool clean,
                ContourList &loops, uint32_t &dropped) {
  LI_HEAD *store = loops.store();
  const uint16_t side = static_cast<uint16_t>(way.side);
  // The offsets keep their elements' numbers and the connectors take the
  // next ones, which the check reads.
  uint16_t counter = 0;
  LiNumKont(source, &counter);
  if (!clean || !way.closed) {
    LI_TAB_STRUCT *raw = nullptr;
    const uint16_t status = FlParallClean(store, source, side, d, &raw, mode,
                                          clean ? 0 : FL_NO_CLEANUP, 0, 1, &counter, 0);
    if (status == PA_OK && raw != nullptr) loops.Add(raw);
    return status;
  }
  LI_TAB_STRUCT **list = nullptr;
  int16_t last = FL_EMPTY;
  const uint16_t status =
      FlParallelRegion(store, source, side, d, mode, &counter, &list, &last, &dropped);
  try {
    for (int16_t i = 0; i <= last; ++i) loops.Add(std::exchange(list[i], nullptr));
  } catch (...) {
    FlFreeList(store, &list, last);
    throw;
  }
  FlFreeList(store, &list, last);
  return status;
}

void PrintCheck(const Deviation &deviation, double d, std::ostream &out) {
  auto at = [](GE_POINT p) { return " at (" + FormatShort(p.x) + ", " + FormatShort(p.y) + ")"; };
  out << "check: |distance to the source - " << FormatShort(d) << "| at " << deviation.samples
      << " points of the result\n"
      << "  largest:                " << FormatShort(deviation.worst) << at(deviation.worst_at)
      << (deviation.worst_at_corner ? ", at a corner" : "") << '\n'
      << "  largest off the corners: " << FormatShort(deviation.worst_inside)
      << (deviation.inside_samples > 0 ? at(deviation.worst_inside_at) : " (no such point)")
      << '\n';
}

}  // namespace

int RunOffset(const Options &options, std::ostream &out, std::ostream &err) {
  std::string usage;
  const auto request = ParseRequest(options, usage);
  InputFiles files;
  OffsetWay way;
  const auto source_block = request ? std::optional(request->source) : std::nullopt;
  const bool flip = request && request->distance < 0;
  if (const int code = ReadSource("offset", source_block, options, flip, usage, files, way, err);
      code != kExitOk) {
    return code;
  }
  LI_TAB_STRUCT *source = files.lists()[0].contours()[0].k;
  const double d = std::fabs(request->distance);
  std::ostream &report = Report(options, out, err);
  const std::string title = "offset of " + request->source.path + " (block " +
                            std::to_string(request->source.block) + ") by " + FormatShort(d) + ' ' +
                            WayText(way) + ", " + request->corner->text;
  report << title << '\n';
  ContourList loops(files.store());
  uint32_t dropped = 0;
  const uint16_t status =
      Offset(source, way, d, request->corner->mode, !options.Has("no-clean"), loops, dropped);
  report << "status: " << StatusText(status) << '\n';
  if (status != PA_OK) {
    err << "polyarc offset: the offset failed: " << StatusText(status) << '\n';
    return kExitFailure;
  }
  PrintLoops(loops, report);
  if (dropped > 0) {
    report << "left out: " << dropped << (dropped == 1 ? " loop that comes" : " loops that come")
           << " nearer to the source than " << FormatShort(d)
           << " (the offset turned it inside out)\n";
  }
  if (loops.empty() && way.closed && !way.outward) {
    report << "(the offset goes deeper than the contour allows)\n";
  }
  if (options.Has("check")) PrintCheck(MeasureDeviation(source, loops, d), d, report);
  const OperationResult result{"offset", title, {{"source", source}}, &loops};
  return WriteResult(result, options, out, err) ? kExitOk : kExitFailure;
}

}  // namespace polyarc_tool
