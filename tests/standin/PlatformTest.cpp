// What the stand-in adds to Foundation and to the runtime.

#include <gtest/gtest.h>

#include "Canvas.h"
#include "cocoa/Association.h"
#include "cocoa/ClassDefinition.h"
#include "standin/steering/Clock.h"
#include "tests/support/Memory.h"

namespace {

using namespace cocoa;

/// Counts its living instances.
struct Counted : ObjectState {
  static inline int living = 0;
  Counted() { ++living; }
  ~Counted() { --living; }
  id copy(void*) { return send<id>(classNamed<"PlatformTestCounted">(), selector<"new">()); }
};

Ref<NSObject> counted() {
  if (classNamed("PlatformTestCounted") == nullptr) {
    ClassDefinition<Counted>("PlatformTestCounted", "NSObject").method<"copyWithZone:", &Counted::copy>().registered();
  }
  return Ref<NSObject>::adopt(NSObject(send<id>(classNamed("PlatformTestCounted"), selector<"new">())));
}

TEST(Association, LivesAsItsPolicySays) {
  struct Policy {
    const char* name;
    std::uintptr_t value;
    bool sameObject;
    bool outlivesTheCaller;
  };
  constexpr Policy kPolicies[] = {{"assign", 0, true, false},
                                  {"retain nonatomic", 1, true, true},
                                  {"copy nonatomic", 3, false, true},
                                  {"retain", 01401, true, true},
                                  {"copy", 01403, false, true}};
  static const char key = 0;
  static const char otherKey = 0;
  for (const Policy& policy : kPolicies) {
    Counted::living = 0;
    {
      const AutoreleasePool pool;
      const auto holder = make<NSObject>();
      {
        const auto value = counted();
        objc_setAssociatedObject(holder->object, &key, value->object, policy.value);
        EXPECT_EQ(objc_getAssociatedObject(holder->object, &key) == value->object, policy.sameObject) << policy.name;
        EXPECT_EQ(objc_getAssociatedObject(holder->object, &otherKey), nullptr) << policy.name;
      }
      EXPECT_EQ(Counted::living, policy.outlivesTheCaller ? 1 : 0) << policy.name;
      if (policy.value == 0) objc_setAssociatedObject(holder->object, &key, nullptr, 0);
    }
    EXPECT_EQ(Counted::living, 0) << policy.name << ": given up with the object it hung on";
  }
}

TEST(Association, IsReplacedAndRemoved) {
  Counted::living = 0;
  static const char key = 0;
  const auto holder = make<NSObject>();
  for (int i = 0; i < 3; ++i) associate(holder, &key, counted());
  EXPECT_EQ(Counted::living, 1);
  objc_removeAssociatedObjects(holder->object);
  EXPECT_EQ(Counted::living, 0);
  objc_setAssociatedObject(nullptr, &key, nullptr, 1);
  EXPECT_EQ(objc_getAssociatedObject(nullptr, &key), nullptr);
}

/// Everything that a frame makes is gone after it.
TEST(Memory, StaysFlatOverFrames) {
  const long kept = support::keptAfter(1'000, [](int) {
    const support::Canvas canvas(64, 64);
    const auto image = NSImage::withSize({8, 64});
    image->lockFocus();
    NSGradient::withStartingColor(NSColor::blackColor(), NSColor::redColor())->drawInRect({{0, 0}, {8, 64}}, 270);
    image->unlockFocus();
    const CALayer layer = CALayer::layer();
    layer.setBounds({{0, 0}, {64, 64}});
    layer.setBackgroundColor(NSColor::colorWithPatternImage(image).CGColor());
    layer.setCornerRadius(9);
    layer.setOpacity(0.7F);
    const CALayer sublayer = CALayer::layer();
    sublayer.setFrame({{1, 1}, {9, 9}});
    sublayer.setContents(bridged(image->CGImageForProposedRect(nullptr, {}, {})));
    layer.addSublayer(sublayer);
    layer.renderInContext(canvas.context());
    const auto attributes = NSMutableDictionary::dictionary();
    attributes.setObject(NSFont::systemFontOfSize(11), NSFontAttributeName);
    text::drawInRect(string("Frame"), {{0, 0}, {60, 20}}, attributes);
    const auto window = NSWindow::withContentRect({{}, {30, 30}}, NSWindowStyleMaskTitled, 2, false);
    window->contentView().setWantsLayer(true);
    window->setTitle(string("Title"));
  });
  EXPECT_LE(kept, 16 * 1024);
}

}  // namespace
