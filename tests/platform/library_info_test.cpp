// The library's account of itself: the loaded library's version is the
// headers' version, and each status code has a text of its own (the one
// code with two meanings says both).
#include <set>
#include <string>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(LibraryInfo, VersionAndStatusTexts) {
  EXPECT_EQ(std::string(PaVersion()), std::to_string(POLYARC_VERSION_MAJOR) + "." +
                                          std::to_string(POLYARC_VERSION_MINOR) + "." +
                                          std::to_string(POLYARC_VERSION_PATCH));
  EXPECT_STREQ(PaVersion(), POLYARC_VERSION_STRING);
  const std::string both = PaStatusText(PA_NO_MEMORY);
  EXPECT_TRUE(both.find("out of memory") != both.npos && both.find("impossible") != both.npos);
  EXPECT_STREQ(PaStatusText(PA_OK), "success");
  const uint16_t codes[] = {PA_OK,          PA_NOT_ON,      PA_NO_RECORD, PA_NO_MEMORY,
                            PA_LIST_FULL,   PA_ZERO_LENGTH, PA_PARALLEL,  PA_CONCENTRIC,
                            PA_ZERO_RADIUS, PA_NOT_PAIRED,  PA_INVALID,   PA_DEGENERATE,
                            PA_PARTIAL};
  std::set<std::string> texts;
  for (uint16_t code : codes) texts.insert(PaStatusText(code));
  EXPECT_EQ(texts.size(), std::size(codes)) << "one text for each code";
  EXPECT_EQ(texts.count("unknown status"), 0u);
  EXPECT_STREQ(PaStatusText(1000), "unknown status");
}

}  // namespace
}  // namespace polyarc_test
