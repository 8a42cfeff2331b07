// The built polyarc program, end to end: exit codes, output, and the file
// and line of errors.
#include <sys/wait.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <tuple>

#include <gtest/gtest.h>

#include "operation_support.h"
#include "polyarc/records.h"

namespace {

namespace fs = std::filesystem;
using polyarc_tool::ScratchDir;
using polyarc_tool::WriteText;

constexpr double kPi = 3.141592653589793;

using Result = polyarc_tool::RunResult;

std::string ReadFile(const fs::path &path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Runs the program with the arguments (each one quoted for the shell).
Result Polyarc(const std::vector<std::string> &args) {
  const std::string out = testing::TempDir() + "polyarc_cli_" + std::to_string(getpid());
  std::string command = "'" + std::string(POLYARC_PROGRAM) + "'";
  for (const std::string &arg : args) command += " '" + arg + "'";
  const int status = std::system((command + " >'" + out + ".out' 2>'" + out + ".err'").c_str());
  Result result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(out + ".out"),
                ReadFile(out + ".err")};
  for (const char *end : {".out", ".err"}) fs::remove(out + end);
  return result;
}

// The values of one member in every object of info --json, in order.
std::vector<std::string> JsonMember(const std::string &json, const std::string &name) {
  const std::regex member("\"" + name + "\": (\"[^\"]*\"|[^,}]+)");
  std::vector<std::string> values;
  for (std::sregex_iterator it(json.begin(), json.end(), member), end; it != end; ++it) {
    values.push_back((*it)[1]);
  }
  return values;
}

const char kSquare[] = "0 0\n1 0\n1 1\n0 1\n";

TEST(Cli, InfoPrintsTheMeasures) {
  const fs::path dir = ScratchDir();
  const std::string ccw = WriteText(dir, "ccw.txt", kSquare);
  const std::string cw = WriteText(dir, "cw.txt", "# clockwise\n0 0\n0 1\n1 1\n1 0\n");
  Result r = Polyarc({"info", ccw, cw});
  EXPECT_EQ(r.code, 0);
  EXPECT_EQ(r.err, "");
  // #, block line, merged, elements, lines, arcs, closed, orientation, area, length, box; the
  // clockwise block starts on line 2, after the comment.
  for (const char *row : {"/ccw.txt +1 +1 +0 +4 +4 +0 +closed +ccw +1 +4 +0 +0 +1 +1\n",
                          "/cw.txt +1 +2 +0 +4 +4 +0 +closed +cw +-1 +4 +0 +0 +1 +1\n"}) {
    EXPECT_TRUE(std::regex_search(r.out, std::regex(row))) << row << r.out;
  }

  // A unit circle about (1, 0) as two half circles, and its lower half open; a triangle whose
  // third vertex repeats the second within the tolerance and whose last closes onto the first.
  const std::string arcs = WriteText(dir, "arcs.txt", "0 0 1\n2 0 1\n\nopen\n0 0 -1\n2 0\n");
  const std::string merged =
      WriteText(dir, "merged.txt", "0 0\n1 0\n1.00001 0\n1 1\n0.00002 -0.00001\n");
  r = Polyarc({"info", "--json", arcs, merged});
  EXPECT_EQ(r.code, 0) << r.err;
  const auto area = JsonMember(r.out, "area"), length = JsonMember(r.out, "length");
  ASSERT_EQ(area.size(), 3u) << r.out;
  EXPECT_NEAR(std::stod(area[0]), kPi, 1e-14);
  EXPECT_EQ(area[1], "null") << "an open contour has no area";
  EXPECT_EQ(area[2], "0.5");
  EXPECT_NEAR(std::stod(length[1]), kPi, 1e-14);
  EXPECT_NEAR(std::stod(JsonMember(r.out, "ymax")[1]), 1, 1e-15);  // through (1, 1)
  EXPECT_NE(r.out.find("\"merged\": [{\"line\": 3, \"into\": 2, \"closing\": false}, "
                       "{\"line\": 5, \"into\": 1, \"closing\": true}]"),
            std::string::npos)
      << r.out;
}

TEST(Cli, BadFilesAndUsageGiveTheirExitCodeAndMessage) {
  const fs::path dir = ScratchDir();
  const std::string good = WriteText(dir, "good.txt", kSquare);
  const std::string bad = WriteText(dir, "bad.txt", "0 0\n1 0\n\n# next\n1 x 0\n");
  const std::string absurd = WriteText(dir, "absurd.txt", "0 0\n0 1\n\n0 0 1e300\n1 0\n0 1\n");
  const std::string svg = (dir / "bad.svg").string();
  const std::string corpus = std::string(POLYARC_TEST_DATA) + "/corpus/jts_valid.txt";
  const std::tuple<std::vector<std::string>, int, std::string> cases[] = {
      {{"info", good, bad}, 1, "polyarc: " + bad + ":5: bad number 'x'\n"},
      {{"render", bad, "-o", svg}, 1, "bad.txt:5: bad number"},
      {{"info", corpus}, 1, "jts_valid.txt:536: 'nan' is not a finite number\n"},
      {{"info", "--json", absurd}, 1, "absurd.txt:4: the segment from this vertex comes out"},
      {{"render", good, "-o", svg, "--block", "2"}, 1, "good.txt: no block 2 (the text has 1 "},
      {{"info", good, "--block", "0"}, 2, "--block needs a block number from 1, not '0'"},
      {{"info", (dir / "missing.txt").string()}, 1, "missing.txt: cannot open"},
      {{"info", dir.string()}, 1, "is a directory"},
      {{}, 2, "usage: polyarc COMMAND"},
      {{"frobnicate"}, 2, "unknown command 'frobnicate'"},
      {{"info", "--bogus", "a.txt"}, 2, "unknown option '--bogus'"},
      {{"render", "a.txt"}, 2, ""},
  };
  for (const auto &[args, code, err] : cases) {
    const Result r = Polyarc(args);
    EXPECT_EQ(r.code, code) << err;
    EXPECT_EQ(r.out, "") << "nothing is printed on an error";
    EXPECT_NE(r.err.find(err), std::string::npos) << r.err;
  }
  EXPECT_FALSE(fs::exists(svg));
}

TEST(Cli, HelpAndVersion) {
  for (const char *command :
       {"info", "render", "union", "intersection", "difference", "offset", "rect-offset", "demo"}) {
    const Result help = Polyarc({command, "--help"});
    EXPECT_TRUE(help.code == 0 && help.out.rfind(std::string("usage: polyarc ") + command, 0) == 0)
        << help.out;
  }
  EXPECT_EQ(Polyarc({"--help"}).code, 0);
  EXPECT_EQ(Polyarc({"--version"}).out, std::string("polyarc ") + PaVersion() + "\n");
}

// One case or block of a corpus file is read, and a bad one elsewhere in
// the file does not stop it.
TEST(Cli, BlocksAndCasesChooseWhatIsRead) {
  const std::string corpus = std::string(POLYARC_TEST_DATA) + "/corpus/jts_valid.txt";
  Result r = Polyarc({"info", "--json", corpus, "--block", "3", "--block=1"});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(JsonMember(r.out, "index"), (std::vector<std::string>{"1", "3"}));

  const fs::path dir = ScratchDir();
  const std::string svg = (dir / "one.svg").string();
  r = Polyarc({"render", corpus, "--case", "TestValid.xml#12", "-o", svg});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out, "wrote " + svg + " (2 contours from 1 file)\n") << "a shell and its hole";
}

// A picture of a long outline opens in a common SVG reader, which fails
// on path data of a few hundred kilobytes.
TEST(Cli, RenderOfAHundredThousandVerticesOpensInRsvg) {
  const fs::path dir = ScratchDir();
  std::string text;
  for (int i = 0, n = 100000; i < n; ++i) {
    const double a = 2 * kPi * i / n, r = 1000 + 3 * std::sin(37 * a);
    text += std::to_string(123456.789 + r * std::cos(a)) + ' ' +
            std::to_string(654321.123 + r * std::sin(a)) + '\n';
  }
  const std::string svg = (dir / "long.svg").string(), png = (dir / "long.png").string();
  ASSERT_EQ(Polyarc({"render", WriteText(dir, "long.txt", text), "-o", svg}).code, 0);
  const std::string command = "rsvg-convert '" + svg + "' -o '" + png + "' 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
  EXPECT_GT(fs::file_size(png), 0u);
}

TEST(Cli, RenderWritesOnePicture) {
  const fs::path dir = ScratchDir();
  const std::string square = WriteText(dir, "square.txt", kSquare);
  const std::string circle = WriteText(dir, "circle.txt", "0 0 1\n2 0 1\n");
  const std::string svg = (dir / "out.svg").string();
  Result r = Polyarc({"render", square, circle, "-o", svg});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out, "wrote " + svg + " (2 contours from 2 files)\n");
  EXPECT_NE(ReadFile(svg).find("M 0 0 A 1 1 0 0 1 2 0 A 1 1 0 0 1 0 0 Z"), std::string::npos);

  r = Polyarc({"render", square, "-o", "-", "--width", "300"});
  EXPECT_NE(r.out.find("viewBox=\"0 0 300 "), std::string::npos) << "to standard output";
}

TEST(Cli, DemoBuildsMeasuresAndDraws) {
  const fs::path dir = ScratchDir() / "pictures";
  const Result r = Polyarc({"demo", "-o", dir.string()});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(ReadFile(dir / "demo.svg").rfind("<?xml", 0), 0u);

  const Result info = Polyarc({"info", "--json", (dir / "demo.txt").string()});
  const auto areas = JsonMember(info.out, "area");
  // The offset with corners left open reads back as three open pieces.
  ASSERT_EQ(areas.size(), 26u) << "the demo's shapes read back from its text";
  // A 4 x 2 rectangle clockwise, the same with corners of radius 0.5, a unit circle, and a
  // 3 x 2 slot (a half disc added at one end, taken away at the other).
  EXPECT_EQ(areas[0], "-8");
  EXPECT_NEAR(std::stod(areas[1]), -(8 - (4 - kPi) * 0.25), 1e-12);
  EXPECT_NEAR(std::stod(areas[2]), kPi, 1e-9);
  EXPECT_EQ(areas[3], "6");
  // The rounded rectangle and a circle, then their union, intersection and difference.
  const double a = -std::stod(areas[17]), b = std::stod(areas[18]);
  const double u = std::stod(areas[19]), i = std::stod(areas[22]), d = std::stod(areas[25]);
  EXPECT_NEAR(u + i, a + b, 1e-9);
  EXPECT_NEAR(d + i, a, 1e-9);
}

}  // namespace
