// The side of an offset and the loops kept of it.
#include "offset_steps.h"

#include <utility>

#include <ostream>

#include "cli.h"
#include "elements.h"
#include "input_files.h"
#include "polyarc/fl.h"

namespace polyarc_tool {
namespace {

// An arc whose ends coincide in a contour of several elements is what an
// offset leaves of a tiny arc, not a circle.
void RemovePhantomArcs(LI_HEAD *store, LI_TAB_STRUCT **k) {
  const uint32_t n = LiCountElem(*k);
  LI_TAB_STRUCT *e = *k;
  for (uint32_t i = 0; i < n && (*k)->next != *k; ++i) {
    LI_TAB_STRUCT *next = e->next;
    if (IsFullCircle(e)) LiDel(store, k, e);
    e = next;
  }
}

// The orientation of a closed result: 0 for a lone circle whose radius went
// negative (the offset passed its centre) and for an area within tol of 0.
int16_t Orientation(const LI_TAB_STRUCT *k) {
  if (k->next == k && IsArc(k) && k->rad < 0) return 0;
  const double area = LiKontArea(k), tol = GeEpsiGetTol();
  return area > tol ? 1 : area < -tol ? -1 : 0;
}

// The library's cleaning modes.
constexpr uint16_t kOutward = 1, kInward = 2, kOpen = 3;

}  // namespace

std::optional<OffsetWay> ChooseWay(const LI_TAB_STRUCT *source, const Options &options, bool flip,
                                   std::string &usage) {
  OffsetWay way;
  way.closed = LiTestClosed(source) == 1;
  const double area = way.closed ? LiKontArea(source) : 0;
  way.sign = area <= 0 ? -1 : 1;
  const int16_t out_side = area > 0 ? -1 : 1;  // outward: right of a ccw contour
  const std::string side = options.Value("side", way.closed ? "out" : "left");
  if (side == "left" || side == "right") {
    way.side = side == "left" ? 1 : -1;
  } else if ((side == "out" || side == "in") && way.closed) {
    way.side = side == "out" ? out_side : static_cast<int16_t>(-out_side);
  } else {
    usage = way.closed ? "--side needs left, right, out or in, not '" + side + "'"
                       : "--side needs left or right for an open contour, not '" + side + "'";
    return std::nullopt;
  }
  if (flip) way.side = static_cast<int16_t>(-way.side);
  way.outward = way.closed && way.side == out_side;
  // The clean-up of an open offset wants loops that turn towards its side.
  if (!way.closed) way.sign = way.side;
  return way;
}

int ReadSource(const char *command, const std::optional<SourceBlock> &source,
               const Options &options, bool flip, std::string &usage, InputFiles &files,
               OffsetWay &way, std::ostream &err) {
  std::optional<OffsetWay> chosen;
  if (source) {
    if (!files.Read(source->path, BlockChoice{{source->block}, ""}, err)) return kExitFailure;
    chosen = ChooseWay(files.lists()[0].contours()[0].k, options, flip, usage);
  }
  if (!usage.empty()) {
    err << "polyarc " << command << ": " << usage << " (see 'polyarc " << command << " --help')\n";
    return kExitUsage;
  }
  way = *chosen;
  return kExitOk;
}

std::string WayText(const OffsetWay &way) {
  std::string text = way.side == 1 ? "to the left" : "to the right";
  if (way.closed) text += way.outward ? " (outward)" : " (inward)";
  return text;
}

uint16_t KeepLoops(LI_TAB_STRUCT *raw, const OffsetWay &way, ContourList &loops) {
  LI_HEAD *store = loops.store();
  RemovePhantomArcs(store, &raw);
  const uint16_t mode = !way.closed ? kOpen : way.outward ? kOutward : kInward;
  LI_TAB_STRUCT *out = nullptr, **list = nullptr;
  int16_t last = FL_EMPTY;
  uint32_t no_cross = 1;
  const uint16_t status =
      FlCleanKont(store, &raw, way.sign, mode, &out, &list, &last, &no_cross, 0, 0);
  auto take = [&](LI_TAB_STRUCT *&loop) { loops.Add(std::exchange(loop, nullptr)); };
  if (status == PA_OK && no_cross != 0) {
    if (!way.closed || Orientation(raw) == way.sign) take(raw);
  } else if (status == PA_OK) {
    // Outward and open: the loop handed back (the outward offset of a
    // contour is one region). Inward: the list holds every wanted loop.
    if (out != nullptr) take(out);
    for (int16_t i = 0; mode == kInward && i <= last; ++i) take(list[i]);
  }
  LiRemove(store, &out);
  LiRemove(store, &raw);
  FlFreeList(store, &list, last);
  return status;
}

}  // namespace polyarc_tool
