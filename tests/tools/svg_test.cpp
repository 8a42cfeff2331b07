// SVG output: path commands and sweep flags of known shapes, and the fit
// of the drawing into the picture.
#include "svg.h"

#include <cstdio>
#include <regex>

#include "support/support.h"

namespace polyarc_tool {
namespace {

using polyarc_test::Elements;
using polyarc_test::Store;

// A contour holding one full circle from LiCreateCircle.
LI_TAB_STRUCT *Circle(LI_HEAD *store, GE_POINT centre, double r, uint16_t dir) {
  LI_TAB_STRUCT *k = nullptr;
  EXPECT_EQ(LiNew(store, &k), PA_OK);
  EXPECT_EQ(LiCreateCircle(&centre, r, dir, k), PA_OK);
  return k;
}

TEST(Svg, CirclesAreTwoHalfArcsWithTheSenseAsSweepFlag) {
  Store store;
  LI_TAB_STRUCT *ccw = Circle(store.get(), {0, 0}, 1, 1);
  EXPECT_EQ(SvgPathData(ccw), "M 1 0 A 1 1 0 0 1 -1 0 A 1 1 0 0 1 1 0 Z");
  LI_TAB_STRUCT *cw = Circle(store.get(), {2, 3}, 0.5, 2);
  EXPECT_EQ(SvgPathData(cw), "M 2.5 3 A 0.5 0.5 0 0 0 1.5 3 A 0.5 0.5 0 0 0 2.5 3 Z");
  EXPECT_EQ(SvgPathData(cw, {2, 3}), "M 0.5 0 A 0.5 0.5 0 0 0 -0.5 0 A 0.5 0.5 0 0 0 0.5 0 Z")
      << "coordinates less the origin";
  LiRemove(store.get(), &ccw);
  LiRemove(store.get(), &cw);
}

TEST(Svg, RoundedRectangleHasClockwiseCorners) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &k, 2, 1, 0.5), PA_OK);
  EXPECT_EQ(SvgPathData(k),
            "M -1.5 1 L 1.5 1 A 0.5 0.5 0 0 0 2 0.5 L 2 -0.5 A 0.5 0.5 0 0 0 1.5 -1 "
            "L -1.5 -1 A 0.5 0.5 0 0 0 -2 -0.5 L -2 0.5 A 0.5 0.5 0 0 0 -1.5 1 Z");
  LiRemove(store.get(), &k);
}

TEST(Svg, LargeArcsOpenContoursAndGaps) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT start{2, 0}, end{0, -2}, centre{0, 0}, back{0, 2};
  ASSERT_EQ(LiMove(store.get(), &k, &start), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &end, &centre, 0), PA_OK);
  EXPECT_EQ(SvgPathData(k), "M 2 0 A 2 2 0 1 1 0 -2") << "270 degrees counter-clockwise";
  ASSERT_EQ(LiArc(store.get(), &k, &back, &centre, 1), PA_OK);
  EXPECT_EQ(SvgPathData(k), "M 2 0 A 2 2 0 1 1 0 -2 A 2 2 0 0 0 0 2")
      << "then half a turn clockwise; the ends differ, so no Z";
  const GE_POINT left{-2, 0};
  ASSERT_EQ(LiArc(store.get(), &k, &left, &centre, 1), PA_OK);
  EXPECT_EQ(SvgPathData(k), "M 2 0 A 2 2 0 1 1 0 -2 A 2 2 0 0 0 0 2 A 2 2 0 1 0 -2 0")
      << "270 degrees clockwise";

  LI_TAB_STRUCT *runs = nullptr;
  const GE_POINT a{0, 0}, b{1, 0}, c{5, 5}, d{6, 5};
  ASSERT_EQ(LiMove(store.get(), &runs, &a), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &runs, &b), PA_OK);
  ASSERT_EQ(LiMove(store.get(), &runs, &c), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &runs, &d), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &runs, &a), PA_OK);
  EXPECT_EQ(SvgPathData(runs), "M 0 0 L 1 0 M 5 5 L 6 5 L 0 0") << "a move lifts the pen";
  EXPECT_EQ(SvgPathData(nullptr), "");
  LiRemove(store.get(), &k);
  LiRemove(store.get(), &runs);
}

struct Mapping {
  double width = 0, height = 0, scale = 0, tx = 0, ty = 0;
};

Mapping ParseMapping(const std::string &svg) {
  Mapping m;
  std::smatch match;
  EXPECT_TRUE(std::regex_search(svg, match, std::regex("viewBox=\"0 0 ([^ ]+) ([^\"]+)\"")));
  m.width = std::stod(match[1]);
  m.height = std::stod(match[2]);
  EXPECT_TRUE(std::regex_search(
      svg, match, std::regex("transform=\"matrix\\(([^ ]+) 0 0 ([^ ]+) ([^ ]+) ([^ )]+)\\)\"")));
  m.scale = std::stod(match[1]);
  EXPECT_EQ(std::stod(match[2]), -m.scale) << "y points up";
  m.tx = std::stod(match[3]);
  m.ty = std::stod(match[4]);
  return m;
}

TEST(Svg, TheDrawingFitsThePictureWithAMargin) {
  Store store;
  LI_TAB_STRUCT *round = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &round, 2, 1, 0.5), PA_OK);
  LI_TAB_STRUCT *circle = Circle(store.get(), {3, 2}, 1.5, 1);
  LI_TAB_STRUCT *arc = nullptr;
  const GE_POINT start{-3, 0}, end{-3, -2}, centre{-3, -1};
  ASSERT_EQ(LiMove(store.get(), &arc, &start), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &arc, &end, &centre, 1), PA_OK);  // bulges right to x = -2
  const SvgPanel panel{"fit", {{"a", {round, circle}, false}, {"b", {arc}, true}}};
  const std::string svg = RenderSvg({panel}, SvgOptions{});
  const Mapping m = ParseMapping(svg);
  // The real box is x -3 to 4.5, y -2 to 3.5; the margin is a twentieth of
  // 7.5 on every side.
  double lo_x = 1e9, hi_x = -1e9, lo_y = 1e9, hi_y = -1e9;
  for (LI_TAB_STRUCT *k : {round, circle, arc}) {
    for (const LI_TAB_STRUCT *e : Elements(k)) {
      GE_POINT lo, hi;
      LiElemRealBox(e, &lo, &hi);
      lo_x = std::min(lo_x, m.scale * lo.x + m.tx);
      hi_x = std::max(hi_x, m.scale * hi.x + m.tx);
      lo_y = std::min(lo_y, -m.scale * hi.y + m.ty);  // the top of the box is the smaller row
      hi_y = std::max(hi_y, -m.scale * lo.y + m.ty);
    }
  }
  const double margin = 7.5 / 20 * m.scale;
  EXPECT_GT(lo_x, margin);
  EXPECT_LT(hi_x, m.width - margin);
  EXPECT_GT(lo_y, margin);
  EXPECT_LT(hi_y, m.height - margin);
  EXPECT_NEAR(hi_x - lo_x, 7.5 * m.scale, 1e-9) << "the wider side fills the frame";
  EXPECT_NEAR(hi_x - lo_x + 2 * margin, 640 - 2 * 12, 1e-9);
  EXPECT_NE(svg.find("A 0.5 0.5 0 0 0 2 0.5"), std::string::npos) << "arcs stay arcs";
  EXPECT_NE(svg.find("A 1 1 0 0 0 -3 -2"), std::string::npos) << "the open half circle";
  LiRemove(store.get(), &round);
  LiRemove(store.get(), &circle);
  LiRemove(store.get(), &arc);
}

TEST(Svg, DegenerateDrawingsLegendsAndMarks) {
  Store store;
  LI_TAB_STRUCT *line = polyarc_test::Polyline(store.get(), {{0, 5}, {10, 5}});
  LI_TAB_STRUCT *point = nullptr;
  const GE_POINT p{1, 1};
  ASSERT_EQ(LiMove(store.get(), &point, &p), PA_OK);
  SvgOptions options;
  options.marks = true;
  options.columns = 2;
  const std::string svg = RenderSvg({{"flat", {{"x < 1 & \"y\"", {line}, false}}},
                                     {"point", {{"p", {point}, false}}},
                                     {"empty", {}}},
                                    options);
  for (const char *bad : {"nan", "inf"}) EXPECT_EQ(svg.find(bad), std::string::npos) << bad;
  EXPECT_NE(svg.find(">x &lt; 1 &amp; &quot;y&quot;</text>"), std::string::npos);
  EXPECT_NE(svg.find("width=\"1280\""), std::string::npos) << "two columns of 640 pixels";
  // A line gives one arrow in its middle pointing along +x, and a start dot.
  std::smatch match;
  ASSERT_TRUE(
      std::regex_search(svg, match, std::regex("<path d=\"M ([^ ]+) ([^ ]+) L [^\"]* Z\" fill=")));
  EXPECT_GT(std::stod(match[1]), 5) << "the arrow's tip lies ahead of the middle";
  EXPECT_EQ(std::stod(match[2]), 5);
  EXPECT_NE(svg.find("<circle cx=\"0\" cy=\"5\""), std::string::npos);
  LiRemove(store.get(), &line);
  LiRemove(store.get(), &point);
}

}  // namespace
}  // namespace polyarc_tool
