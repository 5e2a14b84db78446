#pragma once
// Overrides: a host method and its replacement exchange implementations at run time.

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

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
  kNoClass,        // the host has no such class: the pair is skipped
  kNoHostMethod,   // the class neither has nor inherits the method: the pair is skipped
  kOtherSignature  // the host's method takes or answers something else: the host keeps its own
};

enum class MethodKind { kInstance, kClass };

/// "custom" and the name of a host method, its first letter raised: what a replacement is called.
template <std::size_t N>
consteval auto replacementNameOf(const FixedString<N>& method) {
  constexpr std::string_view kCustom = "custom";
  char name[kCustom.size() + N]{};
  std::ranges::copy(kCustom, name);
  std::copy_n(method.text, N, name + kCustom.size());
  char& first = name[kCustom.size()];
  if (first >= 'a' && first <= 'z') first = static_cast<char>(first - 'a' + 'A');
  return FixedString(name);
}

/// A host method of `Target`, and the name of the method that replaces it.
template <FixedString Target, FixedString Host, class HostSignature, FixedString Replacement = replacementNameOf(Host),
          MethodKind Kind = MethodKind::kInstance>
class Override;

template <FixedString Target, FixedString Host, class R, class... A, FixedString Replacement, MethodKind Kind>
class Override<Target, Host, R(A...), Replacement, Kind> {
  static_assert(Host.arguments() == sizeof...(A) && Replacement.arguments() == sizeof...(A),
                "host selector, replacement selector and signature must agree in their number of arguments");

 public:
  using Signature = R(A...);
  static constexpr FixedString kTarget = Target;
  static constexpr FixedString kHost = Host;
  static constexpr FixedString kReplacement = Replacement;
  static constexpr bool kOnMetaclass = Kind == MethodKind::kClass;

  static std::string encoding() { return methodEncoding<R, A...>(); }

  /// Exchanges the pair on the target class. A second time exchanges it back.
  static Installation install() {
    const Class target = classNamed<Target>();
    if (target == nullptr) return Installation::kNoClass;
    const Class cls = kOnMetaclass ? metaclassOf(target) : target;
    const Method host = class_getInstanceMethod(cls, selector<Host>());
    if (host == nullptr) return Installation::kNoHostMethod;
    const char* hostEncoding = method_getTypeEncoding(host);
    if (hostEncoding == nullptr || !sameCallingConvention(hostEncoding, encoding())) {
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

}  // namespace cocoa
