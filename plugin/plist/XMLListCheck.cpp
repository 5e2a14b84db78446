// XML property lists: a handful of element names, no attributes that matter, no entities of their own.

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "plugin/plist/PropertyListCheck.h"

namespace velura {

namespace {

enum class Element { kPlist, kDict, kArray, kKey, kString, kData, kDate, kInteger, kReal, kTrue, kFalse };

struct NamedElement {
  std::string_view name;
  Element element;
};
constexpr std::array<NamedElement, 11> kElements{{{"plist", Element::kPlist},
                                                  {"dict", Element::kDict},
                                                  {"array", Element::kArray},
                                                  {"key", Element::kKey},
                                                  {"string", Element::kString},
                                                  {"data", Element::kData},
                                                  {"date", Element::kDate},
                                                  {"integer", Element::kInteger},
                                                  {"real", Element::kReal},
                                                  {"true", Element::kTrue},
                                                  {"false", Element::kFalse}}};

constexpr std::string_view kWhiteSpace = " \t\r\n";

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isSpace(char c) { return kWhiteSpace.find(c) != std::string_view::npos; }
bool isContainer(Element element) {
  return element == Element::kPlist || element == Element::kDict || element == Element::kArray;
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

bool isInteger(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return !text.empty() && std::ranges::all_of(text, isDigit);
}

/// What a number may consist of, infinities and "nan" included; Foundation reads it.
bool isReal(std::string_view text) {
  constexpr std::string_view kLetters = "0123456789+-.eEinfatyINFATY";
  text = trimmed(text);
  return !text.empty() && text.find_first_not_of(kLetters) == std::string_view::npos;
}

/// "2001-12-31T23:59:59Z" and a day that exists: Foundation logs others.
bool isDate(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00T00:00:00Z";
  constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  text = trimmed(text);
  if (text.size() != kForm.size()) return false;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    if (kForm[i] == '0' ? !isDigit(text[i]) : text[i] != kForm[i]) return false;
  }
  const auto number = [&](std::size_t at, std::size_t length) {
    int value = 0;
    std::from_chars(text.data() + at, text.data() + at + length, value);
    return value;
  };
  const int year = number(0, 4);
  const int month = number(5, 2);
  const int day = number(8, 2);
  if (year < 1 || month < 1 || month > 12) return false;
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  const int days = kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
  return day >= 1 && day <= days && number(11, 2) < 24 && number(14, 2) < 60 && number(17, 2) < 60;
}

bool isBase64(std::string_view text) {
  return std::ranges::all_of(text, [](char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '+' || c == '/' || c == '=' ||
           isSpace(c);
  });
}

bool isNothing(std::string_view text) { return text.empty(); }

/// What the plain text of a leaf must look like.
bool isContentOf(Element element, std::string_view text) {
  switch (element) {
    case Element::kInteger:
      return isInteger(text);
    case Element::kReal:
      return isReal(text);
    case Element::kDate:
      return isDate(text);
    case Element::kData:
      return isBase64(text);
    default:
      return isNothing(trimmed(text));
  }
}

/// "#65" or "#x41", or one of the five names: what stands between '&' and ';'.
bool isEntity(std::string_view name) {
  for (const std::string_view known : {"lt", "gt", "amp", "quot", "apos"}) {
    if (name == known) return true;
  }
  if (!name.starts_with('#')) return false;
  name.remove_prefix(1);
  const bool hexadecimal = name.starts_with('x');
  if (hexadecimal) name.remove_prefix(1);
  unsigned code = 0;
  const char* end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data(), end, code, hexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end) return false;
  const bool isText = code >= 0x20 || code == '\t' || code == '\n' || code == '\r';
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  return isText && !isSurrogate && code <= 0x10FFFF && (code & 0xFFFEU) != 0xFFFE;
}

class XMLListScanner {
 public:
  explicit XMLListScanner(std::string_view text) : text_(text) {}

  std::optional<std::string_view> list() {
    if (!skipProlog()) return std::nullopt;
    const std::size_t start = at_;
    if (!scanRoot()) return std::nullopt;
    const std::string_view element = text_.substr(start, at_ - start);
    return skipMisc() && at_ == text_.size() ? std::optional(element) : std::nullopt;
  }

 private:
  struct Tag {
    Element element = Element::kPlist;
    bool closes = false;  // "</name>"
    bool empty = false;   // "<name/>"
  };
  struct Container {
    Element element;
    bool awaitsValue = false;  // a key was read and its value was not
    bool filled = false;
  };

  [[nodiscard]] bool startsWith(std::string_view text) const { return text_.substr(at_).starts_with(text); }
  void skipSpace() { at_ = std::min(text_.find_first_not_of(kWhiteSpace, at_), text_.size()); }
  bool skipPast(std::string_view end) {
    const auto found = text_.find(end, at_);
    if (found == std::string_view::npos) return false;
    at_ = found + end.size();
    return true;
  }

  bool skipComment() {
    at_ += std::string_view("<!--").size();
    return skipPast("-->");
  }
  /// White space and comments.
  bool skipMisc() {
    for (skipSpace(); startsWith("<!--"); skipSpace()) {
      if (!skipComment()) return false;
    }
    return true;
  }
  bool skipProlog() {
    if (!skipMisc()) return false;
    // The declared encoding does not matter: the bytes must be UTF-8 whatever it says.
    if (startsWith("<?xml") && !skipPast("?>")) return false;
    if (!skipMisc()) return false;
    if (startsWith("<!DOCTYPE") && !skipDocumentType()) return false;
    return skipMisc();
  }
  /// A document type is named and ignored. One with declarations of its own, which could define
  /// entities, is refused.
  bool skipDocumentType() {
    for (char quote = 0; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (quote != 0) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else if (c == '[') {
        return false;
      } else if (c == '>') {
        ++at_;
        return true;
      }
    }
    return false;
  }

  bool readTag(Tag& tag) {
    ++at_;
    tag.closes = startsWith("/");
    if (tag.closes) ++at_;
    const std::size_t nameEnd = std::min(text_.find_first_of(" \t\r\n/>", at_), text_.size());
    const std::string_view name = text_.substr(at_, nameEnd - at_);
    const auto known = std::ranges::find(kElements, name, &NamedElement::name);
    if (known == kElements.end()) return false;
    tag.element = known->element;
    at_ = nameEnd;
    if (tag.element == Element::kPlist && !tag.closes && !skipAttributes()) return false;
    skipSpace();
    tag.empty = !tag.closes && startsWith("/");
    if (tag.empty) ++at_;
    if (!startsWith(">")) return false;
    ++at_;
    return true;
  }
  /// The root names its version; whatever it says is passed over.
  bool skipAttributes() {
    for (skipSpace(); at_ < text_.size() && text_[at_] != '>' && text_[at_] != '/'; skipSpace()) {
      at_ = std::min(text_.find_first_of("=<>&/\"' \t\r\n", at_), text_.size());
      if (!startsWith("=\"") && !startsWith("='")) return false;
      const char quote = text_[at_ + 1];
      const auto end = text_.find_first_of(std::array{quote, '<', '&', '\0'}.data(), at_ + 2);
      if (end == std::string_view::npos || text_[end] != quote) return false;
      at_ = end + 1;
    }
    return true;
  }

  bool scanRoot() {
    Tag tag;
    if (!startsWith("<plist") || !readTag(tag) || tag.closes || tag.empty) return false;
    open_.push_back({Element::kPlist});
    while (!open_.empty()) {
      if (!skipMisc() || !startsWith("<") || !readTag(tag)) return false;
      if (!(tag.closes ? closeContainer(tag) : scanValue(tag))) return false;
    }
    return true;
  }
  bool closeContainer(const Tag& tag) {
    const Container closed = open_.back();
    if (tag.element != closed.element || closed.awaitsValue) return false;
    if (closed.element == Element::kPlist && !closed.filled) return false;
    open_.pop_back();
    return true;
  }
  bool scanValue(const Tag& tag) {
    if (!takePlace(open_.back(), tag.element) || !budget_.takeObject()) return false;
    if (!isContainer(tag.element)) return tag.empty ? isEmptyAllowed(tag.element) : scanLeaf(tag.element);
    if (open_.size() > kDeepestList) return false;  // the root itself is no level
    if (!tag.empty) open_.push_back({tag.element});
    return true;
  }
  /// Whether an element may stand here: keys and values take turns, the root holds one value.
  static bool takePlace(Container& container, Element element) {
    if (element == Element::kPlist) return false;
    const bool isKey = element == Element::kKey;
    switch (container.element) {
      case Element::kDict:
        if (isKey == container.awaitsValue) return false;
        container.awaitsValue = isKey;
        return true;
      case Element::kPlist:
        if (container.filled) return false;
        container.filled = true;
        return !isKey;
      default:
        return !isKey;
    }
  }
  static bool isEmptyAllowed(Element element) {
    return element != Element::kDate && element != Element::kInteger && element != Element::kReal;
  }

  bool scanLeaf(Element element) {
    const bool isText = element == Element::kKey || element == Element::kString;
    if (isText ? !scanText() : !scanPlain(element)) return false;
    Tag tag;
    return startsWith("</") && readTag(tag) && tag.element == element;
  }
  bool scanPlain(Element element) {
    const std::size_t end = std::min(text_.find('<', at_), text_.size());
    if (!isContentOf(element, text_.substr(at_, end - at_))) return false;
    at_ = end;
    return true;
  }
  /// Character data up to the closing tag.
  bool scanText() {
    for (; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (c == '&') {
        if (!scanEntity()) return false;
      } else if (c == '<') {
        if (startsWith("</")) return true;
        if (!skipSection()) return false;
        --at_;
      }
    }
    return false;
  }
  bool skipSection() {
    if (startsWith("<!--")) return skipComment();
    return startsWith("<![CDATA[") && skipPast("]]>");
  }
  bool scanEntity() {
    constexpr std::size_t kLongest = 12;
    const auto end = text_.substr(at_, kLongest).find(';');
    if (end == std::string_view::npos || !isEntity(text_.substr(at_ + 1, end - 1))) return false;
    at_ += end;
    return true;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<Container> open_;
  ListBudget budget_;
};

bool hasForbiddenControls(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x20 && !isSpace(c); });
}

}  // namespace

std::optional<std::string_view> soundXMLList(std::string_view bytes) {
  if (!isUTF8(bytes) || hasForbiddenControls(bytes)) return std::nullopt;
  return XMLListScanner(withoutByteOrderMark(bytes)).list();
}

}  // namespace velura
