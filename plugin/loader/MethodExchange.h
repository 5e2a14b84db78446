#pragma once

#include <objc/runtime.h>

namespace velura {

/// Exchanges two instance methods of `cls`. A pair of which either method is missing is left alone.
void swizzleInstanceMethod(Class self, Class cls, SEL host, SEL replacement);

/// The same for class methods: `metaclass` is the metaclass of the class they belong to.
void swizzleClassMethod(Class self, Class metaclass, SEL host, SEL replacement);

}  // namespace velura
