// Any bytes as a property list: whatever comes out stays within the limits.

#include <algorithm>

#include "fuzz/Fuzzing.h"
#include "plugin/plist/PropertyListCheck.h"
#include "plugin/plist/PropertyListReader.h"

namespace {

using namespace cocoa;

struct Size {
  std::size_t objects = 0;
  std::size_t depth = 0;
};

Size sizeOf(NSObject value) {
  Size size{1, 0};
  const auto add = [&](NSObject held) {
    const Size inner = sizeOf(held);
    size.objects += inner.objects;
    size.depth = std::max(size.depth, inner.depth + 1);
  };
  if (const auto array = as<NSArray>(value)) {
    size.depth = 1;
    for (const NSObject item : items(array)) add(item);
  } else if (const auto dictionary = as<NSDictionary>(value)) {
    size.depth = 1;
    for (const NSObject key : items(dictionary.allKeys())) {
      fuzzing::require(as<NSString>(key).object != nullptr);
      ++size.objects;
      add(dictionary.objectForKey(key));
    }
  }
  return size;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const AutoreleasePool pool;
  const auto list = velura::parsePropertyList(fuzzing::text(data, size));
  if (!list) return 0;
  const Size found = sizeOf(list);
  fuzzing::require(found.depth <= velura::kDeepestList);
  fuzzing::require(found.objects <= velura::kMostListObjects);
  return 0;
}
