#include "plugin/hostapi/NSString+CompareToVersion.h"

#include "cocoa/ClassDefinition.h"
#include "plugin/text/StringBytes.h"
#include "plugin/text/TextNumbers.h"

namespace velura {

using namespace cocoa;

namespace {

/// The number of the first component, which is taken off; 0 once there are no more.
std::int64_t takeComponent(std::string_view& version) {
  const auto dot = version.find('.');
  const std::int64_t number = leadingInteger(version.substr(0, dot));
  version.remove_prefix(dot == std::string_view::npos ? version.size() : dot + 1);
  return number;
}

NSInteger compareToVersion(NSString self, NSString other) {
  return self.isEqualToString(other) ? 0 : compareVersions(utf8Bytes(self), utf8Bytes(other));
}
BOOL isOlderThanVersion(NSString self, NSString other) { return compareToVersion(self, other) < 0; }
BOOL isNewerThanVersion(NSString self, NSString other) { return compareToVersion(self, other) > 0; }
BOOL isEqualToVersion(NSString self, NSString other) { return compareToVersion(self, other) == 0; }
BOOL isEqualOrOlderThanVersion(NSString self, NSString other) { return compareToVersion(self, other) <= 0; }
BOOL isEqualOrNewerThanVersion(NSString self, NSString other) { return compareToVersion(self, other) >= 0; }

}  // namespace

int compareVersions(std::string_view a, std::string_view b) {
  while (!a.empty() || !b.empty()) {
    const std::int64_t first = takeComponent(a);
    const std::int64_t second = takeComponent(b);
    if (first != second) return first < second ? -1 : 1;
  }
  return 0;
}

void attachNSStringCompareToVersion() {
  CategoryDefinition("NSString")
      .method<"compareToVersion:", compareToVersion>()
      .method<"isOlderThanVersion:", isOlderThanVersion>()
      .method<"isNewerThanVersion:", isNewerThanVersion>()
      .method<"isEqualToVersion:", isEqualToVersion>()
      .method<"isEqualOrOlderThanVersion:", isEqualOrOlderThanVersion>()
      .method<"isEqualOrNewerThanVersion:", isEqualOrNewerThanVersion>();
}

}  // namespace velura
