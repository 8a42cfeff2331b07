// The measures' JSON form: JSON has no NaN or infinity, so such a number
// is written as null rather than as text that no JSON reader accepts.
#include "measures.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace polyarc_tool {
namespace {

TEST(Measures, JsonWritesNonFiniteNumbersAsNull) {
  Measures m;
  m.elements = m.arcs = 1;
  m.closed = true;
  m.area = std::nan("");
  m.length = std::numeric_limits<double>::infinity();
  m.lo = {-0.5, 0};
  m.hi = {2, -std::numeric_limits<double>::infinity()};
  const std::string json = MeasureJsonMembers(m);
  for (const char *member : {"\"area\": null", "\"length\": null", "\"xmin\": -0.5", "\"ymin\": 0",
                             "\"xmax\": 2", "\"ymax\": null"}) {
    EXPECT_NE(json.find(member), std::string::npos) << member << " in " << json;
  }
  for (const char *bad : {"nan", "inf"}) EXPECT_EQ(json.find(bad), std::string::npos) << json;
}

}  // namespace
}  // namespace polyarc_tool
