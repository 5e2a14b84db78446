#pragma once
// Classes and categories made at run time. One builder makes the plug-in's classes, the stand-in's and
// the host's: the C++ state of a class lives in one instance variable, its methods are listed once, and
// the thunks and type encodings come from the member function types.

#include <bit>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

#include "cocoa/Encoding.h"
#include "cocoa/Foundation.h"

#if !defined(__APPLE__)
extern "C" void __objc_update_dispatch_table_for_class(Class cls);  // exported by libobjc
#endif

namespace cocoa {

/// Base of every state: knows the object that it belongs to.
struct ObjectState {
  id self = nullptr;
};

/// The class that was defined with `State`, and where in its instances the state lies.
template <class State>
struct DefinedClass {
  static inline Class cls = nullptr;
  static inline std::ptrdiff_t offset = 0;
};

/// The state that a class of the builder keeps in `object`, which must be of that class or a subclass.
template <class State>
State& stateOf(id object) {
  return *reinterpret_cast<State*>(reinterpret_cast<char*>(object) + DefinedClass<State>::offset);
}
template <class State>
State& stateOf(NSObject object) {
  return stateOf<State>(object.object);
}

/// The state, or null when the object is of another class.
template <class State>
State* stateIfKind(NSObject object) {
  return object && object.isKindOfClass(DefinedClass<State>::cls) ? &stateOf<State>(object) : nullptr;
}

/// An instance variable that an object's class, or one above, has under a name.
template <class T>
T& namedVariable(id object, const char* name) {
  const Ivar variable = class_getInstanceVariable(object_getClass(object), name);
  return *reinterpret_cast<T*>(reinterpret_cast<char*>(object) + ivar_getOffset(variable));
}

/// What the superclass of the class defined with `State` does for a message.
template <class State, class R, class... A>
R superSend(id self, SEL sel, A... arguments) {
  return sendSuper<R>(DefinedClass<State>::cls, self, sel, arguments...);
}

namespace detail {

template <auto Member>
struct MemberThunk;

template <class State, class R, class... A, R (State::*Member)(A...)>
struct MemberThunk<Member> {
  static constexpr std::size_t kArguments = sizeof...(A);
  static std::string encoding() { return methodEncoding<R, A...>(); }
  template <class Defined>
  static R call(id self, SEL, A... arguments) {
    return (stateOf<Defined>(self).*Member)(arguments...);
  }
};
template <class State, class R, class... A, R (State::*Member)(A...) const>
struct MemberThunk<Member> {
  static constexpr std::size_t kArguments = sizeof...(A);
  static std::string encoding() { return methodEncoding<R, A...>(); }
  template <class Defined>
  static R call(id self, SEL, A... arguments) {
    return (stateOf<Defined>(self).*Member)(arguments...);
  }
};

template <auto Function>
struct FunctionThunk;

template <class R, class Self, class... A, R (*Function)(Self, A...)>
requires Handle<Self>
struct FunctionThunk<Function> {
  using Signature = R(A...);
  static constexpr std::size_t kArguments = sizeof...(A);
  static std::string encoding() { return methodEncoding<R, A...>(); }
  static R call(Self self, SEL, A... arguments) { return Function(self, arguments...); }
};
template <class R, class... A, R (*Function)(Class, A...)>
struct FunctionThunk<Function> {
  using Signature = R(A...);
  static constexpr std::size_t kArguments = sizeof...(A);
  static std::string encoding() { return methodEncoding<R, A...>(); }
  static R call(Class self, SEL, A... arguments) { return Function(self, arguments...); }
};

template <class F>
IMP asImplementation(F* function) {
  return reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(function));
}

template <FixedString Selector, auto Function>
bool addFunction(Class cls) {
  using Thunk = FunctionThunk<Function>;
  static_assert(Selector.arguments() == Thunk::kArguments,
                "the selector names another number of arguments than the function takes");
  return class_addMethod(cls, selector<Selector>(), asImplementation(&Thunk::call), Thunk::encoding().c_str()) != 0;
}

/// Gives a class a method of its own, in place of one that it has itself. (GCC's `class_replaceMethod` would
/// replace an inherited one in the superclass.) The method tables of subclasses follow.
inline void setOwnMethod(Class cls, SEL sel, IMP implementation, const char* encoding) {
  if (class_addMethod(cls, sel, implementation, encoding) == 0) {
    method_setImplementation(class_getInstanceMethod(cls, sel), implementation);
  }
#if !defined(__APPLE__)
  __objc_update_dispatch_table_for_class(cls);
#endif
}

/// Puts a function into the class's own method list, whatever stands there.
template <FixedString Selector, auto Function>
void replaceFunction(Class cls) {
  using Thunk = FunctionThunk<Function>;
  static_assert(Selector.arguments() == Thunk::kArguments,
                "the selector names another number of arguments than the function takes");
  setOwnMethod(cls, selector<Selector>(), asImplementation(&Thunk::call), Thunk::encoding().c_str());
}

template <class T>
struct Property {
  using Crosses = T;
};
template <class T>
struct Property<Ref<T>> {
  using Crosses = T;
};
template <>
struct Property<bool> {
  using Crosses = BOOL;
};

template <auto Field>
struct FieldAccess;
template <class State, class T, T State::*Field>
struct FieldAccess<Field> {
  using Crosses = typename Property<T>::Crosses;
  template <class Defined>
  static Crosses get(id self, SEL) {
    return static_cast<Crosses>(stateOf<Defined>(self).*Field);
  }
  template <class Defined>
  static void set(id self, SEL, Crosses value) {
    if constexpr (std::is_same_v<T, bool>) {
      stateOf<Defined>(self).*Field = value != 0;
    } else {
      stateOf<Defined>(self).*Field = T(value);
    }
  }
};

/// Objects that threads may exchange: what the getter answers outlives the next setter.
template <auto Field>
struct AtomicAccess;
template <class State, class T, Ref<T> State::*Field>
struct AtomicAccess<Field> {
  using Crosses = T;
  template <class Defined>
  static T get(id self, SEL) {
    Ref<T> value;
    {
      const std::lock_guard lock(mutex);
      value = stateOf<Defined>(self).*Field;
    }
    return autoreleased(std::move(value));
  }
  template <class Defined>
  static void set(id self, SEL, T value) {
    Ref<T> old(value);  // released after the lock: a release may run anything
    const std::lock_guard lock(mutex);
    std::swap(stateOf<Defined>(self).*Field, old);
  }

 private:
  inline static std::mutex mutex;
};

}  // namespace detail

/// Defines a class whose instances each hold a `State`, constructed when the object is allocated and
/// destroyed when the runtime disposes of it. `State` derives from `ObjectState` and is default made.
template <class State>
class ClassDefinition {
  static_assert(std::is_base_of_v<ObjectState, State>, "the state must know its object: derive it from ObjectState");

 public:
  /// `superclass` must be registered already.
  ClassDefinition(const char* name, const char* superclass)
      : cls_(objc_allocateClassPair(classNamed(superclass), name, 0)) {
    variable_.append(name);
    if (cls_ == nullptr) std::abort();  // defined twice, or its superclass is missing: a programming mistake
    constexpr auto kAlignment = std::countr_zero(alignof(State));
    // The name carries the class's: a runtime refuses a name that the superclass uses already.
    class_addIvar(cls_, variable_.c_str(), sizeof(State), static_cast<uint8_t>(kAlignment), "^v");
    addRaw<"allocWithZone:">(metaclassOf(cls_), &allocWithZone, methodEncoding<id, void*>());
    if constexpr (!std::is_trivially_destructible_v<State>) {
      addRaw<".cxx_destruct">(cls_, &destruct, methodEncoding<void>());
    }
  }

  /// A method implemented by a member function of the state.
  template <FixedString Selector, auto Member>
  ClassDefinition& method() {
    using Thunk = detail::MemberThunk<Member>;
    static_assert(Selector.arguments() == Thunk::kArguments,
                  "the selector names another number of arguments than the member function takes");
    return addRaw<Selector>(cls_, &Thunk::template call<State>, Thunk::encoding());
  }

  /// A class method implemented by `R f(Class, ...)`.
  template <FixedString Selector, auto Function>
  ClassDefinition& classMethod() {
    detail::addFunction<Selector, Function>(metaclassOf(cls_));
    return *this;
  }

  /// A getter of a field of the state. A `Ref<T>` crosses as `T`, a bool as BOOL.
  template <FixedString Getter, auto Field>
  ClassDefinition& getter() {
    using Access = detail::FieldAccess<Field>;
    return addRaw<Getter>(cls_, &Access::template get<State>, methodEncoding<typename Access::Crosses>());
  }

  /// A getter and a setter of a field of the state.
  template <FixedString Getter, FixedString Setter, auto Field, class Access = detail::FieldAccess<Field>>
  ClassDefinition& property() {
    addRaw<Getter>(cls_, &Access::template get<State>, methodEncoding<typename Access::Crosses>());
    return addRaw<Setter>(cls_, &Access::template set<State>, methodEncoding<void, typename Access::Crosses>());
  }
  /// The same for an object, from any thread.
  template <FixedString Getter, FixedString Setter, auto Field>
  ClassDefinition& atomicProperty() {
    return property<Getter, Setter, Field, detail::AtomicAccess<Field>>();
  }

  /// An instance variable that others find by its name: zero at first, and no object that is to be retained. No class
  /// above may have one of that name.
  template <class T>
  ClassDefinition& variable(const char* name) {
    static_assert(std::is_trivial_v<T>, "the runtime makes and forgets it without asking");
    class_addIvar(cls_, name, sizeof(T), static_cast<uint8_t>(std::countr_zero(alignof(T))),
                  TypeEncoding<T>::text().data());
    return *this;
  }

  /// Registers the class with the runtime.
  Class registered() {
    objc_registerClassPair(cls_);
    DefinedClass<State>::cls = cls_;
    DefinedClass<State>::offset = ivar_getOffset(class_getInstanceVariable(cls_, variable_.c_str()));
    return cls_;
  }

 private:
  template <FixedString Selector, class F>
  ClassDefinition& addRaw(Class to, F* function, const std::string& encoding) {
    class_addMethod(to, selector<Selector>(), detail::asImplementation(function), encoding.c_str());
    return *this;
  }
  /// Each class of a chain allocates through its superclass and then makes its own state.
  static id allocWithZone(Class self, SEL sel, void* zone) {
    const id object = sendSuper<id>(metaclassOf(DefinedClass<State>::cls), asObject(self), sel, zone);
    if (object != nullptr) {
      auto* state = ::new (static_cast<void*>(&stateOf<State>(object))) State();
      state->self = object;
    }
    return object;
  }
  static void destruct(id self, SEL) { std::destroy_at(&stateOf<State>(self)); }

  Class cls_;
  std::string variable_ = "_state";
};

/// Adds methods to a class that exists already. A class that the running host lacks is left out
/// silently: nothing is added, and `attached` says so.
class CategoryDefinition {
 public:
  explicit CategoryDefinition(const char* className) : cls_(classNamed(className)) {}
  [[nodiscard]] bool attached() const { return cls_ != nullptr; }

  template <FixedString Selector, auto Function>
  CategoryDefinition& method() {
    if (cls_ != nullptr) detail::addFunction<Selector, Function>(cls_);
    return *this;
  }
  template <FixedString Selector, auto Function>
  CategoryDefinition& classMethod() {
    if (cls_ != nullptr) detail::addFunction<Selector, Function>(metaclassOf(cls_));
    return *this;
  }
  /// The same where the class may have a method of that name itself, which is then replaced.
  template <FixedString Selector, auto Function>
  CategoryDefinition& ownMethod() {
    if (cls_ != nullptr) detail::replaceFunction<Selector, Function>(cls_);
    return *this;
  }
  /// A class method with further arguments after those that the selector names: the platform's own function
  /// type, `id f(id self, SEL selector, id first, ...)`.
  template <FixedString Selector>
  CategoryDefinition& variadicClassMethod(id (*function)(id, SEL, id, ...)) {
    if (cls_ != nullptr) {
      class_addMethod(metaclassOf(cls_), selector<Selector>(), detail::asImplementation(function), "@@:@");
    }
    return *this;
  }
  /// The function that stands in for a host method under the override's replacement name.
  template <class Override, auto Function>
  CategoryDefinition& replacement() {
    static_assert(std::is_same_v<typename Override::Signature, typename detail::FunctionThunk<Function>::Signature>,
                  "the replacement has another signature than the override declares for the host method");
    const Class cls = Override::kOnMetaclass ? metaclassOf(cls_) : cls_;
    if (cls != nullptr) detail::addFunction<Override::kReplacement, Function>(cls);
    return *this;
  }

 private:
  Class cls_;
};

}  // namespace cocoa
