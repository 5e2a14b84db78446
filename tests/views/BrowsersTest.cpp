// Browsers, lists and toolbar buttons as the host shows them with the bundle loaded.

#include <gtest/gtest.h>

#include "cocoa/QuartzCore.h"
#include "host/kit/KitLists.h"
#include "host/panes/LoopBrowser.h"
#include "tests/support/HostTest.h"
#include "tests/support/KeyColors.h"
#include "tests/views/ViewTree.h"

namespace {

using namespace cocoa;
using host::WindowKind;
using namespace support;

Rgba colorIn(NSDictionary attributes) {
  return rgba(as<NSColor>(attributes.objectForKey(NSForegroundColorAttributeName)));
}

/// The colour of a text at a place; all -1 where it has none.
Rgba colorAt(NSAttributedString text, NSUInteger index) {
  return rgba(call<"attribute:atIndex:effectiveRange:", NSColor>(text, NSForegroundColorAttributeName, index,
                                                                 static_cast<NSRange*>(nullptr)));
}

/// The one colour of a button's image; empty when it has none.
Rgba glyph(NSButton button, const char* getter) {
  const auto image = send<NSImage>(button.object, sel_registerName(getter));
  const auto bitmap = cast<NSBitmapImageRep>(image.representations().objectAtIndex(0));
  const auto shown = pixels(bitmap);
  const auto opaque = std::ranges::find(shown, 100, &Rgba::alpha);
  return opaque != shown.end() ? *opaque : Rgba{};
}

class Browsers : public HostTest {
 protected:
  void SetUp() override {
    startWith(writeTheme(allColors().list()), sampleSong());
    for (const auto window : host::kWindowKinds) application_->openWindow(window);
  }
  [[nodiscard]] NSView view(WindowKind window, const char* className) const {
    const NSView found = viewIn(*application_, window, className);
    EXPECT_TRUE(found) << className;
    return found;
  }
  [[nodiscard]] NSView root(WindowKind window) const { return application_->window(window).contentView(); }
  static NSObject cell(NSView table, NSUInteger column) {
    return call<"dataCell", NSObject>(call<"tableColumns", NSArray>(table).objectAtIndex(column));
  }
};

TEST_F(Browsers, GiveLayersAndListsTheirColors) {
  const auto layer = [](NSView of) { return rgba(of.layer().backgroundColor()); };
  EXPECT_EQ(layer(view(WindowKind::kLoopBrowser, "MAKitTabView")), colorOf("LoopBrowser_PaneHeaderColor"));
  EXPECT_EQ(layer(view(WindowKind::kLoopBrowser, "MALoopBrowserSplitView")), colorOf("LoopBrowserHeaderColor"));
  EXPECT_EQ(layer(view(WindowKind::kLists, "NotePadBackgroundView")), colorOf("ListArea_NotePad_BG"));

  struct Row {
    WindowKind window;
    const char* table;
    const char* grid;
    const char* background;
  };
  for (const auto& [window, name, grid, background] : {
           Row{WindowKind::kLoopBrowser, "MALoopBrowserTableView", "LoopBrowserGridColor",
               "LoopBrowserControlBackgroundColor"},
           Row{WindowKind::kLoopBrowser, "MALoopBrowserOutlineView", "LoopBrowserGridColor",
               "LoopBrowserControlBackgroundColor"},
           Row{WindowKind::kLibrary, "NSTableView", "TableViewSeparatorColor", "TableviewColor"},
       }) {
    const auto table = cast<NSTableView>(view(window, name));
    EXPECT_EQ(rgba(table.gridColor()), colorOf(grid)) << name;
    EXPECT_EQ(rgba(table.backgroundColor()), colorOf(background)) << name;
  }
  EXPECT_EQ(cast<NSTableView>(view(WindowKind::kLoopBrowser, "MALoopBrowserTableView")).gridStyleMask(), 1U);
  // Files that a user has found in the loop browser look like its loops; the host shows none at first.
  const auto found = Ref<NSView>::adopt(
      NSView(call<"initWithFrame:", id>(call<"alloc", id>(classNamed("MyMAKitTableView")), CGRect{})));
  view(WindowKind::kLoopBrowser, "MALoopBrowserView").addSubview(found);
  call<"setThemeVariant:">(found.get(), NSInteger(0));
  EXPECT_EQ(rgba(cast<NSTableView>(found.get()).gridColor()), colorOf("LoopBrowserGridColor"));
  // A table of another name, and files outside of the loop browser, keep their looks.
  const auto files = cast<NSTableView>(view(WindowKind::kLibrary, "MyMAKitTableView"));
  EXPECT_NE(rgba(files.gridColor()), colorOf("LoopBrowserGridColor"));
  call<"setAutosaveName:">(files, literal<"FilesTableView">());
  EXPECT_NE(rgba(files.gridColor()), colorOf("TableViewSeparatorColor"));
}

TEST_F(Browsers, ColorTextsByTheirCells) {
  const Rgba themed = colorOf("FileBrowserCellTextColor");
  const auto tables = viewsBelow(root(WindowKind::kLibrary), "MyMAKitTableView");
  ASSERT_EQ(tables.size(), 2U);
  EXPECT_EQ(colorIn(call<"textAttributes", NSDictionary>(cell(tables[0], 0))), themed) << "with an icon";
  EXPECT_EQ(colorIn(call<"textAttributes", NSDictionary>(cell(tables[0], 1))), themed);
  EXPECT_NE(colorIn(call<"textAttributes", NSDictionary>(cell(tables[1], 0))), themed) << "in a list of notes";
  const NSView bin = view(WindowKind::kLibrary, "BinMAKitOutlineView");
  bool plain = false;
  bool info = false;
  for (NSUInteger i = 0; i < call<"tableColumns", NSArray>(bin).count(); ++i) {
    const NSObject each = cell(bin, i);
    if (toStdString(each.className()) == "BinTextFieldCell") {
      plain = rgba(call<"textColor", NSColor>(each)) == themed;
    } else if (toStdString(each.className()) == "BinProEditableInfoFieldCell") {
      info = colorIn(call<"attributesPlain", NSDictionary>(each)) == themed &&
             colorIn(call<"attributesBold", NSDictionary>(each)) == themed;
    }
  }
  EXPECT_TRUE(plain);
  EXPECT_TRUE(info);
}

TEST_F(Browsers, ColorTheTitleAndTheMenuOfTheLibraryAndOtherMenus) {
  const auto controller = call<"nextResponder", NSObject>(view(WindowKind::kLibrary, "CLgLibBrowserView"));
  EXPECT_EQ(rgba(call<"headerTitle", NSTextField>(controller).textColor()), colorOf("LibraryHeaderTextColor"));
  const auto packs = call<"soundPacksFilterPopUpButton", NSPopUpButton>(controller);
  EXPECT_EQ(colorAt(packs.selectedItem().attributedTitle(), 0), colorOf("LibrarySoundPacksFilterPopUpTextColor"));
  EXPECT_EQ(rgba(packs.contentTintColor()),
            rgba(call<"colorWithPath:", NSColor>(asObject(classNamed("MAKitColor")), literal<"Dark.menuArrows">())));

  const auto menus = viewsBelow(view(WindowKind::kLoopBrowser, "MALoopBrowserView"), "MAPopUpButton");
  ASSERT_EQ(menus.size(), 2U);
  EXPECT_EQ(rgba(call<"titleColor", NSColor>(menus[0])), colorOf("LoopPacksMenuTitleColor"));
  EXPECT_NE(rgba(call<"titleColor", NSColor>(menus[1])), colorOf("LoopPacksMenuTitleColor"));

  const NSCell sends = cast<NSControl>(view(WindowKind::kMixer, "MAPopUpButton")).cell();
  const auto arrowAfter = [&](NSInteger state) {
    call<"sendsOnFaderHackState:">(sends, state);
    return rgba(call<"menuArrowColor", NSColor>(sends));
  };
  EXPECT_EQ(arrowAfter(1), colorOf("sendsOnFaderPopupMenuArrowColorOn"));
  EXPECT_EQ(arrowAfter(0), colorOf("popupButtonMenuArrowColorOff"));
  EXPECT_EQ(arrowAfter(2), colorOf("popupButtonMenuArrowColorOff")) << "as it was";
}

TEST_F(Browsers, ColorSearchButtonsByRowAndState) {
  const NSView filter = view(WindowKind::kLoopBrowser, "MALoopBrowserFilterSegmentedControl");
  const auto cells = call<"cells", NSArray>(filter);
  std::size_t twoRows = 0;
  for (std::size_t i = 0; i < cells.count(); ++i) {
    const auto each = cast<NSCell>(cells.objectAtIndex(i));
    for (int press = 0; press < 2; ++press) {
      host::toggleLoopFilter(filter, i);
      const bool on = each.state() != 0;
      const auto text = call<"attributedString", NSAttributedString>(each);
      const std::string title = toStdString(each.stringValue());
      EXPECT_EQ(colorAt(text, 0), colorOf(on ? "LoopbrowserSearchButtonTitleOn" : "LoopbrowserSearchButtonTitleOff"));
      const auto lineBreak = title.find('\n');
      if (lineBreak == std::string::npos) continue;
      ++twoRows;
      EXPECT_EQ(colorAt(text, text.length() - 1),
                colorOf(on ? "LoopbrowserSearchButtonTitleSecondRowOn" : "LoopbrowserSearchButtonTitleSecondRowOff"));
      EXPECT_EQ(colorAt(text, lineBreak), (Rgba{-1, -1, -1, -1})) << "what has no colour gets none";
    }
  }
  EXPECT_GT(twoRows, 0U);
}

TEST_F(Browsers, DrawBarsOfTheirKindsInTheThemesColor) {
  struct Row {
    WindowKind window;
    const char* inside;
    std::size_t index;
    bool themed;
  };
  for (const Row& row :
       {Row{WindowKind::kLibrary, "CLgLibBrowserView", 0, true}, Row{WindowKind::kLists, "CLgListAreaTabView", 0, true},
        Row{WindowKind::kLists, "CLgListAreaTabView", 1, false}}) {
    const auto bars = viewsBelow(view(row.window, row.inside), "CLgDocwControlsView");
    ASSERT_GT(bars.size(), row.index) << row.inside;
    const NSView bar = bars[row.index];
    const auto rep = bar.bitmapImageRepForCachingDisplayInRect(bar.bounds());
    bar.cacheDisplayInRect(bar.bounds(), rep);
    const Rgba drawn = pixel(rep, 2, rep.pixelsHigh() / 2);
    EXPECT_EQ(near(drawn, colorOf("LibraryColorHeaderBackground")), row.themed) << row.inside << row.index;
  }
}

TEST_F(Browsers, SwapTheImagesOfSwitchesOnceForEachChange) {
  const auto button = cast<NSButton>(view(WindowKind::kArrange, "MAABButton"));
  const Rgba off = colorOf("On_OffToolbarIcons_OffSymbolsColor");
  const Rgba on = colorOf("On_OffToolbarIcons_OnSymbolsColor");
  button.setState(0);
  for (const NSInteger state : {0, 1, 1, 0, 1}) {
    button.setState(state);
    EXPECT_EQ(glyph(button, "image"), state == 1 ? on : off);
    EXPECT_EQ(glyph(button, "alternateImage"), state == 1 ? off : on);
    EXPECT_EQ((call<"isBordered", BOOL>(button) != 0), state == 0);
  }
  EXPECT_EQ(rgba(cast<NSButtonCell>(button.cell()).backgroundColor()), colorOf("On_OffToolbarIcons_OnBackgroundColor"));
  EXPECT_EQ(button.layer().cornerRadius(), 7);
  const auto once = cast<NSButton>(view(WindowKind::kArrange, "MAActionBarButton"));
  EXPECT_EQ(glyph(once, "image"), colorOf("OneClickToolbarIconsSymbolsColor"));
}

}  // namespace
