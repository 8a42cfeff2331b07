// The diagnostic dump: its exact line format, and standard error for a
// null stream.
#include <cstdio>
#include <string>

#include "support/support.h"

namespace polyarc_test {
namespace {

std::string Address(const LI_TAB_STRUCT *e) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%11p", static_cast<const void *>(e));
  return buf;
}

TEST(Dump, OneLinePerElementInTheExactFormat) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {3, 4}});
  const GE_POINT c{-2.5, 4}, centre{0.25, 4};
  ASSERT_EQ(LiArc(store.get(), &k, &c, &centre, 1), PA_OK);
  k->no = 7;
  k->next->no = 12;
  k->next->attr_val = 99;  // payload, centre and radius are not printed

  std::FILE *f = std::tmpfile();
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(LiDebDumpLi(k, f), PA_OK);
  std::rewind(f);
  std::string text;
  for (int ch = std::fgetc(f); ch != EOF; ch = std::fgetc(f)) text.push_back(static_cast<char>(ch));
  std::fclose(f);
  EXPECT_EQ(text, Address(k) + "  1          0          0          3          4 7\n" +
                      Address(k->next) + "  3          3          4       -2.5          4 12\n");
}

TEST(Dump, NullStreamWritesToStandardError) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{1, 2}, {1e7, 0.5}});
  testing::internal::CaptureStderr();
  EXPECT_EQ(LiDebDumpLi(k, nullptr), PA_OK);
  EXPECT_EQ(LiDebDumpLi(nullptr, nullptr), PA_OK);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            Address(k) + "  1          1          2      1e+07        0.5 0\n");
  EXPECT_EQ(LiDebLi(k) + LiDebElem(k), PA_OK);
}

}  // namespace
}  // namespace polyarc_test
