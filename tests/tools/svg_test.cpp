// SVG output: path commands and sweep flags of known shapes, and the fit
// of the drawing into the picture.
#include "svg.h"

#include <cmath>
#include <regex>
#include <tuple>

#include "support/support.h"

namespace polyarc_tool {
namespace {

using polyarc_test::Store;

constexpr double kPi = 3.141592653589793;

LI_TAB_STRUCT *Circle(LI_HEAD *store, GE_POINT centre, double r, uint16_t dir) {
  LI_TAB_STRUCT *k = nullptr;
  EXPECT_EQ(LiNew(store, &k), PA_OK);
  EXPECT_EQ(LiCreateCircle(&centre, r, dir, k), PA_OK);
  return k;
}

TEST(Svg, PathDataOfKnownShapes) {
  Store store;
  // The y axis points up, so counter-clockwise is the sweep flag 1.
  EXPECT_EQ(SvgPathData(Circle(store.get(), {0, 0}, 1, 1)),
            "M 1 0 A 1 1 0 0 1 -1 0 A 1 1 0 0 1 1 0 Z");
  EXPECT_EQ(SvgPathData(Circle(store.get(), {2, 3}, 0.5, 2), {2, 3}),
            "M 0.5 0 A 0.5 0.5 0 0 0 -0.5 0 A 0.5 0.5 0 0 0 0.5 0 Z")
      << "clockwise, coordinates less the origin";
  LI_TAB_STRUCT *round = nullptr, *k = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &round, 2, 1, 0.5), PA_OK);
  EXPECT_EQ(SvgPathData(round),
            "M -1.5 1 L 1.5 1 A 0.5 0.5 0 0 0 2 0.5 L 2 -0.5 A 0.5 0.5 0 0 0 1.5 -1 "
            "L -1.5 -1 A 0.5 0.5 0 0 0 -2 -0.5 L -2 0.5 A 0.5 0.5 0 0 0 -1.5 1 Z");

  const GE_POINT start{2, 0}, down{0, -2}, centre{0, 0}, up{0, 2}, left{-2, 0};
  ASSERT_EQ(LiMove(store.get(), &k, &start), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &down, &centre, 0), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &up, &centre, 1), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &left, &centre, 1), PA_OK);
  // 270 degrees counter-clockwise, half a turn clockwise, 270 degrees
  // clockwise; the ends differ, so no Z.
  EXPECT_EQ(SvgPathData(k), "M 2 0 A 2 2 0 1 1 0 -2 A 2 2 0 0 0 0 2 A 2 2 0 1 0 -2 0");

  LI_TAB_STRUCT *runs = polyarc_test::Polyline(store.get(), {{0, 0}, {1, 0}});
  const GE_POINT a{0, 0}, c{5, 5}, d{6, 5};
  ASSERT_EQ(LiMove(store.get(), &runs, &c), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &runs, &d), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &runs, &a), PA_OK);
  EXPECT_EQ(SvgPathData(runs), "M 0 0 L 1 0 M 5 5 L 6 5 L 0 0") << "a move lifts the pen";
  EXPECT_EQ(SvgPathData(nullptr), "");
}

TEST(Svg, TheViewBoxHoldsEveryElementWithAMargin) {
  Store store;
  LI_TAB_STRUCT *round = nullptr, *arc = nullptr;
  ASSERT_EQ(LiCreateRound(store.get(), &round, 2, 1, 0.5), PA_OK);
  const GE_POINT start{-3, 0}, end{-3, -2}, centre{-3, -1};
  ASSERT_EQ(LiMove(store.get(), &arc, &start), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &arc, &end, &centre, 1), PA_OK);  // bulges right to x = -2
  const SvgLayer layers[] = {{"a", {round, Circle(store.get(), {3, 2}, 1.5, 1)}, false},
                             {"b", {arc}, true}};
  const std::string svg = RenderSvg({{"fit", {layers[0], layers[1]}}}, SvgOptions{});
  std::smatch m;
  const std::regex fit(
      "viewBox=\"0 0 (\\S+) ([^\"]+)\"[\\s\\S]*matrix\\((\\S+) 0 0 (\\S+) (\\S+) ([^ )]+)\\)");
  ASSERT_TRUE(std::regex_search(svg, m, fit));
  const double width = std::stod(m[1]), height = std::stod(m[2]), scale = std::stod(m[3]);
  const double tx = std::stod(m[5]), ty = std::stod(m[6]);
  EXPECT_EQ(std::stod(m[4]), -scale) << "y points up";
  // The real box is x -3 to 4.5, y -2 to 3.5; the margin is a twentieth of
  // 7.5 on every side, and the wider side fills the frame.
  const double margin = 7.5 / 20 * scale;
  EXPECT_GT(-3 * scale + tx, margin);
  EXPECT_LT(4.5 * scale + tx, width - margin);
  EXPECT_GT(-3.5 * scale + ty, margin);
  EXPECT_LT(2 * scale + ty, height - margin);
  EXPECT_NEAR(7.5 * scale + 2 * margin, 640 - 2 * 12, 1e-9);
  EXPECT_NE(svg.find("A 1 1 0 0 0 -3 -2"), std::string::npos) << "arcs stay arcs";
}

// The path data of every path element, with its fill attribute (without
// std::regex, whose recursion overflows the stack on long paths).
std::vector<std::pair<std::string, std::string>> Paths(const std::string &svg) {
  std::vector<std::pair<std::string, std::string>> paths;
  const std::string start = "<path d=\"", fill = "\" fill=\"";
  for (auto at = svg.find(start); at != std::string::npos; at = svg.find(start, at + 1)) {
    const auto data = at + start.size(), data_end = svg.find(fill, data);
    const auto colour = data_end + fill.size();
    paths.emplace_back(svg.substr(data, data_end - data),
                       svg.substr(colour, svg.find('"', colour) - colour));
  }
  return paths;
}

std::size_t Count(const std::string &text, const std::string &what) {
  std::size_t n = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

// A 100,000-gon about (0, 0): a circle of radius 100, or with odd
// vertices at radius 101 a zigzag.
LI_TAB_STRUCT *HundredThousandGon(LI_HEAD *store, double odd_radius) {
  LI_TAB_STRUCT *k = nullptr;
  const int n = 100000;
  for (int i = 0; i <= n; ++i) {
    const double a = 2 * kPi * (i % n) / n, r = i % 2 ? odd_radius : 100;
    const GE_POINT p{r * std::cos(a), r * std::sin(a)};
    EXPECT_EQ(i == 0 ? LiMove(store, &k, &p) : LiDraw(store, &k, &p), PA_OK);
  }
  return k;
}

// A long outline is stroked in pieces that together hold each of its
// lines once, and filled by one path that follows it to half a pixel.
TEST(Svg, LongOutlinesAreCutIntoPathsOfBoundedLength) {
  Store store;
  // The circle spans 2.8 pixels a unit (616 pixels for 200 units and two
  // margins of 10), so its 1759 pixels of outline need fewer than 4000
  // points at one every half pixel. The zigzag's teeth are 2.8 pixels
  // deep and 0.017 apart: no outline within half a pixel is shorter, so
  // it is not filled.
  const std::tuple<double, std::size_t, std::size_t> cases[] = {{100, 1, 4000}, {101, 0, 0}};
  for (const auto &[odd_radius, fills_expected, fill_lines_below] : cases) {
    SCOPED_TRACE(odd_radius);
    LI_TAB_STRUCT *k = HundredThousandGon(store.get(), odd_radius);
    const std::string svg = RenderSvg({{"long", {{"long", {k}, false}}}}, SvgOptions{});
    std::size_t lines = 0, fills = 0;
    for (const auto &[data, fill] : Paths(svg)) {
      EXPECT_LT(data.size(), kSvgMaxPathData + 100);
      EXPECT_EQ(data.rfind("M ", 0), 0u);
      if (fill == "none") {
        lines += Count(data, " L ");
        continue;
      }
      ++fills;
      EXPECT_EQ(data.back(), 'Z');
      EXPECT_LT(Count(data, " L "), fill_lines_below);
    }
    EXPECT_EQ(lines, 100000u);
    EXPECT_EQ(fills, fills_expected);
  }
}

TEST(Svg, DegenerateDrawingsLegendsAndMarks) {
  Store store;
  LI_TAB_STRUCT *line = polyarc_test::Polyline(store.get(), {{0, 5}, {10, 5}});
  LI_TAB_STRUCT *point = nullptr;
  const GE_POINT p{1, 1};
  ASSERT_EQ(LiMove(store.get(), &point, &p), PA_OK);
  const std::string svg = RenderSvg({{"flat", {{"x < 1 & \"y\"", {line}, false}}},
                                     {"point", {{"p", {point}, false}}},
                                     {"empty", {}}},
                                    SvgOptions{true, 2});
  for (const char *bad : {"nan", "inf"}) EXPECT_EQ(svg.find(bad), std::string::npos) << bad;
  EXPECT_NE(svg.find(">x &lt; 1 &amp; &quot;y&quot;</text>"), std::string::npos);
  EXPECT_NE(svg.find("width=\"1280\""), std::string::npos) << "two columns of 640 pixels";
  EXPECT_NE(svg.find("<circle cx=\"0\" cy=\"5\""), std::string::npos) << "a mark at the start";
}

}  // namespace
}  // namespace polyarc_tool
