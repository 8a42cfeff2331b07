// polyarc offset and rect-offset in-process: areas known by hand, the
// distance check, the written result read back, and the errors.
#include <cmath>
#include <tuple>

#include "operation_support.h"

namespace polyarc_tool {
namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kPrinted = 1e-9;  // the report prints ten significant digits

const char kSquare[] = "0 0\n1 0\n1 1\n0 1\n";
const char kCircle[] = "0 0 1\n2 0 1\n";  // radius 1 about (1, 0), counter-clockwise
// Two 2 x 2 squares joined by a bar 1 wide.
const char kDumbbell[] = "0 0\n2 0\n2 0.5\n4 0.5\n4 0\n6 0\n6 2\n4 2\n4 1.5\n2 1.5\n2 2\n0 2\n";
// A 4 x 4 square with a 2 x 2 room whose door, a slit 0.2 wide, opens to the right.
const char kRoom[] = "0 0\n4 0\n4 1.9\n3 1.9\n3 1\n1 1\n1 3\n3 3\n3 2.1\n4 2.1\n4 4\n0 4\n";
// A 3 x 2 slot whose right end bulges out and whose left end bites in.
const char kSlot[] = "0 0\n3 0 1\n3 2\n0 2 -1\n";
const char kPath[] = "open\n0 0\n2 0 1\n4 0\n4 2 -0.5\n6 4\n";  // lines and arcs of both senses
const char kLine[] = "open\n0 0\n4 0\n";

TEST(OffsetCommand, AreasKnownByHand) {
  const auto dir = ScratchDir();
  using Args = std::vector<std::string>;
  // text, arguments after the file, loops, total area (NaN: none printed)
  const std::tuple<const char *, Args, int, double> cases[] = {
      {kSquare, {"-d", "0.5"}, 1, 1 + 4 * 0.5 + kPi * 0.25},
      {kSquare, {"-d", "0.5", "--corner", "sharp"}, 1, 4},
      {kSquare, {"-d", "-0.25", "--corner=sharp"}, 1, 0.25},         // a negative distance goes in
      {kSquare, {"-d", "0.5", "--corner", "gap"}, 1, std::nan("")},  // four lines apart
      {kSquare, {"-d", "0.6", "--side", "in"}, 0, std::nan("")},
      {kCircle, {"-d", "0.5"}, 1, kPi * 1.5 * 1.5},
      {kDumbbell, {"-d", "0.6", "--side", "in", "--corner", "sharp"}, 2, 2 * 0.8 * 0.8},
      {kRoom, {"-d", "0.2", "--corner", "sharp"}, 2, 4.4 * 4.4 - 1.6 * 1.6},
  };
  for (const auto &[text, args, loops, area] : cases) {
    Args all = {"offset", WriteText(dir, "in.txt", text)};
    all.insert(all.end(), args.begin(), args.end());
    const RunResult r = Polyarc(all);
    const std::string what = std::string(text) + args[1] + (args.size() > 2 ? args.back() : "");
    ASSERT_EQ(r.code, 0) << what << r.err;
    EXPECT_EQ(ReportedLoops(r.out), loops) << what << r.out;
    const double total = Reported(r.out, "total area");
    if (std::isnan(area)) {
      EXPECT_TRUE(std::isnan(total)) << what << r.out;
    } else {
      EXPECT_NEAR(total, area, kPrinted * std::fabs(area)) << what << r.out;
    }
  }
}

TEST(OffsetCommand, TheWrittenResultReadsBackWithItsAreas) {
  const auto dir = ScratchDir();
  const std::string room = WriteText(dir, "room.txt", kRoom), out = (dir / "out.txt").string();
  const std::string svg = (dir / "out.svg").string();
  const RunResult r =
      Polyarc({"offset", room, "-d", "0.2", "--corner", "sharp", "-o", out, "--svg", svg});
  ASSERT_EQ(r.code, 0) << r.err;
  const auto areas = AreasInFile(out);
  ASSERT_EQ(areas.size(), 2u);
  EXPECT_NEAR(areas[0], 4.4 * 4.4, 1e-12) << "the outer loop";
  EXPECT_NEAR(areas[1], -1.6 * 1.6, 1e-12) << "the room, a hole";
  std::ifstream picture(svg);
  const std::string drawn((std::istreambuf_iterator<char>(picture)), {});
  EXPECT_NE(drawn.find("fill-rule=\"evenodd\""), std::string::npos);
  EXPECT_NE(r.out.find("wrote " + out + "\nwrote " + svg + "\n"), std::string::npos) << r.out;

  // With the text on standard output the report goes to standard error.
  const RunResult piped =
      Polyarc({"offset", WriteText(dir, "sq.txt", kSquare), "-d", "0.5", "-o", "-"});
  EXPECT_EQ(piped.out.rfind("# offset of ", 0), 0u) << piped.out;
  EXPECT_NE(piped.err.find("total area: 3.785398163"), std::string::npos) << piped.err;
}

TEST(OffsetCommand, CheckMeasuresTheDistanceToTheSource) {
  const auto dir = ScratchDir();
  using Args = std::vector<std::string>;
  // Round corners and the open path's offsets keep the distance exactly.
  const std::tuple<const char *, Args> round[] = {
      {kSlot, {"-d", "0.3"}},
      {kPath, {"-d", "0.3", "--side", "left"}},
      {kPath, {"-d", "0.3", "--side", "right"}},
      {kDumbbell, {"-d", "0.6", "--side", "in"}},
  };
  for (const auto &[text, args] : round) {
    Args all = {"offset", WriteText(dir, "in.txt", text), "--check"};
    all.insert(all.end(), args.begin(), args.end());
    const RunResult r = Polyarc(all);
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_LT(Reported(r.out, "largest"), 1e-9) << text << r.out;
    EXPECT_LT(Reported(r.out, "largest off the corners"), 1e-9) << text << r.out;
  }
  // A sharp corner of a square offset by 0.5 lies 0.5 sqrt 2 from the source's corner.
  const RunResult sharp = Polyarc(
      {"offset", WriteText(dir, "sq.txt", kSquare), "-d", "0.5", "--corner", "sharp", "--check"});
  EXPECT_NEAR(Reported(sharp.out, "largest"), 0.5 * (std::sqrt(2.0) - 1), kPrinted) << sharp.out;
  EXPECT_NE(sharp.out.find(", at a corner"), std::string::npos);
  EXPECT_LT(Reported(sharp.out, "largest off the corners"), 1e-12) << sharp.out;
}

TEST(RectOffsetCommand, OutlinesKnownByHand) {
  const auto dir = ScratchDir();
  const std::string line = WriteText(dir, "line.txt", kLine);
  // A line of length 4 along x swept by a rectangle of half-sides 1, 2:
  // the line 2 above (left) or below, lengthened by 1 at both ends.
  for (const auto &[side, text] :
       {std::pair{"left", "open\n-1 2\n5 2\n"}, std::pair{"right", "open\n-1 -2\n5 -2\n"}}) {
    const RunResult r =
        Polyarc({"rect-offset", line, "--dx", "1", "--dy", "2", "--side", side, "-o", "-"});
    EXPECT_EQ(r.code, 0) << r.err;
    EXPECT_NE(r.out.find(text), std::string::npos) << r.out;
  }
  using Args = std::vector<std::string>;
  // A circle of radius r swept outwards by half-sides dx, dy: a rounded
  // rectangle, pi r^2 + 4 dx dy + 2 r (2 dx + 2 dy).
  const std::tuple<const char *, Args, int, double> cases[] = {
      {kSquare, {"--dx", "0.5", "--dy", "0.25"}, 1, 2 * 1.5},
      {kSquare, {"--dx", "0.25", "--dy", "0.25", "--side", "in"}, 1, 0.25},
      {kCircle, {"--dx", "0.5", "--dy", "0.25"}, 1, kPi + 4 * 0.5 * 0.25 + 2 * (1 + 0.5)},
      {kDumbbell, {"--dx", "0.6", "--dy", "0.6", "--side", "in"}, 2, 2 * 0.8 * 0.8},
  };
  for (const auto &[text, args, loops, area] : cases) {
    Args all = {"rect-offset", WriteText(dir, "in.txt", text)};
    all.insert(all.end(), args.begin(), args.end());
    const RunResult r = Polyarc(all);
    ASSERT_EQ(r.code, 0) << text << r.err;
    EXPECT_EQ(ReportedLoops(r.out), loops) << text << r.out;
    EXPECT_NEAR(Reported(r.out, "total area"), area, kPrinted * area) << text << r.out;
  }
}

TEST(OffsetCommand, UsageErrorsAndRefusals) {
  const auto dir = ScratchDir();
  const std::string square = WriteText(dir, "sq.txt", kSquare);
  const std::string line = WriteText(dir, "line.txt", kLine);
  // A half circle offset towards its centre by more than its radius
  // collapses: the library refuses it.
  const std::string arc = WriteText(dir, "arc.txt", "open\n0 0 1\n2 0\n");
  ExpectRefusals({
      {{"offset", square}, 2, "no distance given (-d D)"},
      {{"offset", square, square, "-d", "1"}, 2, "one file only"},
      {{"offset", line, "-d", "1", "--side", "out"}, 2, "--side needs left or right for an open"},
      {{"rect-offset", square, "--dx", "-1", "--dy", "1"}, 2, "--dx needs a number from 0"},
      {{"offset", square, "-d", "1", "--block", "2"}, 1, "sq.txt: no block 2"},
      {{"offset", arc, "-d", "2"},
       1,
       "the offset failed: invalid argument or geometry (status 3011)"},
  });
}

}  // namespace
}  // namespace polyarc_tool
