// Reading and writing the contour text format. Reading runs in two passes:
// the lines of the chosen blocks are checked and collected into blocks of
// vertices, and only a text without a syntax error is turned into
// contours, so that a bad text never leaves half of itself behind.
#include "text_format.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>
#include <system_error>
#include <vector>

#include "elements.h"
#include "status_text.h"

namespace polyarc_tool {
namespace {

struct Vertex {
  GE_POINT p;
  double bulge;      // of the segment that starts here
  int line;          // where the vertex was written
  int segment_line;  // where the bulge was written: line, or a vertex merged into this one
};

struct Block {
  std::string header;
  bool open = false;
  int line = 0;
  int number = 0;
  std::vector<Vertex> vertices;
};

// ---- Lines and tokens ------------------------------------------------------

std::string_view Trim(std::string_view s) {
  const auto first = s.find_first_not_of(" \t\r\f\v");
  if (first == std::string_view::npos) return {};
  return s.substr(first, s.find_last_not_of(" \t\r\f\v") - first + 1);
}

std::vector<std::string_view> Tokens(std::string_view s) {
  std::vector<std::string_view> tokens;
  while (!(s = Trim(s)).empty()) {
    const auto end = s.find_first_of(" \t\r\f\v");
    tokens.push_back(s.substr(0, end));
    s = end == std::string_view::npos ? std::string_view{} : s.substr(end);
  }
  return tokens;
}

enum class Number { kOk, kBad, kNotFinite, kOutOfRange };

// A decimal number as from_chars reads it, with an optional leading '+'.
Number ParseNumber(std::string_view token, double &x) {
  if (token.size() > 1 && token[0] == '+' && token[1] != '-') token.remove_prefix(1);
  const char *end = token.data() + token.size();
  const auto [stop, ec] = std::from_chars(token.data(), end, x);
  if (stop != end || (ec != std::errc() && ec != std::errc::result_out_of_range)) {
    return Number::kBad;
  }
  if (ec == std::errc::result_out_of_range) return Number::kOutOfRange;
  return std::isfinite(x) ? Number::kOk : Number::kNotFinite;
}

std::string Quoted(std::string_view s) {
  std::string quoted(1, '\'');
  quoted += s;
  return quoted += '\'';
}

bool IsBlockHeader(std::string_view word) {
  return word == "open" || word == "shell" || word == "hole" || word == "path";
}

bool IsMetadata(std::string_view word) {
  for (std::string_view known :
       {"case", "geometry", "note", "expect", "point", "precision", "end"}) {
    if (word == known) return true;
  }
  return false;
}

// ---- First pass: lines into blocks -----------------------------------------

// The ID of a corpus case line "case ID | description", read before
// comments are cut off since IDs hold '#'; nullopt for any other line.
std::optional<std::string> CaseId(std::string_view text) {
  if (Trim(text).substr(0, 4) != "case") return std::nullopt;
  const std::vector<std::string_view> tokens = Tokens(text);
  if (tokens.size() < 2 || tokens[0] != "case") return std::nullopt;
  return std::string(tokens[1]);
}

class BlockReader {
 public:
  explicit BlockReader(const BlockChoice &choice) : choice_(choice) {}

  // Takes one line (without its newline); number is 1-based.
  std::optional<TextError> Line(std::string_view text, int number) {
    if (auto id = CaseId(text)) {
      case_ = std::move(*id);
      cases_seen_.insert(case_);
      return std::nullopt;
    }
    const auto hash = text.find('#');
    const std::string_view data = Trim(text.substr(0, hash));
    if (data.empty()) {
      if (hash == std::string_view::npos) EndBlock();  // a blank line, not a comment line
      return std::nullopt;
    }
    const std::vector<std::string_view> tokens = Tokens(data);
    if (IsMetadata(tokens[0])) return std::nullopt;
    double x = 0;
    const bool word = ParseNumber(tokens[0], x) == Number::kBad &&
                      std::isalpha(static_cast<unsigned char>(tokens[0][0]));
    if (word && IsBlockHeader(tokens[0])) return Header(tokens, data, number);
    if (!current_) StartBlock("", number);
    if (skipping_) return std::nullopt;
    if (word) return TextError{number, "unknown keyword " + Quoted(tokens[0])};
    return VertexLine(tokens, number);
  }

  // The chosen blocks, or the error of a choice that missed.
  std::optional<TextError> Finish(std::vector<Block> &blocks) {
    EndBlock();
    if (auto error = MissedChoice()) return error;
    blocks = std::move(blocks_);
    return std::nullopt;
  }

 private:
  void StartBlock(std::string_view header, int number) {
    ++count_;
    skipping_ = !(choice_.numbers.empty() || choice_.numbers.count(count_)) ||
                !(choice_.case_id.empty() || choice_.case_id == case_);
    current_ = Block{std::string(header), false, number, count_, {}};
  }

  std::optional<TextError> Header(const std::vector<std::string_view> &tokens,
                                  std::string_view data, int number) {
    const std::string_view word = tokens[0];
    if (current_) {
      if (skipping_) return std::nullopt;
      return TextError{number, Quoted(word) +
                                   " must be the first line of a block (a blank line "
                                   "ends the block before it)"};
    }
    StartBlock(data, number);
    current_->open = word == "open";
    if (!skipping_ && word == "open" && tokens.size() > 1) {
      return TextError{number, "'open' takes nothing after it, found " + Quoted(tokens[1])};
    }
    return std::nullopt;
  }

  std::optional<TextError> VertexLine(const std::vector<std::string_view> &tokens, int number) {
    if (tokens.size() > 3) {
      return TextError{number, "a vertex line is 'x y' or 'x y bulge'; found " +
                                   std::to_string(tokens.size()) + " values"};
    }
    double values[3] = {0, 0, 0};
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      if (auto error = Value(tokens[i], number, values[i])) return error;
    }
    if (tokens.size() < 2) return TextError{number, "a vertex needs both x and y"};
    current_->vertices.push_back({{values[0], values[1]}, values[2], number, number});
    return std::nullopt;
  }

  static std::optional<TextError> Value(std::string_view token, int number, double &x) {
    switch (ParseNumber(token, x)) {
      case Number::kOk:
        return std::nullopt;
      case Number::kNotFinite:
        return TextError{number, Quoted(token) + " is not a finite number"};
      case Number::kOutOfRange:
        return TextError{number, Quoted(token) + " is out of the range of a double"};
      case Number::kBad:
        break;
    }
    return TextError{number, "bad number " + Quoted(token)};
  }

  void EndBlock() {
    if (current_ && !skipping_) blocks_.push_back(std::move(*current_));
    current_.reset();
    skipping_ = false;
  }

  std::optional<TextError> MissedChoice() const {
    const std::string in_case =
        choice_.case_id.empty() ? "" : " in case " + Quoted(choice_.case_id);
    if (!choice_.case_id.empty() && !cases_seen_.count(choice_.case_id)) {
      return TextError{0, "no case " + Quoted(choice_.case_id)};
    }
    for (const int n : choice_.numbers) {
      bool found = false;
      for (const Block &block : blocks_) found = found || block.number == n;
      if (!found) {
        return TextError{0, "no block " + std::to_string(n) + in_case + " (the text has " +
                                std::to_string(count_) + (count_ == 1 ? " block)" : " blocks)")};
      }
    }
    if (blocks_.empty() && !choice_.case_id.empty()) {
      return TextError{0, "case " + Quoted(choice_.case_id) + " has no blocks"};
    }
    return std::nullopt;
  }

  const BlockChoice &choice_;
  std::string case_;  // the case of the lines read, from its "case" line
  std::set<std::string> cases_seen_;
  int count_ = 0;  // blocks started so far, chosen or not
  bool skipping_ = false;
  std::optional<Block> current_;
  std::vector<Block> blocks_;
};

// ---- Second pass: blocks into contours --------------------------------------

// The vertices through which the contour runs: each one that coincides with
// the vertex kept before it is merged into that vertex, and, closing the
// block, so is a last vertex that coincides with the first. A merged
// vertex's bulge moves to the kept vertex, since the segment that started
// at it now starts there.
std::optional<TextError> MergeVertices(const Block &block, std::vector<Vertex> &kept,
                                       std::vector<MergedVertex> &merged) {
  const auto bulge_on_nothing = [](const Vertex &v) {
    return TextError{v.segment_line,
                     "a bulge on a zero-length segment: an arc needs two distinct ends"};
  };
  for (const Vertex &v : block.vertices) {
    if (kept.empty() || !Coincide(kept.back().p, v.p)) {
      kept.push_back(v);
      continue;
    }
    if (kept.back().bulge != 0) return bulge_on_nothing(kept.back());
    merged.push_back({v.line, kept.back().line, false});
    kept.back().bulge = v.bulge;
    kept.back().segment_line = v.line;
  }
  while (!block.open && kept.size() > 1 && Coincide(kept.back().p, kept.front().p)) {
    if (kept.back().bulge != 0) return bulge_on_nothing(kept.back());
    merged.push_back({kept.back().line, kept.front().line, true});
    kept.pop_back();
  }
  return std::nullopt;
}

// Centre of the arc with the given bulge from a to b. Written with 1/b - b
// rather than (1 - b^2)/b so that a huge bulge does not overflow.
GE_POINT BulgeCentre(GE_POINT a, GE_POINT b, double bulge) {
  const double f = (1.0 / bulge - bulge) * 0.25;
  const GE_POINT d{b.x - a.x, b.y - a.y};
  return {(a.x + b.x) * 0.5 - f * d.y, (a.y + b.y) * 0.5 + f * d.x};
}

bool Finite(GE_POINT p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// The element's numbers, its length and its share of the area are finite.
// A huge bulge can give an arc whose radius squared overflows.
bool FiniteElement(const LI_TAB_STRUCT *e) {
  const bool numbers = Finite(e->ap) && Finite(e->ep) && Finite(e->mp) && std::isfinite(e->rad) &&
                       std::isfinite(e->ang_ap) && std::isfinite(e->ang_ep) &&
                       Finite({e->box.xmin, e->box.ymin}) && Finite({e->box.xmax, e->box.ymax});
  const double chord_area = (e->ep.x - e->ap.x) * (e->ap.y + e->ep.y);
  if (!numbers || !std::isfinite(LiElemLen(e)) || !std::isfinite(chord_area)) return false;
  return !IsArc(e) || std::isfinite(GeArcArea(&e->ap, &e->ep, &e->mp, e->rad, e->type));
}

// Draws the segment that starts at vertex v and ends at p (which differ).
std::optional<TextError> DrawSegment(LI_HEAD *store, LI_TAB_STRUCT *&k, const Vertex &v,
                                     GE_POINT p) {
  uint16_t status = PA_OK;
  if (v.bulge == 0) {
    status = LiDraw(store, &k, &p);
  } else {
    const GE_POINT centre = BulgeCentre(k->prev->ep, p, v.bulge);
    if (!Finite(centre)) {
      return TextError{v.segment_line, "the bulge is too close to 0 for an arc (0 makes a line)"};
    }
    status = LiArc(store, &k, &p, &centre, v.bulge < 0 ? 1 : 0);
  }
  if (status != PA_OK) {
    return TextError{v.segment_line,
                     "the segment from this vertex cannot be built: " + StatusText(status)};
  }
  if (!FiniteElement(k->prev)) {
    return TextError{v.segment_line,
                     "the segment from this vertex comes out with numbers beyond a double's "
                     "range (a bulge or coordinates too large)"};
  }
  return std::nullopt;
}

std::optional<TextError> DrawBlock(const Block &block, const std::vector<Vertex> &v, LI_HEAD *store,
                                   LI_TAB_STRUCT *&k) {
  if (const uint16_t status = LiMove(store, &k, &v[0].p); status != PA_OK) {
    return TextError{v[0].line, "cannot start the contour: " + StatusText(status)};
  }
  const std::size_t segments = block.open || v.size() == 1 ? v.size() - 1 : v.size();
  for (std::size_t i = 0; i < segments; ++i) {
    if (auto error = DrawSegment(store, k, v[i], v[(i + 1) % v.size()].p)) return error;
  }
  if (!std::isfinite(LiKontArea(k)) || !std::isfinite(LiKontLen(k))) {
    return TextError{block.line, "the contour's area or length is beyond a double's range"};
  }
  return std::nullopt;
}

std::optional<TextError> BuildBlock(const Block &block, ContourList &out) {
  if (block.vertices.size() < 2) {
    return TextError{block.line, "a contour needs at least two vertices; this block has " +
                                     std::to_string(block.vertices.size())};
  }
  std::vector<Vertex> kept;
  std::vector<MergedVertex> merged;
  if (auto error = MergeVertices(block, kept, merged)) return error;
  LI_TAB_STRUCT *k = nullptr;
  if (auto error = DrawBlock(block, kept, out.store(), k)) {
    LiRemove(out.store(), &k);
    return error;
  }
  out.Add({k, block.header, block.line, block.number, std::move(merged)});
  return std::nullopt;
}

// ---- Writing --------------------------------------------------------------

void WriteVertex(std::ostream &out, GE_POINT p, double bulge) {
  out << FormatNumber(p.x) << ' ' << FormatNumber(p.y);
  if (bulge != 0) out << ' ' << FormatNumber(bulge);
  out << '\n';
}

// tan(sweep / 4) of an arc whose ends differ, from its half chord h, its
// radius r and the distance D of its centre from the chord's middle:
// h / (r + D) up to a half circle and (r + D) / h beyond. Neither form
// cancels, unlike a difference of polar angles, which loses the bulge of
// nearly flat and nearly full arcs; and a half circle gets exactly 1.
double Bulge(const LI_TAB_STRUCT *e) {
  const GE_POINT chord{e->ep.x - e->ap.x, e->ep.y - e->ap.y};
  const double h = std::hypot(chord.x, chord.y) * 0.5;
  const double r = std::fabs(e->rad);
  const double d =
      std::hypot(e->mp.x - (e->ap.x + e->ep.x) * 0.5, e->mp.y - (e->ap.y + e->ep.y) * 0.5);
  const double centre_left = chord.x * (e->mp.y - e->ap.y) - chord.y * (e->mp.x - e->ap.x);
  const bool ccw = e->type == LI_ARC_CCW;
  // A counter-clockwise arc of at most a half circle has its centre on the
  // left of the chord, a clockwise one on the right.
  const bool beyond_half = ccw ? centre_left < 0 : centre_left > 0;
  const double bulge = beyond_half ? (r + d) / h : h / (r + d);
  return ccw ? bulge : -bulge;
}

// The vertices that an element contributes: its start, and for a full
// circle also the opposite point, since one bulge cannot describe it.
void WriteElement(std::ostream &out, const LI_TAB_STRUCT *e) {
  if (!IsArc(e)) {
    WriteVertex(out, e->ap, 0);
  } else if (IsFullCircle(e)) {
    const double sense = e->type == LI_ARC_CCW ? 1.0 : -1.0;
    WriteVertex(out, e->ap, sense);
    WriteVertex(out, OppositeOnCircle(e), sense);
  } else {
    WriteVertex(out, e->ap, Bulge(e));
  }
}

// The runs of joined elements, beginning at start; moves are left out.
std::vector<std::vector<const LI_TAB_STRUCT *>> Runs(const LI_TAB_STRUCT *start) {
  std::vector<std::vector<const LI_TAB_STRUCT *>> runs;
  const LI_TAB_STRUCT *e = start;
  do {
    if (e->type != LI_MOVE) {
      if (runs.empty() || !JoinsNext(e->prev)) runs.emplace_back();
      runs.back().push_back(e);
    }
    e = e->next;
  } while (e != start);
  return runs;
}

}  // namespace

std::optional<TextError> ReadContours(std::istream &in, ContourList &out,
                                      const BlockChoice &choice) {
  BlockReader reader(choice);
  std::string text;
  int number = 1;
  for (; std::getline(in, text); ++number) {
    if (auto error = reader.Line(text, number)) return error;
  }
  if (in.bad()) return TextError{number, "the text cannot be read any further"};
  std::vector<Block> blocks;
  if (auto error = reader.Finish(blocks)) return error;
  ContourList read(out.store());
  for (const Block &block : blocks) {
    if (auto error = BuildBlock(block, read)) return error;
  }
  out.Append(std::move(read));
  return std::nullopt;
}

bool ReadContourFile(const std::string &path, ContourList &out, std::string &error,
                     const BlockChoice &choice) {
  std::optional<TextError> failure;
  if (path == "-") {
    failure = ReadContours(std::cin, out, choice);
  } else {
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
      error = path + ": is a directory";
      return false;
    }
    std::ifstream in(path);
    if (!in) {
      error = path + ": cannot open (" + std::strerror(errno) + ")";
      return false;
    }
    failure = ReadContours(in, out, choice);
  }
  if (!failure) return true;
  error = path;
  if (failure->line > 0) error += ':' + std::to_string(failure->line);
  error += ": " + failure->message;
  return false;
}

void WriteContour(std::ostream &out, const LI_TAB_STRUCT *k, const std::string &comment) {
  if (k == nullptr) return;
  if (!comment.empty()) {
    std::string line = comment;
    for (char &c : line) {
      if (c == '\n' || c == '\r') c = ' ';
    }
    out << "# " << line << '\n';
  }
  const LI_TAB_STRUCT *start = k;  // the first element after a gap, if there is one
  bool gap = false;
  do {
    gap = !JoinsNext(start->prev);
  } while (!gap && (start = start->next) != k);
  if (!gap) {
    for (const LI_TAB_STRUCT *e = k;;) {
      WriteElement(out, e);
      if ((e = e->next) == k) break;
    }
    out << '\n';
    return;
  }
  for (const auto &run : Runs(start)) {
    out << "open\n";
    for (const LI_TAB_STRUCT *e : run) WriteElement(out, e);
    WriteVertex(out, run.back()->ep, 0);
    out << '\n';
  }
}

std::optional<double> ParseDecimal(std::string_view text) {
  double x = 0;
  if (ParseNumber(text, x) != Number::kOk) return std::nullopt;
  return x;
}

std::string FormatNumber(double x) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, x == 0 ? 0.0 : x);
  return std::string(buffer, result.ptr);
}

}  // namespace polyarc_tool
