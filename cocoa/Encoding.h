#pragma once
// Method type encodings: made from C++ signatures, and compared by calling convention. Two runtimes
// spell one signature differently (BOOL, struct names, frame digits), so letters are no basis for it.

#include <optional>
#include <string>
#include <string_view>

#include "cocoa/Message.h"

namespace cocoa {

/// The encoding of one type. Specialised for every plain struct that crosses a message.
template <class T>
struct TypeEncoding {
  static constexpr std::string_view text() {
    using U = std::remove_cv_t<T>;
    if constexpr (std::is_void_v<U>)
      return "v";
    else if constexpr (Handle<U> || std::is_same_v<U, id>)
      return "@";
    else if constexpr (std::is_same_v<U, Class>)
      return "#";
    else if constexpr (std::is_same_v<U, SEL>)
      return ":";
    else if constexpr (std::is_same_v<U, const char*>)
      return "r*";
    else if constexpr (std::is_same_v<U, char*>)
      return "*";
    else if constexpr (std::is_pointer_v<U>)
      return "^v";
    else if constexpr (std::is_same_v<U, bool>)
      return "B";
    else if constexpr (std::is_same_v<U, double>)
      return "d";
    else if constexpr (std::is_same_v<U, float>)
      return "f";
    else if constexpr (std::is_enum_v<U>)
      return TypeEncoding<std::underlying_type_t<U>>::text();
    else if constexpr (sizeof(U) == 8)
      return std::is_signed_v<U> ? "q" : "Q";
    else if constexpr (sizeof(U) == 4)
      return std::is_signed_v<U> ? "i" : "I";
    else if constexpr (sizeof(U) == 2)
      return std::is_signed_v<U> ? "s" : "S";
    else
      return std::is_signed_v<U> ? "c" : "C";
  }
};
template <>
struct TypeEncoding<CGPoint> {
  static constexpr std::string_view text() { return "{CGPoint=dd}"; }
};
template <>
struct TypeEncoding<CGSize> {
  static constexpr std::string_view text() { return "{CGSize=dd}"; }
};
template <>
struct TypeEncoding<CGRect> {
  static constexpr std::string_view text() { return "{CGRect={CGPoint=dd}{CGSize=dd}}"; }
};
template <>
struct TypeEncoding<NSRange> {
  static constexpr std::string_view text() { return "{_NSRange=QQ}"; }
};

/// The encoding of a method, frame digits included, as the compiler would have written it.
template <class R, class... A>
std::string methodEncoding() {
  constexpr std::size_t kSlot = 8;
  [[maybe_unused]] const auto slots = [](std::size_t size) { return (size + kSlot - 1) / kSlot * kSlot; };
  std::string arguments = "@0:8";
  std::size_t offset = 2 * kSlot;
  ((arguments += std::string(TypeEncoding<A>::text()) + std::to_string(offset), offset += slots(sizeof(A))), ...);
  return std::string(TypeEncoding<R>::text()) + std::to_string(offset) + arguments;
}

namespace detail {
/// Reads one encoded type and appends how it is passed: 'p' an object or pointer, digits an integer of
/// that many bytes, 'd' and 'f' floating point, 'v' nothing; structs are flattened between brackets.
class EncodingReader {
 public:
  explicit EncodingReader(std::string_view encoding) : rest_(encoding) {}
  [[nodiscard]] bool atEnd() const { return rest_.empty(); }

  bool readType(std::string& out, int depth = 0) {
    constexpr int kDeepest = 16;
    skipQualifiers();
    if (rest_.empty() || depth > kDeepest) return false;
    const char letter = take();
    switch (letter) {
      case '@':
        return skipObjectDetail(), out += 'p', true;
      case '#':
      case ':':
      case '*':
        return out += 'p', true;
      case '^': {
        std::string ignored;
        if (!readType(ignored, depth + 1)) return false;
        return out += 'p', true;
      }
      case '?':
        return out += 'p', true;
      case 'v':
        return out += 'v', true;
      case 'c':
      case 'C':
      case 'B':
        return out += '1', true;
      case 's':
      case 'S':
        return out += '2', true;
      case 'i':
      case 'I':
        return out += '4', true;
      case 'l':
      case 'L':
      case 'q':
      case 'Q':
        return out += '8', true;
      case 'f':
        return out += 'f', true;
      case 'd':
        return out += 'd', true;
      case '{':
        return readStruct(out, depth);
      default:
        return false;
    }
  }
  void skipDigits() {
    while (!rest_.empty() && (isDigit(rest_.front()) || rest_.front() == '+' || rest_.front() == '-')) take();
  }

 private:
  static bool isDigit(char c) { return c >= '0' && c <= '9'; }
  char take() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }
  void skipQualifiers() {
    while (!rest_.empty() && std::string_view("rnNoORVA").find(rest_.front()) != std::string_view::npos) take();
  }
  void skipObjectDetail() {
    if (!rest_.empty() && rest_.front() == '?') take();
    if (!rest_.empty() && rest_.front() == '"') {
      const auto end = rest_.find('"', 1);
      rest_ = end == std::string_view::npos ? std::string_view() : rest_.substr(end + 1);
    }
  }
  bool readStruct(std::string& out, int depth) {
    const auto nameEnd = rest_.find_first_of("=}");
    if (nameEnd == std::string_view::npos) return false;
    const bool hasFields = rest_[nameEnd] == '=';
    rest_ = rest_.substr(nameEnd + 1);
    out += '{';
    while (hasFields && !rest_.empty() && rest_.front() != '}') {
      if (!readType(out, depth + 1)) return false;
      skipDigits();
    }
    if (hasFields) {
      if (rest_.empty()) return false;
      take();
    }
    out += '}';
    return true;
  }

  std::string_view rest_;
};
}  // namespace detail

/// How a method's result and arguments are passed; nothing when the encoding cannot be read.
inline std::optional<std::string> callingConvention(std::string_view encoding) {
  detail::EncodingReader reader(encoding);
  std::string convention;
  while (!reader.atEnd()) {
    if (!reader.readType(convention)) return std::nullopt;
    convention += ' ';
    reader.skipDigits();
  }
  return convention;
}

/// Whether a method of one encoding can stand in for a method of the other.
inline bool sameCallingConvention(std::string_view a, std::string_view b) {
  const auto first = callingConvention(a);
  return first.has_value() && first == callingConvention(b);
}

}  // namespace cocoa
