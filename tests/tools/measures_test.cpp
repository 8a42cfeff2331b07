// JSON has no NaN or infinity: such a number is written as null rather
// than as text that no JSON reader accepts.
#include "measures.h"

#include <cmath>

#include <gtest/gtest.h>

namespace polyarc_tool {
namespace {

TEST(Measures, JsonWritesNonFiniteNumbersAsNull) {
  Measures m;
  m.closed = true;
  m.area = std::nan("");
  m.length = HUGE_VAL;
  m.hi = {2, -HUGE_VAL};
  const std::string json = MeasureJsonMembers(m);
  for (const char *member :
       {"\"area\": null", "\"length\": null", "\"xmax\": 2", "\"ymax\": null"}) {
    EXPECT_NE(json.find(member), std::string::npos) << member << " in " << json;
  }
}

}  // namespace
}  // namespace polyarc_tool
