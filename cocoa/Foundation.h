#pragma once
// Foundation's classes as handles. A handle method takes the first keyword of its selector as its name;
// the other keywords name the parameters. A nil handle answers zero, NO or nil to every message.

#include <string>
#include <string_view>

#include "cocoa/Memory.h"
#include "cocoa/Message.h"

struct NSString;

struct NSObject {
  static constexpr cocoa::FixedString kClassName{"NSObject"};
  id object = nullptr;

  constexpr NSObject() = default;
  constexpr explicit NSObject(id pointer) : object(pointer) {}
  explicit operator bool() const { return object != nullptr; }
  /// Identity, not equality: see `isEqual`.
  friend bool operator==(NSObject a, NSObject b) { return a.object == b.object; }

  [[nodiscard]] bool isKindOfClass(Class cls) const;
  [[nodiscard]] bool isEqual(NSObject other) const;
  [[nodiscard]] NSUInteger hash() const;
  [[nodiscard]] bool respondsToSelector(SEL sel) const { return cocoa::respondsTo(object, sel); }
  [[nodiscard]] NSString className() const;
  [[nodiscard]] NSString description() const;
  [[nodiscard]] Class objectClass() const { return object == nullptr ? nullptr : object_getClass(object); }
};

namespace cocoa {

/// The class that a handle type names.
template <Handle T>
Class classOf() {
  return classNamed<T::kClassName>();
}

/// The object as another handle, unchecked.
template <Handle T>
T cast(NSObject object) {
  return T(object.object);
}

/// The object as another handle when it is a kind of that handle's class, else nil. Says nil as well
/// while no such class is loaded.
template <Handle T>
T as(NSObject object) {
  const Class cls = classOf<T>();
  return cls != nullptr && object.isKindOfClass(cls) ? T(object.object) : T();
}

/// `alloc` of the handle's class, to be initialised and adopted.
template <Handle T>
id allocate() {
  return send<id>(classOf<T>(), selector<"alloc">());
}

/// A new instance made by `init`.
template <Handle T>
Ref<T> make() {
  return Ref<T>::adopt(T(send<id>(allocate<T>(), selector<"init">())));
}

}  // namespace cocoa

inline bool NSObject::isKindOfClass(Class cls) const {
  return cls != nullptr && cocoa::send<BOOL>(object, cocoa::selector<"isKindOfClass:">(), cls) != 0;
}
inline bool NSObject::isEqual(NSObject other) const {
  return object == other.object || cocoa::send<BOOL>(object, cocoa::selector<"isEqual:">(), other) != 0;
}
inline NSUInteger NSObject::hash() const { return cocoa::send<NSUInteger>(object, cocoa::selector<"hash">()); }

struct NSString : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSString"};
  using NSObject::NSObject;

  [[nodiscard]] const char* UTF8String() const {
    return cocoa::send<const char*>(object, cocoa::selector<"UTF8String">());
  }
  [[nodiscard]] NSUInteger length() const { return cocoa::send<NSUInteger>(object, cocoa::selector<"length">()); }
  [[nodiscard]] bool isEqualToString(NSString other) const {
    return object == other.object || (object != nullptr && other.object != nullptr &&
                                      cocoa::send<BOOL>(object, cocoa::selector<"isEqualToString:">(), other) != 0);
  }
  [[nodiscard]] NSInteger integerValue() const {
    return cocoa::send<NSInteger>(object, cocoa::selector<"integerValue">());
  }
};

inline NSString NSObject::className() const { return cocoa::send<NSString>(object, cocoa::selector<"className">()); }
inline NSString NSObject::description() const {
  return cocoa::send<NSString>(object, cocoa::selector<"description">());
}

namespace cocoa {

/// An owned string of the given UTF-8 text; null when the bytes are no UTF-8.
inline Ref<NSString> makeString(std::string_view text) {
  constexpr NSUInteger kUTF8 = 4;
  return Ref<NSString>::adopt(
      NSString(send<id>(allocate<NSString>(), selector<"initWithBytes:length:encoding:">(),
                        static_cast<const void*>(text.data()), NSUInteger(text.size()), kUTF8)));
}

/// An autoreleased string of the given UTF-8 text.
inline NSString string(std::string_view text) { return autoreleased(makeString(text)); }

/// The string's UTF-8 text, "" for nil. Lone surrogates, which have no UTF-8, give "" as well.
inline std::string toStdString(NSString text) {
  const char* bytes = text ? text.UTF8String() : nullptr;
  return bytes == nullptr ? std::string() : std::string(bytes);
}

namespace detail {
template <FixedString Text>
inline constinit std::atomic<id> literalSlot{nullptr};
}

/// A constant string, made once and kept for the life of the process.
template <FixedString Text>
NSString literal() {
  id made = detail::literalSlot<Text>.load(std::memory_order_acquire);
  if (made == nullptr) [[unlikely]] {
    made = makeString(Text.view()).detach().object;
    detail::literalSlot<Text>.store(made, std::memory_order_release);
  }
  return NSString(made);
}

}  // namespace cocoa

struct NSValue : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSValue"};
  using NSObject::NSObject;
  static NSValue valueWithRect(CGRect rect) {
    return cocoa::send<NSValue>(cocoa::classNamed<"NSValue">(), cocoa::selector<"valueWithRect:">(), rect);
  }
  static NSValue valueWithPoint(CGPoint point) {
    return cocoa::send<NSValue>(cocoa::classNamed<"NSValue">(), cocoa::selector<"valueWithPoint:">(), point);
  }
  static NSValue valueWithSize(CGSize size) {
    return cocoa::send<NSValue>(cocoa::classNamed<"NSValue">(), cocoa::selector<"valueWithSize:">(), size);
  }
  /// Equal for equal pointers; what it points to is not retained.
  static NSValue valueWithPointer(const void* pointer) {
    return cocoa::send<NSValue>(cocoa::classNamed<"NSValue">(), cocoa::selector<"valueWithPointer:">(), pointer);
  }
  /// The type encoding of what is held.
  [[nodiscard]] const char* objCType() const { return cocoa::send<const char*>(object, cocoa::selector<"objCType">()); }
  [[nodiscard]] CGRect rectValue() const { return cocoa::send<CGRect>(object, cocoa::selector<"rectValue">()); }
  [[nodiscard]] CGPoint pointValue() const { return cocoa::send<CGPoint>(object, cocoa::selector<"pointValue">()); }
  [[nodiscard]] CGSize sizeValue() const { return cocoa::send<CGSize>(object, cocoa::selector<"sizeValue">()); }
};

struct NSNumber : NSValue {
  static constexpr cocoa::FixedString kClassName{"NSNumber"};
  using NSValue::NSValue;
  static NSNumber numberWithDouble(double value) {
    return cocoa::send<NSNumber>(cocoa::classNamed<"NSNumber">(), cocoa::selector<"numberWithDouble:">(), value);
  }
  static NSNumber numberWithLong(long value) {
    return cocoa::send<NSNumber>(cocoa::classNamed<"NSNumber">(), cocoa::selector<"numberWithLong:">(), value);
  }
  static NSNumber numberWithBool(bool value) {
    return cocoa::send<NSNumber>(cocoa::classNamed<"NSNumber">(), cocoa::selector<"numberWithBool:">(),
                                 static_cast<BOOL>(value));
  }
  [[nodiscard]] double doubleValue() const { return cocoa::send<double>(object, cocoa::selector<"doubleValue">()); }
  [[nodiscard]] NSInteger integerValue() const {
    return cocoa::send<NSInteger>(object, cocoa::selector<"integerValue">());
  }
  [[nodiscard]] bool boolValue() const { return cocoa::send<BOOL>(object, cocoa::selector<"boolValue">()) != 0; }
};

struct NSNull : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSNull"};
  using NSObject::NSObject;
  static NSNull null() { return cocoa::send<NSNull>(cocoa::classNamed<"NSNull">(), cocoa::selector<"null">()); }
};

struct NSArray : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSArray"};
  using NSObject::NSObject;
  static NSArray array() { return cocoa::send<NSArray>(cocoa::classNamed<"NSArray">(), cocoa::selector<"array">()); }
  static NSArray arrayWithObjects(const id* objects, NSUInteger count) {
    return cocoa::send<NSArray>(cocoa::classNamed<"NSArray">(), cocoa::selector<"arrayWithObjects:count:">(), objects,
                                count);
  }
  [[nodiscard]] NSUInteger count() const { return cocoa::send<NSUInteger>(object, cocoa::selector<"count">()); }
  [[nodiscard]] NSObject objectAtIndex(NSUInteger index) const {
    return cocoa::send<NSObject>(object, cocoa::selector<"objectAtIndex:">(), index);
  }
  [[nodiscard]] bool containsObject(NSObject value) const {
    return cocoa::send<BOOL>(object, cocoa::selector<"containsObject:">(), value) != 0;
  }
  [[nodiscard]] NSString componentsJoinedByString(NSString separator) const {
    return cocoa::send<NSString>(object, cocoa::selector<"componentsJoinedByString:">(), separator);
  }
};

struct NSMutableArray : NSArray {
  static constexpr cocoa::FixedString kClassName{"NSMutableArray"};
  using NSArray::NSArray;
  static NSMutableArray array() {
    return cocoa::send<NSMutableArray>(cocoa::classNamed<"NSMutableArray">(), cocoa::selector<"array">());
  }
  void addObject(NSObject value) const { cocoa::send<void>(object, cocoa::selector<"addObject:">(), value); }
  void insertObject(NSObject value, NSUInteger index) const {
    cocoa::send<void>(object, cocoa::selector<"insertObject:atIndex:">(), value, index);
  }
  void removeObjectAtIndex(NSUInteger index) const {
    cocoa::send<void>(object, cocoa::selector<"removeObjectAtIndex:">(), index);
  }
  void removeObject(NSObject value) const { cocoa::send<void>(object, cocoa::selector<"removeObject:">(), value); }
  void replaceObjectAtIndex(NSUInteger index, NSObject value) const {
    cocoa::send<void>(object, cocoa::selector<"replaceObjectAtIndex:withObject:">(), index, value);
  }
  void removeAllObjects() const { cocoa::send<void>(object, cocoa::selector<"removeAllObjects">()); }
};

struct NSDictionary : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSDictionary"};
  using NSObject::NSObject;
  static NSDictionary dictionary() {
    return cocoa::send<NSDictionary>(cocoa::classNamed<"NSDictionary">(), cocoa::selector<"dictionary">());
  }
  [[nodiscard]] NSUInteger count() const { return cocoa::send<NSUInteger>(object, cocoa::selector<"count">()); }
  [[nodiscard]] NSObject objectForKey(NSObject key) const {
    return cocoa::send<NSObject>(object, cocoa::selector<"objectForKey:">(), key);
  }
  [[nodiscard]] NSArray allKeys() const { return cocoa::send<NSArray>(object, cocoa::selector<"allKeys">()); }
};

struct NSMutableDictionary : NSDictionary {
  static constexpr cocoa::FixedString kClassName{"NSMutableDictionary"};
  using NSDictionary::NSDictionary;
  static NSMutableDictionary dictionary() {
    return cocoa::send<NSMutableDictionary>(cocoa::classNamed<"NSMutableDictionary">(),
                                            cocoa::selector<"dictionary">());
  }
  static NSMutableDictionary dictionaryWithDictionary(NSDictionary source) {
    return cocoa::send<NSMutableDictionary>(cocoa::classNamed<"NSMutableDictionary">(),
                                            cocoa::selector<"dictionaryWithDictionary:">(), source);
  }
  void setObject(NSObject value, NSObject key) const {
    cocoa::send<void>(object, cocoa::selector<"setObject:forKey:">(), value, key);
  }
  void removeObjectForKey(NSObject key) const {
    cocoa::send<void>(object, cocoa::selector<"removeObjectForKey:">(), key);
  }
  void removeAllObjects() const { cocoa::send<void>(object, cocoa::selector<"removeAllObjects">()); }
};

struct NSData : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSData"};
  using NSObject::NSObject;
  static NSData dataWithBytes(const void* bytes, NSUInteger length) {
    return cocoa::send<NSData>(cocoa::classNamed<"NSData">(), cocoa::selector<"dataWithBytes:length:">(), bytes,
                               length);
  }
  [[nodiscard]] const void* bytes() const { return cocoa::send<const void*>(object, cocoa::selector<"bytes">()); }
  [[nodiscard]] NSUInteger length() const { return cocoa::send<NSUInteger>(object, cocoa::selector<"length">()); }
};

struct NSMutableData : NSData {
  static constexpr cocoa::FixedString kClassName{"NSMutableData"};
  using NSData::NSData;
  static NSMutableData data() {
    return cocoa::send<NSMutableData>(cocoa::classNamed<"NSMutableData">(), cocoa::selector<"data">());
  }
};

struct NSDate : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSDate"};
  using NSObject::NSObject;
  static NSDate date() { return cocoa::send<NSDate>(cocoa::classNamed<"NSDate">(), cocoa::selector<"date">()); }
};

struct NSURL : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSURL"};
  using NSObject::NSObject;
  static NSURL URLWithString(NSString text) {
    return cocoa::send<NSURL>(cocoa::classNamed<"NSURL">(), cocoa::selector<"URLWithString:">(), text);
  }
  [[nodiscard]] NSString absoluteString() const {
    return cocoa::send<NSString>(object, cocoa::selector<"absoluteString">());
  }
};

struct NSThread : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSThread"};
  using NSObject::NSObject;
  static bool isMainThread() {
    return cocoa::send<BOOL>(cocoa::classNamed<"NSThread">(), cocoa::selector<"isMainThread">()) != 0;
  }
};

struct NSException : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSException"};
  using NSObject::NSObject;
  [[nodiscard]] NSString name() const { return cocoa::send<NSString>(object, cocoa::selector<"name">()); }
  [[nodiscard]] NSString reason() const { return cocoa::send<NSString>(object, cocoa::selector<"reason">()); }
  static void raise(NSString name, NSString reason) {
    const auto made = cocoa::send<NSException>(cocoa::classNamed<"NSException">(),
                                               cocoa::selector<"exceptionWithName:reason:userInfo:">(), name, reason,
                                               static_cast<id>(nullptr));
    cocoa::send<void>(made.object, cocoa::selector<"raise">());
  }
};

struct NSNotification : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSNotification"};
  using NSObject::NSObject;
  [[nodiscard]] NSObject sender() const { return cocoa::send<NSObject>(object, cocoa::selector<"object">()); }
  [[nodiscard]] NSDictionary userInfo() const {
    return cocoa::send<NSDictionary>(object, cocoa::selector<"userInfo">());
  }
};

struct NSNotificationCenter : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSNotificationCenter"};
  using NSObject::NSObject;
  static NSNotificationCenter defaultCenter() {
    return cocoa::send<NSNotificationCenter>(cocoa::classNamed<"NSNotificationCenter">(),
                                             cocoa::selector<"defaultCenter">());
  }
  void addObserver(NSObject observer, SEL handler, NSString name, NSObject sender) const {
    cocoa::send<void>(object, cocoa::selector<"addObserver:selector:name:object:">(), observer, handler, name, sender);
  }
  void removeObserver(NSObject observer) const {
    cocoa::send<void>(object, cocoa::selector<"removeObserver:">(), observer);
  }
  void removeObserver(NSObject observer, NSString name, NSObject sender) const {
    cocoa::send<void>(object, cocoa::selector<"removeObserver:name:object:">(), observer, name, sender);
  }
  void postNotificationName(NSString name, NSObject sender) const {
    cocoa::send<void>(object, cocoa::selector<"postNotificationName:object:">(), name, sender);
  }
  void postNotificationName(NSString name, NSObject sender, NSDictionary userInfo) const {
    cocoa::send<void>(object, cocoa::selector<"postNotificationName:object:userInfo:">(), name, sender, userInfo);
  }
};

struct NSUserDefaults : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSUserDefaults"};
  using NSObject::NSObject;
  static NSUserDefaults standardUserDefaults() {
    return cocoa::send<NSUserDefaults>(cocoa::classNamed<"NSUserDefaults">(),
                                       cocoa::selector<"standardUserDefaults">());
  }
  /// The defaults of a suite shared between applications; null when the suite cannot be opened.
  static cocoa::Ref<NSUserDefaults> suiteNamed(NSString name) {
    return cocoa::Ref<NSUserDefaults>::adopt(
        cocoa::send<NSUserDefaults>(cocoa::allocate<NSUserDefaults>(), cocoa::selector<"initWithSuiteName:">(), name));
  }
  [[nodiscard]] NSObject objectForKey(NSString key) const {
    return cocoa::send<NSObject>(object, cocoa::selector<"objectForKey:">(), key);
  }
  [[nodiscard]] NSString stringForKey(NSString key) const {
    return cocoa::send<NSString>(object, cocoa::selector<"stringForKey:">(), key);
  }
  [[nodiscard]] NSInteger integerForKey(NSString key) const {
    return cocoa::send<NSInteger>(object, cocoa::selector<"integerForKey:">(), key);
  }
  [[nodiscard]] bool boolForKey(NSString key) const {
    return cocoa::send<BOOL>(object, cocoa::selector<"boolForKey:">(), key) != 0;
  }
  void setObject(NSObject value, NSString key) const {
    cocoa::send<void>(object, cocoa::selector<"setObject:forKey:">(), value, key);
  }
  void setInteger(NSInteger value, NSString key) const {
    cocoa::send<void>(object, cocoa::selector<"setInteger:forKey:">(), value, key);
  }
  void setBool(bool value, NSString key) const {
    cocoa::send<void>(object, cocoa::selector<"setBool:forKey:">(), static_cast<BOOL>(value), key);
  }
  void synchronize() const { cocoa::send<BOOL>(object, cocoa::selector<"synchronize">()); }
};

struct NSBundle : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSBundle"};
  using NSObject::NSObject;
  static NSBundle mainBundle() {
    return cocoa::send<NSBundle>(cocoa::classNamed<"NSBundle">(), cocoa::selector<"mainBundle">());
  }
  static NSBundle bundleWithIdentifier(NSString identifier) {
    return cocoa::send<NSBundle>(cocoa::classNamed<"NSBundle">(), cocoa::selector<"bundleWithIdentifier:">(),
                                 identifier);
  }
  static NSBundle bundleWithPath(NSString path) {
    return cocoa::send<NSBundle>(cocoa::classNamed<"NSBundle">(), cocoa::selector<"bundleWithPath:">(), path);
  }
  /// The bundle whose code defines the class.
  static NSBundle bundleForClass(Class cls) {
    return cocoa::send<NSBundle>(cocoa::classNamed<"NSBundle">(), cocoa::selector<"bundleForClass:">(), cls);
  }
  [[nodiscard]] NSDictionary infoDictionary() const {
    return cocoa::send<NSDictionary>(object, cocoa::selector<"infoDictionary">());
  }
  [[nodiscard]] NSString pathForResource(NSString name, NSString type) const {
    return cocoa::send<NSString>(object, cocoa::selector<"pathForResource:ofType:">(), name, type);
  }
};

struct NSAttributedString : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSAttributedString"};
  using NSObject::NSObject;
  static cocoa::Ref<NSAttributedString> withString(NSString text, NSDictionary attributes) {
    return cocoa::Ref<NSAttributedString>::adopt(cocoa::send<NSAttributedString>(
        cocoa::allocate<NSAttributedString>(), cocoa::selector<"initWithString:attributes:">(), text, attributes));
  }
  [[nodiscard]] NSString string() const { return cocoa::send<NSString>(object, cocoa::selector<"string">()); }
  [[nodiscard]] NSUInteger length() const { return cocoa::send<NSUInteger>(object, cocoa::selector<"length">()); }
  [[nodiscard]] NSObject attribute(NSString name, NSUInteger index, NSRange* effectiveRange) const {
    return cocoa::send<NSObject>(object, cocoa::selector<"attribute:atIndex:effectiveRange:">(), name, index,
                                 effectiveRange);
  }
};

struct NSMutableAttributedString : NSAttributedString {
  static constexpr cocoa::FixedString kClassName{"NSMutableAttributedString"};
  using NSAttributedString::NSAttributedString;
  void addAttribute(NSString name, NSObject value, NSRange range) const {
    cocoa::send<void>(object, cocoa::selector<"addAttribute:value:range:">(), name, value, range);
  }
};

struct NSPropertyListSerialization : NSObject {
  static constexpr cocoa::FixedString kClassName{"NSPropertyListSerialization"};
  using NSObject::NSObject;
  static NSObject propertyListWithData(NSData data, NSUInteger options, NSUInteger* format, id* error) {
    return cocoa::send<NSObject>(cocoa::classNamed<"NSPropertyListSerialization">(),
                                 cocoa::selector<"propertyListWithData:options:format:error:">(), data, options, format,
                                 error);
  }
};

inline constexpr NSUInteger NSPropertyListImmutable = 0;
inline constexpr NSUInteger NSPropertyListMutableContainers = 1;
inline constexpr NSUInteger NSApplicationSupportDirectory = 14;
inline constexpr NSUInteger NSUserDomainMask = 1;

extern "C" {
id NSSearchPathForDirectoriesInDomains(NSUInteger directory, NSUInteger domains, BOOL expandTilde);
id NSStringFromRect(NSRect rect);
id NSStringFromSize(NSSize size);
/// Seconds since 1 January 2001.
double CFAbsoluteTimeGetCurrent();
/// Writes a line to the system's log; the format's arguments follow.
void NSLog(id format, ...);
}

namespace cocoa {

/// Walks an array. The array must not change meanwhile.
template <Handle T = NSObject>
class Items {
 public:
  explicit Items(NSArray array) : array_(array), count_(array.count()) {}
  struct Iterator {
    NSArray array;
    NSUInteger index;
    T operator*() const { return cast<T>(array.objectAtIndex(index)); }
    Iterator& operator++() {
      ++index;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return index != other.index; }
  };
  [[nodiscard]] Iterator begin() const { return {array_, 0}; }
  [[nodiscard]] Iterator end() const { return {array_, count_}; }

 private:
  NSArray array_;
  NSUInteger count_;
};

template <Handle T = NSObject>
Items<T> items(NSArray array) {
  return Items<T>(array);
}

}  // namespace cocoa
