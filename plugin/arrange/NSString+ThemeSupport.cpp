// Formatted strings: while the track table is built, the host's answers to assistive tools are asked for by the
// hundred, and nobody reads their texts.

#include <cstdarg>

#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"NSString"};

/// Variadic, as the method that it stands in for: the format's arguments follow it.
struct LocalizedStringWithFormat : HostClassOverride<kClass, "localizedStringWithFormat:", id(id)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kHost);

  static void attachTo(CategoryDefinition& category) { category.variadicClassMethod<kReplacement>(themed); }

  static id themed(id self, SEL /*selector*/, id format, ...) {
    const id made = call<"alloc", id>(self);
    // The mode is the main thread's: texts that others format meanwhile are wanted.
    if (NSThread::isMainThread() && ThemeUtility::shared().isInDrawingMode) {
      return autoreleased(Ref<NSString>::adopt(call<"init", NSString>(made))).object;
    }
    using InitWithFormat = id (*)(id, SEL, id, id, va_list);
    const SEL init = selector<"initWithFormat:locale:arguments:">();
    va_list arguments;
    va_start(arguments, format);
    const auto implementation = reinterpret_cast<InitWithFormat>(
        reinterpret_cast<void (*)()>(class_getMethodImplementation(object_getClass(made), init)));
    const auto locale = call<"currentLocale", id>(classNamed("NSLocale"));
    const auto text = Ref<NSString>::adopt(NSString(implementation(made, init, format, locale, arguments)));
    va_end(arguments);
    return autoreleased(text).object;
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass NSString = OverridesOf<kClass, LocalizedStringWithFormat>::themedClass<>();
}  // namespace overrides

}  // namespace velura
