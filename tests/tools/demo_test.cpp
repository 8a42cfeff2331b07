// The demo in-process: a failing allocation anywhere ends it with the library's status or
// leaves it unchanged, and every block goes back.
#include <filesystem>
#include <sstream>

#include "cli.h"
#include "commands.h"
#include "support/support.h"

namespace polyarc_tool {
namespace {

using polyarc_test::InjectedFailure;

TEST(Demo, AllocationFailureEndsTheDemoWithItsStatus) {
  Options options;
  options.values["output"] = {testing::TempDir() + "polyarc_demo_test"};
  std::ostringstream out, err;
  // The first run also grows the process-wide polyline buffer, which stays.
  ASSERT_EQ(RunDemo(options, out, err), kExitOk) << err.str();
  const unsigned long blocks = MemTestLiveBlocks();
  const auto runs = polyarc_test::ForEachAllocationFailure([&](InjectedFailure &failure) {
    std::ostringstream run_out, run_err;
    failure.Arm();
    const int code = RunDemo(options, run_out, run_err);
    failure.Disarm();
    // A few allocations only speed a step up: without them the demo is the same.
    if (code == kExitOk) {
      EXPECT_EQ(run_out.str(), out.str()) << "allocation " << failure.n();
    } else {
      EXPECT_EQ(code, kExitFailure);
      EXPECT_NE(run_err.str().find("failed: out of memory"), std::string::npos) << run_err.str();
    }
    EXPECT_EQ(MemTestLiveBlocks(), blocks) << "the demo's store is freed on every path";
  });
  EXPECT_GT(runs, 0u);
  std::filesystem::remove_all(options.Value("output"));
}

}  // namespace
}  // namespace polyarc_tool
