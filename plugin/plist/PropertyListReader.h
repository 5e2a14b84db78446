#pragma once
// The one reader of property lists. The files may hold anything: a list is checked on its bytes before
// Foundation sees it, so that no file crashes, hangs or fills the host.

#include <string_view>

#include "cocoa/Foundation.h"

namespace velura {

/// The largest file that is read.
inline constexpr std::size_t kLargestPropertyList = std::size_t{16} << 20U;

enum class PropertyListOptions : NSUInteger {
  kImmutable = NSPropertyListImmutable,
  kMutableContainers = NSPropertyListMutableContainers
};

/// The list in the regular file at `path` (UTF-8), in XML, binary or OpenStep form. Null for anything
/// else: no file, a folder, a pipe or device, a file that is too large, malformed or too deeply nested.
cocoa::Ref<NSObject> readPropertyList(const char* path, PropertyListOptions options = PropertyListOptions::kImmutable);

/// The same of a list in memory.
cocoa::Ref<NSObject> parsePropertyList(std::string_view bytes,
                                       PropertyListOptions options = PropertyListOptions::kImmutable);

}  // namespace velura
