// Objects that hang on other objects by a key. The runtime here lacks them. They are given up when the
// object they hang on is deallocated.

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "cocoa/Association.h"
#include "cocoa/Override.h"
#include "standin/runtime/Objects.h"
#include "standin/runtime/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

enum Policy : std::uintptr_t { kAssign = 0, kRetainNonatomic = 1, kCopyNonatomic = 3, kRetain = 01401, kCopy = 01403 };

struct Association {
  const void* key;
  id value;
  bool owned;
};
using Associations = std::vector<Association>;  // few a piece

/// All associations by the object they hang on. Every deallocation in the process asks here, so a filter
/// answers first: a counter for each of some thousand groups of addresses.
class AssociationTable {
 public:
  id get(id object, const void* key) {
    if (!mayHold(object)) return nullptr;
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(object);
    if (found == objects_.end()) return nullptr;
    for (const Association& each : found->second) {
      if (each.key != key) continue;
      // Another thread may replace the value while the caller looks at it.
      return each.owned ? send<id>(send<id>(each.value, selector<"retain">()), selector<"autorelease">()) : each.value;
    }
    return nullptr;
  }

  /// Answers what was there before, for the caller to release outside of the lock.
  Association exchange(id object, const Association& changed) {
    const std::lock_guard lock(mutex_);
    auto found = objects_.find(object);
    if (found == objects_.end()) {
      if (changed.value == nullptr) return {};
      found = objects_.emplace(object, Associations()).first;
      counter(object).fetch_add(1, std::memory_order_relaxed);
    }
    for (Association& each : found->second) {
      if (each.key == changed.key) return std::exchange(each, changed);
    }
    found->second.push_back(changed);
    return {};
  }

  Associations take(id object) {
    if (!mayHold(object)) return {};
    const std::lock_guard lock(mutex_);
    const auto found = objects_.find(object);
    if (found == objects_.end()) return {};
    Associations taken = std::move(found->second);
    objects_.erase(found);
    counter(object).fetch_sub(1, std::memory_order_relaxed);
    return taken;
  }

 private:
  static constexpr std::size_t kGroups = 4096;
  std::atomic<std::uint32_t>& counter(id object) {
    const auto address = reinterpret_cast<std::uintptr_t>(object);
    return counters_[(address >> 4U ^ address >> 16U) % kGroups];
  }
  bool mayHold(id object) { return counter(object).load(std::memory_order_relaxed) != 0; }

  std::array<std::atomic<std::uint32_t>, kGroups> counters_{};
  std::mutex mutex_;
  std::unordered_map<id, Associations> objects_;
};

AssociationTable& table() {
  static auto* associations = new AssociationTable();  // outlives every late deallocation
  return *associations;
}

void release(const Association& association) {
  if (association.owned) send<void>(association.value, selector<"release">());
}
void releaseAll(id object) {
  for (const Association& each : table().take(object)) release(each);
}

IMP foundationDealloc = nullptr;

void deallocWithAssociations(id self, SEL sel) {
  releaseAll(self);
  detail::invoke<void>(foundationDealloc, self, sel);
}

}  // namespace

/// Every chain of `dealloc` ends in NSObject's.
void registerAssociations() {
  const Class root = classNamed<"NSObject">();
  const Method dealloc = class_getInstanceMethod(root, selector<"dealloc">());
  foundationDealloc = method_setImplementation(dealloc, detail::asImplementation(&deallocWithAssociations));
  detail::refreshDispatch(root, dealloc);
}

}  // namespace standin

extern "C" {

void objc_setAssociatedObject(id object, const void* key, id value, std::uintptr_t policy) {
  using namespace standin;
  if (object == nullptr) return;
  const bool copies = policy == kCopy || policy == kCopyNonatomic;
  const bool owned = policy != kAssign && value != nullptr;
  if (owned) value = copies ? send<id>(value, selector<"copy">()) : send<id>(value, selector<"retain">());
  release(table().exchange(object, {key, value, owned}));
}

id objc_getAssociatedObject(id object, const void* key) {
  return object == nullptr ? nullptr : standin::table().get(object, key);
}

void objc_removeAssociatedObjects(id object) {
  if (object != nullptr) standin::releaseAll(object);
}
}
