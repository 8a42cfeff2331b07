// The platform services on their own: growing a block keeps its contents
// and zero-fills only the new part, a failure leaves the block alone,
// freeing clears the pointer; and the default assertion report.
#include <algorithm>
#include <cstring>
#include <string>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(MemoryBlocks, GrowthKeepsContentsAndZeroFillsOnlyTheNewPart) {
  const unsigned long live = MemTestLiveBlocks();
  void *block = nullptr;
  ASSERT_EQ(MemAllocBlock(&block, 4, sizeof(int), 0, 0), PA_OK);
  std::memset(block, 0x5a, 4 * sizeof(int));
  ASSERT_EQ(MemAllocBlock(&block, 8, sizeof(int), 1, 0), PA_OK);
  const int *ints = static_cast<const int *>(block);
  EXPECT_EQ(ints[3], 0x5a5a5a5a) << "the old contents are kept";
  EXPECT_TRUE(std::all_of(ints + 4, ints + 8, [](int i) { return i == 0; }));

  void *const before = block;
  InjectedFailure failure(1);
  failure.Arm();
  EXPECT_EQ(MemAllocBlock(&block, 16, sizeof(int), 1, 0), PA_NO_MEMORY);
  failure.Disarm();
  EXPECT_EQ(block, before);
  EXPECT_EQ(MemAllocBlock(nullptr, 1, 1, 0, 0), PA_INVALID);
  EXPECT_EQ(MemAllocBlock(&block, 0, sizeof(int), 0, 0), PA_INVALID);

  EXPECT_EQ(MemTestLiveBlocks(), live + 1);
  MemFreeMemory(&block);
  EXPECT_EQ(block, nullptr);
  MemFreeMemory(&block);  // freeing a null block is allowed
  EXPECT_EQ(MemTestLiveBlocks(), live);
}

TEST(DebugAssert, DefaultReportIsOneLineOnStandardError) {
  testing::internal::CaptureStderr();
  DebugAssert("cLI_list", 479, "LiRemove", 3, "*** FATALER FEHLER ***", "FALSE", 0);
  const std::string out = testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1);
  EXPECT_NE(out.find("cLI_list:479"), std::string::npos) << out;
  EXPECT_NE(out.find("*** FATALER FEHLER ***"), std::string::npos) << out;
}

}  // namespace
}  // namespace polyarc_test
