// What the stand-in adds to Foundation and to the runtime.

#include <gtest/gtest.h>
#include <malloc.h>

#include <filesystem>
#include <fstream>

#include "Canvas.h"
#include "cocoa/Association.h"
#include "cocoa/ClassDefinition.h"
#include "standin/Clock.h"
#include "standin/MainBundle.h"

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

TEST(Clock, CanBeSet) {
  standin::setClock(1234.5);
  EXPECT_EQ(CFAbsoluteTimeGetCurrent(), 1234.5);
  standin::runClock();
  EXPECT_GT(CFAbsoluteTimeGetCurrent(), 7e8) << "after March 2023";
}

TEST(Foundation, WritesGeometryAsThePlatformDoes) {
  const AutoreleasePool pool;
  EXPECT_EQ(toStdString(NSString(NSStringFromRect({{0, 0}, {84, 598}}))), "{{0, 0}, {84, 598}}");
  EXPECT_EQ(toStdString(NSString(NSStringFromSize({134, 598.5}))), "{134, 598.5}");
}

TEST(Foundation, KeepsDefaultsOfASuite) {
  const AutoreleasePool pool;
  const NSString suite = string("com.example.standin-test");
  const NSString key = string("kPlatformTest");
  const auto defaults = NSUserDefaults::suiteNamed(suite);
  EXPECT_FALSE(defaults->objectForKey(key));
  defaults->setObject(string("value"), key);
  EXPECT_EQ(toStdString(NSUserDefaults::suiteNamed(suite)->stringForKey(key)), "value");
  EXPECT_FALSE(NSUserDefaults::standardUserDefaults().objectForKey(key)) << "the suite's own";
  call<"removeObjectForKey:">(defaults.get(), key);
  EXPECT_FALSE(defaults->objectForKey(key));
}

TEST(Foundation, OpensBundlesInThePlatformsLayout) {
  const AutoreleasePool pool;
  namespace fs = std::filesystem;
  const fs::path folder = fs::temp_directory_path() / ("standin-" + std::to_string(getpid()) + ".bundle");
  fs::create_directories(folder / "Contents/Resources");
  std::ofstream(folder / "Contents/Info.plist")
      << "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist "
         "version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.example.bundle</string></dict></plist>";
  std::ofstream(folder / "Contents/Resources/Some.plist") << "{}";
  const NSString identifier = string("com.example.bundle");
  EXPECT_FALSE(NSBundle::bundleWithIdentifier(identifier)) << "not opened yet";
  const NSBundle bundle = NSBundle::bundleWithPath(string(folder.string()));
  EXPECT_EQ(NSBundle::bundleWithIdentifier(identifier), bundle);
  EXPECT_EQ(toStdString(bundle.pathForResource(string("Some"), string("plist"))),
            (folder / "Contents/Resources/Some.plist").string());
  EXPECT_FALSE(bundle.pathForResource(string("None"), string("plist")));
  standin::setBundleOfClass(classNamed("CALayer"), bundle);
  EXPECT_EQ(NSBundle::bundleForClass(classNamed("CALayer")), bundle);
  EXPECT_NE(NSBundle::bundleForClass(classNamed("NSObject")), bundle);
  fs::remove_all(folder);
}

TEST(Foundation, LetsAHostDescribeItself) {
  const AutoreleasePool pool;
  const auto info = NSMutableDictionary::dictionary();
  info.setObject(string("11.2"), string("CFBundleShortVersionString"));
  standin::setMainBundleInfo(info);
  EXPECT_TRUE(NSBundle::mainBundle()
                  .infoDictionary()
                  .objectForKey(string("CFBundleShortVersionString"))
                  .isEqual(string("11.2")));
  standin::setMainBundleInfo({});
}

/// Everything that a frame makes is gone after it.
TEST(Memory, StaysFlatOverFrames) {
  const auto frame = [] {
    const AutoreleasePool pool;
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
  };
  for (int i = 0; i < 50; ++i) frame();
  const auto before = mallinfo2().uordblks;
  for (int i = 0; i < 300; ++i) frame();
  EXPECT_LT(mallinfo2().uordblks, before + 16 * 1024);
}

}  // namespace
