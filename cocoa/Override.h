#pragma once
// Overrides: a host method and its replacement exchange implementations at run time.

#include <algorithm>
#include <cstdlib>

#include "cocoa/ClassDefinition.h"

namespace cocoa {

namespace detail {
#if !defined(__APPLE__)
/// The class of the chain whose own list holds `method`.
inline Class ownerOf(Class cls, Method method) {
  for (; cls != nullptr; cls = class_getSuperclass(cls)) {
    unsigned count = 0;
    Method* own = class_copyMethodList(cls, &count);
    const bool found = std::find(own, own + count, method) != own + count;
    std::free(static_cast<void*>(own));
    if (found) return cls;
  }
  return nullptr;
}
#endif

/// GCC's libobjc refreshes the dispatch table of the named class alone after an exchange; subclasses and
/// classes in use would keep what they had. So the tables of the owners, which carry their subclasses
/// along, are built anew.
inline void refreshDispatch([[maybe_unused]] Class cls, [[maybe_unused]] Method method) {
#if !defined(__APPLE__)
  if (const Class owner = ownerOf(cls, method); owner != nullptr) __objc_update_dispatch_table_for_class(owner);
#endif
}
}  // namespace detail

/// Exchanges the implementations behind two selectors of `cls` (a metaclass for class methods; inherited
/// methods included). Where the class only inherits the host method, its superclass is left untouched.
/// Does nothing, and answers false, when either method is missing.
inline bool exchangeMethods(Class cls, SEL hostSelector, SEL replacementSelector) {
  if (cls == nullptr) return false;
  const Method host = class_getInstanceMethod(cls, hostSelector);
  const Method replacement = class_getInstanceMethod(cls, replacementSelector);
  if (host == nullptr || replacement == nullptr) return false;
  if (class_addMethod(cls, hostSelector, method_getImplementation(replacement), method_getTypeEncoding(replacement)) !=
      0) {
    detail::setOwnMethod(cls, replacementSelector, method_getImplementation(host), method_getTypeEncoding(host));
  } else {
    method_exchangeImplementations(host, replacement);
  }
  detail::refreshDispatch(cls, host);
  detail::refreshDispatch(cls, replacement);
  detail::refreshDispatch(cls, class_getInstanceMethod(cls, replacementSelector));
  return true;
}

enum class Installation {
  kInstalled,
  kNoHostMethod,   // the host's class neither has nor inherits the method: the pair is skipped
  kOtherSignature  // the host's method takes or answers something else: the host keeps its own
};

enum class MethodKind { kInstance, kClass };

/// A host method of `Target` and the method that replaces it, declared once with one signature.
template <FixedString Target, class HostSignature, FixedString Host, FixedString Replacement,
          MethodKind Kind = MethodKind::kInstance>
class Override;

template <FixedString Target, class R, class... A, FixedString Host, FixedString Replacement, MethodKind Kind>
class Override<Target, R(A...), Host, Replacement, Kind> {
  static_assert(Host.arguments() == sizeof...(A) && Replacement.arguments() == sizeof...(A),
                "host selector, replacement selector and signature must agree in their number of arguments");

 public:
  using Signature = R(A...);
  static constexpr FixedString kTarget = Target;
  static constexpr FixedString kReplacement = Replacement;
  static constexpr bool kOnMetaclass = Kind == MethodKind::kClass;

  /// Exchanges the pair on the target class.
  static Installation install() {
    const Class target = classNamed<Target>();
    const Class cls = kOnMetaclass ? metaclassOf(target) : target;
    const Method host = cls == nullptr ? nullptr : class_getInstanceMethod(cls, selector<Host>());
    if (host == nullptr) return Installation::kNoHostMethod;
    const char* encoding = method_getTypeEncoding(host);
    if (encoding == nullptr || !sameCallingConvention(encoding, methodEncoding<R, A...>())) {
      return Installation::kOtherSignature;
    }
    const IMP original = method_getImplementation(host);
    if (!exchangeMethods(cls, selector<Host>(), selector<Replacement>())) return Installation::kNoHostMethod;
    // Installing twice exchanges the pair back; the host's own stays what the first look found.
    if (host_ == nullptr) host_ = original;
    return Installation::kInstalled;
  }

  /// What the host would have answered. `R{}` while the pair is not installed.
  static R callHost(NSObject self, A... arguments) { return callHost(self.object, arguments...); }
  static R callHost(Class self, A... arguments) { return callHost(asObject(self), arguments...); }
  static R callHost(id self, A... arguments) {
    if (host_ == nullptr) return R();
    return detail::invoke<R, A...>(host_, self, selector<Host>(), arguments...);
  }

 private:
  static inline IMP host_ = nullptr;
};

/// Exchanges pairs, once in a process however often it is sent: a second time would exchange them back.
template <class... Pairs>
void installOnce(Class /*self*/) {
  static const bool installed = [] {
    (static_cast<void>(Pairs::install()), ...);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace cocoa
