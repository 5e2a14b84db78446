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
