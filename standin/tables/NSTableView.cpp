// NSTableView of cells, its columns and the view of their titles.

#include "standin/tables/Registration.h"
#include "standin/tables/Table.h"

#include <algorithm>
#include <cmath>

using namespace cocoa;

namespace standin {

namespace {

constexpr NSInteger kMostRows = 100'000'000;
constexpr double kWidest = 1e5;

double within(double value, double least, double most) {
  return std::isfinite(value) ? std::clamp(value, least, most) : least;
}

// ---- Columns ------------------------------------------------------------------------------------------

struct TableColumn : ObjectState {
  Ref<NSString> identifier;
  Ref<NSCell> dataCell;
  Ref<NSCell> headerCell;
  CGFloat width = 100;
  id table = nullptr;

  id initWithIdentifier(NSString name) {
    identifier = name;
    setDataCell(makeCell("NSTextFieldCell"));
    headerCell = makeCell("NSTableHeaderCell");
    return self;
  }
  static Ref<NSCell> makeCell(const char* className) {
    return Ref<NSCell>::adopt(call<"init", NSCell>(call<"alloc", id>(classNamed(className))));
  }
  void setDataCell(NSCell cell) {
    const Ref<NSCell> before = dataCell;
    dataCell = cell;
    if (before) before->setControlView({});
    joinTable(table);
  }
  void joinTable(id changed) {
    table = changed;
    if (dataCell) dataCell->setControlView(NSView(table));
    NSView(table).setNeedsDisplay(true);
  }
  void setWidth(CGFloat wanted) {
    width = within(wanted, 0, kWidest);
    NSView(table).setNeedsDisplay(true);
  }
};

/// A column's title.
struct TableHeaderCell : ObjectState {
  id init() {
    superSend<TableHeaderCell, id>(self, selector<"init">());
    NSCell(self).setFont(NSFont::systemFontOfSize(11));
    stateOf<CellState>(self).lineBreakMode = NSLineBreakByTruncatingTail;
    call<"setTextColor:">(self, NSColor::colorWithSRGBRed(1, 1, 1, 0.6));
    call<"setBackgroundColor:">(self, NSColor::colorWithSRGBRed(0.2, 0.2, 0.21, 1));
    call<"setDrawsBackground:">(self, BOOL(1));
    return self;
  }
  void drawInterior(NSRect frame, NSView) {
    constexpr double kMargin = 5;
    drawCentered(NSControl(self).attributedStringValue(), frame.insetBy(kMargin, 0));
  }
};

/// The titles of a table's columns, side by side; the last one takes what is left.
struct TableHeaderView : ObjectState {
  id table = nullptr;

  NSTableView tableHandle() { return NSTableView(table); }
  void drawRect(NSRect) {
    if (table == nullptr) return;
    const NSRect bounds = NSView(self).bounds();
    double x = 0;
    const auto& columns = stateOf<TableState>(table).columns;
    for (const auto& column : columns) {
      const bool isLast = &column == &columns.back();
      const double width = isLast ? bounds.size.width - x : column->width();
      column->headerCell().drawWithFrame({{x, 0}, {width, bounds.size.height}}, NSView(self));
      x += width;
      if (isLast) break;
      tableHandle().gridColor().set();
      NSBezierPath::fillRect({{x - 1, 3}, {1, bounds.size.height - 6}});
    }
  }
};

// ---- Cells --------------------------------------------------------------------------------------------

/// Filling a cell for one row after the other changes nothing that is to be drawn again.
class KeptMarks {
 public:
  explicit KeptMarks(ViewState& view) : view_(view), needsDisplay_(view.needsDisplay), marked_(view.marked) {}
  KeptMarks(const KeptMarks&) = delete;
  KeptMarks& operator=(const KeptMarks&) = delete;
  ~KeptMarks() {
    view_.needsDisplay = needsDisplay_;
    view_.marked = marked_;
  }

 private:
  ViewState& view_;
  bool needsDisplay_;
  NSRect marked_;
};

/// Whatever a data source answers has a description.
void fill(NSCell cell, NSObject value) {
  if (const auto styled = as<NSAttributedString>(value)) {
    return call<"setAttributedStringValue:">(cell, styled);
  }
  const auto text = as<NSString>(value);
  cell.setStringValue(text ? text : as<NSString>(value.description()));
}

}  // namespace

// ---- Rows ---------------------------------------------------------------------------------------------

NSInteger TableRows::load() {
  if (!respondsTo(table_.dataSource, selector<"numberOfRowsInTableView:">())) return 0;
  return call<"numberOfRowsInTableView:", NSInteger>(table_.dataSource, table_.view());
}

NSObject TableRows::value(NSTableColumn column, NSInteger row) {
  if (!respondsTo(table_.dataSource, selector<"tableView:objectValueForTableColumn:row:">())) return {};
  return call<"tableView:objectValueForTableColumn:row:", NSObject>(table_.dataSource, table_.view(), column, row);
}

void TableRows::willDisplay(NSCell cell, NSTableColumn column, NSInteger row) {
  if (!respondsTo(table_.delegate, selector<"tableView:willDisplayCell:forTableColumn:row:">())) return;
  call<"tableView:willDisplayCell:forTableColumn:row:">(table_.delegate, table_.view(), cell, column, row);
}

TableState::~TableState() {
  for (const auto& column : columns) stateOf<TableColumn>(column).joinTable(nullptr);
  if (header) stateOf<TableHeaderView>(header).table = nullptr;
}

id TableState::initWithFrame(NSRect frame) {
  superSend<TableState, id>(self, selector<"initWithFrame:">(), frame);
  header =
      Ref<NSView>::adopt(call<"initWithFrame:", NSView>(call<"alloc", id>(classNamed("NSTableHeaderView")), NSRect{}));
  stateOf<TableHeaderView>(header).table = self;
  return self;
}

NSArray TableState::tableColumns() {
  const NSMutableArray all = NSMutableArray::array();
  for (const auto& column : columns) all.addObject(column);
  return all;
}

void TableState::addColumn(NSTableColumn column) {
  auto* state = stateIfKind<TableColumn>(column);
  if (state == nullptr || state->table != nullptr) return;
  columns.emplace_back(column);
  state->joinTable(self);
  values.clear();
}

void TableState::setDataSource(NSObject source) {
  dataSource = source.object;
  invalidate();
}

void TableState::invalidate() {
  loaded = false;
  redraw();
}

void TableState::reload() {
  values.clear();
  loaded = true;
  count = std::clamp<NSInteger>(rows->load(), 0, kMostRows);
  redraw();
}

NSInteger TableState::numberOfRows() {
  if (loaded) return count;
  const KeptMarks kept(stateOf<ViewState>(self));  // what is loaded late has not been drawn yet
  call<"reloadData">(self);
  return count;
}

void TableState::setRowHeight(CGFloat height) {
  rowHeight = within(height, 1, kWidest);
  redraw();
}

void TableState::redraw() { view().setNeedsDisplay(true); }

NSRect TableState::rectOfRow(NSInteger row) {
  if (row < 0 || row >= numberOfRows()) return {};
  return {{0, static_cast<double>(row) * rowHeight}, {view().bounds().size.width, rowHeight}};
}

NSRect TableState::frameOfCell(NSInteger column, NSInteger row) {
  if (column < 0 || static_cast<std::size_t>(column) >= columns.size()) return {};
  const auto index = static_cast<std::size_t>(column);
  NSRect frame = rectOfRow(row);
  if (frame.isEmpty()) return {};
  for (std::size_t i = 0; i < index; ++i) frame.origin.x += columns[i]->width();
  const double indent = rows->indent(index, row);
  frame.origin.x += indent;
  frame.size.width = std::max(0.0, columns[index]->width() - indent);
  return frame;
}

NSInteger TableState::rowAtPoint(NSPoint point) {
  if (!CGRectContainsPoint(view().bounds(), point)) return -1;
  const auto row = static_cast<NSInteger>(point.y / rowHeight);
  return row < numberOfRows() ? row : -1;
}

TableState::Range TableState::rowsIn(NSRect rect) {
  const NSInteger all = numberOfRows();
  const auto at = [&](double y) { return static_cast<NSInteger>(within(y, 0, static_cast<double>(all))); };
  return {at(std::floor(rect.minY() / rowHeight)), at(std::ceil(rect.maxY() / rowHeight))};
}

const std::vector<Ref<NSObject>>& TableState::valuesOf(NSInteger row) {
  auto [found, isNew] = values.try_emplace(row);
  if (!isNew && found->second.size() == columns.size()) return found->second;
  std::vector<Ref<NSObject>> told;
  for (const auto& column : columns) told.emplace_back(rows->value(column, row));
  return values[row] = std::move(told);  // the data source may have loaded the table again
}

// ---- Selection ----------------------------------------------------------------------------------------

void TableState::select(NSObject indexes, BOOL extending) {
  if (extending != 0 && selection) {
    const auto both = Ref<NSObject>::adopt(call<"mutableCopy", NSObject>(selection.get()));
    call<"addIndexes:">(both.get(), indexes);
    selection = both;
  } else {
    selection = Ref<NSObject>::adopt(call<"copy", NSObject>(indexes));
  }
  redraw();
}

NSInteger TableState::selectedRow() {
  if (!selection || call<"count", NSUInteger>(selection.get()) == 0) return -1;
  const auto last = static_cast<NSInteger>(call<"lastIndex", NSUInteger>(selection.get()));
  return last < numberOfRows() ? last : -1;
}

BOOL TableState::isRowSelected(NSInteger row) {
  if (row < 0 || row >= numberOfRows()) return NO;
  return call<"containsIndex:", BOOL>(selection.get(), static_cast<NSUInteger>(row));
}

void TableState::mouseDown(NSEvent event) {
  const NSPoint point = view().convertPointFromView(event.locationInWindow(), {});
  const NSInteger row = rowAtPoint(point);
  if (row < 0 || rows->clicked(point, row)) return;
  NSTableView(self).selectRow(row);
  call<"sendAction:to:", BOOL>(self, NSControl(self).action(), NSControl(self).target());
}

// ---- Looks --------------------------------------------------------------------------------------------

void TableState::setGridStyleMask(NSUInteger mask) {
  gridStyleMask = mask;
  redraw();
}
NSColor TableState::grid() { return gridColor ? gridColor.get() : NSColor::colorWithSRGBRed(1, 1, 1, 0.12); }
void TableState::setGridColor(NSColor color) {
  gridColor = color;
  redraw();
}
NSColor TableState::background() {
  return backgroundColor ? backgroundColor.get() : NSColor::colorWithSRGBRed(0.12, 0.12, 0.13, 1);
}
void TableState::setBackgroundColor(NSColor color) {
  backgroundColor = color;
  redraw();
}
void TableState::setAlternates(BOOL uses) {
  alternates = uses != 0;
  redraw();
}

void TableState::drawRect(NSRect dirty) {
  if (currentContext() == nullptr) return;
  call<"drawBackgroundInClipRect:">(self, dirty);
  call<"highlightSelectionInClipRect:">(self, dirty);
  call<"drawGridInClipRect:">(self, dirty);
  const Range range = rowsIn(dirty);
  for (NSInteger row = range.first; row < range.end; ++row) call<"drawRow:clipRect:">(self, row, dirty);
}

void TableState::drawBackground(NSRect clip) {
  background().set();
  NSBezierPath::fillRect(clip);
  if (!alternates) return;
  NSColor::colorWithSRGBRed(1, 1, 1, 0.035).set();
  const double end = clip.maxY();
  for (double y = std::floor(clip.minY() / (2 * rowHeight)) * 2 * rowHeight + rowHeight; y < end; y += 2 * rowHeight) {
    NSBezierPath::fillRect(CGRectIntersection(clip, {{clip.minX(), y}, {clip.size.width, rowHeight}}));
  }
}

void TableState::drawSelection(NSRect clip) {
  if (!selection) return;
  NSColor::colorWithSRGBRed(0.2, 0.31, 0.5, 1).set();
  const Range range = rowsIn(clip);
  for (NSInteger row = range.first; row < range.end; ++row) {
    if (isRowSelected(row) != 0) NSBezierPath::fillRect(rectOfRow(row));
  }
}

void TableState::drawGrid(NSRect clip) {
  grid().set();
  const Range range = rowsIn(clip);
  if ((gridStyleMask & NSTableViewSolidHorizontalGridLineMask) != 0) {
    for (NSInteger row = range.first; row < range.end; ++row) {
      NSBezierPath::fillRect({{clip.minX(), static_cast<double>(row + 1) * rowHeight - 1}, {clip.size.width, 1}});
    }
  }
  if ((gridStyleMask & NSTableViewSolidVerticalGridLineMask) == 0) return;
  double x = 0;
  for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
    x += columns[i]->width();
    NSBezierPath::fillRect({{x - 1, clip.minY()}, {1, clip.size.height}});
  }
}

void TableState::drawRow(NSInteger row, NSRect clip) {
  const auto told = valuesOf(row);  // a copy: what is called may load the table again
  for (std::size_t i = 0; i < columns.size() && i < told.size(); ++i) {
    const NSRect frame = frameOfCell(static_cast<NSInteger>(i), row);
    const double indent = rows->indent(i, row);
    if (indent > 0) rows->drawIndent({{frame.minX() - indent, frame.minY()}, {indent, frame.size.height}}, row);
    const Ref<NSTableColumn> column = columns[i];
    const Ref<NSCell> cell = column->dataCell();
    if (!cell || !CGRectIntersectsRect(frame, clip)) continue;
    {
      const KeptMarks kept(stateOf<ViewState>(self));
      fill(cell, told[i]);
      rows->willDisplay(cell, column, row);
      cell->setHighlighted(isRowSelected(row) != 0);
    }
    const SavedState saved(*currentContext());
    NSBezierPath::clipRect(frame);
    cell->drawWithFrame(frame, view());
  }
}

void registerTables() {
  ClassDefinition<TableHeaderCell>("NSTableHeaderCell", "NSTextFieldCell")
      .method<"init", &TableHeaderCell::init>()
      .method<"drawInteriorWithFrame:inView:", &TableHeaderCell::drawInterior>()
      .registered();
  ClassDefinition<TableColumn>("NSTableColumn", "NSObject")
      .method<"initWithIdentifier:", &TableColumn::initWithIdentifier>()
      .getter<"identifier", &TableColumn::identifier>()
      .getter<"dataCell", &TableColumn::dataCell>()
      .method<"setDataCell:", &TableColumn::setDataCell>()
      .getter<"headerCell", &TableColumn::headerCell>()
      .getter<"width", &TableColumn::width>()
      .method<"setWidth:", &TableColumn::setWidth>()
      .registered();
  ClassDefinition<TableHeaderView>("NSTableHeaderView", "NSView")
      .method<"tableView", &TableHeaderView::tableHandle>()
      .method<"drawRect:", &TableHeaderView::drawRect>()
      .registered();
  ClassDefinition<TableState>("NSTableView", "NSControl")
      .method<"initWithFrame:", &TableState::initWithFrame>()
      .method<"isFlipped", &TableState::isFlipped>()
      .method<"tableColumns", &TableState::tableColumns>()
      .method<"addTableColumn:", &TableState::addColumn>()
      .method<"dataSource", &TableState::dataSourceHandle>()
      .method<"setDataSource:", &TableState::setDataSource>()
      .method<"delegate", &TableState::delegateHandle>()
      .method<"setDelegate:", &TableState::setDelegate>()
      .getter<"headerView", &TableState::header>()
      .method<"reloadData", &TableState::reload>()
      .method<"numberOfRows", &TableState::numberOfRows>()
      .getter<"rowHeight", &TableState::rowHeight>()
      .method<"setRowHeight:", &TableState::setRowHeight>()
      .method<"rectOfRow:", &TableState::rectOfRow>()
      .method<"frameOfCellAtColumn:row:", &TableState::frameOfCell>()
      .method<"rowAtPoint:", &TableState::rowAtPoint>()
      .method<"selectRowIndexes:byExtendingSelection:", &TableState::select>()
      .method<"selectedRow", &TableState::selectedRow>()
      .method<"isRowSelected:", &TableState::isRowSelected>()
      .method<"mouseDown:", &TableState::mouseDown>()
      .getter<"gridStyleMask", &TableState::gridStyleMask>()
      .method<"setGridStyleMask:", &TableState::setGridStyleMask>()
      .method<"gridColor", &TableState::grid>()
      .method<"setGridColor:", &TableState::setGridColor>()
      .method<"backgroundColor", &TableState::background>()
      .method<"setBackgroundColor:", &TableState::setBackgroundColor>()
      .getter<"usesAlternatingRowBackgroundColors", &TableState::alternates>()
      .method<"setUsesAlternatingRowBackgroundColors:", &TableState::setAlternates>()
      .property<"autosaveName", "setAutosaveName:", &TableState::autosaveName>()
      .method<"drawRect:", &TableState::drawRect>()
      .method<"drawBackgroundInClipRect:", &TableState::drawBackground>()
      .method<"highlightSelectionInClipRect:", &TableState::drawSelection>()
      .method<"drawGridInClipRect:", &TableState::drawGrid>()
      .method<"drawRow:clipRect:", &TableState::drawRow>()
      .registered();
}

}  // namespace standin
