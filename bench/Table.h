#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

/// The table that all benchmarks print into: a row for each figure, with the ratio that tells
/// something on any machine, and the aim it is held against. Markdown, so that it can be pasted;
/// its heading is scripts/benchmarks'.
namespace Table {

/// What a ratio, or a share, is held against.
struct Aim {
  enum class Kind { AtMost, LessThan, AtLeast, Nothing };
  Kind kind = Kind::Nothing;
  double value = 0;

  bool met(double figure) const {
    switch (kind) {
      case Kind::AtMost:
        return figure <= value;
      case Kind::LessThan:
        return figure < value;
      case Kind::AtLeast:
        return figure >= value;
      case Kind::Nothing:
        break;
    }
    return true;
  }
};

inline Aim atMost(double value) {
  return {Aim::Kind::AtMost, value};
}
inline Aim below(double value) {
  return {Aim::Kind::LessThan, value};
}
inline Aim atLeast(double value) {
  return {Aim::Kind::AtLeast, value};
}

/// A number with its unit: three digits that count.
inline std::string number(double value, const char* unit) {
  char text[64];
  std::snprintf(text, sizeof text,
                value < 10    ? "%.2f %s"
                : value < 100 ? "%.1f %s"
                              : "%.0f %s",
                value, unit);
  return text;
}

inline std::string text(const Aim& aim) {
  constexpr const char* words[] = {"at most %g", "below %g", "at least %g", ""};
  char line[64];
  std::snprintf(line, sizeof line, words[static_cast<int>(aim.kind)], aim.value);
  return line;
}

/// `figure` is what the aim is about: a ratio or a share.
inline void row(const std::string& what, const std::string& ours, const std::string& beside,
                double figure, const Aim& aim) {
  const char* met = aim.kind == Aim::Kind::Nothing ? "" : aim.met(figure) ? "yes" : "NO";
  std::printf("| %-52s | %-10s | %-10s | %6.2f | %-13s | %-3s |\n", what.c_str(), ours.c_str(),
              beside.c_str(), figure, text(aim).c_str(), met);
  std::fflush(stdout);
}

/// Ratios of one run: the row's figure is the one in the middle, and the text tells the others.
class Spread {
 public:
  void add(double ratio) { ratios_.insert(std::ranges::upper_bound(ratios_, ratio), ratio); }
  double middle() const { return ratios_[ratios_.size() / 2]; }
  std::string text() const {
    char line[64];
    std::snprintf(line, sizeof line, " (%.2f to %.2f)", ratios_.front(), ratios_.back());
    return line;
  }

 private:
  std::vector<double> ratios_;
};

}  // namespace Table
