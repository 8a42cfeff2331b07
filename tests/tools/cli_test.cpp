// The built polyarc program, end to end: exit codes, output, and the file
// and line of errors.
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

constexpr double kPi = 3.141592653589793;

struct Result {
  int code = -1;
  std::string out, err;
};

std::string ReadFile(const fs::path &path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// A scratch folder of the running test, emptied first.
fs::path Scratch() {
  const auto *info = testing::UnitTest::GetInstance()->current_test_info();
  const fs::path dir = fs::path(testing::TempDir()) / ("polyarc_cli_" + std::string(info->name()) +
                                                       "_" + std::to_string(getpid()));
  fs::remove_all(dir);
  fs::create_directories(dir);
  return dir;
}

fs::path WriteFile(const fs::path &dir, const std::string &name, const std::string &text) {
  std::ofstream(dir / name, std::ios::binary) << text;
  return dir / name;
}

// Runs the program with the arguments (each one quoted for the shell).
Result Polyarc(const std::vector<std::string> &args) {
  const fs::path dir =
      fs::path(testing::TempDir()) / ("polyarc_cli_run_" + std::to_string(getpid()));
  fs::create_directories(dir);
  std::string command = "'" + std::string(POLYARC_PROGRAM) + "'";
  for (const std::string &arg : args) command += " '" + arg + "'";
  command += " >'" + (dir / "out").string() + "' 2>'" + (dir / "err").string() + "'";
  const int status = std::system(command.c_str());
  Result result;
  result.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.out = ReadFile(dir / "out");
  result.err = ReadFile(dir / "err");
  fs::remove_all(dir);
  return result;
}

std::vector<std::string> Words(const std::string &line) {
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

std::vector<std::string> Lines(const std::string &text) {
  std::istringstream in(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// The numbers of one member in every object of info --json, in order.
std::vector<std::string> JsonMember(const std::string &json, const std::string &name) {
  std::vector<std::string> values;
  const std::regex member("\"" + name + "\": (\"[^\"]*\"|[^,}]+)");
  for (auto it = std::sregex_iterator(json.begin(), json.end(), member);
       it != std::sregex_iterator(); ++it) {
    values.push_back((*it)[1]);
  }
  return values;
}

const char kCcwSquare[] = "0 0\n1 0\n1 1\n0 1\n";
const char kCwSquare[] = "# the same square, clockwise\n0 0\n0 1\n1 1\n1 0\n";

TEST(Cli, InfoPrintsTheMeasuresOfUnitSquares) {
  const fs::path dir = Scratch();
  const fs::path ccw = WriteFile(dir, "ccw.txt", kCcwSquare);
  const fs::path cw = WriteFile(dir, "cw.txt", kCwSquare);
  const Result r = Polyarc({"info", ccw.string(), cw.string()});
  EXPECT_EQ(r.code, 0);
  EXPECT_EQ(r.err, "");
  const auto lines = Lines(r.out);
  ASSERT_EQ(lines.size(), 3u) << r.out;
  EXPECT_EQ(Words(lines[0]).front(), "file");
  for (const std::string &line : lines) {
    EXPECT_EQ(line.size(), lines[0].size()) << "aligned columns, numbers to the right";
  }
  const std::vector<std::string> tail_ccw = {"4", "4", "0", "closed", "ccw", "1",
                                             "4", "0", "0", "1",      "1"};
  const auto row = Words(lines[1]);
  EXPECT_EQ(std::vector<std::string>(row.end() - 11, row.end()), tail_ccw) << lines[1];
  EXPECT_EQ(row[0], ccw.string());
  const auto row_cw = Words(lines[2]);
  EXPECT_EQ(row_cw[row_cw.size() - 7], "cw");
  EXPECT_EQ(row_cw[row_cw.size() - 6], "-1");
  EXPECT_EQ(row_cw[row_cw.size() - 5], "4");
  EXPECT_EQ(row_cw[row_cw.size() - 8], "closed");
  EXPECT_EQ(row_cw[2], "2") << "the block starts after the comment, on line 2";

  const Result json = Polyarc({"info", "--json", ccw.string(), cw.string()});
  EXPECT_EQ(json.code, 0);
  EXPECT_EQ(JsonMember(json.out, "area"), (std::vector<std::string>{"1", "-1"}));
  EXPECT_EQ(JsonMember(json.out, "length"), (std::vector<std::string>{"4", "4"}));
  EXPECT_EQ(JsonMember(json.out, "orientation"), (std::vector<std::string>{"\"ccw\"", "\"cw\""}));
  EXPECT_EQ(JsonMember(json.out, "xmax"), (std::vector<std::string>{"1", "1"}));
}

TEST(Cli, InfoOfArcsAndOpenContours) {
  const fs::path dir = Scratch();
  const fs::path file = WriteFile(dir, "arcs.txt",
                                  "# a unit circle about (1, 0) as two half circles\n"
                                  "0 0 1\n2 0 1\n\n"
                                  "open\n0 0 -1\n2 0\n");
  const Result r = Polyarc({"info", "--json", file.string()});
  EXPECT_EQ(r.code, 0) << r.err;
  const auto area = JsonMember(r.out, "area"), length = JsonMember(r.out, "length");
  ASSERT_EQ(area.size(), 2u) << r.out;
  EXPECT_NEAR(std::stod(area[0]), kPi, 1e-14);
  EXPECT_NEAR(std::stod(length[0]), 2 * kPi, 1e-14);
  EXPECT_EQ(area[1], "null") << "an open contour has no area";
  EXPECT_NEAR(std::stod(length[1]), kPi, 1e-14);
  EXPECT_EQ(JsonMember(r.out, "arcs"), (std::vector<std::string>{"2", "1"}));
  EXPECT_EQ(JsonMember(r.out, "closed"), (std::vector<std::string>{"true", "false"}));
  // The clockwise half circle from (0, 0) to (2, 0) passes through (1, 1).
  EXPECT_NEAR(std::stod(JsonMember(r.out, "ymax")[1]), 1, 1e-15);
  EXPECT_EQ(JsonMember(r.out, "ymin")[1], "0");
}

TEST(Cli, MalformedFilesGiveTheirLineAndExitCode) {
  const fs::path dir = Scratch();
  const fs::path good = WriteFile(dir, "good.txt", kCcwSquare);
  const fs::path bad = WriteFile(dir, "bad.txt", "0 0\n1 0\n\n# next\n1 x 0\n");
  Result r = Polyarc({"info", good.string(), bad.string()});
  EXPECT_EQ(r.code, 1);
  EXPECT_EQ(r.out, "") << "nothing is printed when a file is bad";
  EXPECT_EQ(r.err, "polyarc: " + bad.string() + ":5: bad number 'x'\n");

  r = Polyarc({"render", bad.string(), "-o", (dir / "bad.svg").string()});
  EXPECT_EQ(r.code, 1);
  EXPECT_NE(r.err.find("bad.txt:5:"), std::string::npos);
  EXPECT_FALSE(fs::exists(dir / "bad.svg"));

  r = Polyarc({"info", (dir / "missing.txt").string()});
  EXPECT_EQ(r.code, 1);
  EXPECT_NE(r.err.find("missing.txt: cannot open"), std::string::npos) << r.err;
  r = Polyarc({"info", dir.string()});
  EXPECT_EQ(r.code, 1);
  EXPECT_NE(r.err.find("is a directory"), std::string::npos) << r.err;
}

TEST(Cli, HelpAndUsageErrors) {
  Result r = Polyarc({"--help"});
  EXPECT_EQ(r.code, 0);
  for (const char *command : {"info", "render", "demo"}) {
    EXPECT_NE(r.out.find(std::string("  ") + command + " "), std::string::npos) << command;
    const Result help = Polyarc({command, "--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_EQ(help.out.rfind(std::string("usage: polyarc ") + command, 0), 0u) << help.out;
    EXPECT_EQ(Polyarc({"help", command}).out, help.out);
    EXPECT_EQ(Polyarc({command, "-h"}).out, help.out);
  }
  EXPECT_EQ(Polyarc({"--version"}).out.rfind("polyarc ", 0), 0u);

  r = Polyarc({});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("usage: polyarc COMMAND"), std::string::npos);
  r = Polyarc({"frobnicate"});
  EXPECT_EQ(r.code, 2);
  EXPECT_EQ(r.err, "polyarc: unknown command 'frobnicate' (see 'polyarc --help')\n");
  r = Polyarc({"info", "--bogus", "a.txt"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("unknown option '--bogus'"), std::string::npos);
  EXPECT_EQ(Polyarc({"info"}).code, 2);
  EXPECT_EQ(Polyarc({"info", "--json=yes", "a.txt"}).code, 2);
  EXPECT_EQ(Polyarc({"render", "a.txt"}).code, 2) << "no output";
  EXPECT_EQ(Polyarc({"render", "a.txt", "-o"}).code, 2) << "-o without its value";
  EXPECT_EQ(Polyarc({"render", "a.txt", "-o", "x.svg", "--width", "wide"}).code, 2);
  EXPECT_EQ(Polyarc({"demo", "extra"}).code, 2);
}

TEST(Cli, RenderWritesOnePicture) {
  const fs::path dir = Scratch();
  const fs::path square = WriteFile(dir, "square.txt", kCcwSquare);
  const fs::path circle = WriteFile(dir, "circle.txt", "0 0 1\n2 0 1\n");
  const fs::path svg = dir / "out.svg";
  Result r = Polyarc({"render", square.string(), circle.string(), "-o", svg.string(), "--marks",
                      "--title", "Two <shapes>"});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out, "wrote " + svg.string() + " (2 contours from 2 files)\n");
  const std::string picture = ReadFile(svg);
  EXPECT_EQ(picture.rfind("<?xml", 0), 0u);
  EXPECT_NE(picture.find(">Two &lt;shapes&gt;</text>"), std::string::npos);
  EXPECT_NE(picture.find(square.string() + " (1 contour)"), std::string::npos);
  EXPECT_NE(picture.find("M 0 0 A 1 1 0 0 1 2 0 A 1 1 0 0 1 0 0 Z"), std::string::npos);
  EXPECT_NE(picture.find("M 0 0 L 1 0 L 1 1 L 0 1 L 0 0 Z"), std::string::npos);
  EXPECT_NE(picture.find("stroke=\"#1f77b4\""), std::string::npos);
  EXPECT_NE(picture.find("stroke=\"#d62728\""), std::string::npos) << "each file its colour";

  r = Polyarc({"render", square.string(), "-o", "-", "--width", "300"});
  EXPECT_EQ(r.code, 0);
  EXPECT_EQ(r.out.rfind("<?xml", 0), 0u);
  EXPECT_NE(r.out.find("viewBox=\"0 0 300 "), std::string::npos);
}

TEST(Cli, DemoBuildsMeasuresAndDraws) {
  const fs::path dir = Scratch() / "pictures";
  const Result r = Polyarc({"demo", "-o", dir.string()});
  EXPECT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.out.find("picture: " + (dir / "demo.svg").string()), std::string::npos) << r.out;
  // Rectangle of half sides 2 and 1, clockwise: area -8, length 12; the
  // slot is 3 x 2 with a half disc added on one end and taken away on the
  // other.
  for (const char *row : {"Rectangle .* closed cw +-8 +12 +\\(-2, -1\\) to \\(2, 1\\)",
                          "Circle .* closed ccw +3.141592654 +6.283185307 ",
                          "Lines and arcs .* 2 lines, 2 arcs +closed ccw +6 +12.28318531 "}) {
    EXPECT_TRUE(std::regex_search(r.out, std::regex(row))) << row << "\n" << r.out;
  }
  EXPECT_EQ(ReadFile(dir / "demo.svg").rfind("<?xml", 0), 0u);

  const Result info = Polyarc({"info", "--json", (dir / "demo.txt").string()});
  EXPECT_EQ(info.code, 0) << info.err;
  const auto areas = JsonMember(info.out, "area");
  ASSERT_EQ(areas.size(), 6u) << "the demo's shapes read back from its text";
  EXPECT_EQ(areas[0], "-8");
  EXPECT_NEAR(std::stod(areas[1]), -(8 - (4 - kPi) * 0.25), 1e-12) << "rounded corners of 0.5";
}

// The corpus files read as they stand, and every block's area agrees with
// the area that the corpus's converter computed exactly.
TEST(Cli, CorpusFilesReadAsTheyStand) {
  const fs::path curves = fs::path(POLYARC_TEST_DATA) / "corpus" / "geos_overlay_curves.txt";
  const Result r = Polyarc({"info", "--json", curves.string()});
  ASSERT_EQ(r.code, 0) << r.err;
  std::map<int, double> expected;  // by the block's line
  const auto lines = Lines(ReadFile(curves));
  const std::regex header("^(shell|hole|path) .* area=([^ ]+)");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::smatch match;
    if (std::regex_search(lines[i], match, header)) expected[i + 1] = std::stod(match[2]);
  }
  const auto line = JsonMember(r.out, "line"), area = JsonMember(r.out, "area");
  ASSERT_EQ(line.size(), expected.size());
  ASSERT_EQ(area.size(), expected.size());
  for (std::size_t i = 0; i < line.size(); ++i) {
    const double want = expected.at(std::stoi(line[i]));
    EXPECT_NEAR(std::stod(area[i]), want, 1e-9 * std::fmax(1, std::fabs(want))) << line[i];
  }

  const fs::path valid = fs::path(POLYARC_TEST_DATA) / "corpus" / "jts_valid.txt";
  const Result nan = Polyarc({"info", valid.string()});
  EXPECT_EQ(nan.code, 1);
  EXPECT_EQ(nan.err, "polyarc: " + valid.string() + ":536: 'nan' is not a finite number\n");
}

}  // namespace
