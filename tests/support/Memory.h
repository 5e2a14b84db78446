#pragma once
// What is kept while something is done over and over.

#include <functional>

namespace support {

/// Does something `count` times, and answers how many bytes more are in use at last than once it was warm. The address
/// sanitizer keeps what was given up: there it is done fewer times, for what the sanitizer sees, and nothing is kept.
long keptAfter(int count, const std::function<void(int)>& doing);

}  // namespace support
