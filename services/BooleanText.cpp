#include "services/BooleanText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

std::string_view withoutBlanks(std::string_view text) {
  constexpr const char* kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Whether a text is a word, whatever the case of its letters; the word is in small letters.
bool isWord(std::string_view text, std::string_view word) {
  return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
  });
}

}  // namespace

std::optional<bool> booleanFromText(std::string_view text) {
  text = withoutBlanks(text);
  if (isWord(text, "true")) return true;
  if (isWord(text, "false")) return false;

  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (fault != std::errc{} || end != text.data() + text.size() || !std::isfinite(number)) return {};
  return number != 0;
}
