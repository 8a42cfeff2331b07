// polyarc demo: the sections of the demo, their table of measures, the
// picture and the shapes as contour text.
//
// To show a new operation, write a builder like the ones below (it asks
// the section for shapes with NewShape and fills them with the library)
// and add a line to kSections. Its shapes are measured, drawn in their
// own panel and written to demo.txt without further code.
#include <deque>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <utility>

#include "cli.h"
#include "commands.h"
#include "demo.h"
#include "measures.h"
#include "polyarc/fl.h"
#include "polyarc/ge.h"
#include "status_text.h"
#include "svg.h"
#include "text_format.h"

namespace polyarc_tool {
namespace {

constexpr double kPi = 3.141592653589793;

// ---- Sections ---------------------------------------------------------------

uint16_t Rectangle(DemoSection &s) {
  return LiCreateRect(s.store(), &s.NewShape("LiCreateRect(2, 1)"), 2, 1);
}

uint16_t RoundedRectangle(DemoSection &s) {
  return LiCreateRound(s.store(), &s.NewShape("LiCreateRound(2, 1, 0.5)"), 2, 1, 0.5);
}

uint16_t Circle(DemoSection &s) {
  LI_TAB_STRUCT *&k = s.NewShape("LiCreateCircle((0, 0), 1, ccw)");
  if (const uint16_t status = LiNew(s.store(), &k); status != PA_OK) return status;
  const GE_POINT centre{0, 0};
  return LiCreateCircle(&centre, 1, 1, k);
}

// A 3 x 2 slot whose right end bulges out (counter-clockwise) and whose
// left end bites in (clockwise): area 6, length 6 + 2 pi.
uint16_t LinesAndArcs(DemoSection &s) {
  LI_TAB_STRUCT *&k = s.NewShape("LiDraw, LiArc ccw and cw");
  const GE_POINT p0{0, 0}, p1{3, 0}, c1{3, 1}, p2{3, 2}, p3{0, 2}, c3{0, 1};
  uint16_t status = LiMove(s.store(), &k, &p0);
  if (status == PA_OK) status = LiDraw(s.store(), &k, &p1);
  if (status == PA_OK) status = LiArc(s.store(), &k, &p2, &c1, 0);
  if (status == PA_OK) status = LiDraw(s.store(), &k, &p3);
  if (status == PA_OK) status = LiArc(s.store(), &k, &p0, &c3, 1);
  return status;
}

// Three quarters of a circle of radius 2 and the polyline whose chords
// stay within 0.05 of it.
uint16_t ArcToPolyline(DemoSection &s) {
  const double radius = 2, sweep = 1.5 * kPi, chord_tol = 0.05;
  const GE_POINT start{radius, 0}, end{0, -radius}, centre{0, 0};
  LI_TAB_STRUCT *&arc = s.NewShape("LiArc, 270 degrees");
  uint16_t status = LiMove(s.store(), &arc, &start);
  if (status == PA_OK) status = LiArc(s.store(), &arc, &end, &centre, 0);
  if (status != PA_OK) return status;

  const uint32_t segments = GeArcToLinesCalcSeg(sweep, radius, chord_tol);
  const GE_POINT3 start3{start.x, start.y, 0}, end3{end.x, end.y, 0}, centre3{0, 0, 0};
  const GE_POINT3 *points = GeArcToLinesSplit(&start3, &end3, &centre3, LI_ARC_CCW, segments + 1);
  if (points == nullptr) return PA_NO_MEMORY;
  LI_TAB_STRUCT *&polyline =
      s.NewShape("GeArcToLinesSplit, " + std::to_string(segments) + " chords", true);
  for (uint32_t i = 0; i <= segments && status == PA_OK; ++i) {
    const GE_POINT p{points[i].x, points[i].y};
    status = i == 0 ? LiMove(s.store(), &polyline, &p) : LiDraw(s.store(), &polyline, &p);
  }
  return status;
}

// A 4 x 3 plate of lines and arcs with corners of both kinds: a rounded
// top right, a step down to a bite out of the top left.
uint16_t Plate(LI_HEAD *store, LI_TAB_STRUCT *&k) {
  const GE_POINT p[] = {{0, 0}, {4, 0}, {4, 2}, {3, 3}, {1.8, 3}, {1.8, 2}, {0, 2}};
  const GE_POINT corner{3, 2}, bite{0.9, 2};
  uint16_t status = LiMove(store, &k, &p[0]);
  if (status == PA_OK) status = LiDraw(store, &k, &p[1]);
  if (status == PA_OK) status = LiDraw(store, &k, &p[2]);
  if (status == PA_OK) status = LiArc(store, &k, &p[3], &corner, 0);
  if (status == PA_OK) status = LiDraw(store, &k, &p[4]);
  if (status == PA_OK) status = LiDraw(store, &k, &p[5]);
  if (status == PA_OK) status = LiArc(store, &k, &p[6], &bite, 1);
  if (status == PA_OK) status = LiDraw(store, &k, &p[0]);
  return status;
}

// The plate offset outwards and inwards by 0.3 with one corner mode.
uint16_t Offsets(DemoSection &s, uint16_t mode) {
  LI_TAB_STRUCT *&plate = s.NewShape("the plate");
  uint16_t status = Plate(s.store(), plate);
  uint16_t counter = 0;
  for (const auto &[side, label] : {std::pair{uint16_t{65535}, "FlParallClean out 0.3"},
                                    std::pair{uint16_t{1}, "FlParallClean in 0.3"}}) {
    if (status != PA_OK) break;
    status =
        FlParallClean(s.store(), plate, side, 0.3, &s.NewShape(label), mode, 0, 0, 1, &counter, 0);
  }
  return status;
}

uint16_t RoundOffsets(DemoSection &s) { return Offsets(s, FL_CORNER_ROUND); }
uint16_t SharpOffsets(DemoSection &s) { return Offsets(s, FL_CORNER_SHARP); }
uint16_t OpenOffsets(DemoSection &s) { return Offsets(s, FL_CORNER_GAP); }

// A rounded rectangle and a circle over its right end, each crossing the
// other's arcs, as the operands of a Boolean operation.
uint16_t Operands(DemoSection &s, LI_TAB_STRUCT *&a, LI_TAB_STRUCT *&b) {
  LI_TAB_STRUCT *&rounded = s.NewOutline("A: LiCreateRound(2, 1, 0.5)");
  uint16_t status = LiCreateRound(s.store(), &rounded, 2, 1, 0.5);
  LI_TAB_STRUCT *&circle = s.NewOutline("B: LiCreateCircle((2, 0), 1, ccw)");
  if (status == PA_OK) status = LiNew(s.store(), &circle);
  const GE_POINT centre{2, 0};
  if (status == PA_OK) status = LiCreateCircle(&centre, 1, 1, circle);
  a = rounded;
  b = circle;
  return status;
}

using BooleanOp = decltype(&FlUnionKont);  // and FlIsectKont, FlDiffKont

// The loops of one Boolean operation on the operands. The shapes cross, so
// the library answers with loops, not with how they nest.
uint16_t Boolean(DemoSection &s, BooleanOp op, const std::string &name) {
  LI_TAB_STRUCT *a = nullptr, *b = nullptr;
  uint16_t status = Operands(s, a, b);
  LI_TAB_STRUCT **loops = nullptr;
  int16_t last = FL_EMPTY, contain = 0;
  uint32_t no_cross = 1;
  if (status == PA_OK) status = op(s.store(), a, b, 0, 1, &loops, &last, &no_cross, &contain);
  if (status == PA_OK && no_cross != 0) status = PA_IMPOSSIBLE;
  for (int16_t i = 0; status == PA_OK && i <= last; ++i) {
    const std::string label = name + (last > 0 ? ", loop " + std::to_string(i + 1) : "");
    s.NewShape(label) = std::exchange(loops[i], nullptr);
  }
  FlFreeList(s.store(), &loops, last);
  return status;
}

uint16_t Union(DemoSection &s) { return Boolean(s, FlUnionKont, "FlUnionKont"); }
uint16_t Intersection(DemoSection &s) { return Boolean(s, FlIsectKont, "FlIsectKont"); }
uint16_t Difference(DemoSection &s) { return Boolean(s, FlDiffKont, "FlDiffKont (A - B)"); }

// The sections in the order of the table and the picture.
const DemoEntry kSections[] = {
    {"Rectangle", Rectangle},                 // LiCreateRect
    {"Rounded rectangle", RoundedRectangle},  // LiCreateRound
    {"Circle", Circle},                       // LiCreateCircle
    {"Lines and arcs", LinesAndArcs},         // LiMove, LiDraw, LiArc
    {"Arc to polyline", ArcToPolyline},       // GeArcToLinesCalcSeg, GeArcToLinesSplit
    {"Offset, round corners", RoundOffsets},  // FlParallClean
    {"Offset, sharp corners", SharpOffsets},
    {"Offset, corners left open", OpenOffsets},
    {"Union", Union},                // FlUnionKont
    {"Intersection", Intersection},  // FlIsectKont
    {"Difference", Difference},      // FlDiffKont
};

// ---- Output -----------------------------------------------------------------

std::string Count(uint32_t n, const char *what) {
  return std::to_string(n) + ' ' + what + (n == 1 ? "" : "s");
}

std::string BoxText(const Measures &m) {
  std::string text = "(";
  text += FormatShort(m.lo.x) + ", " + FormatShort(m.lo.y) + ") to (";
  text += FormatShort(m.hi.x) + ", " + FormatShort(m.hi.y) + ")";
  return text;
}

// One row per shape, narrower than polyarc info's table: the element
// counts, closedness and orientation, and the box each in one cell.
void PrintMeasures(const std::deque<DemoSection> &sections, std::ostream &out) {
  using A = Table::Align;
  Table table;
  for (const char *title : {"section", "shape", "elements", "contour"}) {
    table.AddColumn(title, A::kLeft);
  }
  table.AddColumn("area", A::kRight);
  table.AddColumn("length", A::kRight);
  table.AddColumn("box", A::kLeft);
  for (const DemoSection &section : sections) {
    std::string title = section.title();
    for (const DemoSection::Shape &shape : section.shapes()) {
      const Measures m = Measure(shape.k);
      std::string elements = m.lines > 0 ? Count(m.lines, "line") : "";
      if (m.arcs > 0) elements += (elements.empty() ? "" : ", ") + Count(m.arcs, "arc");
      table.AddRow({std::exchange(title, ""), shape.label, elements,
                    m.closed ? "closed " + Orientation(m) : "open",
                    m.closed ? FormatShort(m.area) : "-", FormatShort(m.length), BoxText(m)});
    }
  }
  table.Print(out);
}

std::string Picture(const std::deque<DemoSection> &sections) {
  std::vector<SvgPanel> panels;
  for (const DemoSection &section : sections) {
    SvgPanel panel{section.title(), {}};
    for (const DemoSection::Shape &shape : section.shapes()) {
      SvgLayer layer{shape.label, {shape.k}, shape.vertices};
      if (shape.outline) layer.fill = 0;
      panel.layers.push_back(std::move(layer));
    }
    panels.push_back(std::move(panel));
  }
  SvgOptions options;
  options.marks = true;
  options.columns = 3;
  options.panel_width = 320;
  return RenderSvg(panels, options);
}

std::string ShapesText(const std::deque<DemoSection> &sections) {
  std::ostringstream text;
  text << "# The shapes of polyarc demo in the contour text format.\n\n";
  for (const DemoSection &section : sections) {
    for (const DemoSection::Shape &shape : section.shapes()) {
      WriteContour(text, shape.k, section.title() + ": " + shape.label);
    }
  }
  return text.str();
}

bool WriteFile(const std::string &path, const std::string &content, std::ostream &err) {
  std::ofstream file(path, std::ios::binary);
  if (file << content && file.flush()) return true;
  err << "polyarc demo: cannot write " << path << '\n';
  return false;
}

int Demo(LI_HEAD &store, const std::filesystem::path &dir, std::ostream &out, std::ostream &err) {
  std::deque<DemoSection> sections;
  for (const DemoEntry &entry : kSections) {
    DemoSection &section = sections.emplace_back(&store, entry.title);
    if (const uint16_t status = entry.build(section); status != PA_OK) {
      err << "polyarc demo: section '" << entry.title << "' failed: " << StatusText(status) << '\n';
      return kExitFailure;
    }
  }
  out << "polyarc demo: shapes built by the library, with their measures\n\n";
  PrintMeasures(sections, out);
  const std::string svg = (dir / "demo.svg").string(), txt = (dir / "demo.txt").string();
  if (!WriteFile(svg, Picture(sections), err) || !WriteFile(txt, ShapesText(sections), err)) {
    return kExitFailure;
  }
  out << "\npicture: " << svg << "\nshapes:  " << txt << '\n';
  return kExitOk;
}

}  // namespace

int RunDemo(const Options &options, std::ostream &out, std::ostream &err) {
  if (!options.operands.empty()) {
    err << "polyarc demo: unexpected argument '" << options.operands[0]
        << "' (see 'polyarc demo --help')\n";
    return kExitUsage;
  }
  const std::filesystem::path dir = options.Value("output", ".");
  std::error_code ec;
  std::filesystem::create_directories(dir, ec);
  if (ec) {
    err << "polyarc demo: cannot create " << dir.string() << " (" << ec.message() << ")\n";
    return kExitFailure;
  }
  LI_HEAD store{};
  const int code = Demo(store, dir, out, err);
  LiFreeMem(&store);
  return code;
}

}  // namespace polyarc_tool
