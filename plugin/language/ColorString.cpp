#include "plugin/language/ColorString.h"

#include <algorithm>

#include "plugin/text/TextNumbers.h"

namespace velura {

namespace {

constexpr std::string_view kPrefix = "sRGBColor:";

bool hasPrefix(std::string_view text) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return text.size() >= kPrefix.size() && std::ranges::equal(text.substr(0, kPrefix.size()), kPrefix, {}, lower, lower);
}

/// Takes "0x" off the front when a hexadecimal digit follows: without one the 0 is a number by itself.
bool takeHexadecimalPrefix(std::string_view& text) {
  const bool found =
      text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X') && digitValue(text[2]) < 16;
  if (found) text.remove_prefix(2);
  return found;
}

/// Takes what "%i" takes.
std::optional<std::int32_t> takeInteger(std::string_view& text) {
  skipWhiteSpace(text);
  const bool negative = takeSign(text);
  if (text.empty() || !isDecimalDigit(text.front())) return std::nullopt;
  if (takeHexadecimalPrefix(text)) return takeDigits<std::int32_t>(text, 16, negative);
  return takeDigits<std::int32_t>(text, text.front() == '0' ? 8 : 10, negative);
}

bool take(std::string_view& text, char c) {
  if (!text.starts_with(c)) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

int scanColorString(std::string_view text, ColorComponents& color) {
  if (!text.starts_with(kPrefix)) return 0;
  text.remove_prefix(kPrefix.size());
  if (!take(text, '{')) return 0;
  int read = 0;
  for (std::int32_t* component : {&color.red, &color.green, &color.blue, &color.alpha}) {
    const auto value = takeInteger(text);
    if (!value) break;
    *component = *value;
    ++read;
    if (!take(text, ',')) break;
  }
  return read;
}

std::optional<ColorComponents> parseColorString(std::string_view text) {
  if (!hasPrefix(text)) return std::nullopt;
  ColorComponents color;
  scanColorString(text, color);
  return color;
}

}  // namespace velura
