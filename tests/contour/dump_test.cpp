// The diagnostic dump: its exact line format, to a stream or to standard error.
#include <cstdio>

#include "support/support.h"

namespace polyarc_test {
namespace {

TEST(Dump, OneLinePerElementInTheExactFormat) {
  Store store;
  LI_TAB_STRUCT *k = Polyline(store.get(), {{0, 0}, {3, 4}});
  const GE_POINT c{-2.5, 4}, centre{0.25, 4};
  ASSERT_EQ(LiArc(store.get(), &k, &c, &centre, 1), PA_OK);
  k->no = 7, k->next->no = 12, k->next->attr_val = 99;  // payload, centre, radius not printed
  char expected[200];
  std::snprintf(expected, sizeof expected,
                "%11p  1          0          0          3          4 7\n"
                "%11p  3          3          4       -2.5          4 12\n",
                static_cast<void *>(k), static_cast<void *>(k->next));
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ(PA_OK, LiDebDumpLi(k, stdout) + LiDebDumpLi(k, nullptr) +
                       LiDebDumpLi(nullptr, nullptr) + LiDebLi(k) + LiDebElem(k));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), expected) << "a null stream is stderr";
  EXPECT_EQ(testing::internal::GetCapturedStdout(), expected) << "the others write nothing";
}

}  // namespace
}  // namespace polyarc_test
