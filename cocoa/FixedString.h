#pragma once
// A string literal as a template argument.

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace cocoa {

template <std::size_t N>
struct FixedString {
  char text[N]{};
  // NOLINTNEXTLINE(google-explicit-constructor): a string literal is meant to become a template argument
  consteval FixedString(const char (&literal)[N]) { std::copy_n(literal, N, text); }
  [[nodiscard]] constexpr std::string_view view() const { return {text, N - 1}; }
  [[nodiscard]] constexpr std::size_t arguments() const {
    return static_cast<std::size_t>(std::count(text, text + N - 1, ':'));
  }
};

}  // namespace cocoa
