#pragma once

#include <array>
#include <string>
#include <string_view>

#include "cocoa/Foundation.h"

namespace velura {

/// The whole of a string as UTF-8, zero characters included. "" for nil and for a text that has no UTF-8,
/// such as a lone surrogate.
inline std::string utf8Bytes(NSString text) {
  constexpr NSUInteger kUTF8 = 4;
  const char* bytes = text ? text.UTF8String() : nullptr;
  if (bytes == nullptr) return {};
  return {bytes, cocoa::send<NSUInteger>(text.object, cocoa::selector<"lengthOfBytesUsingEncoding:">(), kUTF8)};
}

/// The same to look at for a moment: a name of the usual length needs no memory.
class BriefUTF8 {
 public:
  explicit BriefUTF8(NSString text) {
    constexpr NSUInteger kUTF8 = 4;
    const bool fits = cocoa::send<BOOL>(text.object, cocoa::selector<"getCString:maxLength:encoding:">(),
                                        buffer_.data(), NSUInteger(buffer_.size()), kUTF8) != 0;
    view_ = fits ? std::string_view(buffer_.data()) : std::string_view();
    // Fewer bytes than characters: one of them is a zero.
    if (fits && view_.size() >= text.length()) return;
    long_ = utf8Bytes(text);
    view_ = long_;
  }
  BriefUTF8(const BriefUTF8&) = delete;
  BriefUTF8& operator=(const BriefUTF8&) = delete;
  [[nodiscard]] std::string_view view() const { return view_; }

 private:
  std::array<char, 64> buffer_{};
  std::string long_;
  std::string_view view_;
};

}  // namespace velura
