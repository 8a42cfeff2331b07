// The demo run in-process: a failing allocation anywhere in its sections
// ends it with the library's status, and every block goes back.
#include <filesystem>
#include <sstream>

#include "cli.h"
#include "commands.h"
#include "support/support.h"

namespace polyarc_tool {
namespace {

TEST(Demo, AllocationFailureEndsTheDemoWithItsStatus) {
  const std::filesystem::path dir = std::filesystem::path(testing::TempDir()) / "polyarc_demo_test";
  Options options;
  options.values["output"] = dir.string();
  std::ostringstream out, err;
  // The first run also grows the process-wide polyline buffer, which stays.
  ASSERT_EQ(RunDemo(options, out, err), kExitOk) << err.str();
  const unsigned long blocks = MemTestLiveBlocks();
  const unsigned long runs =
      polyarc_test::ForEachAllocationFailure([&](polyarc_test::InjectedFailure &failure) {
        std::ostringstream run_out, run_err;
        failure.Arm();
        const int code = RunDemo(options, run_out, run_err);
        failure.Disarm();
        if (failure.Fired()) {
          EXPECT_EQ(code, kExitFailure);
          EXPECT_NE(run_err.str().find("failed: out of memory"), std::string::npos)
              << run_err.str();
        } else {
          EXPECT_EQ(code, kExitOk);
        }
        EXPECT_EQ(MemTestLiveBlocks(), blocks) << "the demo's store is freed on every path";
      });
  EXPECT_GE(runs, 1u);
  std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace polyarc_tool
