// polyarc union, intersection and difference in-process: areas known by hand, the region when
// nothing crosses, block choice, the written result read back, and the errors.
#include <cmath>
#include <tuple>

#include "operation_support.h"

namespace polyarc_tool {
namespace {

constexpr double kPi = 3.141592653589793;

const char kUnit[] = "0 0\n1 0\n1 1\n0 1\n";
const char kShifted[] = "0.5 0.5\n1.5 0.5\n1.5 1.5\n0.5 1.5\n";  // kUnit moved by (0.5, 0.5)

TEST(BooleanCommand, RegionsKnownByHand) {
  const auto dir = ScratchDir();
  const std::string unit = WriteText(dir, "unit.txt", kUnit);
  const std::string shifted = WriteText(dir, "shifted.txt", kShifted);
  const std::string two = WriteText(dir, "two.txt", std::string(kUnit) + "\n" + kShifted);
  const std::string far = WriteText(dir, "far.txt", "2 0\n3 0\n3 1\n2 1\n");
  const std::string side = WriteText(dir, "side.txt", "1 0\n2 0\n2 1\n1 1\n");  // unit's right
  // A clockwise square of side 2 about the origin and the unit circle touching it inside.
  const std::string square = WriteText(dir, "square.txt", "-1 -1\n-1 1\n1 1\n1 -1\n");
  const std::string circle = WriteText(dir, "circle.txt", "-1 0 1\n1 0 1\n");
  const double none = std::nan("");
  // command line, loops, total area (NaN: none printed), a part of the report
  const std::vector<std::tuple<std::vector<std::string>, int, double, std::string>> cases = {
      {{"union", unit, shifted}, 1, 1.75, ""},
      {{"intersection", unit, shifted}, 1, 0.25, ""},
      {{"difference", unit, shifted}, 1, 0.75, ""},
      {{"union", two, two, "--a", "1", "--b", "2"},
       1,
       1.75,
       " (block 1) and " + two + " (block 2)"},
      {{"difference", two, two, "--a=2", "--b=1"}, 1, 0.75, ""},
      {{"union", square, circle}, 1, 4, "no crossing: B lies inside A; the union is A\n"},
      {{"intersection", square, circle}, 1, kPi, "the intersection is B\n"},
      {{"difference", square, circle}, 2, 4 - kPi, "A - B is A with B as its hole\n"},
      {{"union", circle, square}, 1, 4, "no crossing: A lies inside B; the union is B\n"},
      {{"difference", circle, square}, 0, none, "A - B is empty\n"},
      {{"union", unit, far}, 2, 2, "A and B lie apart; the union is A and B\n"},
      {{"intersection", unit, far}, 0, none, "the intersection is empty\n"},
      {{"difference", unit, far}, 1, 1, "A - B is A\n"},
      {{"intersection", unit, side}, 0, none, "(A and B only share boundary)"},
  };
  for (const auto &[args, loops, area, line] : cases) {
    const RunResult r = Polyarc(args);
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(ReportedLoops(r.out), loops) << r.out;
    EXPECT_NE(r.out.find(line), std::string::npos) << r.out;
    const double total = Reported(r.out, "total area");
    EXPECT_TRUE(std::isnan(area) ? std::isnan(total) : std::fabs(total - area) < 1e-9) << r.out;
  }
  // The ring read back: the outer loop counter-clockwise, the hole clockwise.
  const std::string out = (dir / "ring.txt").string();
  ASSERT_EQ(Polyarc({"difference", square, circle, "-o", out}).code, 0);
  const auto areas = AreasInFile(out);
  ASSERT_EQ(areas.size(), 2u);
  EXPECT_NEAR(areas[0], 4, 1e-12);
  EXPECT_NEAR(areas[1], -kPi, 1e-12);
}

TEST(BooleanCommand, UsageErrorsAndRefusals) {
  const auto dir = ScratchDir();
  const std::string unit = WriteText(dir, "unit.txt", kUnit);
  const std::string two = WriteText(dir, "two.txt", std::string(kUnit) + "\n" + kShifted);
  const std::string open = WriteText(dir, "open.txt", std::string("open\n") + kUnit);
  const std::string bowtie = WriteText(dir, "bowtie.txt", "0 0\n2 2\n2 0\n0 2\n");
  const std::string flat = WriteText(dir, "flat.txt", "0 0\n1 0\n");
  ExpectRefusals({
      {{"union", unit}, 2, "two files needed (A.txt B.txt)"},
      {{"union", two, unit}, 2, "two.txt holds 2 blocks: choose one with --a N"},
      {{"union", unit, two}, 2, "two.txt holds 2 blocks: choose one with --b N"},
      {{"union", unit, two, "--b", "3"}, 1, "two.txt: no block 3 (the text has 2 blocks)"},
      {{"difference", open, unit}, 1, "A is open; Boolean operations need closed contours"},
      {{"intersection", unit, bowtie}, 1, "B meets itself at (1, 1); Boolean operations need"},
      // A contour there and back along a side has no inside: the library refuses it.
      {{"union", flat, unit}, 1, "the union failed: out of memory, or an impossible"},
  });
}

}  // namespace
}  // namespace polyarc_tool
