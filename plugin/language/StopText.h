#pragma once
// Helpers that the readers of gradient and bevel strings share.

#include <string_view>

#include "plugin/text/TextNumbers.h"

namespace velura {

/// Takes `expected` off the front of `text` if it stands there.
constexpr bool takeText(std::string_view& text, std::string_view expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

/// Takes all decimal digits off the front.
constexpr std::string_view takeDigitText(std::string_view& text) {
  std::size_t count = 0;
  while (count < text.size() && isDecimalDigit(text[count])) ++count;
  const std::string_view digits = text.substr(0, count);
  text.remove_prefix(count);
  return digits;
}

}  // namespace velura
