// Reading and writing the contour text format. Reading runs in two passes:
// the lines are checked and collected into blocks of vertices, and only a
// text without a syntax error is turned into contours, so that a bad text
// never leaves half of itself behind.
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
  double bulge;
  int line;
};

struct Block {
  std::string header;
  bool open = false;
  int line = 0;
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

class BlockReader {
 public:
  // Takes one line (without its newline); number is 1-based.
  std::optional<TextError> Line(std::string_view text, int number) {
    const auto hash = text.find('#');
    const std::string_view data = Trim(text.substr(0, hash));
    if (data.empty()) {
      if (hash == std::string_view::npos) EndBlock();  // a blank line, not a comment line
      return std::nullopt;
    }
    const std::vector<std::string_view> tokens = Tokens(data);
    double x = 0;
    const Number first = ParseNumber(tokens[0], x);
    if (first == Number::kBad && std::isalpha(static_cast<unsigned char>(tokens[0][0]))) {
      return Keyword(tokens, data, number);
    }
    return VertexLine(tokens, number);
  }

  std::vector<Block> Finish() {
    EndBlock();
    return std::move(blocks_);
  }

 private:
  std::optional<TextError> Keyword(const std::vector<std::string_view> &tokens,
                                   std::string_view data, int number) {
    const std::string_view word = tokens[0];
    if (IsMetadata(word)) return std::nullopt;
    if (!IsBlockHeader(word)) return TextError{number, "unknown keyword " + Quoted(word)};
    if (current_) {
      return TextError{number, Quoted(word) +
                                   " must be the first line of a block (a blank line "
                                   "ends the block before it)"};
    }
    if (word == "open" && tokens.size() > 1) {
      return TextError{number, "'open' takes nothing after it, found " + Quoted(tokens[1])};
    }
    current_ = Block{std::string(data), word == "open", number, {}};
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
    if (!current_) current_ = Block{"", false, number, {}};
    current_->vertices.push_back({{values[0], values[1]}, values[2], number});
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
    if (current_) blocks_.push_back(std::move(*current_));
    current_.reset();
  }

  std::optional<Block> current_;
  std::vector<Block> blocks_;
};

// ---- Second pass: blocks into contours --------------------------------------

// Centre of the arc with the given bulge from a to b. Written with 1/b - b
// rather than (1 - b^2)/b so that a huge bulge does not overflow.
GE_POINT BulgeCentre(GE_POINT a, GE_POINT b, double bulge) {
  const double f = (1.0 / bulge - bulge) * 0.25;
  const GE_POINT d{b.x - a.x, b.y - a.y};
  return {(a.x + b.x) * 0.5 - f * d.y, (a.y + b.y) * 0.5 + f * d.x};
}

// Draws the segment that starts at vertex v and ends at p.
std::optional<TextError> DrawSegment(LI_HEAD *store, LI_TAB_STRUCT *&k, const Vertex &v,
                                     GE_POINT p) {
  const GE_POINT from = k->prev->ep;
  uint16_t status = PA_OK;
  if (v.bulge == 0) {
    status = LiDraw(store, &k, &p);
  } else if (Coincide(from, p)) {
    return TextError{v.line, "a bulge on a zero-length segment: an arc needs two distinct ends"};
  } else {
    const GE_POINT centre = BulgeCentre(from, p, v.bulge);
    if (!std::isfinite(centre.x) || !std::isfinite(centre.y)) {
      return TextError{v.line, "the bulge is too close to 0 for an arc (0 makes a line)"};
    }
    status = LiArc(store, &k, &p, &centre, v.bulge < 0 ? 1 : 0);
  }
  if (status != PA_OK) {
    return TextError{v.line, "the segment from this vertex cannot be built: " + StatusText(status)};
  }
  return std::nullopt;
}

std::optional<TextError> DrawBlock(const Block &block, LI_HEAD *store, LI_TAB_STRUCT *&k) {
  const std::vector<Vertex> &v = block.vertices;
  if (v.size() < 2) {
    return TextError{block.line, "a contour needs at least two vertices; this block has " +
                                     std::to_string(v.size())};
  }
  if (const uint16_t status = LiMove(store, &k, &v[0].p); status != PA_OK) {
    return TextError{v[0].line, "cannot start the contour: " + StatusText(status)};
  }
  const std::size_t segments = block.open ? v.size() - 1 : v.size();
  for (std::size_t i = 0; i < segments; ++i) {
    if (auto error = DrawSegment(store, k, v[i], v[(i + 1) % v.size()].p)) return error;
  }
  return std::nullopt;
}

std::optional<TextError> BuildBlock(const Block &block, ContourList &out) {
  LI_TAB_STRUCT *k = nullptr;
  if (auto error = DrawBlock(block, out.store(), k)) {
    LiRemove(out.store(), &k);
    return error;
  }
  out.Add({k, block.header, block.line});
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

std::optional<TextError> ReadContours(std::istream &in, ContourList &out) {
  BlockReader reader;
  std::string text;
  int number = 1;
  for (; std::getline(in, text); ++number) {
    if (auto error = reader.Line(text, number)) return error;
  }
  if (in.bad()) return TextError{number, "the text cannot be read any further"};
  ContourList read(out.store());
  for (const Block &block : reader.Finish()) {
    if (auto error = BuildBlock(block, read)) return error;
  }
  out.Append(std::move(read));
  return std::nullopt;
}

bool ReadContourFile(const std::string &path, ContourList &out, std::string &error) {
  std::optional<TextError> failure;
  if (path == "-") {
    failure = ReadContours(std::cin, out);
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
    failure = ReadContours(in, out);
  }
  if (!failure) return true;
  error = path + ":" + std::to_string(failure->line) + ": " + failure->message;
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

std::string FormatNumber(double x) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, x == 0 ? 0.0 : x);
  return std::string(buffer, result.ptr);
}

}  // namespace polyarc_tool
