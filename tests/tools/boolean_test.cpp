// polyarc union, intersection and difference in-process: areas known by
// hand, the region drawn when nothing crosses, the written result read
// back, block choice, and the errors.
#include <cmath>
#include <tuple>

#include "operation_support.h"

namespace polyarc_tool {
namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kPrinted = 1e-9;  // the report prints ten significant digits

const char kUnit[] = "0 0\n1 0\n1 1\n0 1\n";
const char kShifted[] = "0.5 0.5\n1.5 0.5\n1.5 1.5\n0.5 1.5\n";  // kUnit moved by (0.5, 0.5)
const char kFar[] = "2 0\n3 0\n3 1\n2 1\n";                      // kUnit moved by 2 along x
const char kNeighbour[] = "1 0\n2 0\n2 1\n1 1\n";                // shares kUnit's right side
const char kSquare[] = "-1 -1\n1 -1\n1 1\n-1 1\n";               // side 2 about the origin
const char kClockwiseSquare[] = "-1 -1\n-1 1\n1 1\n1 -1\n";
const char kCircle[] = "-1 0 1\n1 0 1\n";  // radius 1 about the origin, touching kSquare
const char kBowtie[] = "0 0\n2 2\n2 0\n0 2\n";

TEST(BooleanCommand, RegionsKnownByHand) {
  const auto dir = ScratchDir();
  const char *none = "";
  // A, B, command, loops, total area (NaN: none printed), a line of the report
  const std::tuple<const char *, const char *, const char *, int, double, const char *> cases[] = {
      {kUnit, kShifted, "union", 1, 1.75, none},
      {kUnit, kShifted, "intersection", 1, 0.25, none},
      {kUnit, kShifted, "difference", 1, 0.75, none},
      {kSquare, kCircle, "union", 1, 4, "no crossing: B lies inside A; the union is A\n"},
      {kSquare, kCircle, "intersection", 1, kPi, "the intersection is B\n"},
      {kSquare, kCircle, "difference", 2, 4 - kPi, "A - B is A with B as its hole\n"},
      {kCircle, kClockwiseSquare, "union", 1, 4, "no crossing: A lies inside B; the union is B\n"},
      {kCircle, kSquare, "intersection", 1, kPi, "the intersection is A\n"},
      {kCircle, kSquare, "difference", 0, std::nan(""), "A - B is empty\n"},
      {kUnit, kFar, "union", 2, 2, "no crossing: A and B lie apart; the union is A and B\n"},
      {kUnit, kFar, "intersection", 0, std::nan(""), "the intersection is empty\n"},
      {kUnit, kFar, "difference", 1, 1, "A - B is A\n"},
      {kUnit, kNeighbour, "union", 1, 2, none},
      {kUnit, kNeighbour, "intersection", 0, std::nan(""), "(A and B only share boundary)"},
  };
  for (const auto &[a, b, command, loops, area, line] : cases) {
    const RunResult r = Polyarc({command, WriteText(dir, "a.txt", a), WriteText(dir, "b.txt", b)});
    const std::string what = std::string(command) + " of\n" + a + "and\n" + b;
    ASSERT_EQ(r.code, 0) << what << r.err;
    EXPECT_EQ(ReportedLoops(r.out), loops) << what << r.out;
    EXPECT_NE(r.out.find(line), std::string::npos) << what << r.out;
    const double total = Reported(r.out, "total area");
    if (std::isnan(area)) {
      EXPECT_TRUE(std::isnan(total)) << what << r.out;
    } else {
      EXPECT_NEAR(total, area, kPrinted * area) << what << r.out;
    }
  }
}

TEST(BooleanCommand, TheWrittenRegionReadsBackWithItsHole) {
  const auto dir = ScratchDir();
  const std::string out = (dir / "out.txt").string(), svg = (dir / "out.svg").string();
  // The input's orientation does not matter: outer loop ccw, hole cw.
  for (const char *square : {kSquare, kClockwiseSquare}) {
    const RunResult r = Polyarc({"difference", WriteText(dir, "a.txt", square),
                                 WriteText(dir, "b.txt", kCircle), "-o", out, "--svg", svg});
    ASSERT_EQ(r.code, 0) << r.err;
    const auto areas = AreasInFile(out);
    ASSERT_EQ(areas.size(), 2u);
    EXPECT_NEAR(areas[0], 4, 1e-12) << "the square";
    EXPECT_NEAR(areas[1], -kPi, 1e-12) << "the circle, a hole";
  }
  std::ifstream picture(svg);
  const std::string drawn((std::istreambuf_iterator<char>(picture)), {});
  EXPECT_NE(drawn.find("fill-rule=\"evenodd\""), std::string::npos);
  EXPECT_NE(drawn.find("A: " + (dir / "a.txt").string()), std::string::npos);
}

TEST(BooleanCommand, BlocksChosenWithAAndB) {
  const auto dir = ScratchDir();
  const std::string two = WriteText(dir, "two.txt", std::string(kUnit) + "\n" + kShifted);
  const std::string unit = WriteText(dir, "unit.txt", kUnit);
  // args, total area, the title
  const std::tuple<std::vector<std::string>, double, std::string> cases[] = {
      {{"union", two, two, "--a", "1", "--b", "2"}, 1.75, " (block 1) and " + two + " (block 2)"},
      {{"intersection", two, two, "--a=2", "--b=1"}, 0.25, two + " (block 2) and "},
      {{"difference", unit, two, "--b", "2"}, 0.75, "difference of " + unit + " and "},
  };
  for (const auto &[args, area, title] : cases) {
    const RunResult r = Polyarc(args);
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_NEAR(Reported(r.out, "total area"), area, kPrinted) << r.out;
    EXPECT_NE(r.out.find(title), std::string::npos) << r.out;
  }
}

TEST(BooleanCommand, UsageErrorsAndRefusals) {
  const auto dir = ScratchDir();
  const std::string unit = WriteText(dir, "unit.txt", kUnit);
  const std::string two = WriteText(dir, "two.txt", std::string(kUnit) + "\n" + kShifted);
  const std::string open = WriteText(dir, "open.txt", std::string("open\n") + kUnit);
  const std::string bowtie = WriteText(dir, "bowtie.txt", kBowtie);
  const std::string flat = WriteText(dir, "flat.txt", "0 0\n1 0\n");
  ExpectRefusals({
      {{"union", unit}, 2, "two files needed (A.txt B.txt)"},
      {{"union", unit, unit, unit}, 2, "two files only"},
      {{"union", two, unit}, 2, "two.txt holds 2 blocks: choose one with --a N"},
      {{"union", unit, two}, 2, "two.txt holds 2 blocks: choose one with --b N"},
      {{"union", unit, unit, "--a", "0"}, 2, "--a needs a block number from 1, not '0'"},
      {{"union", unit, two, "--b", "3"}, 1, "two.txt: no block 3 (the text has 2 blocks)"},
      {{"difference", open, unit}, 1, "A is open; Boolean operations need closed contours"},
      {{"intersection", unit, bowtie}, 1, "B meets itself at (1, 1); Boolean operations need"},
      // A contour there and back along a side has no inside: the library
      // refuses it.
      {{"union", flat, unit}, 1, "the union failed: out of memory, or an impossible"},
  });
}

}  // namespace
}  // namespace polyarc_tool
