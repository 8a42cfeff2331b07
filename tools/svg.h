// SVG pictures of contours, exact to the geometry: arcs are SVG arc
// commands in the contours' own coordinates, a transform turns the y axis
// up and fits the drawing into its panel, and line widths and marks are
// sized in pixels so that they read the same at any scale.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "polyarc/li.h"

namespace polyarc_tool {

// Contours drawn in one colour under one legend entry.
struct SvgLayer {
  std::string label;
  std::vector<const LI_TAB_STRUCT *> contours;
  bool vertices = false;  // a dot at every vertex (and no direction arrows)
  double fill = 0.12;     // opacity of the closed contours' fill; 0 draws outlines only
};

// One picture with a title, its layers and a legend. Panels are laid out
// in a grid.
struct SvgPanel {
  std::string title;
  std::vector<SvgLayer> layers;
};

struct SvgOptions {
  bool marks = false;        // each contour's start point and direction of travel
  int columns = 1;           // panels per row
  double panel_width = 640;  // pixels
};

// The path data of a contour in its own coordinates, less origin: "M" to
// the start, "L" for lines, "A rx ry 0 large sweep x y" for arcs (sweep 1
// counter-clockwise, since the y axis points up), two half arcs for a
// full circle, "M" again after a move or a gap, and "Z" when the contour
// is closed. Coordinates read back exactly.
std::string SvgPathData(const LI_TAB_STRUCT *k, GE_POINT origin = {0, 0});

// The longest path data that the picture puts in one path element, in
// characters. Common readers fail on long paths (rsvg-convert on some of a
// few hundred kilobytes among others), so a long outline is drawn as
// several paths.
constexpr std::size_t kSvgMaxPathData = 1 << 16;

// A whole SVG document. A panel without contours shows an empty frame.
// Every path element holds at most about kSvgMaxPathData characters of
// path data: strokes are cut at element ends, and fills too long for that
// are drawn to within half a pixel instead of exactly (or, when even that
// is too long, left out).
std::string RenderSvg(const std::vector<SvgPanel> &panels, const SvgOptions &options);

}  // namespace polyarc_tool
