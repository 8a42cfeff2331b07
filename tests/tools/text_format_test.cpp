// The contour text format: reading, writing and round trips.
#include "text_format.h"

#include <cmath>
#include <sstream>

#include "support/support.h"

namespace polyarc_tool {
namespace {

using polyarc_test::AllRecordsAccounted;
using polyarc_test::Elements;
using polyarc_test::Store;

constexpr double kPi = 3.141592653589793;

std::optional<TextError> Read(const std::string &text, ContourList &out) {
  std::istringstream in(text);
  return ReadContours(in, out);
}

std::string Written(const LI_TAB_STRUCT *k) {
  std::ostringstream out;
  WriteContour(out, k);
  return out.str();
}

bool IsArc(const LI_TAB_STRUCT *e) {
  return e->type == LI_ARC_CW || e->type == LI_ARC_CCW;
}

// The point halfway along an arc, found from the chord and the sagitta
// rather than from the centre, whose position is ill-conditioned for
// nearly flat arcs.
GE_POINT ArcMiddle(const LI_TAB_STRUCT *e) {
  const double dx = e->ep.x - e->ap.x, dy = e->ep.y - e->ap.y;
  const double chord = std::hypot(dx, dy), h = chord / 2, r = std::fabs(e->rad);
  const double rest = std::sqrt(std::fmax(r * r - h * h, 0));
  double sweep = e->type == LI_ARC_CCW ? e->ang_ep - e->ang_ap : e->ang_ap - e->ang_ep;
  if (sweep < 0) sweep += 2 * kPi;
  const double sagitta = sweep <= kPi ? h * h / (r + rest) : r + rest;
  // A counter-clockwise arc bulges to the right of its chord.
  const double side = e->type == LI_ARC_CCW ? 1 : -1;
  return {e->ap.x + dx / 2 + side * sagitta * dy / chord,
          e->ap.y + dy / 2 - side * sagitta * dx / chord};
}

// Same elements, ends and (for arcs) sense and middle within 1e-12 of the
// element's size.
void ExpectSameGeometry(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b) {
  const auto ea = Elements(a), eb = Elements(b);
  ASSERT_EQ(ea.size(), eb.size());
  for (std::size_t i = 0; i < ea.size(); ++i) {
    SCOPED_TRACE("element " + std::to_string(i));
    EXPECT_EQ(ea[i]->type, eb[i]->type);
    EXPECT_EQ(ea[i]->ap, eb[i]->ap);
    EXPECT_EQ(ea[i]->ep, eb[i]->ep);
    if (!IsArc(ea[i]) || !IsArc(eb[i])) continue;
    const double size = std::fmax(1, std::fabs(ea[i]->rad));
    const GE_POINT ma = ArcMiddle(ea[i]), mb = ArcMiddle(eb[i]);
    EXPECT_NEAR(ma.x, mb.x, 1e-12 * size);
    EXPECT_NEAR(ma.y, mb.y, 1e-12 * size);
    EXPECT_NEAR(ea[i]->rad, eb[i]->rad, 1e-12 * size);
  }
}

// Writes k, reads it back and checks the geometry; returns the text.
std::string ExpectRoundTrip(Store &store, LI_TAB_STRUCT *k) {
  const std::string text = Written(k);
  ContourList back(store.get());
  const auto error = Read(text, back);
  EXPECT_FALSE(error) << error->message << "\n" << text;
  EXPECT_EQ(back.size(), 1u) << text;
  if (back.size() == 1) ExpectSameGeometry(k, back.contours()[0].k);
  return text;
}

TEST(TextFormat, LinesAndArcsOfBothSensesRoundTrip) {
  Store store;
  // A 2 x 2 slot: a counter-clockwise half circle bulges out on the right,
  // a clockwise one bites in on the left.
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT p0{0, 0}, p1{2, 0}, c1{2, 1}, p2{2, 2}, p3{0, 2}, c3{0, 1};
  ASSERT_EQ(LiMove(store.get(), &k, &p0), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &p1), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &p2, &c1, 0), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &p3), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &k, &p0, &c3, 1), PA_OK);
  EXPECT_EQ(ExpectRoundTrip(store, k), "0 0\n2 0 1\n2 2\n0 2 -1\n\n")
      << "a half circle has the bulge 1 exactly";

  // A quarter of the unit circle counter-clockwise, then three quarters
  // clockwise: an open contour.
  LI_TAB_STRUCT *q = nullptr;
  const GE_POINT a{1, 0}, b{0, 1}, c{-1, 0}, o{0, 0};
  ASSERT_EQ(LiMove(store.get(), &q, &a), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &q, &b, &o, 0), PA_OK);
  ASSERT_EQ(LiArc(store.get(), &q, &c, &o, 1), PA_OK);
  std::istringstream lines(ExpectRoundTrip(store, q));
  std::string open;
  std::getline(lines, open);
  EXPECT_EQ(open, "open");
  double x, y, bulge;
  lines >> x >> y >> bulge;
  EXPECT_NEAR(bulge, std::tan(kPi / 8), 1e-15);
  lines >> x >> y >> bulge;
  EXPECT_NEAR(bulge, -std::tan(3 * kPi / 8), 1e-15);
  LiRemove(store.get(), &k);
  LiRemove(store.get(), &q);
  EXPECT_TRUE(AllRecordsAccounted(store.head(), {}));
}

TEST(TextFormat, FullCircleIsWrittenAsTwoHalves) {
  Store store;
  ContourList list(store.get());
  ASSERT_FALSE(Read("# unit circle about (1, 0)\n0 0 1\n2 0 1\n", list));
  ASSERT_EQ(list.size(), 1u);
  LI_TAB_STRUCT *k = list.contours()[0].k;
  const auto halves = Elements(k);
  ASSERT_EQ(halves.size(), 2u);
  for (const LI_TAB_STRUCT *e : halves) {
    EXPECT_EQ(e->type, LI_ARC_CCW);
    EXPECT_NEAR(e->mp.x, 1, 1e-15);
    EXPECT_NEAR(e->mp.y, 0, 1e-15);
    EXPECT_NEAR(e->rad, 1, 1e-15);
  }
  EXPECT_EQ(halves[1]->ep, halves[0]->ap);

  // One element whose ends meet is a whole circle; one bulge cannot say
  // that, so it is split at the opposite point.
  LI_TAB_STRUCT *circle = nullptr;
  ASSERT_EQ(LiNew(store.get(), &circle), PA_OK);
  circle->type = LI_ARC_CW;
  circle->ap = circle->ep = {3, 1};
  circle->mp = {1, 1};
  circle->rad = 2;
  ASSERT_EQ(LiElemExpand(circle), PA_OK);
  EXPECT_EQ(Written(circle), "3 1 -1\n-1 1 -1\n\n");
  ContourList back(store.get());
  ASSERT_FALSE(Read(Written(circle), back));
  for (const LI_TAB_STRUCT *e : Elements(back.contours()[0].k)) {
    EXPECT_EQ(e->type, LI_ARC_CW);
    EXPECT_EQ(e->mp, (GE_POINT{1, 1}));
    EXPECT_EQ(e->rad, 2);
  }
  LiRemove(store.get(), &circle);
}

TEST(TextFormat, TinyAndHugeBulgesKeepTheirSagitta) {
  Store store;
  // The middle of an arc with bulge b on a chord of length c lies b * c / 2
  // from the chord, on the right for b > 0.
  for (const double bulge : {1e-9, -1e-9, 1e-3, 0.5, -2.0, 1e3, -1e6}) {
    SCOPED_TRACE(bulge);
    ContourList list(store.get());
    ASSERT_FALSE(Read("open\n0 0 " + FormatNumber(bulge) + "\n1 0\n", list));
    LI_TAB_STRUCT *k = list.contours()[0].k;
    ASSERT_EQ(Elements(k).size(), 1u);
    EXPECT_EQ(k->type, bulge > 0 ? LI_ARC_CCW : LI_ARC_CW);
    const GE_POINT middle = ArcMiddle(k);
    EXPECT_NEAR(middle.x, 0.5, 1e-12 * std::fmax(1, std::fabs(bulge)));
    EXPECT_NEAR(middle.y, -bulge / 2, 1e-12 * std::fmax(1, std::fabs(bulge)));
    ExpectRoundTrip(store, k);
  }
}

TEST(TextFormat, OpenAndClosedBlocks) {
  Store store;
  ContourList list(store.get());
  ASSERT_FALSE(Read("open\n0 0\n3 0\n3 4 0.5\n\n0 0\n3 0\n3 4\n", list));
  ASSERT_EQ(list.size(), 2u);
  const auto open = Elements(list.contours()[0].k);
  ASSERT_EQ(open.size(), 2u) << "the last bulge of an open block is ignored";
  EXPECT_EQ(open[1]->type, LI_LINE);
  EXPECT_EQ(open[1]->ep, (GE_POINT{3, 4}));
  EXPECT_EQ(list.contours()[0].header, "open");
  const auto closed = Elements(list.contours()[1].k);
  ASSERT_EQ(closed.size(), 3u);
  EXPECT_EQ(closed[2]->ep, (GE_POINT{0, 0})) << "the last vertex connects back to the first";
  EXPECT_DOUBLE_EQ(closed[2]->ang_ep - closed[2]->ang_ap, 5);
  EXPECT_EQ(list.contours()[1].line, 6);

  EXPECT_EQ(Written(list.contours()[0].k), "open\n0 0\n3 0\n3 4\n\n");
  EXPECT_EQ(Written(list.contours()[1].k), "0 0\n3 0\n3 4\n\n");
  EXPECT_EQ(Written(nullptr), "");
}

TEST(TextFormat, CommentsMetadataAndHeaders) {
  Store store;
  ContourList list(store.get());
  const std::string text =
      "# wkt_to_bulge 1 format\r\n"
      "case demo#1 | two shells\n"
      "geometry A polygons=1 shells=1 holes=1 area=3\n"
      "shell 0 vertices=4 area=4   # the outer boundary\n"
      "0 0 0\n"
      "# a comment line does not end the block\n"
      "2 0   # a vertex without a bulge\n"
      "2 2 0\n"
      "+0 2e0 0\n"
      "   \t\n"
      "\n"
      "hole 0 vertices=3 area=-0.5\n"
      "0.5 0.5\n"
      "0.5 1.5\n"
      "1.5 0.5\n"
      "\n"
      "path 1\n"
      "5 5\n"
      "6 5\n"
      "6 6\n"
      "note dropped nothing\n"
      "expect union A B = 3\n"
      "point 1 1 interior\n"
      "precision scale=1\n"
      "end\n";
  ASSERT_FALSE(Read(text, list));
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list.contours()[0].header, "shell 0 vertices=4 area=4");
  EXPECT_EQ(list.contours()[0].line, 4);
  EXPECT_EQ(Elements(list.contours()[0].k).size(), 4u);
  EXPECT_EQ(list.contours()[1].header, "hole 0 vertices=3 area=-0.5");
  EXPECT_EQ(Elements(list.contours()[1].k).size(), 3u);
  EXPECT_EQ(list.contours()[2].header, "path 1");
  EXPECT_EQ(list.contours()[2].line, 17);
  EXPECT_EQ(Elements(list.contours()[2].k).size(), 3u);

  ContourList dups(store.get());
  ASSERT_FALSE(Read("0 0\n0 0\n1 0\n1 1\n1 1\n", dups)) << "repeated points add nothing";
  EXPECT_EQ(Elements(dups.contours()[0].k).size(), 3u);
  ContourList point(store.get());
  ASSERT_FALSE(Read("2 2\n2.00001 2\n2 2.00001\n", point)) << "a shape below the tolerance";
  ASSERT_EQ(Elements(point.contours()[0].k).size(), 1u);
  EXPECT_EQ(point.contours()[0].k->type, LI_MOVE);
}

TEST(TextFormat, MalformedInputGivesTheLineAndNothingElse) {
  struct Case {
    const char *text;
    int line;
    const char *message;
  };
  const Case cases[] = {
      {"0 0\n1 x\n1 1\n", 2, "bad number 'x'"},
      {"0 0\n1 -\n", 2, "bad number '-'"},
      {"0 0\n1 1 0.5.5\n", 2, "bad number '0.5.5'"},
      {"0 0\n1 nan\n1 1\n", 2, "'nan' is not a finite number"},
      {"0 0\n-inf 1\n1 1\n", 2, "'-inf' is not a finite number"},
      {"0 0\n1 0 infinity\n1 1\n", 2, "'infinity' is not a finite number"},
      {"0 0\n1 1e999\n1 1\n", 2, "'1e999' is out of the range"},
      {"\nsquare\n0 0\n", 2, "unknown keyword 'square'"},
      {"0 0\n1 0\nOpen\n", 3, "unknown keyword 'Open'"},
      {"0 0\n1 0\nshell 0\n1 1\n", 3, "'shell' must be the first line of a block"},
      {"open\nhole 1\n0 0\n1 1\n", 2, "'hole' must be the first line"},
      {"open 1\n0 0\n1 1\n", 1, "'open' takes nothing after it"},
      {"0 0\n1 0 0 0\n", 2, "found 4 values"},
      {"0 0\n5\n", 2, "a vertex needs both x and y"},
      {"1 1\n\n0 0\n", 1, "at least two vertices; this block has 1"},
      {"0 0\n1 0\n\nshell 0\n\n", 4, "this block has 0"},
      {"1 1\n0 0 0.5\n0 0\n", 2, "a bulge on a zero-length segment"},
      {"0 0 1\n0 0 1\n", 1, "a bulge on a zero-length segment"},
      {"open\n0 0\n1 1 1\n0 0\n1 1 1\n1 1\n", 5, "a bulge on a zero-length segment"},
      {"0 0\n0.00006 0 1\n", 2, "cannot be built: radius below the tolerance (status 2339)"},
      {"0 0\n1e300 0 1e-300\n", 2, "the bulge is too close to 0"},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(c.text);
    Store store;
    ContourList list(store.get());
    ASSERT_FALSE(Read("0 0\n1 0\n1 1\n", list));
    const auto error = Read(c.text, list);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->line, c.line);
    EXPECT_NE(error->message.find(c.message), std::string::npos) << error->message;
    EXPECT_EQ(list.size(), 1u) << "a bad text adds no contour, not even its good blocks";
    EXPECT_TRUE(AllRecordsAccounted(store.head(), {list.contours()[0].k}));
  }
}

TEST(TextFormat, ReadingUnderAllocationFailureLosesNothing) {
  std::string text;  // 800 elements: the store has to grow several times
  for (int i = 0; i < 200; ++i) text += "0 0\n10 0 0.25\n10 10\n0 10 -1\n\n";
  const unsigned long runs =
      polyarc_test::ForEachAllocationFailure([&](polyarc_test::InjectedFailure &failure) {
        Store store;
        ContourList list(store.get());
        failure.Arm();
        const auto error = Read(text, list);
        failure.Disarm();
        if (failure.Fired()) {
          ASSERT_TRUE(error);
          EXPECT_NE(error->message.find("status 1005"), std::string::npos) << error->message;
          EXPECT_TRUE(list.empty());
          EXPECT_TRUE(AllRecordsAccounted(store.head(), {}));
        } else {
          ASSERT_FALSE(error);
          EXPECT_EQ(list.size(), 200u);
        }
      });
  EXPECT_GE(runs, 3u);
}

TEST(TextFormat, MovesAndGapsSplitIntoOpenRuns) {
  Store store;
  LI_TAB_STRUCT *k = nullptr;
  const GE_POINT a{0, 0}, b{1, 0}, c{5, 5}, d{6, 5};
  ASSERT_EQ(LiMove(store.get(), &k, &a), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &b), PA_OK);
  ASSERT_EQ(LiMove(store.get(), &k, &c), PA_OK);
  ASSERT_EQ(LiDraw(store.get(), &k, &d), PA_OK);
  EXPECT_EQ(Written(k), "open\n0 0\n1 0\n\nopen\n5 5\n6 5\n\n");
  ContourList back(store.get());
  ASSERT_FALSE(Read(Written(k), back));
  EXPECT_EQ(back.size(), 2u);
  LiRemove(store.get(), &k);
}

TEST(TextFormat, CorpusContoursRoundTrip) {
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
  }
  EXPECT_FALSE(ReadContourFile("/nonexistent/polyarc.txt", corpus, error));
  EXPECT_EQ(error, "/nonexistent/polyarc.txt: cannot open (No such file or directory)");
}

TEST(TextFormat, NumbersReadBackExactly) {
  EXPECT_EQ(FormatNumber(1), "1");
  EXPECT_EQ(FormatNumber(-0.0), "0");
  EXPECT_EQ(FormatNumber(0.1), "0.1");
  EXPECT_EQ(FormatNumber(-2.5), "-2.5");
  Store store;
  for (const double x : {1.0 / 3, kPi, 4046942.39533656, 1e-300, -1.7976931348623157e308}) {
    ContourList list(store.get());
    ASSERT_FALSE(Read("open\n" + FormatNumber(x) + " 0\n0 1\n", list));
    EXPECT_EQ(list.contours()[0].k->ap.x, x);
  }
}

}  // namespace
}  // namespace polyarc_tool
