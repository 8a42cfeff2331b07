// polyarc rect-offset: the outline that a rectangular tool sweeps along a
// contour, in the library's calling order.
#include <ostream>
#include <utility>
#include <vector>

#include "cli.h"
#include "commands.h"
#include "input_files.h"
#include "measures.h"
#include "offset_steps.h"
#include "operation_output.h"
#include "polyarc/fl.h"
#include "status_text.h"
#include "text_format.h"

namespace polyarc_tool {
namespace {

struct Request {
  SourceBlock source;
  double dx = 0, dy = 0;  // the rectangle's half-sides
};

std::optional<double> HalfSide(const Options &options, const std::string &name,
                               std::string &usage) {
  const auto value = ParseDecimal(options.Value(name));
  if (!options.Has(name)) {
    usage = "no --" + name + " given";
  } else if (!value || *value < 0) {
    usage = "--" + name + " needs a number from 0, not '" + options.Value(name) + "'";
  }
  return usage.empty() ? value : std::nullopt;
}

std::optional<Request> ParseRequest(const Options &options, std::string &usage) {
  if (options.operands.size() != 1) {
    usage = options.operands.empty() ? "no file given" : "one file only";
    return std::nullopt;
  }
  Request request;
  request.source.path = options.operands[0];
  const auto dx = HalfSide(options, "dx", usage);
  const auto dy = usage.empty() ? HalfSide(options, "dy", usage) : std::nullopt;
  const auto block = OneBlock(options, "block", usage);
  if (!usage.empty()) return std::nullopt;
  request.dx = *dx;
  request.dy = *dy;
  request.source.block = *block;
  return request;
}

// The length that turns the tolerance into one on a unit vector's
// components, as the element move takes it.
double Scale(const LI_TAB_STRUCT *e) {
  return e->type == LI_ARC_CW || e->type == LI_ARC_CCW ? e->rad : e->ang_ep - e->ang_ap;
}

// Where the tool's outline ends at an open end of the source: its end
// point moved by the rectangle's corner that lengthens the path there.
GE_POINT OpenEndTarget(const LI_TAB_STRUCT *source, bool at_start, const Request &r, int16_t side) {
  const LI_TAB_STRUCT *e = at_start ? source : source->prev;
  const GE_POINT p = at_start ? e->ap : e->ep, tangent = at_start ? e->tan_ap : e->tan_ep;
  GE_POINT offset{0, 0};
  FlOffsVk(&tangent, r.dx, r.dy, side, &offset, at_start ? 0 : 1, Scale(e));
  return {p.x + offset.x, p.y + offset.y};
}

// The steps on a copy of the source, which becomes the raw result *k:
// arcs split at their four axis points, every element moved by its
// corner, the gaps between neighbours bridged, the open ends carried out.
uint16_t RawOffset(LI_HEAD *store, const LI_TAB_STRUCT *source, const Request &r,
                   const OffsetWay &way, LI_TAB_STRUCT **k) {
  uint16_t status = LiCopy(store, source, k);
  const int16_t factors[4][2] = {{0, 1}, {1, 0}, {0, -1}, {-1, 0}};  // (y, x)
  for (const auto &f : factors) {
    if (status == PA_OK) status = FlOffsSplit(store, k, f[0], f[1]);
  }
  if (status != PA_OK) return status;
  std::vector<LI_TAB_STRUCT *> elements;
  LI_TAB_STRUCT *e = *k;
  do {
    elements.push_back(e);
  } while ((e = e->next) != *k);
  const uint16_t side = static_cast<uint16_t>(way.side);
  for (LI_TAB_STRUCT *element : elements) {
    if (status == PA_OK) status = FlOffsElem(element, r.dx, r.dy, side);
  }
  for (std::size_t i = 0; status == PA_OK && i + 1 < elements.size(); ++i) {
    status = FlOffsKon(store, elements[i], elements[i + 1], r.dx, r.dy, side);
  }
  if (status == PA_OK && way.closed) {
    status = FlOffsKon(store, elements.back(), elements.front(), r.dx, r.dy, side);
  }
  for (const bool at_start : {true, false}) {
    const GE_POINT target = OpenEndTarget(source, at_start, r, way.side);
    if (status == PA_OK && !way.closed) status = FlOffAnf(store, k, &target, at_start, 0);
  }
  return status;
}

}  // namespace

int RunRectOffset(const Options &options, std::ostream &out, std::ostream &err) {
  std::string usage;
  const auto request = ParseRequest(options, usage);
  InputFiles files;
  OffsetWay way;
  const auto source_block = request ? std::optional(request->source) : std::nullopt;
  if (const int code =
          ReadSource("rect-offset", source_block, options, false, usage, files, way, err);
      code != kExitOk) {
    return code;
  }
  const LI_TAB_STRUCT *source = files.lists()[0].contours()[0].k;
  std::ostream &report = Report(options, out, err);
  const std::string title = "rectangle offset of " + request->source.path + " (block " +
                            std::to_string(request->source.block) + ") by half-sides " +
                            FormatShort(request->dx) + ", " + FormatShort(request->dy) + ' ' +
                            WayText(way);
  report << title << '\n';
  ContourList loops(files.store());
  LI_TAB_STRUCT *raw = nullptr;
  uint16_t status = RawOffset(files.store(), source, *request, way, &raw);
  if (status == PA_OK && options.Has("no-clean")) {
    loops.Add(std::exchange(raw, nullptr));
  } else if (status == PA_OK) {
    status = KeepLoops(raw, way, loops);
  } else {
    LiRemove(files.store(), &raw);
  }
  report << "status: " << StatusText(status) << '\n';
  if (status != PA_OK) {
    err << "polyarc rect-offset: the offset failed: " << StatusText(status) << '\n';
    return kExitFailure;
  }
  PrintLoops(loops, report);
  const OperationResult result{"rect-offset", title, {{"source", source}}, &loops};
  return WriteResult(result, options, out, err) ? kExitOk : kExitFailure;
}

}  // namespace polyarc_tool
