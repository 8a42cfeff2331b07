// Test support for containment: the corpus reader.
#include "support/containment_support.h"

#include <fstream>
#include <sstream>

namespace polyarc_test {
namespace {

int Location(const std::string &word) {
  if (word == "interior") return 1;
  if (word == "boundary") return 0;
  EXPECT_EQ(word, "exterior");
  return -1;
}

// Reads the "x y bulge" lines of one block up to the blank line.
void ReadVertices(std::istream &in, CorpusRing &ring) {
  std::string line;
  while (std::getline(in, line) && !line.empty()) {
    std::istringstream fields(line);
    GE_POINT p{};
    double bulge = 0;
    fields >> p.x >> p.y >> bulge;
    EXPECT_EQ(bulge, 0.0) << "arcs are not read here";
    ring.vertices.push_back(p);
  }
}

}  // namespace

std::vector<CorpusCase> ReadPointCases(const std::string &path) {
  std::ifstream in(path);
  EXPECT_TRUE(in.good()) << path;
  std::vector<CorpusCase> cases;
  std::string line;
  while (std::getline(in, line)) {
    std::istringstream fields(line);
    std::string word;
    fields >> word;
    if (word == "case") {
      cases.emplace_back();
      fields >> cases.back().id;
    } else if (word == "shell" || word == "hole") {
      CorpusRing ring{0, word == "hole", {}};
      fields >> ring.polygon;
      ReadVertices(in, ring);
      cases.back().rings.push_back(ring);
    } else if (word == "point") {
      CorpusPoint point{};
      std::string where;
      fields >> point.p.x >> point.p.y >> where;
      point.expected = Location(where);
      cases.back().points.push_back(point);
    }
  }
  return cases;
}

LI_TAB_STRUCT *Ring(LI_HEAD *head, const std::vector<GE_POINT> &vertices) {
  LI_TAB_STRUCT *k = nullptr;
  EXPECT_EQ(LiMove(head, &k, &vertices[0]), PA_OK);
  for (size_t i = 1; i < vertices.size(); ++i) EXPECT_EQ(LiDraw(head, &k, &vertices[i]), PA_OK);
  EXPECT_EQ(LiDraw(head, &k, &vertices[0]), PA_OK);
  return k;
}

}  // namespace polyarc_test
