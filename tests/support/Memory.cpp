#include "tests/support/Memory.h"

#include <malloc.h>

#include <algorithm>

#include "cocoa/Memory.h"

namespace support {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kShortened = 8;
long inUse() { return 0; }
#else
constexpr int kShortened = 1;
/// In bytes, what was asked for and not given back.
long inUse() {
  const auto info = ::mallinfo2();
  return static_cast<long>(info.uordblks + info.hblkhd);
}
#endif

}  // namespace

long keptAfter(int count, const std::function<void(int)>& doing) {
  count /= kShortened;
  long warm = 0;
  long last = 0;
  for (int i = 0; i < count; ++i) {
    const cocoa::AutoreleasePool pool;
    doing(i);
    // Caches fill and are emptied: the highest of two stretches are compared.
    if (i % 20 != 0) continue;
    if (i >= count / 10 && i < count * 3 / 10) warm = std::max(warm, inUse());
    if (i >= count * 8 / 10) last = std::max(last, inUse());
  }
  return last - warm;
}

}  // namespace support
