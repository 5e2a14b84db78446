// What the panes of browsers and lists promise to whoever looks at their views.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <malloc.h>

#include "ArrangeHost.h"
#include "cocoa/Override.h"
#include "host/panes/KitLists.h"
#include "host/panes/KitViews.h"
#include "host/panes/Library.h"
#include "host/panes/LoopBrowser.h"
#include "standin/Display.h"
#include "tests/views/ViewTree.h"

namespace {

using namespace cocoa;
using host::WindowKind;
using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;

constexpr WindowKind kWindows[] = {WindowKind::kLibrary, WindowKind::kLoopBrowser, WindowKind::kLists};

std::vector<NSView> viewsOf(const host::Application& application, WindowKind kind, std::string_view className) {
  return support::viewsBelow(application.window(kind).contentView(), className);
}
NSView viewOf(const host::Application& application, WindowKind kind, std::string_view className) {
  const auto found = viewsOf(application, kind, className);
  EXPECT_FALSE(found.empty()) << className;
  return found.empty() ? NSView() : found.front();
}

std::unique_ptr<host::Application> panesHost() {
  auto application = support::arrangeHost(support::sampleSong());
  for (const WindowKind kind : kWindows) application->openWindow(kind);
  return application;
}

// ---- Order --------------------------------------------------------------------------------------------

std::vector<std::string>& told() {
  static std::vector<std::string> lines;
  return lines;
}
std::string nameOf(NSObject object) { return object ? toStdString(object.className()) : "nothing"; }

using Attributes = Override<"MATextFieldCell", void(NSDictionary), "setTextAttributes:", "panesTestSetTextAttributes:">;
using TabLayer = Override<"MAKitTabView", void(CALayer), "setLayer:", "panesTestSetLayer:">;
using Variant = Override<"MAKitTableView", void(NSInteger), "setThemeVariant:", "panesTestSetThemeVariant:">;
using Grid = Override<"MAKitTableView", void(NSUInteger), "setGridStyleMask:", "panesTestSetGridStyleMask:">;
using Help = Override<"MAPopUpButton", void(NSObject), "setQuickHelpID:", "panesTestSetQuickHelpID:">;
using Autosave = Override<"NSTableView", void(NSString), "setAutosaveName:", "panesTestSetAutosaveName:">;

void attributes(NSCell cell, NSDictionary value) {
  const auto table = cast<NSTableView>(cell.controlView());
  told().push_back(nameOf(cell) + " in " + nameOf(table) + " of " + nameOf(table ? table.dataSource() : NSObject()));
  Attributes::callHost(cell, value);
}
void tabLayer(NSView tabs, CALayer layer) {
  told().push_back("layer in " + nameOf(tabs.superview()));
  TabLayer::callHost(tabs, layer);
}
void variant(NSView table, NSInteger value) {
  told().push_back(nameOf(table) + " in " + nameOf(table.superview()));
  Variant::callHost(table, value);
}
void grid(NSView table, NSUInteger mask) {
  told().push_back(nameOf(table) + " lines " + std::to_string(mask));
  Grid::callHost(table, mask);
}
void help(NSObject button, NSObject identifier) {
  told().push_back(toStdString(as<NSString>(identifier)));
  Help::callHost(button, identifier);
}
void autosave(NSTableView table, NSString name) {
  told().push_back(toStdString(name) + " lines " + std::to_string(table.gridStyleMask()));
  Autosave::callHost(table, name);
}

TEST(Panes, TellTheirViewsThingsInOrder) {
  const AutoreleasePool pool;
  const auto application = support::arrangeHost(support::sampleSong());
  CategoryDefinition("MATextFieldCell").replacement<Attributes, attributes>();
  CategoryDefinition("MAKitTabView").replacement<TabLayer, tabLayer>();
  CategoryDefinition("MAKitTableView").replacement<Variant, variant>().replacement<Grid, grid>();
  CategoryDefinition("MAPopUpButton").replacement<Help, help>();
  CategoryDefinition("NSTableView").replacement<Autosave, autosave>();
  Attributes::install();
  TabLayer::install();
  Variant::install();
  Grid::install();
  Help::install();
  Autosave::install();
  for (const WindowKind kind : kWindows) application->openWindow(kind);
  EXPECT_THAT(told(), IsSupersetOf({
                          "ImageAndTextCell in MyMAKitTableView of LGMediaBrowserViewController",
                          "LGFileBrowserTextFieldCell in MyMAKitTableView of LGMediaBrowserViewController",
                          "ImageAndTextCell in MyMAKitTableView of LGProjectNotesController",
                          "layer in MALoopBrowserSplitView",
                          "MALoopBrowserTableView in MALoopBrowserSplitView",
                          "MALoopBrowserTableView lines 1",
                          "LPB_023_LoopsMenu",
                          "LibrarySearchTableView lines 1",
                      }));
}

// ---- What is found ------------------------------------------------------------------------------------

TEST(Panes, SayWhatTheirBarsAreFor) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  const auto typesIn = [&](WindowKind kind) {
    std::vector<NSInteger> types;
    for (const NSView bar : viewsOf(*application, kind, "CLgDocwControlsView")) {
      const Ivar variable = class_getInstanceVariable(object_getClass(bar.object), "docwControlsViewType");
      types.push_back(variable == nullptr ? -1 : reinterpret_cast<NSInteger>(object_getIvar(bar.object, variable)));
    }
    return types;
  };
  EXPECT_THAT(typesIn(WindowKind::kLibrary), ElementsAre(2, 0, 0, 0));
  EXPECT_THAT(typesIn(WindowKind::kLists), ElementsAre(2, 1));
}

TEST(Panes, AnswerTheirParts) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  const NSObject controller = application->window(WindowKind::kLibrary).windowController();
  const auto browsers = call<"browserUnilibView", NSView>(controller);
  const auto lists = support::viewsBelow(browsers, "MyMAKitTableView");
  ASSERT_EQ(lists.size(), 2U);
  EXPECT_EQ(nameOf(cast<NSTableView>(lists[0]).dataSource()), "LGMediaBrowserViewController");
  const auto bins = support::viewsBelow(browsers, "BinMAKitOutlineView");
  ASSERT_EQ(bins.size(), 1U);
  EXPECT_GT(cast<NSTableView>(bins[0]).numberOfRows(), 20) << "files, and regions below them";
  const auto loops = call<"delegate", NSObject>(viewOf(*application, WindowKind::kLoopBrowser, "MALoopBrowserView"));
  const auto packs = call<"jamPackControl", NSPopUpButton>(loops);
  EXPECT_EQ(toStdString(packs.title()), "Loop Packs: All Packs");
  const NSView notes = viewOf(*application, WindowKind::kLists, "CLgDocwNotesListView");
  EXPECT_EQ(nameOf(notes.subviews().objectAtIndex(0)), "NotePadDecorationView");
}

TEST(Panes, LibraryShowsAnotherPatchInTheHostsLook) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  const NSView view = viewOf(*application, WindowKind::kLibrary, "CLgLibBrowserView");
  const NSObject controller = view.nextResponder();
  ASSERT_EQ(nameOf(controller), "CLgLibraryViewController");
  const auto title = call<"headerTitle", NSTextField>(controller);
  const auto packs = call<"soundPacksFilterPopUpButton", NSPopUpButton>(controller);
  EXPECT_TRUE(title.isDescendantOf(view));
  EXPECT_EQ(nameOf(packs), "NSPopUpButton");
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

TEST(Panes, ListsTakeTheirColoursAnewWithTheAppearance) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  const NSView content = application->window(WindowKind::kLoopBrowser).contentView();
  const auto loops = cast<NSTableView>(viewOf(*application, WindowKind::kLoopBrowser, "MALoopBrowserTableView"));
  const auto folders = cast<NSTableView>(viewOf(*application, WindowKind::kLoopBrowser, "MALoopBrowserOutlineView"));
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

/// The colour of each letter, as one letter a colour in the order of their appearance; '-' for none.
std::string colourRuns(NSAttributedString text) {
  std::vector<NSObject> seen;
  std::string runs;
  for (NSUInteger i = 0; i < text.length(); ++i) {
    const NSObject colour = text.attribute(NSForegroundColorAttributeName, i, nullptr);
    const auto found = std::find_if(seen.begin(), seen.end(), [&](NSObject each) { return each.isEqual(colour); });
    const auto index = found - seen.begin();
    if (colour && found == seen.end()) seen.push_back(colour);
    runs += colour ? static_cast<char>('a' + index) : '-';
  }
  return runs;
}

TEST(Panes, TogglesColourTheirRowsByState) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  const NSView filter = viewOf(*application, WindowKind::kLoopBrowser, "MALoopBrowserFilterSegmentedControl");
  const auto cell =
      Ref<NSCell>::adopt(call<"init", NSCell>(call<"alloc", id>(classNamed("MALoopBrowserSegmentedTextLabelCell"))));
  const auto text = [&] { return call<"attributedString", NSMutableAttributedString>(cell.get()); };
  cell->setStringValue(literal<"Organ">());
  EXPECT_EQ(colourRuns(text()), "aaaaa");
  cell->setStringValue(literal<"Bass\n148">());
  EXPECT_EQ(colourRuns(text()), "aaaa-bbb");
  const Ref<NSObject> off = text().attribute(NSForegroundColorAttributeName, 0, nullptr);
  cell->setState(NSControlStateValueOn);
  EXPECT_FALSE(off->isEqual(text().attribute(NSForegroundColorAttributeName, 0, nullptr)));
  application->settle(WindowKind::kLoopBrowser);
  host::toggleLoopFilter(filter, 0);
  EXPECT_TRUE(filter.needsDisplay());
}

TEST(Panes, FramesWithoutChangesDrawNothingAndKeepNothing) {
  const AutoreleasePool pool;
  const auto application = panesHost();
  for (const WindowKind kind : kWindows) application->settle(kind);
  const auto run = [&](int frames) {
    for (int i = 0; i < frames; ++i) application->runFrame();
  };
  run(100);
  for (const WindowKind kind : kWindows) EXPECT_FALSE(standin::windowNeedsDisplay(application->window(kind)));
  const auto before = mallinfo2().uordblks;
  run(10'000);
  EXPECT_LT(mallinfo2().uordblks, before + 64 * 1024);
  for (int i = 0; i < 3; ++i) static_cast<void>(application->draw(WindowKind::kLibrary));
  const auto drawn = mallinfo2().uordblks;
  for (int i = 0; i < 20; ++i) static_cast<void>(application->draw(WindowKind::kLibrary));
  EXPECT_LT(mallinfo2().uordblks, drawn + 64 * 1024);
}

}  // namespace
