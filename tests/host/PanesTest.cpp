// What the panes of browsers and lists promise to whoever looks at their views.

#include <gtest/gtest.h>

#include "host/kit/KitLists.h"
#include "host/kit/KitViews.h"
#include "host/panes/Library.h"
#include "standin/steering/Display.h"
#include "tests/host/ArrangeHost.h"
#include "tests/support/Memory.h"
#include "tests/views/ViewTree.h"

namespace {

using namespace cocoa;
using host::WindowKind;

constexpr WindowKind kWindows[] = {WindowKind::kLibrary, WindowKind::kLoopBrowser, WindowKind::kLists};

std::unique_ptr<host::Application> panesHost() {
  auto application = support::arrangeHost(support::sampleSong());
  for (const WindowKind kind : kWindows) application->openWindow(kind);
  return application;
}

TEST(Panes, LibraryShowsAnotherPatchInTheHostsLook) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  const NSView view = support::viewIn(*application, WindowKind::kLibrary, "CLgLibBrowserView");
  const NSObject controller = view.nextResponder();
  const auto title = call<"headerTitle", NSTextField>(controller);
  const auto packs = call<"soundPacksFilterPopUpButton", NSPopUpButton>(controller);
  EXPECT_EQ(title.textColor().type(), NSColorTypeCatalog);
  title.setTextColor(NSColor::redColor());
  packs.selectedItem().setAttributedTitle(
      NSAttributedString::withString(literal<"other">(), NSDictionary::dictionary()));
  application->settle(WindowKind::kLibrary);
  EXPECT_TRUE(title.textColor().isEqual(NSColor::redColor())) << "nobody chose a patch";
  const std::string before = toStdString(title.stringValue());
  host::choosePatch(view, 3);
  EXPECT_NE(toStdString(title.stringValue()), before);
  EXPECT_EQ(title.textColor().type(), NSColorTypeCatalog);
  EXPECT_FALSE(packs.selectedItem().attributedTitle());
}

TEST(Panes, ListsTakeTheirColorsAnewWithTheAppearance) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  const NSView content = application->window(WindowKind::kLoopBrowser).contentView();
  const auto loops =
      cast<NSTableView>(support::viewIn(*application, WindowKind::kLoopBrowser, "MALoopBrowserTableView"));
  const auto folders =
      cast<NSTableView>(support::viewIn(*application, WindowKind::kLoopBrowser, "MALoopBrowserOutlineView"));
  const NSColor dark = loops.backgroundColor();
  loops.setBackgroundColor(NSColor::redColor());
  application->settle(WindowKind::kLoopBrowser);
  EXPECT_TRUE(loops.backgroundColor().isEqual(NSColor::redColor())) << "nobody told it anything";
  host::appearanceChanged(content, 1);
  EXPECT_FALSE(loops.backgroundColor().isEqual(dark));
  EXPECT_TRUE(loops.backgroundColor().isEqual(folders.backgroundColor()));
  host::appearanceChanged(content, 0);
  EXPECT_TRUE(loops.backgroundColor().isEqual(dark));
}

TEST(Panes, FramesWithoutChangesDrawNothingAndKeepNothing) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  for (const WindowKind kind : kWindows) application->settle(kind);
  EXPECT_LE(support::keptAfter(10'000, [&](int) { application->runFrame(); }), 64 * 1024);
  for (const WindowKind kind : kWindows) EXPECT_FALSE(standin::windowNeedsDisplay(application->window(kind)));
}

}  // namespace
