#pragma once
// Version strings such as "11.2.0".

#include <string_view>

namespace velura {

/// -1, 0 or 1 as version `a` is older than, equal to or newer than `b`. A version is numbers between dots;
/// what follows the digits of a component does not count, and a missing component is 0.
int compareVersions(std::string_view a, std::string_view b);

/// Adds the comparisons of versions to the class `NSString`.
void attachNSStringCompareToVersion();

}  // namespace velura
