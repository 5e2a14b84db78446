// Tables and outlines of cells.

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <set>

#include "Canvas.h"
#include "cocoa/ClassDefinition.h"

namespace {

using namespace cocoa;
using namespace support;

/// Answers whatever a test wants, and notes what it was asked for.
struct Source : ObjectState {
  NSInteger count = 5;
  std::function<NSObject(NSInteger)> value = [](NSInteger row) { return string(std::to_string(row)); };
  std::multiset<NSInteger> asked;

  NSInteger numberOfRows(NSTableView) { return count; }
  NSObject valueAt(NSTableView, NSTableColumn, NSInteger row) {
    asked.insert(row);
    return value(row);
  }
};

/// A tree in which every item has two children, or lies in itself.
struct Tree : ObjectState {
  Ref<NSString> items[3] = {makeString("a"), makeString("b"), makeString("c")};
  NSInteger children = 2;
  bool endless = false;

  NSInteger numberOfChildren(NSOutlineView, NSObject item) {
    return !item || endless || item == items[0] ? children : 0;
  }
  NSObject child(NSOutlineView, NSInteger index, NSObject item) {
    if (endless) return items[0];
    return item ? items[2] : items[index % 2];
  }
  BOOL isExpandable(NSOutlineView, NSObject item) { return static_cast<BOOL>(item == items[0]); }
  NSObject value(NSOutlineView, NSTableColumn, NSObject item) { return item; }
};

template <class State>
Ref<NSObject> made(const char* name) {
  if (classNamed("TableTestSource") == nullptr) {
    ClassDefinition<Source>("TableTestSource", "NSObject")
        .method<"numberOfRowsInTableView:", &Source::numberOfRows>()
        .method<"tableView:objectValueForTableColumn:row:", &Source::valueAt>()
        .registered();
    ClassDefinition<Tree>("TableTestTree", "NSObject")
        .method<"outlineView:numberOfChildrenOfItem:", &Tree::numberOfChildren>()
        .method<"outlineView:child:ofItem:", &Tree::child>()
        .method<"outlineView:isItemExpandable:", &Tree::isExpandable>()
        .method<"outlineView:objectValueForTableColumn:byItem:", &Tree::value>()
        .registered();
  }
  return Ref<NSObject>::adopt(NSObject(call<"new", id>(classNamed(name))));
}

class Table : public testing::Test {
 protected:
  Table() {
    for (int i = 0; i < 2; ++i) addColumn(table, 4);
    table->setRowHeight(4);
    table->setBackgroundColor(letter('K'));
    table->setGridColor(letter('R'));
    table->setDataSource(source);
    told().value = [](NSInteger) { return NSObject(); };
  }
  static void addColumn(NSTableView to, double width) {
    const auto column = NSTableColumn::withIdentifier(literal<"column">());
    column->setWidth(width);
    to.addTableColumn(column);
  }
  Source& told() { return stateOf<Source>(source.get()); }
  std::string drawn(NSView view, NSRect part = {{0, 0}, {8, 8}}) {
    const Canvas canvas(8, 8);
    view.displayRectIgnoringOpacity(part, NSGraphicsContext::graphicsContextWithCGContext(canvas.context(), false));
    return canvas.art();
  }

  const AutoreleasePool pool;
  Ref<NSObject> source = made<Source>("TableTestSource");
  Ref<NSTableView> table = NSTableView::withFrame({{0, 0}, {8, 8}});
};

TEST_F(Table, KeepsWhatItWasToldUntilItLoadsAgain) {
  drawn(table);
  EXPECT_EQ(told().asked, (std::multiset<NSInteger>{0, 0, 1, 1})) << "the rows that show, once a column";
  EXPECT_FALSE(table->needsDisplay()) << "filling cells is no reason to draw again";
  told().count = 9;
  drawn(table);
  EXPECT_EQ(told().asked.size(), 4U);
  EXPECT_EQ(table->numberOfRows(), 5);
  table->reloadData();
  EXPECT_EQ(table->numberOfRows(), 9);
  drawn(table, {{0, 5}, {8, 2}});
  EXPECT_EQ(told().asked, (std::multiset<NSInteger>{0, 0, 1, 1, 1, 1})) << "only the dirty row";
}

TEST_F(Table, DrawsTheLinesOfItsGridStyle) {
  const std::string plain = "KKKKKKKK\n";
  const std::string columns = "KKKRKKKK\n";
  const std::string line = "RRRRRRRR\n";
  const auto rows = [](const std::string& inner, const std::string& last) {
    const std::string row = inner + inner + inner + last;
    return row + row;
  };
  const std::string expected[] = {rows(plain, plain), rows(columns, columns), rows(plain, line), rows(columns, line)};
  for (NSUInteger mask = 0; mask < 4; ++mask) {
    table->setGridStyleMask(mask);
    EXPECT_EQ(drawn(table), expected[mask]) << mask;
  }
  table->setGridStyleMask(0);
  table->selectRow(1);
  EXPECT_EQ(table->selectedRow(), 1);
  EXPECT_EQ(drawn(table).substr(0, 36), rows(plain, plain).substr(0, 36));
  EXPECT_NE(drawn(table).substr(36), rows(plain, plain).substr(36)) << "the selected row";
}

TEST_F(Table, IsItsCellsControlView) {
  const auto column = NSTableColumn::withIdentifier(literal<"last">());
  const Ref<NSCell> before = column->dataCell();
  EXPECT_FALSE(before->controlView());
  table->addTableColumn(column);
  EXPECT_EQ(before->controlView(), table.get());
  const Ref<NSCell> after = make<NSCell>();
  column->setDataCell(after);
  EXPECT_EQ(after->controlView(), table.get());
  EXPECT_FALSE(before->controlView());
  table = {};
  const AutoreleasePool emptied;
  EXPECT_EQ(column->dataCell(), after.get());
}

TEST_F(Table, StandsAnyDataSource) {
  constexpr NSInteger kMost = std::numeric_limits<NSInteger>::max();
  for (const NSInteger count : {NSInteger{-7}, NSInteger{0}, kMost}) {
    told().count = count;
    table->reloadData();
    drawn(table);
    EXPECT_GE(table->numberOfRows(), 0);
    EXPECT_EQ(table->isRowSelected(kMost), false);
  }
  told().count = 2;
  const std::function<NSObject(NSInteger)> values[] = {
      [](NSInteger) { return NSObject(NSNull::null()); },
      [](NSInteger) { return NSObject(NSNumber::numberWithDouble(0.5)); },
      [](NSInteger) { return NSObject(NSArray::array()); },
      [this](NSInteger) {
        table->reloadData();
        return NSObject(string("loaded meanwhile"));
      },
  };
  for (const auto& value : values) {
    told().value = value;
    table->reloadData();
    EXPECT_FALSE(drawn(table).empty());
  }
  table->setDataSource(NSNull::null());
  EXPECT_EQ(table->numberOfRows(), 0) << "it answers nothing that a table asks";
  table->setRowHeight(std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(drawn(table).empty());
}

TEST_F(Table, OutlineShowsOpenItems) {
  const auto outline = NSOutlineView::withFrame({{0, 0}, {60, 60}});
  const Ref<NSObject> tree = made<Tree>("TableTestTree");
  auto& state = stateOf<Tree>(tree.get());
  addColumn(outline, 60);
  outline->setDataSource(tree);
  EXPECT_EQ(outline->numberOfRows(), 2);
  outline->expandItem(state.items[0]);
  EXPECT_EQ(outline->numberOfRows(), 4);
  EXPECT_EQ(outline->itemAtRow(1), state.items[2].get());
  EXPECT_EQ(outline->levelForRow(1), 1);
  EXPECT_GT(outline->frameOfCellAtColumn(0, 1).minX(), outline->frameOfCellAtColumn(0, 0).minX());
  outline->collapseItem(state.items[0]);
  EXPECT_EQ(outline->numberOfRows(), 2);
  EXPECT_FALSE(outline->itemAtRow(2));
  state.endless = true;
  state.children = std::numeric_limits<NSInteger>::max();
  outline->expandItem(state.items[0]);
  EXPECT_LE(outline->numberOfRows(), 100'000) << "an item that lies in itself, many times";
  drawn(outline);
}

}  // namespace
