#pragma once

#include <algorithm>
#include <vector>

namespace velura {

/// Sorts the numbers and answers the middle one, the upper of two; 0 of none.
inline double VLRBGMedian(std::vector<double>& numbers) {
  if (numbers.empty()) return 0;
  std::ranges::sort(numbers);
  return numbers[numbers.size() / 2];
}

}  // namespace velura
