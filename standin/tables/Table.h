#pragma once
// The state of NSTableView, for the outline that builds on it.

#include <map>
#include <memory>
#include <vector>

#include "standin/controls/Cell.h"

namespace standin {

struct TableState;

/// Where a table's rows come from.
class TableRows {
 public:
  explicit TableRows(TableState& table) : table_(table) {}
  virtual ~TableRows() = default;
  TableRows(const TableRows&) = delete;
  TableRows& operator=(const TableRows&) = delete;

  /// Asks the data source how many there are.
  virtual NSInteger load();
  virtual NSObject value(NSTableColumn column, NSInteger row);
  /// The last word of the delegate on what a cell shows.
  virtual void willDisplay(NSCell cell, NSTableColumn column, NSInteger row);
  /// How far the cell of a column is moved to the right.
  virtual double indent(std::size_t /*column*/, NSInteger /*row*/) { return 0; }
  /// Draws what belongs into that gap.
  virtual void drawIndent(NSRect /*gap*/, NSInteger /*row*/) {}
  /// Whether a click there was taken.
  virtual bool clicked(NSPoint /*point*/, NSInteger /*row*/) { return false; }

 protected:
  TableState& table_;
};

/// State of an NSTableView: cells that are drawn row by row. What the data source said of a row is kept from the
/// row's first drawing until the data are loaded again.
struct TableState : cocoa::ObjectState {
  std::vector<cocoa::Ref<NSTableColumn>> columns;
  std::unique_ptr<TableRows> rows = std::make_unique<TableRows>(*this);
  std::map<NSInteger, std::vector<cocoa::Ref<NSObject>>> values;
  cocoa::Ref<NSView> header;
  cocoa::Ref<NSColor> gridColor;
  cocoa::Ref<NSColor> backgroundColor;
  cocoa::Ref<NSString> autosaveName;
  cocoa::Ref<NSObject> selection;  // an index set
  id dataSource = nullptr;
  id delegate = nullptr;
  NSInteger count = 0;
  CGFloat rowHeight = 17;
  NSUInteger gridStyleMask = 0;
  bool alternates = false;
  bool loaded = false;

  ~TableState();
  id initWithFrame(NSRect frame);
  NSView view() { return NSView(self); }
  BOOL isFlipped() { return 1; }

  NSArray tableColumns();
  void addColumn(NSTableColumn column);
  NSObject dataSourceHandle() { return NSObject(dataSource); }
  void setDataSource(NSObject source);
  NSObject delegateHandle() { return NSObject(delegate); }
  void setDelegate(NSObject object) { delegate = object.object; }
  void reload();
  /// The rows are others by now: they are loaded when somebody asks for them.
  void invalidate();
  NSInteger numberOfRows();
  void setRowHeight(CGFloat height);
  NSRect rectOfRow(NSInteger row);
  NSRect frameOfCell(NSInteger column, NSInteger row);
  NSInteger rowAtPoint(NSPoint point);

  void select(NSObject indexes, BOOL extending);
  NSInteger selectedRow();
  BOOL isRowSelected(NSInteger row);
  void mouseDown(NSEvent event);

  void setGridStyleMask(NSUInteger mask);
  NSColor grid();
  void setGridColor(NSColor color);
  NSColor background();
  void setBackgroundColor(NSColor color);
  void setAlternates(BOOL uses);

  void drawRect(NSRect dirty);
  void drawBackground(NSRect clip);
  void drawSelection(NSRect clip);
  void drawGrid(NSRect clip);
  void drawRow(NSInteger row, NSRect clip);

 private:
  struct Range {
    NSInteger first = 0;
    NSInteger end = 0;
  };
  Range rowsIn(NSRect rect);
  const std::vector<cocoa::Ref<NSObject>>& valuesOf(NSInteger row);
  void redraw();
};

}  // namespace standin
