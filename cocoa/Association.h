#pragma once
// Objects that hang on other objects by a key, and are given up when those are deallocated.

#include <cstdint>

#include "cocoa/Foundation.h"

#if !defined(__APPLE__)
// The runtime of Linux lacks these; the stand-in exports them under their real names.
using objc_AssociationPolicy = std::uintptr_t;
inline constexpr objc_AssociationPolicy OBJC_ASSOCIATION_ASSIGN = 0;
inline constexpr objc_AssociationPolicy OBJC_ASSOCIATION_RETAIN_NONATOMIC = 1;
inline constexpr objc_AssociationPolicy OBJC_ASSOCIATION_COPY_NONATOMIC = 3;
inline constexpr objc_AssociationPolicy OBJC_ASSOCIATION_RETAIN = 01401;
inline constexpr objc_AssociationPolicy OBJC_ASSOCIATION_COPY = 01403;

extern "C" {
void objc_setAssociatedObject(id object, const void* key, id value, objc_AssociationPolicy policy);
id objc_getAssociatedObject(id object, const void* key);
void objc_removeAssociatedObjects(id object);
}
#endif

namespace cocoa {

/// Hangs a value on an object, which retains it; a nil value takes it off. The key's address counts.
inline void associate(NSObject object, const void* key, NSObject value) {
  objc_setAssociatedObject(object.object, key, value.object, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
}

/// What hangs on the object by the key, unchecked; nil when nothing does.
template <Handle T = NSObject>
T associated(NSObject object, const void* key) {
  return T(objc_getAssociatedObject(object.object, key));
}

}  // namespace cocoa
