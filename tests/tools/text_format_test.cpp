// The contour text format: reading, writing and round trips.
#include "text_format.h"

#include <cmath>
#include <sstream>
#include <tuple>

#include "measures.h"
#include "support/support.h"

namespace polyarc_tool {
namespace {

using polyarc_test::Elements;
using polyarc_test::Store;

constexpr double kPi = 3.141592653589793;

std::optional<TextError> Read(const std::string &text, ContourList &out,
                              const BlockChoice &choice = {}) {
  std::istringstream in(text);
  return ReadContours(in, out, choice);
}

std::string Written(const LI_TAB_STRUCT *k) {
  std::ostringstream out;
  WriteContour(out, k);
  return out.str();
}

// The sweep of an arc in its own sense, in [0, 2pi).
double Sweep(const LI_TAB_STRUCT *e) {
  const double s = e->type == LI_ARC_CCW ? e->ang_ep - e->ang_ap : e->ang_ap - e->ang_ep;
  return s < 0 ? s + 2 * kPi : s;
}

// Writes k, reads it back and expects the same elements: type, ends, and
// for arcs radius and sweep (which tell a minor arc from a major one).
std::string ExpectRoundTrip(Store &store, LI_TAB_STRUCT *k) {
  const std::string text = Written(k);
  ContourList back(store.get());
  const auto error = Read(text, back);
  EXPECT_FALSE(error) << error->message << "\n" << text;
  if (back.size() != 1) return text;
  const auto ea = Elements(k), eb = Elements(back.contours()[0].k);
  EXPECT_EQ(ea.size(), eb.size()) << text;
  for (std::size_t i = 0; i < std::min(ea.size(), eb.size()); ++i) {
    EXPECT_TRUE(ea[i]->type == eb[i]->type && ea[i]->ap == eb[i]->ap && ea[i]->ep == eb[i]->ep)
        << i;
    if (ea[i]->type != LI_ARC_CW && ea[i]->type != LI_ARC_CCW) continue;
    EXPECT_NEAR(ea[i]->rad, eb[i]->rad, 1e-12 * std::fmax(1, std::fabs(ea[i]->rad))) << i;
    EXPECT_NEAR(Sweep(ea[i]), Sweep(eb[i]), 1e-12) << i;
  }
  return text;
}

TEST(TextFormat, LinesArcsAndFullCirclesRoundTrip) {
  Store store;
  // A 2 x 2 slot with half circles (bulge 1) of both senses.
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT p0{0, 0}, p1{2, 0}, c1{2, 1}, p2{2, 2}, p3{0, 2}, c3{0, 1};
  ASSERT_EQ(LiMove(store.get(), &k, &p0), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &p1), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &p2, &c1, 0), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &p3), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &p0, &c3, 1), PA_OK);
  EXPECT_EQ(ExpectRoundTrip(store, k), "0 0\n2 0 1\n2 2\n0 2 -1\n\n");

  // Moves cannot stand inside a block: each connected run is a block.
  LI_TAB_STRUCT *runs = polyarc_test::Polyline(store.get(), {{0, 0}, {1, 0}});
  const GE_POINT m{5, 5}, d{6, 5};
  ASSERT_EQ(LiMove(store.get(), &runs, &m), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &runs, &d), PA_OK);
  EXPECT_EQ(Written(runs), "open\n0 0\n1 0\n\nopen\n5 5\n6 5\n\n");

  // One element whose ends meet is a full circle; one bulge cannot say that.
  LI_TAB_STRUCT *circle = nullptr;
  const GE_POINT centre{1, 1};
  ASSERT_EQ(LiNew(store.get(), &circle), PA_OK);
  ASSERT_EQ(LiCreateCircle(&centre, 2, 2, circle), PA_OK);  // clockwise, from (3, 1)
  EXPECT_EQ(Written(circle), "3 1 -1\n-1 1 -1\n\n");
  ContourList back(store.get());
  ASSERT_FALSE(Read(Written(circle), back));
  for (const LI_TAB_STRUCT *e : Elements(back.contours()[0].k)) {
    EXPECT_TRUE(e->type == LI_ARC_CW && e->mp == centre && e->rad == 2) << e->mp;
  }
}

TEST(TextFormat, TinyAndHugeNumbersKeepTheirValue) {
  Store store;
  // On a chord of length 1, bulge b gives the sweep 4 atan|b| and the
  // radius (1 + b^2) / 4|b|.
  for (const double bulge : {1e-9, -1e-3, 0.5, -2.0, 1e6}) {
    SCOPED_TRACE(bulge);
    ContourList list(store.get());
    ASSERT_FALSE(Read("open\n0 0 " + FormatNumber(bulge) + "\n1 0\n", list));
    LI_TAB_STRUCT *k = list.contours()[0].k;
    ASSERT_EQ(Elements(k).size(), 1u);
    EXPECT_EQ(k->type, bulge > 0 ? LI_ARC_CCW : LI_ARC_CW);
    EXPECT_NEAR(Sweep(k), 4 * std::atan(std::fabs(bulge)), 1e-12);
    const double rad = (1 + bulge * bulge) / (4 * std::fabs(bulge));
    EXPECT_NEAR(k->rad, rad, 1e-12 * rad);
    ExpectRoundTrip(store, k);
  }
  for (const double x : {0.1, 1.0 / 3, kPi, 1e-300, -1.7976931348623157e308}) {
    ContourList list(store.get());
    ASSERT_FALSE(Read("open\n" + FormatNumber(x) + " 0\n0 1\n", list));
    EXPECT_EQ(list.contours()[0].k->ap.x, x) << "coordinates read back exactly";
  }
}

TEST(TextFormat, BlocksCommentsAndMetadata) {
  Store store;
  ContourList list(store.get());
  const std::string text =
      "# wkt_to_bulge 1 format\r\ncase demo#1 | two shells\n"
      "geometry A polygons=1 shells=1 holes=1 area=3\n"
      "shell 0 vertices=4 area=4   # the outer boundary\n0 0 0\n"
      "# a comment line does not end the block\n2 0   # no bulge\n2 2 0\n+0 2e0 0\n   \t\n\n"
      "open\n0 0\n3 0\n3 4 0.5\n\n"
      "path 1\n0 0\n3 0\n3 4\nnote dropped nothing\nexpect union A B = 3\n"
      "point 1 1 interior\nprecision scale=1\nend\n";
  ASSERT_FALSE(Read(text, list));
  ASSERT_EQ(list.size(), 3u);
  const auto block = [&](int i) {  // keyword line, first line, and the block written back
    const Contour &c = list.contours()[i];
    return c.header + " @" + std::to_string(c.line) + "\n" + Written(c.k);
  };
  EXPECT_EQ(block(0), "shell 0 vertices=4 area=4 @4\n0 0\n2 0\n2 2\n0 2\n\n");
  EXPECT_EQ(block(1), "open @12\nopen\n0 0\n3 0\n3 4\n\n") << "the last bulge is ignored";
  EXPECT_EQ(block(2), "path 1 @17\n0 0\n3 0\n3 4\n\n");
  EXPECT_EQ(Written(nullptr), "");

  ContourList point(store.get());
  ASSERT_FALSE(Read("2 2\n2.00001 2\n2 2.00001\n", point)) << "a shape below the tolerance";
  EXPECT_TRUE(Elements(point.contours()[0].k).size() == 1 &&
              point.contours()[0].k->type == LI_MOVE);
}

TEST(TextFormat, MalformedInputGivesTheLineAndNothingElse) {
  const std::tuple<const char *, int, const char *> cases[] = {
      {"0 0\n1 x\n1 1\n", 2, "bad number 'x'"},
      {"0 0\n1 nan\n1 1\n", 2, "'nan' is not a finite number"},
      {"0 0\n1 1e999\n1 1\n", 2, "'1e999' is out of the range"},
      {"\nsquare\n0 0\n", 2, "unknown keyword 'square'"},
      {"0 0\n1 0\nshell 0\n1 1\n", 3, "'shell' must be the first line of a block"},
      {"open 1\n0 0\n1 1\n", 1, "'open' takes nothing after it"},
      {"0 0\n1 0 0 0\n", 2, "found 4 values"},
      {"0 0\n5\n", 2, "a vertex needs both x and y"},
      {"1 1\n\n0 0\n", 1, "at least two vertices; this block has 1"},
      {"1 1\n0 0 0.5\n0 0\n", 2, "a bulge on a zero-length segment"},
      {"0 0 1\n0 0 1\n", 1, "a bulge on a zero-length segment"},  // the closing segment
      {"0 0\n0.00006 0 1\n", 2, "cannot be built: radius below the tolerance (status 2339)"},
      {"0 0\n1e300 0 1e-300\n", 2, "the bulge is too close to 0"},
      // A bulge of 1e300 on a chord of 1: the radius squared overflows.
      {"0 0 1e300\n1 0\n0 1\n", 1, "beyond a double's range"},
      {"open\n0 0\n1e308 0\n-1e308 0\n", 3, "beyond a double's range"},
      {"0 0\n1 0 0.5\n1.00001 0\n1 1\n", 2, "a bulge on a zero-length segment"},
  };
  for (const auto &[text, line, message] : cases) {
    SCOPED_TRACE(text);
    Store store;
    ContourList list(store.get());
    ASSERT_FALSE(Read("0 0\n1 0\n1 1\n", list));
    const auto error = Read(text, list);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->line, line);
    EXPECT_NE(error->message.find(message), std::string::npos) << error->message;
    EXPECT_EQ(list.size(), 1u) << "a bad text adds no contour, not even its good blocks";
    EXPECT_TRUE(polyarc_test::AllRecordsAccounted(store.head(), {list.contours()[0].k}));
  }
}

// Every element ends exactly where the next starts, the last where the
// first starts.
testing::AssertionResult JointsMeetExactly(LI_TAB_STRUCT *k) {
  for (const LI_TAB_STRUCT *e : Elements(k)) {
    if (!(e->ep == e->next->ap)) {
      return testing::AssertionFailure() << "gap after " << e->ap << " -> " << e->ep;
    }
  }
  return testing::AssertionSuccess();
}

std::string Shifted(const std::vector<GE_POINT> &vertices, GE_POINT by) {
  std::string text;
  for (const GE_POINT p : vertices) {
    text += FormatNumber(p.x + by.x) + ' ' + FormatNumber(p.y + by.y) + '\n';
  }
  return text;
}

// A signed area is the same wherever a closed contour lies, but not that of
// a chain with a gap: the reader must not leave one where it merges.
TEST(TextFormat, MergedVerticesLeaveJointsThatMeetExactly) {
  struct Case {
    const char *what;
    std::vector<GE_POINT> vertices;  // a unit square with one vertex too many
    MergedVertex merged;
  };
  const Case cases[] = {
      {"the last vertex 4e-5 from the first",
       {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0.00004, 0}},
       {5, 1, true}},
      {"an element shorter than the tolerance in the middle",
       {{0, 0}, {1, 0}, {1.00004, 0.00003}, {1, 1}, {0, 1}},
       {3, 2, false}},
  };
  Store store;
  for (const Case &c : cases) {
    for (const double x : {0.0, 1e6}) {
      for (const double y : {0.0, 1e6}) {
        SCOPED_TRACE(std::string(c.what) + " at " + FormatNumber(x) + ", " + FormatNumber(y));
        ContourList list(store.get());
        ASSERT_FALSE(Read(Shifted(c.vertices, {x, y}), list));
        const Contour &read = list.contours()[0];
        EXPECT_EQ(Elements(read.k).size(), 4u);
        EXPECT_TRUE(JointsMeetExactly(read.k));
        EXPECT_NEAR(LiKontArea(read.k), 1, 1e-12);
        ASSERT_EQ(read.merged.size(), 1u);
        EXPECT_TRUE(read.merged[0].line == c.merged.line && read.merged[0].into == c.merged.into &&
                    read.merged[0].closing == c.merged.closing);
      }
    }
  }

  // The merge rule is the library's: both differences strictly below tol.
  polyarc_test::ToleranceScope tol(0.25);
  for (const auto &[last, elements, area] :
       {std::tuple{0.125, 4u, 4.0}, std::tuple{0.25, 5u, 3.75}}) {
    ContourList list(store.get());
    ASSERT_FALSE(Read("0 0\n2 0\n2 2\n0 2\n" + FormatNumber(last) + " 0\n", list));
    EXPECT_EQ(Elements(list.contours()[0].k).size(), elements) << last;
    EXPECT_EQ(LiKontArea(list.contours()[0].k), area) << last;
  }

  // The merged vertex's bulge moves to the vertex kept: a half circle
  // about (1, 1) from (1, 0) to (1, 2) on a right triangle of area 1.
  ContourList bulge(store.get());
  ASSERT_FALSE(Read("0 0\n1 0\n1.00001 0.00001 1\n1 2\n", bulge));
  EXPECT_NEAR(LiKontArea(bulge.contours()[0].k), 1 + kPi / 2, 1e-12);
  EXPECT_TRUE(JointsMeetExactly(bulge.contours()[0].k));
}

// Copied from the corpus: three vertices whose last one lies 2.4e-8 from
// the first, at coordinates of a few million; the chain with its gap left
// open read with an area of -0.129.
TEST(TextFormat, CorpusSliverReadsWithItsTinyArea) {
  Store store;
  ContourList list(store.get());
  std::string error;
  ASSERT_TRUE(ReadContourFile(std::string(POLYARC_TEST_DATA) + "/corpus/jts_robust_sliver.txt",
                              list, error))
      << error;
  ASSERT_EQ(list.size(), 1u);
  EXPECT_LT(std::fabs(LiKontArea(list.contours()[0].k)), 1e-6);
  EXPECT_TRUE(JointsMeetExactly(list.contours()[0].k));
  EXPECT_EQ(list.contours()[0].merged.size(), 1u);
}

TEST(TextFormat, ChosenBlocksAreReadAndTheOthersSkippedUnread) {
  const std::string text =
      "case a#1 | two squares\nshell 0\n0 0\n1 0\n1 1\n0 1\n\nshell 1\n5 5\n7 5\n7 7\n5 7\n\n"
      "case b#2 | broken\nshell 0\n0 0\n1 nan\n\nopen 7\n0 0\n";
  Store store;
  const std::tuple<BlockChoice, std::vector<int>, std::vector<double>> chosen[] = {
      {{{}, "a#1"}, {1, 2}, {1, 4}},  // IDs hold '#', which elsewhere starts a comment
      {{{2}, ""}, {2}, {4}},
      {{{1, 2}, "a#1"}, {1, 2}, {1, 4}},
  };
  for (const auto &[choice, numbers, areas] : chosen) {
    ContourList list(store.get());
    const auto error = Read(text, list, choice);
    ASSERT_FALSE(error) << error->message;
    ASSERT_EQ(list.size(), numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      EXPECT_EQ(list.contours()[i].number, numbers[i]);
      EXPECT_EQ(LiKontArea(list.contours()[i].k), areas[i]);
    }
  }
  const std::tuple<BlockChoice, int, const char *> refused[] = {
      {{}, 17, "'nan' is not a finite number"},
      {{{}, "b#2"}, 17, "'nan' is not a finite number"},
      {{{4}, ""}, 19, "'open' takes nothing after it, found '7'"},
      {{{5}, ""}, 0, "no block 5 (the text has 4 blocks)"},
      {{{2}, "b#2"}, 0, "no block 2 in case 'b#2' (the text has 4 blocks)"},
      {{{}, "c"}, 0, "no case 'c'"},
  };
  for (const auto &[choice, line, message] : refused) {
    ContourList list(store.get());
    const auto error = Read(text, list, choice);
    ASSERT_TRUE(error) << message;
    EXPECT_EQ(error->line, line);
    EXPECT_EQ(error->message, message);
    EXPECT_TRUE(list.empty());
  }
}

TEST(TextFormat, ReadingUnderAllocationFailureLosesNothing) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += "0 0\n10 0 0.25\n10 10\n0 10 -1\n\n";
  polyarc_test::ExpectCleanAllocationFailures(
      PA_NO_MEMORY, [](LI_HEAD *) { return polyarc_test::Live{}; },
      [&](LI_HEAD *head, polyarc_test::Live &) -> uint16_t {
        ContourList list(head);
        const auto error = Read(text, list);
        if (!error) return list.size() == 200 ? PA_OK : PA_INVALID;
        const bool clean = list.empty() && error->message.find("status 1005") != std::string::npos;
        return clean ? PA_NO_MEMORY : PA_INVALID;
      });
}

// Every corpus block reads back from its own text, and its area agrees
// with the one that the corpus's converter computed exactly.
TEST(TextFormat, CorpusContoursRoundTripWithTheirArea) {
  Store store;
  ContourList corpus(store.get());
  std::string error;
  ASSERT_TRUE(ReadContourFile(std::string(POLYARC_TEST_DATA) + "/corpus/geos_overlay_curves.txt",
                              corpus, error))
      << error;
  ASSERT_EQ(corpus.size(), 157u);
  for (const Contour &c : corpus.contours()) {
    SCOPED_TRACE("block on line " + std::to_string(c.line));
    ExpectRoundTrip(store, c.k);
    const std::size_t at = c.header.find(" area=");
    ASSERT_NE(at, std::string::npos);
    const double area = std::stod(c.header.substr(at + 6));
    EXPECT_NEAR(Measure(c.k).area, area, 1e-9 * std::fmax(1, std::fabs(area)));
  }
}

}  // namespace
}  // namespace polyarc_tool
