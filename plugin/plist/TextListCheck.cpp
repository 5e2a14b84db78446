// OpenStep property lists: ( arrays ), { keys = values; }, <hex data>, "quoted" and plain strings.

#include <algorithm>
#include <bitset>

#include "plugin/plist/PropertyListCheck.h"

namespace velura {

namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool isPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         std::string_view("_$/:.-").find(c) != std::string_view::npos;
}

class TextListScanner {
 public:
  explicit TextListScanner(std::string_view text) : text_(text) {}

  bool passes() {
    if (!scanValue()) return false;
    while (depth_ > 0) {
      if (!(inDictionary() ? scanEntry() : scanItem())) return false;
    }
    return skipSpace() && at_ == text_.size();
  }

 private:
  [[nodiscard]] bool atEnd() const { return at_ >= text_.size(); }
  [[nodiscard]] char current() const { return text_[at_]; }
  [[nodiscard]] bool startsWith(std::string_view text) const { return text_.substr(at_).starts_with(text); }
  [[nodiscard]] bool inDictionary() const { return dictionaries_[depth_ - 1]; }

  bool take(char c) {
    if (atEnd() || current() != c) return false;
    ++at_;
    return true;
  }
  /// White space and comments. False for a comment without end.
  bool skipSpace() {
    while (!atEnd()) {
      if (isSpace(current())) {
        ++at_;
      } else if (startsWith("//")) {
        at_ = std::min(text_.find_first_of("\r\n", at_), text_.size());
      } else if (startsWith("/*")) {
        const auto end = text_.find("*/", at_ + 2);
        if (end == std::string_view::npos) return false;
        at_ = end + 2;
      } else {
        break;
      }
    }
    return true;
  }

  /// A whole string or data, or the opening of a container.
  bool scanValue() {
    if (!skipSpace() || atEnd() || !budget_.takeObject()) return false;
    if (current() == '(' || current() == '{') return open(current() == '{');
    return current() == '<' ? scanData() : scanString();
  }
  bool open(bool dictionary) {
    if (depth_ == kDeepestList) return false;
    ++at_;
    dictionaries_[depth_++] = dictionary;
    afterItem_ = false;
    return true;
  }
  bool close() {
    --depth_;
    afterItem_ = true;
    return true;
  }

  /// One step inside an array: a comma after a value, a value, or the end.
  bool scanItem() {
    if (!skipSpace()) return false;
    if (take(')')) return close();
    if (afterItem_ && !take(',')) return false;
    if (!skipSpace()) return false;
    if (afterItem_ && take(')')) return close();
    afterItem_ = true;
    return scanValue();
  }
  /// One step inside a dictionary: the semicolon after a value, then a key with its value, or the end.
  bool scanEntry() {
    if (!skipSpace()) return false;
    if (afterItem_ && !take(';')) return false;
    if (!skipSpace()) return false;
    if (take('}')) return close();
    if (!budget_.takeObject() || !scanString() || !skipSpace() || !take('=')) return false;
    afterItem_ = true;
    return scanValue();
  }

  bool scanString() {
    if (atEnd()) return false;
    if (current() == '"' || current() == '\'') return scanQuoted(current());
    const std::size_t start = at_;
    while (!atEnd() && isPlain(current())) ++at_;
    return at_ > start;
  }
  bool scanQuoted(char quote) {
    for (++at_; !atEnd(); ++at_) {
      if (current() == '\0') return false;
      if (take(quote)) return true;
      if (current() == '\\' && (++at_, atEnd())) return false;
    }
    return false;
  }
  bool scanData() {
    std::size_t digits = 0;
    for (++at_; !atEnd() && current() != '>'; ++at_) {
      if (isHexDigit(current())) {
        ++digits;
      } else if (!isSpace(current())) {
        return false;
      }
    }
    return digits % 2 == 0 && take('>');
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t depth_ = 0;
  bool afterItem_ = false;  // the innermost container was just given a value
  std::bitset<kDeepestList> dictionaries_;
  ListBudget budget_;
};

}  // namespace

std::optional<std::string_view> soundTextList(std::string_view bytes) {
  bytes = withoutByteOrderMark(bytes);
  if (!isUTF8(bytes) || !TextListScanner(bytes).passes()) return std::nullopt;
  return bytes;
}

}  // namespace velura
