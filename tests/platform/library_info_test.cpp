// The library's account of itself: the loaded library's version is the
// headers' version, and each status code has a text of its own (the one
// code with two meanings says both).
#include <set>
#include <string>
#include <tuple>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(LibraryInfo, VersionAndStatusTexts) {
  EXPECT_EQ(std::string(PaVersion()), std::to_string(POLYARC_VERSION_MAJOR) + "." +
                                          std::to_string(POLYARC_VERSION_MINOR) + "." +
                                          std::to_string(POLYARC_VERSION_PATCH));
  EXPECT_STREQ(PaVersion(), POLYARC_VERSION_STRING);

  const std::tuple<uint16_t, const char *> statuses[] = {
      {PA_OK, "success"},
      {PA_NOT_ON, "not on"},
      {PA_NO_RECORD, "no record"},
      {PA_NO_MEMORY, "out of memory"},
      {PA_IMPOSSIBLE, "impossible construction"},  // the same code as PA_NO_MEMORY
      {PA_LIST_FULL, "list is full"},
      {PA_ZERO_LENGTH, "zero length"},
      {PA_PARALLEL, "parallel"},
      {PA_CONCENTRIC, "coincident centres"},
      {PA_ZERO_RADIUS, "radius below the tolerance"},
      {PA_NOT_PAIRED, "cannot be paired"},
      {PA_INVALID, "invalid"},
      {PA_DEGENERATE, "degenerate"},
      {PA_PARTIAL, "partial"},
  };
  std::set<std::string> texts;
  for (const auto &[status, words] : statuses) {
    const std::string text = PaStatusText(status);
    EXPECT_NE(text.find(words), std::string::npos) << status << ": " << text;
    texts.insert(text);
  }
  EXPECT_EQ(texts.size(), std::size(statuses) - 1) << "one text for each code";
  for (const uint16_t unknown : {2, 1000, 65535}) {
    EXPECT_STREQ(PaStatusText(unknown), "unknown status") << unknown;
  }
}

}  // namespace
}  // namespace polyarc_test
