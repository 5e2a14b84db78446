#pragma once

#include <string>

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

}  // namespace velura
