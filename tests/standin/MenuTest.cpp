// Menus and the buttons that show them.

#include <gtest/gtest.h>

#include "Canvas.h"
#include "cocoa/Call.h"

namespace {

using namespace cocoa;
using namespace support;

Ref<NSPopUpButton> popUp() {
  auto button = makeWith<NSPopUpButton, "initWithFrame:pullsDown:">(CGRectMake(0, 0, 90, 20), BOOL(0));
  for (const char* title : {"One", "Two", "Three"}) button->addItemWithTitle(string(title));
  return button;
}

Ref<NSAttributedString> coloured(const char* text, char colour) {
  const auto attributes = NSMutableDictionary::dictionary();
  attributes.setObject(letter(colour), NSForegroundColorAttributeName);
  return NSAttributedString::withString(string(text), attributes);
}

/// How many pixels of a drawn button have one channel only: 24, 16 or 8 bits from the right.
int pixelsOf(NSPopUpButton button, int shift) {
  const Canvas canvas(90, 20);
  button.displayRectIgnoringOpacity(button.bounds(),
                                    NSGraphicsContext::graphicsContextWithCGContext(canvas.context(), false));
  int count = 0;
  for (const std::uint32_t pixel : canvas.pixels()) {
    const std::uint32_t own = (pixel >> shift) & 0xFFU;
    const std::uint32_t all = (pixel >> 24U) + ((pixel >> 16U) & 0xFFU) + ((pixel >> 8U) & 0xFFU);
    count += static_cast<int>(own > 100 && all - own < 60);
  }
  return count;
}
constexpr int kRed = 24;
constexpr int kGreen = 16;

TEST(Menu, SelectsItemsByIndex) {
  const AutoreleasePool pool;
  const auto button = popUp();
  EXPECT_EQ(toStdString(button->selectedItem().title()), "One");
  button->selectItemAtIndex(2);
  EXPECT_EQ(button->indexOfSelectedItem(), 2);
  EXPECT_EQ(button->selectedItem().state(), NSControlStateValueOn);
  EXPECT_EQ(cast<NSMenuItem>(button->itemArray().objectAtIndex(0)).state(), NSControlStateValueOff);
  for (const NSInteger missing : {NSInteger{-1}, NSInteger{3}}) {
    button->selectItemAtIndex(missing);
    EXPECT_FALSE(button->selectedItem());
    EXPECT_EQ(toStdString(button->title()), "");
  }
}

TEST(Menu, ButtonShowsItsSelectedItemsLook) {
  const AutoreleasePool pool;
  const auto button = popUp();
  EXPECT_EQ(pixelsOf(button, kRed) + pixelsOf(button, kGreen), 0);
  EXPECT_FALSE(button->needsDisplay());
  const NSMenuItem item = button->selectedItem();
  item.setAttributedTitle(coloured("One", 'R'));
  EXPECT_TRUE(button->needsDisplay()) << "it shows this item";
  EXPECT_EQ(toStdString(item.title()), "One");
  EXPECT_GT(pixelsOf(button, kRed), 10);
  button->setContentTintColor(letter('G'));
  EXPECT_TRUE(button->needsDisplay());
  EXPECT_GT(pixelsOf(button, kGreen), 5) << "the arrows";
  button->selectItemAtIndex(1);
  EXPECT_EQ(pixelsOf(button, kRed), 0) << "another item, of no look of its own";
}

TEST(Menu, ItemsMayOutliveTheirMenu) {
  const AutoreleasePool pool;
  Ref<NSMenuItem> item;
  {
    const AutoreleasePool inner;
    item = popUp()->selectedItem();
  }
  item->setTitle(literal<"Alone">());
  EXPECT_EQ(toStdString(item->title()), "Alone");
}

}  // namespace
