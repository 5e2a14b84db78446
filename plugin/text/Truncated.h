#pragma once

#include <algorithm>

namespace velura {

/// A number without its fraction; defined for every number. What lies beyond the whole numbers that a double
/// holds exactly is limited to them, and what is no number gives 0.
inline long truncated(double number) {
  constexpr double kLargest = 9007199254740992;  // 2 to the 53rd
  return number == number ? static_cast<long>(std::clamp(number, -kLargest, kLargest)) : 0;
}

}  // namespace velura
