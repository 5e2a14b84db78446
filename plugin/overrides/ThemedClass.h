#pragma once
// The list of a host class's overrides: attached when the bundle is loaded, installed when the class is sent
// `addSwizzleMethod`, and what became of each is kept.

#include <cstdint>
#include <span>
#include <string>

#include "cocoa/ClassDefinition.h"
#include "cocoa/Override.h"
#include "plugin/overrides/Condition.h"
#include "plugin/overrides/OpenWindow.h"

namespace velura {

/// An override with its type taken off.
struct OverrideRow {
  const char* target;        // the host class whose method it replaces
  const char* selectorName;  // the host's method
  bool isClassMethod;
  Condition when;
  OpenWindow openWindow;
  std::string (*encoding)();
  cocoa::Installation (*install)();
  Outcome* outcome;
};

/// How often the overrides of a class are exchanged, however often it is sent `addSwizzleMethod`.
enum class Repetition : std::uint8_t {
  kOnce,              // each is tried once
  kOnceTargetExists,  // the same; a class that the host brings along later is tried then
  kEveryTime          // each time, which exchanges them back and forth
};

struct InstallationRules {
  Condition when = Condition::kAlways;  // asked before anything else
  Repetition repetition = Repetition::kOnce;
};

/// A host class that start-up themes. Each is defined in the file of its name.
struct ThemedClass {
  const char* name;
  std::span<const OverrideRow> overrides;
  void (*attach)();  // adds all methods of the category; the class must be there
};

/// Exchanges what the rules and the conditions of the rows allow.
void installOverrides(std::span<const OverrideRow> rows, const InstallationRules& rules);

namespace detail {

template <class T>
concept SaysWhatOpenWindowsNeed = requires {
  { T::kOpenWindow } -> std::convertible_to<OpenWindow>;
};

template <class T>
inline constinit Outcome outcomeOf = Outcome::kNotUnderThisTheme;

template <class T>
constexpr OverrideRow rowOf() {
  static_assert(SaysWhatOpenWindowsNeed<T>,
                "an override says in `kOpenWindow` what it needs in a window that is open already");
  return {T::kTarget.text, T::kHost.text, T::kOnMetaclass, T::kWhen,
          T::kOpenWindow,  &T::encoding,  &T::install,     &outcomeOf<T>};
}

template <class... Overrides>
inline constexpr OverrideRow rowsOf[] = {rowOf<Overrides>()...};

template <class T>
void attachReplacement(cocoa::CategoryDefinition& category) {
  if constexpr (requires { T::attachTo(category); }) {
    T::attachTo(category);
  } else {
    category.replacement<T, &T::themed>();
  }
}

template <InstallationRules Rules, class... Overrides>
void addSwizzleMethod(Class /*self*/) {
  installOverrides(rowsOf<Overrides...>, Rules);
}

inline void addNoMethods(cocoa::CategoryDefinition& /*category*/) {}

}  // namespace detail

/// The overrides of a class in the order in which they are installed, and what else its category adds.
template <cocoa::FixedString Name, class... Overrides>
struct OverridesOf {
  template <InstallationRules Rules = InstallationRules{},
            void (*AddMethods)(cocoa::CategoryDefinition&) = detail::addNoMethods>
  static constexpr ThemedClass themedClass() {
    return {Name.text, detail::rowsOf<Overrides...>, attach<Rules, AddMethods>};
  }

 private:
  template <InstallationRules Rules, void (*AddMethods)(cocoa::CategoryDefinition&)>
  static void attach() {
    cocoa::CategoryDefinition category(Name.text);
    (detail::attachReplacement<Overrides>(category), ...);
    AddMethods(category);
    category.classMethod<"addSwizzleMethod", detail::addSwizzleMethod<Rules, Overrides...>>();
  }
};

}  // namespace velura
