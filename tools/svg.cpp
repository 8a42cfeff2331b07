// SVG output: path data of contours, the fitting of a drawing into its
// panel, marks, legends and the grid of panels.
#include "svg.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "elements.h"
#include "measures.h"
#include "polyarc/ge.h"
#include "text_format.h"

namespace polyarc_tool {
namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

// Sizes in pixels.
constexpr double kPad = 12;
constexpr double kTitleHeight = 24;
constexpr double kCaptionHeight = 18;
constexpr double kLegendLine = 18;
constexpr double kStroke = 1.6;
constexpr double kStartDot = 3.5;
constexpr double kVertexDot = 2.4;
constexpr double kArrowLength = 9;
constexpr double kArrowHalfWidth = 3.5;
constexpr double kFillStep = 0.5;  // how far a long fill's outline may stray

constexpr const char *kPalette[] = {"#1f77b4", "#d62728", "#2ca02c", "#ff7f0e", "#9467bd",
                                    "#8c564b", "#e377c2", "#17becf", "#7f7f7f", "#bcbd22"};

const char *Colour(std::size_t i) { return kPalette[i % std::size(kPalette)]; }

// A pixel measure: six significant digits are plenty.
std::string Px(double x) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.6g", x == 0 ? 0.0 : x);
  return buffer;
}

std::string Xml(const std::string &s) {
  std::string out;
  for (const char c : s) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

// A contour is drawn closed (its path ends with Z, and it is filled) when
// it has no move and every element joins the next.
bool Closed(const LI_TAB_STRUCT *k) {
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type == LI_MOVE || !JoinsNext(e)) return false;
  } while ((e = e->next) != k);
  return true;
}

// ---- Path data ---------------------------------------------------------------

// How exactly path data follows the geometry. Exact: every element, and
// numbers that read back exactly. Coarse: a line (or an arc of at most a
// half turn) that ends nearer than step to the pen is left out, and
// numbers are rounded to a twentieth of step, which keeps the outline
// within step of the geometry and its numbers short.
struct Detail {
  double step = 0;  // 0: exact
  int decimals = 0;

  static Detail Coarse(double step) {
    const double grain = std::pow(10.0, std::floor(std::log10(step / 20)));
    return {step, std::max(0, static_cast<int>(-std::log10(grain) + 0.5))};
  }
  std::string Number(double x) const {
    if (step == 0) return FormatNumber(x);
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, x);
    return std::strtod(buffer, nullptr) == 0 ? "0" : buffer;
  }
};

// Writes path data into pieces: once a piece holds limit characters, the
// next element starts a new one with an M to the pen's place.
struct PathWriter {
  GE_POINT origin;
  std::size_t limit = std::numeric_limits<std::size_t>::max();
  Detail detail;
  std::vector<std::string> pieces{std::string()};
  GE_POINT pen{0, 0};

  std::string &Data() { return pieces.back(); }
  void Point(GE_POINT p) {
    Data() += ' ' + detail.Number(p.x - origin.x) + ' ' + detail.Number(p.y - origin.y);
    pen = p;
  }
  void Command(const char *c, GE_POINT p) {
    if (!Data().empty()) Data() += ' ';
    Data() += c;
    Point(p);
  }
  void Arc(double r, bool large, bool ccw, GE_POINT p) {
    const std::string radius = detail.Number(std::fabs(r));
    Data() += " A " + radius + ' ' + radius + " 0 " + (large ? "1 " : "0 ") + (ccw ? "1" : "0");
    Point(p);
  }
  bool Near(GE_POINT p) const {
    return detail.step > 0 && std::hypot(p.x - pen.x, p.y - pen.y) < detail.step;
  }
  void CutWhenFull() {
    if (Data().size() < limit) return;
    pieces.emplace_back();
    Command("M", pen);
  }
};

// Arcs in the path: sweep flag 1 is the direction of increasing angle,
// which is counter-clockwise with the y axis up.
void ArcData(PathWriter &path, const LI_TAB_STRUCT *e) {
  const bool ccw = e->type == LI_ARC_CCW;
  if (IsFullCircle(e)) {  // one SVG arc cannot close on itself
    path.Arc(e->rad, false, ccw, OppositeOnCircle(e));
    path.Arc(e->rad, false, ccw, e->ep);
    return;
  }
  double sweep = ccw ? e->ang_ep - e->ang_ap : e->ang_ap - e->ang_ep;
  if (sweep < 0) sweep += kTwoPi;
  if (sweep <= kPi && path.Near(e->ep)) return;  // within step of its chord
  path.Arc(e->rad, sweep > kPi, ccw, e->ep);
}

// The path data of k in pieces (see PathWriter). A closed contour ends with
// Z only when it fits in one piece: Z would close the last piece alone.
std::vector<std::string> PathPieces(const LI_TAB_STRUCT *k, GE_POINT origin, std::size_t limit,
                                    Detail detail = {}) {
  PathWriter path{origin, limit, detail};
  if (k == nullptr) return path.pieces;
  bool pen_down = false;
  const LI_TAB_STRUCT *e = k;
  do {
    if (e->type == LI_MOVE) {
      pen_down = false;
      continue;
    }
    if (pen_down) path.CutWhenFull();
    if (!pen_down || !JoinsNext(e->prev)) path.Command("M", e->ap);
    if (IsArc(e)) {
      ArcData(path, e);
    } else if (!path.Near(e->ep)) {
      path.Command("L", e->ep);
    }
    pen_down = true;
  } while ((e = e->next) != k);
  if (path.pieces.size() == 1 && Closed(k)) path.Data() += " Z";
  return path.pieces;
}

// Adds a piece of path data to the last path, or starts a new path when
// the last would grow beyond kSvgMaxPathData.
void Pack(std::vector<std::string> &paths, std::string piece) {
  if (piece.empty()) return;
  if (paths.empty() || paths.back().size() + piece.size() >= kSvgMaxPathData) {
    paths.push_back(std::move(piece));
  } else {
    paths.back() += ' ' + piece;
  }
}

// ---- Fitting a drawing into its frame -------------------------------------

struct Frame {
  double x, y, width, height;  // pixels
};

struct Box {
  GE_POINT lo{0, 0}, hi{0, 0};
  bool empty = true;

  void Add(GE_POINT a, GE_POINT b) {
    if (empty) {
      lo = a;
      hi = b;
      empty = false;
      return;
    }
    lo = {std::min(lo.x, a.x), std::min(lo.y, a.y)};
    hi = {std::max(hi.x, b.x), std::max(hi.y, b.y)};
  }
};

Box PanelBox(const SvgPanel &panel) {
  Box box;
  for (const SvgLayer &layer : panel.layers) {
    for (const LI_TAB_STRUCT *k : layer.contours) {
      if (k == nullptr) continue;
      GE_POINT lo, hi;
      LiKontRealBox(k, &lo, &hi);
      box.Add(lo, hi);
    }
  }
  return box;
}

// Maps the drawing's coordinates (less origin) to pixels:
// X = scale * x + tx, Y = -scale * y + ty.
struct View {
  double scale = 1;
  GE_POINT origin{0, 0};
  double tx = 0, ty = 0;

  std::string Transform() const {
    return "matrix(" + FormatNumber(scale) + " 0 0 " + FormatNumber(-scale) + ' ' +
           FormatNumber(tx) + ' ' + FormatNumber(ty) + ')';
  }
  double World(double pixels) const { return pixels / scale; }
};

// Room around the box: a twentieth of its larger side on every side.
double Margin(const Box &box) {
  const double extent = std::max(box.hi.x - box.lo.x, box.hi.y - box.lo.y);
  return extent > 0 ? extent * 0.05 : 1;
}

// Height of the drawing for its width: the box's proportions within limits
// that keep a panel neither a sliver nor a tower.
double DrawingHeight(const Box &box, double width) {
  if (box.empty) return width * 0.5;
  const double m = Margin(box);
  const double aspect = (box.hi.y - box.lo.y + 2 * m) / (box.hi.x - box.lo.x + 2 * m);
  return width * std::clamp(aspect, 0.35, 1.0);
}

View FitView(const Box &box, const Frame &frame) {
  View view;
  if (box.empty) return view;
  const double m = Margin(box);
  const double w = box.hi.x - box.lo.x + 2 * m, h = box.hi.y - box.lo.y + 2 * m;
  view.scale = std::min(frame.width / w, frame.height / h);
  const GE_POINT centre{(box.lo.x + box.hi.x) * 0.5, (box.lo.y + box.hi.y) * 0.5};
  // Far from the origin, coordinates are written relative to the centre so
  // that renderers that work in single precision keep the detail.
  if (std::max(std::fabs(centre.x), std::fabs(centre.y)) > 100 * std::max(w, h)) {
    view.origin = centre;
  }
  view.tx = frame.x + frame.width * 0.5 - view.scale * (centre.x - view.origin.x);
  view.ty = frame.y + frame.height * 0.5 + view.scale * (centre.y - view.origin.y);
  return view;
}

// ---- Drawing ----------------------------------------------------------------

std::string Circle(GE_POINT c, const View &view, double radius_px, const char *fill) {
  return "<circle cx=\"" + FormatNumber(c.x - view.origin.x) + "\" cy=\"" +
         FormatNumber(c.y - view.origin.y) + "\" r=\"" + Px(view.World(radius_px)) + "\" fill=\"" +
         fill + "\"/>\n";
}

// The middle of an element and its direction of travel there.
bool MiddleAndDirection(const LI_TAB_STRUCT *e, GE_POINT &middle, GE_POINT &direction) {
  if (IsFullCircle(e)) {
    middle = OppositeOnCircle(e);
  } else {
    GeElemMpt(e, &middle);
  }
  if (GePtElemTan(e, &middle, &direction) != PA_OK) return false;
  const double n = std::hypot(direction.x, direction.y);
  if (!(n > 0)) return false;
  direction = {direction.x / n, direction.y / n};
  return true;
}

std::string Arrow(const LI_TAB_STRUCT *e, const View &view, const char *colour) {
  GE_POINT m, t;
  if (e->type == LI_MOVE || !MiddleAndDirection(e, m, t)) return "";
  const double l = view.World(kArrowLength) * 0.5, w = view.World(kArrowHalfWidth);
  const GE_POINT o = view.origin;
  const GE_POINT tip{m.x + t.x * l, m.y + t.y * l};
  const GE_POINT left{m.x - t.x * l - t.y * w, m.y - t.y * l + t.x * w};
  const GE_POINT right{m.x - t.x * l + t.y * w, m.y - t.y * l - t.x * w};
  auto point = [&](GE_POINT p) { return FormatNumber(p.x - o.x) + ' ' + FormatNumber(p.y - o.y); };
  return "<path d=\"M " + point(tip) + " L " + point(left) + " L " + point(right) + " Z\" fill=\"" +
         colour + "\"/>\n";
}

// The fill of the closed contours, even-odd so that holes stay empty. A
// path cannot be cut without changing what it fills, so when the exact
// outlines are too long for one path they are drawn to within kFillStep
// pixels (hidden under the stroke), which bounds their length by the
// outlines' length in pixels; an outline still too long (one that zigzags
// at every pixel) is left unfilled.
std::vector<std::string> Fills(const std::vector<const LI_TAB_STRUCT *> &closed, const View &view) {
  const std::size_t whole = std::numeric_limits<std::size_t>::max();
  std::vector<std::string> data;
  std::size_t size = 0;
  for (const LI_TAB_STRUCT *k : closed) {
    data.push_back(PathPieces(k, view.origin, whole).front());
    size += data.back().size() + 1;
  }
  if (size > kSvgMaxPathData) {
    const Detail coarse = Detail::Coarse(view.World(kFillStep));
    for (std::size_t i = 0; i < closed.size(); ++i) {
      data[i] = PathPieces(closed[i], view.origin, whole, coarse).front();
      if (data[i].size() > kSvgMaxPathData) data[i].clear();
    }
  }
  std::vector<std::string> paths;
  for (std::string &d : data) Pack(paths, std::move(d));
  return paths;
}

std::string Layer(const SvgLayer &layer, const char *colour, const View &view, bool marks) {
  std::vector<std::string> strokes;
  std::vector<const LI_TAB_STRUCT *> closed;
  std::string extra;
  for (const LI_TAB_STRUCT *k : layer.contours) {
    if (k == nullptr) continue;
    for (std::string &piece : PathPieces(k, view.origin, kSvgMaxPathData / 2)) {
      Pack(strokes, std::move(piece));
    }
    if (Closed(k)) closed.push_back(k);
    const LI_TAB_STRUCT *e = k;
    do {
      if (layer.vertices && e->type != LI_MOVE) {
        extra += Circle(e->ap, view, kVertexDot, colour);
        if (e->next == k) extra += Circle(e->ep, view, kVertexDot, colour);
      }
      // The dots of a polyline already show its pieces; arrows on each
      // would only clutter it.
      if (marks && !layer.vertices) extra += Arrow(e, view, colour);
    } while ((e = e->next) != k);
    if (marks) extra += Circle(k->ap, view, kStartDot, colour);
  }
  std::string svg;
  if (!(layer.fill > 0)) closed.clear();
  for (const std::string &fill : Fills(closed, view)) {
    svg += "<path d=\"" + fill + "\" fill=\"" + colour + "\" fill-opacity=\"" + Px(layer.fill) +
           "\" fill-rule=\"evenodd\" stroke=\"none\"/>\n";
  }
  // Round joins and caps: where a long outline is cut into several paths
  // the cut looks like any other joint.
  for (const std::string &stroke : strokes) {
    svg += "<path d=\"" + stroke + "\" fill=\"none\" stroke=\"" + colour + "\" stroke-width=\"" +
           Px(view.World(kStroke)) + "\" stroke-linejoin=\"round\" stroke-linecap=\"round\"/>\n";
  }
  return svg + extra;
}

// The coordinate axes, faintly, where they cross the frame.
std::string Axes(const View &view, const Frame &frame) {
  std::string svg;
  const double x0 = view.tx - view.scale * view.origin.x;  // pixel column of x = 0
  const double y0 = view.ty + view.scale * view.origin.y;  // pixel row of y = 0
  const std::string style = "\" stroke=\"#c8c8c8\" stroke-width=\"1\"/>\n";
  if (y0 > frame.y && y0 < frame.y + frame.height) {
    svg += "<line x1=\"" + Px(frame.x) + "\" y1=\"" + Px(y0) + "\" x2=\"" +
           Px(frame.x + frame.width) + "\" y2=\"" + Px(y0) + style;
  }
  if (x0 > frame.x && x0 < frame.x + frame.width) {
    svg += "<line x1=\"" + Px(x0) + "\" y1=\"" + Px(frame.y) + "\" x2=\"" + Px(x0) + "\" y2=\"" +
           Px(frame.y + frame.height) + style;
  }
  return svg;
}

std::string Text(double x, double y, const std::string &text, const char *extra = "") {
  return "<text x=\"" + Px(x) + "\" y=\"" + Px(y) + "\"" + extra + ">" + Xml(text) + "</text>\n";
}

// A layer is filled when it holds a closed contour and has a fill; its
// swatch shows that.
bool Filled(const SvgLayer &layer) {
  if (!(layer.fill > 0)) return false;
  for (const LI_TAB_STRUCT *k : layer.contours) {
    if (k != nullptr && Closed(k)) return true;
  }
  return false;
}

std::string Legend(const SvgPanel &panel, double x, double y, bool marks) {
  std::string svg;
  for (std::size_t i = 0; i < panel.layers.size(); ++i, y += kLegendLine) {
    const std::string colour = Colour(i);
    if (Filled(panel.layers[i])) {
      svg += "<rect x=\"" + Px(x) + "\" y=\"" + Px(y - 9) +
             "\" width=\"16\" height=\"10\" fill=\"" + colour + "\" fill-opacity=\"" +
             Px(panel.layers[i].fill) + "\" stroke=\"" + colour + "\" stroke-width=\"1.6\"/>\n";
    } else {
      svg += "<line x1=\"" + Px(x) + "\" y1=\"" + Px(y - 4) + "\" x2=\"" + Px(x + 16) + "\" y2=\"" +
             Px(y - 4) + "\" stroke=\"" + colour + "\" stroke-width=\"1.6\"/>\n";
    }
    svg += Text(x + 24, y, panel.layers[i].label);
  }
  if (marks && !panel.layers.empty()) {
    svg += "<circle cx=\"" + Px(x + 8) + "\" cy=\"" + Px(y - 4) + "\" r=\"3.5\" fill=\"#555\"/>\n";
    svg += Text(x + 24, y, "start point, direction of travel");
  }
  return svg;
}

std::string BoxCaption(const Box &box) {
  if (box.empty) return "no contours";
  return "x " + FormatShort(box.lo.x) + " to " + FormatShort(box.hi.x) + ", y " +
         FormatShort(box.lo.y) + " to " + FormatShort(box.hi.y);
}

// What lines up across a row of panels: each panel gets the drawing height
// of the row's tallest, so that frames, captions and legends align.
struct RowLayout {
  double title = 0;  // 0 when no panel of the row has a title
  double drawing = 0;
  double legend = 0;

  double Height() const { return kPad + title + drawing + kCaptionHeight + legend + kPad; }
};

RowLayout LayoutRow(const SvgPanel *first, const SvgPanel *last, const SvgOptions &options) {
  RowLayout row;
  for (const SvgPanel *panel = first; panel != last; ++panel) {
    if (!panel->title.empty()) row.title = kTitleHeight;
    row.drawing =
        std::max(row.drawing, DrawingHeight(PanelBox(*panel), options.panel_width - 2 * kPad));
    const std::size_t lines =
        panel->layers.size() + (options.marks && !panel->layers.empty() ? 1 : 0);
    row.legend = std::max(row.legend, static_cast<double>(lines) * kLegendLine);
  }
  return row;
}

std::string Panel(const SvgPanel &panel, const SvgOptions &options, const RowLayout &row,
                  double left, double top) {
  const Box box = PanelBox(panel);
  std::string svg;
  if (!panel.title.empty()) {
    svg +=
        Text(left + kPad, top + kPad + 15, panel.title, " font-size=\"15\" font-weight=\"bold\"");
  }
  const Frame frame{left + kPad, top + kPad + row.title, options.panel_width - 2 * kPad,
                    row.drawing};
  const View view = FitView(box, frame);
  svg += "<rect x=\"" + Px(frame.x) + "\" y=\"" + Px(frame.y) + "\" width=\"" + Px(frame.width) +
         "\" height=\"" + Px(frame.height) + "\" fill=\"none\" stroke=\"#e4e4e4\"/>\n";
  svg += Axes(view, frame);
  svg += "<g transform=\"" + view.Transform() + "\">\n";
  for (std::size_t i = 0; i < panel.layers.size(); ++i) {
    svg += Layer(panel.layers[i], Colour(i), view, options.marks);
  }
  svg += "</g>\n";
  const double y = frame.y + frame.height + kCaptionHeight;
  svg += Text(left + kPad, y - 5, BoxCaption(box), " fill=\"#888\" font-size=\"11\"");
  return svg + Legend(panel, left + kPad, y + 12, options.marks);
}

}  // namespace

std::string SvgPathData(const LI_TAB_STRUCT *k, GE_POINT origin) {
  return PathPieces(k, origin, std::numeric_limits<std::size_t>::max()).front();
}

std::string RenderSvg(const std::vector<SvgPanel> &panels, const SvgOptions &options) {
  const std::size_t columns = static_cast<std::size_t>(std::max(1, options.columns));
  std::string body;
  double top = 0;
  for (std::size_t first = 0; first < panels.size(); first += columns) {
    const std::size_t last = std::min(first + columns, panels.size());
    const RowLayout row = LayoutRow(&panels[first], panels.data() + last, options);
    for (std::size_t i = first; i < last; ++i) {
      body +=
          Panel(panels[i], options, row, static_cast<double>(i - first) * options.panel_width, top);
    }
    top += row.Height();
  }
  const std::size_t used = std::min<std::size_t>(columns, std::max<std::size_t>(panels.size(), 1));
  const double width = static_cast<double>(used) * options.panel_width;
  const double height = std::max(top, 1.0);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
         Px(width) + "\" height=\"" + Px(height) + "\" viewBox=\"0 0 " + Px(width) + ' ' +
         Px(height) + "\" font-family=\"sans-serif\" font-size=\"12\" fill=\"#333\">\n" +
         "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n" + body + "</svg>\n";
}

}  // namespace polyarc_tool
