#include "plugin/loader/MethodExchange.h"

#include "cocoa/Override.h"

namespace velura {

void swizzleInstanceMethod(Class /*self*/, Class cls, SEL host, SEL replacement) {
  cocoa::exchangeMethods(cls, host, replacement);
}

void swizzleClassMethod(Class /*self*/, Class metaclass, SEL host, SEL replacement) {
  cocoa::exchangeMethods(metaclass, host, replacement);
}

}  // namespace velura
