#pragma once
// Tests that start the host and look at what it shows.

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "cocoa/Call.h"
#include "host/app/Application.h"
#include "tests/support/Colors.h"
#include "tests/support/Theme.h"

namespace support {

/// A host, the nodes of its mixer and the theme.
class HostTest : public testing::Test {
 protected:
  /// Starts the host with a theme folder; "" and "default" as for `support::start`.
  void startWith(const std::string& theme, host::Song song, host::HostOptions options = {},
                 const UserSettings& settings = {}) {
    application_ = support::start(theme, std::move(song), std::move(options), settings);
    ASSERT_TRUE(application_);
  }
  [[nodiscard]] NSObject strip(std::size_t index) const { return application_->mixer().strips().objectAtIndex(index); }
  [[nodiscard]] NSObject node(std::size_t track, const char* name) const { return child(strip(track), name); }
  static NSObject child(NSObject of, const char* name) {
    return cocoa::call<"childNodeWithName:", NSObject>(of, cocoa::string(name));
  }
  static CALayer layer(NSObject node) { return cocoa::call<"presentationObject", CALayer>(node); }
  static NSObject theme() { return cocoa::call<"sharedInstance", NSObject>(cocoa::classNamed("ThemeUtility")); }

  cocoa::AutoreleasePool pool_;
  std::unique_ptr<host::Application> application_;
};

/// Runs `body` for each case in a process of its own, as each has another theme.
template <class Cases, class Body>
void eachInChild(const Cases& cases, const Body& body) {
  int index = 0;
  for (const auto& each : cases) {
    const bool good = inChild([&] {
      const testing::ScopedTrace trace(__FILE__, __LINE__, "case " + std::to_string(index));
      body(each);
      return true;
    });
    EXPECT_TRUE(good) << "case " << index;
    ++index;
  }
}

template <class Case, class Body>
void eachInChild(std::initializer_list<Case> cases, const Body& body) {
  eachInChild<std::initializer_list<Case>, Body>(cases, body);
}

/// A new object of a class, and a view of one.
inline cocoa::Ref<NSObject> newObject(const char* className) {
  return cocoa::Ref<NSObject>::adopt(cocoa::call<"new", NSObject>(cocoa::classNamed(className)));
}
template <class View = NSView>
cocoa::Ref<View> newView(const char* className, CGRect frame = CGRectMake(0, 0, 9, 9)) {
  const id view = cocoa::call<"alloc", id>(cocoa::classNamed(className));
  return cocoa::Ref<View>::adopt(cocoa::call<"initWithFrame:", View>(view, frame));
}

inline NSArray arrayOf(std::initializer_list<NSObject> objects) {
  const auto array = NSMutableArray::array();
  for (const NSObject each : objects) array.addObject(each);
  return array;
}

}  // namespace support
