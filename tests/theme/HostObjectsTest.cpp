// What the theme does with objects of the host: windows, nodes, layers, catalogue colours. The host runs
// without the bundle; the plug-in's code is called here.

#include <gtest/gtest.h>

#include "cocoa/Call.h"
#include "host/mixer/MANode.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Utility.h"
#include "plugin/views/WindowTitles.h"
#include "tests/support/HostTest.h"

namespace velura {
namespace {

using namespace cocoa;
using namespace support;

class HostObjects : public HostTest {
 protected:
  void SetUp() override {
    defineVLRStripGradient();
    defineVLRStripBevel();
    defineThemeUtility();
    defineUtility();
    attachWindowTitles();
    host::Track folder{.name = "Folder"};
    folder.folder = true;
    startWith("", songOf({{.name = "Audio"},
                          folder,
                          {.name = "Master", .type = host::StripType::kMaster},
                          {.name = "Other", .type = host::StripType::kOther}}));
    theme_ = &ThemeUtility::shared();
  }
  void setColor(const char* key, NSColor color) {
    const auto colors = NSMutableDictionary::dictionaryWithDictionary(theme_->colorCollection());
    colors.setObject(color, string(key));
    theme_->setColorCollection(colors);
  }
  static NSInteger trackType(NSObject node) { return call<"getTrackType:", NSInteger>(classNamed("Utility"), node); }

  ThemeUtility* theme_ = nullptr;
};

/// The text fields of a window's title bar.
NSArray titleFields(NSWindow window) {
  const auto fields = NSMutableArray::array();
  for (const NSView container : items<NSView>(window.contentView().superview().subviews())) {
    for (const NSView bar : items<NSView>(container.subviews())) {
      if (toStdString(bar.className()) != "NSTitlebarView") continue;
      for (const NSView view : items<NSView>(bar.subviews())) {
        if (as<NSTextField>(view)) fields.addObject(view);
      }
    }
  }
  return fields;
}
NSColor titleColor(NSWindow window, NSUInteger field = 0) {
  return cast<NSTextField>(titleFields(window).objectAtIndex(field)).textColor();
}

TEST_F(HostObjects, TitlesOfWindowsAndPanelsTakeTheirColor) {
  const NSWindow mixer = application_->window(host::WindowKind::kMixer);
  const NSWindow panel = application_->window(host::WindowKind::kStepSequencer);
  mixer.setSubtitle(string("a second text"));
  ASSERT_EQ(titleFields(mixer).count(), 2U);
  const NSColor untouched = titleColor(mixer);
  application_->runFrame();
  EXPECT_EQ(titleColor(mixer), untouched) << "no colour, no change";
  setColor("windowTitleColor", NSColor::colorWithSRGBRed(1, 0, 0, 1));
  const NSColor subtitle = titleColor(mixer, 1);
  application_->runFrame();
  EXPECT_EQ(rgba(titleColor(mixer)), (Rgba{255, 0, 0}));
  EXPECT_EQ(rgba(titleColor(panel)), (Rgba{255, 0, 0}));
  EXPECT_EQ(titleColor(mixer, 1), subtitle) << "only the first text changes";
}

TEST_F(HostObjects, OnlyTheHostsOwnWindowsChange) {
  setColor("windowTitleColor", NSColor::colorWithSRGBRed(1, 0, 0, 1));
  const auto updated = [](const char* kind, NSUInteger style) {
    const auto window = Ref<NSWindow>::adopt(call<"initWithContentRect:styleMask:backing:defer:", NSWindow>(
        call<"alloc", id>(classNamed(kind)), CGRectMake(0, 0, 100, 100), style, NSBackingStoreBuffered, BOOL(0)));
    window->update();
    return window;
  };
  EXPECT_NE(rgba(titleColor(updated("NSWindow", NSWindowStyleMaskTitled))), (Rgba{255, 0, 0}));
  EXPECT_EQ(rgba(titleColor(updated("MAKitWindow", NSWindowStyleMaskTitled))), (Rgba{255, 0, 0}));
  updated("MAKitWindow", NSWindowStyleMaskBorderless);  // without a title bar
  NSNotificationCenter::defaultCenter().postNotificationName(NSWindowDidUpdateNotification, string("no window"));
  NSNotificationCenter::defaultCenter().postNotificationName(NSWindowDidUpdateNotification, NSObject());
}

TEST_F(HostObjects, TrackTypesComeFromTheStripAround) {
  EXPECT_EQ(trackType(strip(0)), 0);
  EXPECT_EQ(trackType(strip(1)), 100);
  EXPECT_EQ(trackType(strip(2)), 8);
  EXPECT_EQ(trackType(strip(3)), 4) << "a code of the host's that has no name";
  const auto children = call<"childrenArray", NSArray>(strip(1));
  ASSERT_GT(children.count(), 0U);
  EXPECT_EQ(trackType(children.objectAtIndex(0)), 100);
  EXPECT_EQ(trackType(NSObject()), -1);
  EXPECT_EQ(trackType(call<"parent", NSObject>(strip(0))), -1);
}

}  // namespace
}  // namespace velura
