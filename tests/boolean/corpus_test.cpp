// Union, intersection and difference against the external corpus: every
// case whose two operands are each one simple closed contour, with the
// result areas that Boost.Geometry, Clipper2, JTS and GEOS expect; and the
// JTS point/area locations. The contours come from the program's reader;
// this file reads only the corpus's metadata lines.
#include <cmath>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/boolean_support.h"
#include "text_format.h"

namespace polyarc_test {
namespace {

using polyarc_tool::Contour;
using polyarc_tool::ContourList;

// The first three checks are the operations, in the order of Op.
enum class Check { kUnion, kIntersection, kDifference, kSymDifference, kIdentities, kCompletes };

// One expectation on operands a and b: the area lies in [lo, hi] (a point
// or an interval), widened by rel times its larger end and by 1e-9 (A + B),
// which gives an expected 0 the margin of rounding.
struct Expectation {
  Check check;
  std::string a, b, label;
  double lo = 0, hi = 0, rel = 0;
};

struct Operand {
  bool single = false;
  std::vector<const Contour *> blocks;
};

struct Case {
  std::string id;
  std::string skip;  // why no operation runs, when it does not
  std::map<std::string, Operand> operands;
  std::vector<Expectation> expectations;
  std::vector<std::pair<GE_POINT, int>> points;  // 1 interior, 0 boundary, -1 exterior
};

std::vector<std::string> Words(const std::string &line) {
  std::istringstream in(line);
  std::vector<std::string> out;
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

// The value of key=value among the words, or "".
std::string Attribute(const std::vector<std::string> &words, const std::string &key) {
  for (const std::string &w : words) {
    if (w.rfind(key + "=", 0) == 0) return w.substr(key.size() + 1);
  }
  return "";
}

bool ParseCheck(const std::string &op, Check &check) {
  static const std::map<std::string, Check> kNames = {{"union", Check::kUnion},
                                                      {"intersection", Check::kIntersection},
                                                      {"difference", Check::kDifference},
                                                      {"symdifference", Check::kSymDifference}};
  const auto it = kNames.find(op);
  if (it != kNames.end()) check = it->second;
  return it != kNames.end();
}

// Clipper2's own test accepts 1 % of area, more on the cases it names.
double ClipperAllowance(const std::string &id) {
  static const std::map<int, double> kLoose = {{16, 0.075}, {19, 0.5},  {22, 0.5}, {23, 0.5},
                                               {24, 0.5},   {26, 0.05}, {63, 0.1}, {193, 0.2}};
  const auto it = kLoose.find(std::stoi(id.substr(id.find('#') + 1)));
  return it == kLoose.end() ? 0.01 : it->second;
}

// A Boost line: "expect OP X[i] X[j] area=[lo,hi] src=...", checked as
// Boost does: 1e-5 relative for union, 1e-6 else. An interval gets the
// same margin, since a symmetric difference's adds a point to an interval.
void BoostExpectation(Case &c, const std::vector<std::string> &w) {
  Expectation e{};
  if (w.size() < 5 || !ParseCheck(w[1], e.check)) return;
  e.a = w[2], e.b = w[3], e.label = w[1] + "(" + w[2] + "," + w[3] + ")";
  const std::string range = Attribute(w, "area");
  e.lo = std::stod(range.substr(1)), e.hi = std::stod(range.substr(range.find(',') + 1));
  e.rel = e.check == Check::kUnion ? 1e-5 : 1e-6;
  c.expectations.push_back(e);
}

// "expect clipper cliptype=OP fillrule=R area=N count=C". With one path per
// operand, even-odd and non-zero fill alike; area -1 means none stored.
void ClipperExpectation(Case &c, const std::vector<std::string> &w) {
  Expectation e{};
  const std::string rule = Attribute(w, "fillrule"), area = Attribute(w, "area");
  if (!ParseCheck(Attribute(w, "cliptype"), e.check)) return;
  if (rule != "evenodd" && rule != "nonzero") {
    c.skip = "the fill rule " + rule + " decides";
    return;
  }
  if (area == "-1") {
    c.skip = "no expected area";
    return;
  }
  e.a = "subject", e.b = "clip", e.label = Attribute(w, "cliptype");
  e.lo = e.hi = std::stod(area);
  e.rel = ClipperAllowance(c.id);
  c.expectations.push_back(e);
}

// JTS and GEOS: "expect overlayAreaTest A B = true" (the area identities),
// "expect intersection A B = <none>" (must complete); unionArea and
// isValid concern one operand alone.
void JtsExpectation(Case &c, const std::vector<std::string> &w) {
  if (w.size() < 4) return;
  if (w[1] == "overlayAreaTest" || w[1] == "overlayareatest") {
    c.expectations.push_back({Check::kIdentities, w[2], w[3], "identities", 0, 0, 0});
  } else if (w.back() == "<none>") {
    c.expectations.push_back({Check::kCompletes, w[2], w[3], "completes", 0, 0, 0});
  }
}

// "geometry expected NAME A B op=OP [scale=s] ... area=X": the area of an
// expected result, snap-rounded to a grid when a scale is given.
void ExpectedGeometry(Case &c, const std::vector<std::string> &w) {
  Expectation e{};
  if (w.size() < 6 || !ParseCheck(Attribute(w, "op"), e.check)) return;
  if (!Attribute(w, "scale").empty()) {
    c.skip = "results snap-rounded to a grid";
    return;
  }
  e.a = w[3], e.b = w[4], e.label = w[2] + "(" + w[3] + "," + w[4] + ")";
  e.lo = e.hi = std::stod(Attribute(w, "area"));
  e.rel = 1e-6;
  c.expectations.push_back(e);
}

// The cases of a corpus file, with the blocks of each operand from the
// program's reader (a block's line is that of its header).
std::vector<Case> ReadCases(const std::string &path, const ContourList &contours) {
  std::map<int, const Contour *> at_line;
  for (const Contour &k : contours.contours()) at_line[k.line] = &k;
  std::ifstream in(path);
  std::vector<Case> cases;
  Operand *operand = nullptr;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    const std::vector<std::string> w = Words(line);
    if (w.empty() || w[0][0] == '#') continue;
    if (w[0] == "case") {
      cases.push_back({w.at(1), "", {}, {}, {}});
      operand = nullptr;
    }
    if (cases.empty()) continue;
    Case &c = cases.back();
    if (w[0] == "precision") c.skip = "results snap-rounded to a grid";
    if (w[0] == "note" && w.size() > 1 && w[1] == "single=1") {
      for (auto &[name, o] : c.operands) o.single = true;
    }
    if (w[0] == "geometry" && w.size() > 1 && w[1] == "expected") {
      ExpectedGeometry(c, w);
      operand = nullptr;
    } else if (w[0] == "geometry" && w.size() > 1) {
      operand = &c.operands[w[1]];
      operand->single = Attribute(w, "single") == "1";
    }
    if ((w[0] == "shell" || w[0] == "hole" || w[0] == "path") && operand != nullptr) {
      operand->blocks.push_back(at_line.at(number));
    }
    if (w[0] == "point") {
      const int where = w.at(3) == "interior" ? 1 : w[3] == "boundary" ? 0 : -1;
      c.points.push_back({{std::stod(w[1]), std::stod(w[2])}, where});
    }
    if (w[0] == "expect" && w.size() > 1 && w[1] == "clipper") {
      ClipperExpectation(c, w);
    } else if (w[0] == "expect" && Attribute(w, "area").rfind('[', 0) == 0) {
      BoostExpectation(c, w);
    } else if (w[0] == "expect") {
      JtsExpectation(c, w);
    }
  }
  return cases;
}

// The region of one operation as a caller reads it (no short-element
// removal, arcs kept): the loops, or the contours themselves by their
// nesting when nothing crossed. Crossing contours without a loop of the
// operation's kind (PA_IMPOSSIBLE with no_cross 0) leave an empty
// intersection or difference; any other status is no result.
struct Region {
  uint16_t status = PA_OK;
  double area = 0;
};

Region Run(LI_HEAD *head, Op op, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b) {
  const Outcome out(head, op, a, b);
  if (out.status() == PA_IMPOSSIBLE && out.no_cross() == 0 && op != Op::kUnion) return {};
  if (out.status() != PA_OK) return {out.status(), std::nan("")};
  return {PA_OK, out.RegionArea(std::fabs(LiKontArea(a)), std::fabs(LiKontArea(b)))};
}

struct Verdict {
  uint16_t status = PA_OK;  // the first failing status, when one failed
  bool agree = false;
  std::string detail;
};

// Runs what one expectation needs on two contours a and b.
class CaseRun {
 public:
  CaseRun(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b) : head_(head), k_{a, b} {
    for (int i = 0; i < 2; ++i) area_[i] = std::fabs(LiKontArea(k_[i]));
  }

  Verdict Judge(const Expectation &e) {
    if (e.check == Check::kIdentities) return Identities();
    if (e.check == Check::kSymDifference) {
      return Area(e, Get(Op::kDifference, 0) + Get(Op::kDifference, 1));
    }
    if (e.check != Check::kCompletes) return Area(e, Get(static_cast<Op>(e.check), 0));
    Get(Op::kUnion, 0), Get(Op::kIntersection, 0), Get(Op::kDifference, 0);
    return {status_, status_ == PA_OK, ""};
  }

 private:
  // The region's area of op on (a, b), or with swapped set on (b, a).
  double Get(Op op, int swapped) {
    const Region r = Run(head_, op, k_[swapped], k_[1 - swapped]);
    if (status_ == PA_OK) status_ = r.status;
    return r.area;
  }

  Verdict Area(const Expectation &e, double got) {
    if (status_ != PA_OK) return {status_, false, ""};
    const double nearest = std::fmin(std::fmax(got, e.lo), e.hi);
    const double allowed =
        e.rel * std::fmax(std::fabs(e.lo), std::fabs(e.hi)) + 1e-9 * (area_[0] + area_[1]);
    std::ostringstream detail;
    detail.precision(12);
    detail << "area " << got << ", expected [" << e.lo << ", " << e.hi << "] +- " << allowed;
    return {PA_OK, std::fabs(got - nearest) <= allowed, detail.str()};
  }

  // The overlay area identities, within 1e-6 (A + B) as JTS checks them:
  // A = I + (A - B), B = I + (B - A), U = I + (A - B) + (B - A).
  Verdict Identities() {
    const double i = Get(Op::kIntersection, 0), u = Get(Op::kUnion, 0);
    const double a_b = Get(Op::kDifference, 0), b_a = Get(Op::kDifference, 1);
    if (status_ != PA_OK) return {status_, false, ""};
    const double worst =
        std::fmax(std::fabs(area_[0] - i - a_b),
                  std::fmax(std::fabs(area_[1] - i - b_a), std::fabs(u - i - a_b - b_a)));
    std::ostringstream detail;
    detail.precision(12);
    detail << "A " << area_[0] << ", B " << area_[1] << ", I " << i << ", U " << u << ", A-B "
           << a_b << ", B-A " << b_a << ": worst identity off by " << worst;
    return {PA_OK, worst <= 1e-6 * (area_[0] + area_[1]), detail.str()};
  }

  LI_HEAD *head_;
  const LI_TAB_STRUCT *k_[2];
  double area_[2] = {0, 0};
  uint16_t status_ = PA_OK;
};

// The checks that do not agree: their outcome ("disagree" or the status)
// and why. A listed check that agrees, or fails otherwise, fails the test,
// so that the list stays exact. Reasons: the input is outside what the
// operations take (spikes, zero area); the expectation does not fit the
// input (the exact area, from rational arithmetic or Boost.Geometry
// without its rescaling, equals ours); the tolerance (5e-5): the result
// matches at tolerance 1e-9; or the library's rules (a documented status).
struct Known {
  const char *outcome, *why;
};
const std::map<std::string, Known> kKnown = {
    {"boost:case_precision_1 difference(case_precision_1[1],case_precision_1[0])",
     {"disagree", "tolerance: the overlap is a strip 1e-5 wide, so nothing crosses"}},
    {"boost:geos_1 union(geos_1[0],geos_1[1])",
     {"status 3011", "tolerance: the boundaries run within tol of each other; one loop"}},
    {"boost:geos_1 intersection(geos_1[0],geos_1[1])",
     {"status 3011", "tolerance: the boundaries run within tol of each other; one loop"}},
    {"boost:geos_1 difference(geos_1[1],geos_1[0])",
     {"disagree", "tolerance: B - A is slivers narrower than tol, most of them lost"}},
    {"boost:ticket_9756 union(ticket_9756[0],ticket_9756[1])",
     {"disagree", "input: the converter dropped the last vertex of an unclosed WKT ring"}},
    {"boost:issue_838 union(issue_838[0],issue_838[1])",
     {"disagree", "tolerance: A leaves B by a sliver narrower than tol; A counts as inside"}},
    {"boost:issue_1138 difference(issue_1138[0],issue_1138[1])",
     {"disagree", "input: the converter lost the points of a WKT run without commas"}},
    {"boost:issue_1138 difference(issue_1138[1],issue_1138[0])",
     {"disagree", "input: the converter lost the points of a WKT run without commas"}},
    {"boost:issue_1138 symdifference(issue_1138[0],issue_1138[1])",
     {"disagree", "input: the converter lost the points of a WKT run without commas"}},
    {"boost:ggl_list_20190307_matthieu_1 difference(ggl_list_20190307_matthieu_1[1],"
     "ggl_list_20190307_matthieu_1[0])",
     {"disagree", "tolerance: 2e-7 relative, from snapping crossings"}},
    {"boost:buffer_rt_a union(buffer_rt_a[0],buffer_rt_a[1])",
     {"disagree", "expectation: rounded to 19.28; exact 19.280666884"}},
    {"boost:buffer_rt_a union(buffer_rt_a[1],buffer_rt_a[0])",
     {"disagree", "expectation: rounded to 19.28; exact 19.280666884"}},
    {"boost:ticket_11121 difference(ticket_11121[0],ticket_11121[1])",
     {"disagree", "expectation: exact 489834"}},
    {"boost:ticket_11121 difference(ticket_11121[1],ticket_11121[0])",
     {"disagree", "expectation: exact 6743503.5"}},
    {"TestOverlay-geos-1051.xml#1 identities", {"status 1005", "input: both have spikes"}},
    {"TestOverlay-geos-358.xml#1 identities",
     {"status 3011",
      "input: A has spikes narrower than tol, and where it turns back along B "
      "1.2 tol off B's corner the crossing stays unpaired; B - A made up for it "
      "only while B's tip 2.3 tol past A's corner counted as a crossing too"}},
    {"TestOverlay-geos-153.xml#1 identities",
     {"status 1005", "input: A (area 7.6e-7) is smaller than the tolerance"}},
    {"TestOverlay-jts-798.xml#1 identities", {"status 3011", "input: A has zero area"}},
    {"TestOverlay-jts-798.xml#2 identities", {"status 1005", "input: A has zero area"}},
    {"TestOverlay-jts-798.xml#3 identities", {"status 3011", "input: A has zero area"}},
    {"TestOverlay-misc-3.xml#1 intersection(A,B)",
     {"disagree", "expectation: snapped; exact 0.0140486714"}},
    {"TestOverlay-misc-3.xml#2 intersection(A,B)",
     {"disagree", "expectation: snapped; exact 2.95e-6"}},
    {"TestOverlay-pg-list.xml#1 intersection(A,B)",
     {"disagree", "expectation: snapped, exact 2.15e-6; tolerance: a sliver, ours empty"}},
    {"TestOverlay-pg-list.xml#3 identities",
     {"status 3011",
      "input: A meets itself within tol, as the program reports; where it "
      "folds back along B the fold voids the overlap's end"}},
    {"TestOverlay-pg-list.xml#5 identities",
     {"status 3011",
      "input: A meets itself within tol, as the program reports; where it "
      "folds back along B the fold voids the overlap's end"}},
};

// Whether both operands of e are one simple contour each.
bool Runnable(const Case &c, const Expectation &e) {
  for (const std::string *name : {&e.a, &e.b}) {
    const auto it = c.operands.find(*name);
    if (it == c.operands.end() || !it->second.single || it->second.blocks.size() != 1) return false;
  }
  return true;
}

// The contours and cases of a corpus file.
struct CorpusFile {
  explicit CorpusFile(const std::string &name) {
    const std::string file = __FILE__;
    const std::string path = file.substr(0, file.rfind("/tests/")) + "/tests/data/corpus/" + name;
    std::string error;
    EXPECT_TRUE(polyarc_tool::ReadContourFile(path, contours, error)) << error;
    cases = ReadCases(path, contours);
  }
  Store store;
  ContourList contours{store.get()};
  std::vector<Case> cases;
};

// Runs every expectation of the file's single-contour cases, reports each
// check that differs from the known list and prints a summary line.
void RunCorpusFile(const std::string &name) {
  CorpusFile corpus(name);
  Store &store = corpus.store;
  std::map<std::string, int> count;  // agree, disagree, status N, skipped
  std::set<std::string> ids, met;
  for (const Case &c : corpus.cases) {
    ids.insert(c.id);
    for (const Expectation &e : c.expectations) {
      if (!c.skip.empty() || !Runnable(c, e)) {
        ++count["skipped"];
        continue;
      }
      CaseRun run(store.get(), c.operands.at(e.a).blocks[0]->k, c.operands.at(e.b).blocks[0]->k);
      const Verdict v = run.Judge(e);
      const std::string key = c.id + " " + e.label;
      const auto known = kKnown.find(key);
      const std::string outcome = v.agree             ? "agree"
                                  : v.status != PA_OK ? "status " + std::to_string(v.status)
                                                      : "disagree";
      ++count[outcome];
      if (known != kKnown.end()) {
        met.insert(key);
        EXPECT_EQ(outcome, known->second.outcome) << key << ": " << v.detail;
      } else {
        EXPECT_TRUE(v.agree) << key << ": status " << v.status << "; " << v.detail;
      }
    }
  }
  for (const auto &[key, why] : kKnown) {
    const bool here = ids.count(key.substr(0, key.find(' '))) != 0;
    EXPECT_TRUE(!here || met.count(key)) << key << " is listed but never checked";
  }
  std::ostringstream summary;
  for (const auto &[what, n] : count) summary << what << " " << n << "; ";
  std::cout << name << ": " << summary.str() << "listed " << met.size() << "\n";
  testing::Test::RecordProperty("summary", summary.str());
}

TEST(BooleanCorpus, BoostOverlay) { RunCorpusFile("boost_overlay.txt"); }
TEST(BooleanCorpus, Clipper2Polygons) { RunCorpusFile("clipper2_polygons.txt"); }
TEST(BooleanCorpus, GeosOverlayCurves) { RunCorpusFile("geos_overlay_curves.txt"); }
TEST(BooleanCorpus, JtsOverlayGeneral) { RunCorpusFile("jts_overlay_general.txt"); }
TEST(BooleanCorpus, JtsRobustOverlay) { RunCorpusFile("jts_robust_overlay.txt"); }

// Pairs that random sweeps found, kept with the reason in the file. The
// contours run within tol of each other in places, so the identities hold
// to the tolerance along their boundaries, not to rounding.
TEST(BooleanPairs, AreaIdentitiesHoldToTheTolerance) {
  const std::string file = __FILE__;
  const std::string path = file.substr(0, file.rfind("/tests/")) + "/tests/data/boolean_pairs.txt";
  Store store;
  ContourList contours(store.get());
  std::string error;
  ASSERT_TRUE(polyarc_tool::ReadContourFile(path, contours, error)) << error;
  const auto &k = contours.contours();
  ASSERT_EQ(k.size() % 2, 0u);
  for (size_t i = 0; i < k.size(); i += 2) {
    const LI_TAB_STRUCT *a = k[i].k, *b = k[i + 1].k;
    const double area_a = std::fabs(LiKontArea(a)), area_b = std::fabs(LiKontArea(b));
    const double allowed = 4 * GeEpsiGetTol() * (LiKontLen(a) + LiKontLen(b));
    const auto run = [&](Op op, const LI_TAB_STRUCT *x, const LI_TAB_STRUCT *y) {
      return polyarc_test::Run(store.get(), op, x, y);
    };
    const Region r[4] = {run(Op::kUnion, a, b), run(Op::kIntersection, a, b),
                         run(Op::kDifference, a, b), run(Op::kDifference, b, a)};
    SCOPED_TRACE(testing::Message() << "pair from line " << k[i].line);
    for (const Region &one : r) EXPECT_EQ(one.status, PA_OK);
    EXPECT_NEAR(r[0].area + r[1].area, area_a + area_b, allowed);
    EXPECT_NEAR(r[2].area + r[1].area, area_a, allowed);
    EXPECT_NEAR(r[3].area + r[1].area, area_b, allowed);
  }
}

// Where p lies against a case's polygons: on any ring is the boundary;
// inside a shell and in none of its polygon's holes is the interior.
int Locate(const Case &c, GE_POINT p) {
  std::set<std::string> shells, holes;  // operand and polygon number
  for (const auto &[name, operand] : c.operands) {
    for (const Contour *k : operand.blocks) {
      const uint16_t r = LiPointInKont(k->k, &p);
      if (r == LI_PT_ON) return 0;
      const std::vector<std::string> w = Words(k->header);
      if (r == LI_PT_INSIDE) (w[0] == "hole" ? holes : shells).insert(name + " " + w.at(1));
    }
  }
  for (const std::string &shell : shells) {
    if (holes.count(shell) == 0) return 1;
  }
  return -1;
}

TEST(PointCorpus, JtsPointAreaLocations) {
  const CorpusFile corpus("jts_relate_pip.txt");
  int points = 0;
  for (const Case &c : corpus.cases) {
    for (const auto &[p, where] : c.points) {
      ++points;
      EXPECT_EQ(Locate(c, p), where) << c.id << " at " << p;
    }
  }
  EXPECT_EQ(points, 27);
}

}  // namespace
}  // namespace polyarc_test
