// SVG pictures of contours, exact to the geometry: arcs are SVG arc
// commands in the contours' own coordinates, a transform turns the y axis
// up and fits the drawing into its panel, and line widths and marks are
// sized in pixels so that they read the same at any scale.
#pragma once

#include <string>
#include <vector>

#include "polyarc/li.h"

namespace polyarc_tool {

// Contours drawn in one colour under one legend entry.
struct SvgLayer {
  std::string label;
  std::vector<const LI_TAB_STRUCT *> contours;
  bool vertices = false;  // a dot at every vertex (and no direction arrows)
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

// A whole SVG document. A panel without contours shows an empty frame.
std::string RenderSvg(const std::vector<SvgPanel> &panels, const SvgOptions &options);

}  // namespace polyarc_tool
