#include "calculators/camera/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace zenivo {
namespace {

constexpr struct {
  std::string_view glyph;
  double value;
} kTypedGlyphs[] = {{"¼", 1.0 / 4}, {"⅓", 1.0 / 3}, {"½", 1.0 / 2}, {"⅔", 2.0 / 3}, {"¾", 3.0 / 4}};

char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isLetter(char c) {
  return lowered(c) >= 'a' && lowered(c) <= 'z';
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// "e6" where a text goes on so.
std::string_view exponentAt(std::string_view text) {
  if (text.size() < 2 || lowered(text[0]) != 'e' || !isDigit(text[1])) return {};
  const auto end = std::ranges::find_if_not(text.substr(1), isDigit);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

}  // namespace

void TextScanner::skipBlanks() {
  while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) rest_.remove_prefix(1);
}

bool TextScanner::atEnd() {
  skipBlanks();
  return rest_.empty();
}

bool TextScanner::scan(std::string_view word) {
  skipBlanks();
  if (rest_.size() < word.size()) return false;
  const auto same = [](char a, char b) { return lowered(a) == lowered(b); };
  if (!std::equal(word.begin(), word.end(), rest_.begin(), same)) return false;
  const bool goesOn = rest_.size() > word.size() && isLetter(rest_[word.size()]);
  if (isLetter(word.back()) && goesOn) return false;
  rest_.remove_prefix(word.size());
  return true;
}

std::optional<double> TextScanner::number() {
  skipBlanks();
  const auto isDecimal = [](char c) { return isDigit(c) || c == '.' || c == ','; };
  auto length =
      static_cast<std::size_t>(std::ranges::find_if_not(rest_, isDecimal) - rest_.begin());
  std::string digits(rest_.substr(0, length));
  if (const auto comma = digits.find(','); comma != digits.npos) {
    const bool mayBeThousands = digits.size() - comma == 4 && digits.substr(0, comma) != "0";
    if (mayBeThousands || digits.find('.') != digits.npos) return std::nullopt;
    digits[comma] = '.';
  }
  const auto exponent = exponentAt(rest_.substr(length));
  digits += exponent;
  length += exponent.size();
  double value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  rest_.remove_prefix(length);
  return value;
}

std::optional<double> TextScanner::lastTwoDigits() {
  if (rest_.size() != 2 || !isDigit(rest_[0]) || !isDigit(rest_[1])) return std::nullopt;
  const int value = (rest_[0] - '0') * 10 + (rest_[1] - '0');
  if (value >= 60) return std::nullopt;
  rest_.remove_prefix(2);
  return value;
}

std::optional<double> TextScanner::fraction() {
  for (const auto& [glyph, value] : kTypedGlyphs) {
    if (scan(glyph)) return value;
  }
  const std::string_view before = rest_;
  if (const auto numerator = number(); numerator && scan("/")) {
    if (const auto denominator = number(); denominator && *denominator != 0) {
      return *numerator / *denominator;
    }
  }
  rest_ = before;
  return std::nullopt;
}

std::optional<double> TextScanner::mixedNumber() {
  if (const auto part = fraction()) return part;
  const auto whole = number();
  if (!whole || *whole != std::trunc(*whole)) return whole;
  return *whole + fraction().value_or(0);
}

}  // namespace zenivo
