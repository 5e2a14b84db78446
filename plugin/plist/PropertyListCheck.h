#pragma once
// Whether the bytes of a property list may be handed to Foundation. Its parsers trust their input: deep
// nesting overflows the stack, shared references of a binary list expand without end, odd content is
// logged or raises. So every list is read once here first, in linear time and bounded memory.

#include <cstddef>
#include <optional>
#include <string_view>

namespace velura {

inline constexpr std::size_t kDeepestList = 64;
/// Values and keys, each counted as often as it is referred to.
inline constexpr std::size_t kMostListObjects = 200'000;
/// Bytes of strings and data, counted likewise.
inline constexpr std::size_t kMostListBytes = std::size_t{32} << 20U;

enum class ListFormat { kBinary, kXML, kText };

/// What the bytes claim to be. Anything unknown is taken for text, which refuses it.
ListFormat listFormat(std::string_view bytes);

/// Whether a binary list ("bplist00") is whole, refers only to itself and stays within the limits.
bool isSoundBinaryList(std::string_view bytes);

/// The `<plist>` element of an XML list that is well-formed UTF-8 and stays within the limits; nothing
/// otherwise. What stands before the element (document type, comments) is left out, so that no parser
/// is ever asked to resolve it; a document type that declares anything of its own is refused.
std::optional<std::string_view> soundXMLList(std::string_view bytes);

/// The text of an OpenStep list without its byte order mark, when it is sound; nothing otherwise.
std::optional<std::string_view> soundTextList(std::string_view bytes);

/// Whether the bytes are UTF-8: no overlong forms, no surrogates, nothing beyond U+10FFFF.
bool isUTF8(std::string_view bytes);

/// The bytes after a UTF-8 byte order mark, if there is one.
std::string_view withoutByteOrderMark(std::string_view bytes);

/// Counts values and depth while a list is scanned.
class ListBudget {
 public:
  [[nodiscard]] bool takeObject() { return ++objects_ <= kMostListObjects; }

 private:
  std::size_t objects_ = 0;
};

}  // namespace velura
