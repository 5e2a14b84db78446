#pragma once
// Numbers read leniently from the front of a text: white space is skipped, a sign may stand, reading ends
// at the first character that does not fit, and nothing to read is 0. Any number of digits is defined.

#include <cstdint>
#include <limits>
#include <string_view>

namespace velura {

constexpr bool isDecimalDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr void skipWhiteSpace(std::string_view& text) {
  while (!text.empty() && isWhiteSpace(text.front())) text.remove_prefix(1);
}

/// Takes a sign off the front; true for a minus.
constexpr bool takeSign(std::string_view& text) {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool negative = text.front() == '-';
  text.remove_prefix(1);
  return negative;
}

/// The value of a digit in any base up to 16; 16 for what is no digit.
constexpr unsigned digitValue(char c) {
  if (isDecimalDigit(c)) return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
  return 16;
}

/// Takes the digits of a base off the front. A number beyond `T` becomes the nearest that `T` has.
template <class T>
constexpr T takeDigits(std::string_view& text, unsigned base, bool negative) {
  constexpr T kLowest = std::numeric_limits<T>::min();
  constexpr T kHighest = std::numeric_limits<T>::max();
  T value = 0;
  for (; !text.empty() && digitValue(text.front()) < base; text.remove_prefix(1)) {
    const auto digit = static_cast<T>(digitValue(text.front()));
    const auto factor = static_cast<T>(base);
    if (negative) {
      value = value < (kLowest + digit) / factor ? kLowest : static_cast<T>(value * factor - digit);
    } else {
      value = value > (kHighest - digit) / factor ? kHighest : static_cast<T>(value * factor + digit);
    }
  }
  return value;
}

/// A whole number at the front of the text.
constexpr std::int64_t leadingInteger(std::string_view text) {
  skipWhiteSpace(text);
  const bool negative = takeSign(text);
  return takeDigits<std::int64_t>(text, 10, negative);
}

/// A number with an optional fraction at the front of the text. Digits beyond the 18th do not count.
constexpr double leadingDecimal(std::string_view text) {
  constexpr std::int64_t kMostDigits = 100'000'000'000'000'000;
  skipWhiteSpace(text);
  const bool negative = takeSign(text);
  const auto whole = static_cast<double>(takeDigits<std::int64_t>(text, 10, false));
  double value = whole;
  if (text.starts_with('.')) {
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;
    for (text.remove_prefix(1); !text.empty() && isDecimalDigit(text.front()); text.remove_prefix(1)) {
      if (denominator >= kMostDigits) break;
      numerator = numerator * 10 + (text.front() - '0');
      denominator *= 10;
    }
    value += static_cast<double>(numerator) / static_cast<double>(denominator);
  }
  return negative ? -value : value;
}

}  // namespace velura
