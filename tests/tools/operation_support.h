// Running the program's commands in-process on small files, and reading
// back what they report and write.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli.h"
#include "text_format.h"

namespace polyarc_tool {

struct RunResult {
  int code = -1;
  std::string out, err;
};

inline RunResult Polyarc(const std::vector<std::string> &args) {
  std::ostringstream out, err;
  const int code = RunCli(args, out, err);
  return {code, out.str(), err.str()};
}

// The scratch folders made so far; they go when the test program ends.
struct ScratchFolders {
  std::vector<std::filesystem::path> made;
  ~ScratchFolders() {
    std::error_code ignored;
    for (const auto &dir : made) std::filesystem::remove_all(dir, ignored);
  }
};

// A scratch folder of the running test, emptied first.
inline std::filesystem::path ScratchDir() {
  static ScratchFolders folders;
  const auto *info = testing::UnitTest::GetInstance()->current_test_info();
  const std::filesystem::path dir =
      std::filesystem::path(testing::TempDir()) /
      ("polyarc_op_" + std::string(info->name()) + "_" + std::to_string(getpid()));
  std::filesystem::remove_all(dir);
  std::filesystem::create_directories(dir);
  folders.made.push_back(dir);
  return dir;
}

inline std::string WriteText(const std::filesystem::path &dir, const std::string &name,
                             const std::string &text) {
  std::ofstream(dir / name, std::ios::binary) << text;
  return (dir / name).string();
}

// The number after "label: " in a report (NaN when there is none).
inline double Reported(const std::string &report, const std::string &label) {
  std::smatch m;
  if (!std::regex_search(report, m, std::regex(label + ": *([-+0-9.e]+)"))) return std::nan("");
  return std::stod(m[1]);
}

// A command line that the program refuses: its exit code and a part of
// its message on standard error.
struct Refusal {
  std::vector<std::string> args;
  int code;
  std::string message;
};

inline void ExpectRefusals(const std::vector<Refusal> &cases) {
  for (const Refusal &c : cases) {
    const RunResult r = Polyarc(c.args);
    EXPECT_EQ(r.code, c.code) << c.message;
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
  }
}

// The number of loops in a report: "result: N loops", 0 for "result:
// empty", -1 when there is no result line.
inline int ReportedLoops(const std::string &report) {
  std::smatch m;
  if (std::regex_search(report, m, std::regex("result: ([0-9]+) loop"))) return std::stoi(m[1]);
  return report.find("result: empty") != std::string::npos ? 0 : -1;
}

// The signed areas of the contours in a contour text file, in order.
inline std::vector<double> AreasInFile(const std::string &path) {
  LI_HEAD store{};
  std::vector<double> areas;
  {
    ContourList list(&store);
    std::string error;
    EXPECT_TRUE(ReadContourFile(path, list, error)) << error;
    for (const Contour &c : list.contours()) areas.push_back(LiKontArea(c.k));
  }
  LiFreeMem(&store);
  return areas;
}

}  // namespace polyarc_tool
