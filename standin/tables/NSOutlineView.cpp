// NSOutlineView: a table whose rows are items, some of which hold others.

#include <map>

#include "standin/tables/Registration.h"
#include "standin/tables/Table.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr double kLevel = 12;     // points that each level is moved to the right
constexpr double kTriangle = 16;  // room for the triangle before every item

struct OutlineRow {
  Ref<NSObject> item;
  NSInteger level = 0;
  bool expandable = false;
};

struct Outline : ObjectState {
  std::vector<OutlineRow> items;
  std::map<id, Ref<NSObject>> expanded;  // by themselves

  id initWithFrame(NSRect frame);
  [[nodiscard]] const OutlineRow* at(NSInteger row) {
    static_cast<void>(NSTableView(self).numberOfRows());  // loads them
    return row >= 0 && static_cast<std::size_t>(row) < items.size() ? &items[static_cast<std::size_t>(row)] : nullptr;
  }
  NSObject itemAtRow(NSInteger row) {
    const OutlineRow* found = at(row);
    return found == nullptr ? NSObject() : found->item.get();
  }
  NSInteger levelForRow(NSInteger row) {
    const OutlineRow* found = at(row);
    return found == nullptr ? -1 : found->level;
  }
  BOOL isExpanded(NSObject item) { return static_cast<BOOL>(expanded.contains(item.object)); }
  void expand(NSObject item) {
    if (item && expanded.emplace(item.object, item).second) stateOf<TableState>(self).invalidate();
  }
  void collapse(NSObject item) {
    if (expanded.erase(item.object) > 0) stateOf<TableState>(self).invalidate();
  }
};

/// The items that show, from the data source's tree.
class OutlineRows : public TableRows {
 public:
  OutlineRows(TableState& table, Outline& outline) : TableRows(table), outline_(outline) {}

  NSInteger load() override {
    outline_.items.clear();
    const id source = table_.dataSource;
    const bool answers = respondsTo(source, selector<"outlineView:numberOfChildrenOfItem:">()) &&
                         respondsTo(source, selector<"outlineView:child:ofItem:">());
    if (answers) addChildren({}, 0);
    return static_cast<NSInteger>(outline_.items.size());
  }
  NSObject value(NSTableColumn column, NSInteger row) override {
    if (!respondsTo(table_.dataSource, selector<"outlineView:objectValueForTableColumn:byItem:">())) return {};
    return call<"outlineView:objectValueForTableColumn:byItem:", NSObject>(table_.dataSource, table_.view(), column,
                                                                           outline_.itemAtRow(row));
  }
  void willDisplay(NSCell cell, NSTableColumn column, NSInteger row) override {
    if (!respondsTo(table_.delegate, selector<"outlineView:willDisplayCell:forTableColumn:item:">())) return;
    call<"outlineView:willDisplayCell:forTableColumn:item:">(table_.delegate, table_.view(), cell, column,
                                                             outline_.itemAtRow(row));
  }
  double indent(std::size_t column, NSInteger row) override {
    const OutlineRow* item = column == 0 ? outline_.at(row) : nullptr;
    return item == nullptr ? 0 : static_cast<double>(item->level) * kLevel + kTriangle;
  }
  void drawIndent(NSRect gap, NSInteger row) override {
    const OutlineRow* item = outline_.at(row);
    if (item == nullptr || !item->expandable) return;
    NSColor::colorWithSRGBRed(1, 1, 1, 0.6).set();
    const NSPoint middle{gap.maxX() - kTriangle / 2 + 1, gap.midY()};
    const bool open = outline_.isExpanded(item->item) != 0;
    const auto triangle = NSBezierPath::bezierPath();
    triangle.moveToPoint({middle.x - (open ? 4 : 2.5), middle.y - (open ? 2.5 : 4)});
    triangle.lineToPoint({middle.x + (open ? 4 : 2.5), middle.y - (open ? 2.5 : 0)});
    triangle.lineToPoint({middle.x - (open ? 0 : 2.5), middle.y + (open ? 2.5 : 4)});
    triangle.closePath();
    triangle.fill();
  }
  bool clicked(NSPoint point, NSInteger row) override {
    const OutlineRow* item = outline_.at(row);
    if (item == nullptr || !item->expandable || point.x > indent(0, row)) return false;
    const Ref<NSObject> kept = item->item;
    const bool isOpen = outline_.isExpanded(kept) != 0;
    isOpen ? NSOutlineView(table_.self).collapseItem(kept) : NSOutlineView(table_.self).expandItem(kept);
    return true;
  }

 private:
  static constexpr NSInteger kDeepest = 32;
  static constexpr std::size_t kMostItems = 100'000;

  void addChildren(NSObject parent, NSInteger level) {
    const NSView view = table_.view();
    const auto count = call<"outlineView:numberOfChildrenOfItem:", NSInteger>(table_.dataSource, view, parent);
    for (NSInteger i = 0; i < count && outline_.items.size() < kMostItems; ++i) {
      const Ref<NSObject> item = call<"outlineView:child:ofItem:", NSObject>(table_.dataSource, view, i, parent);
      if (!item) return;
      const bool expandable = respondsTo(table_.dataSource, selector<"outlineView:isItemExpandable:">()) &&
                              callBool<"outlineView:isItemExpandable:">(table_.dataSource, view, item.get());
      outline_.items.push_back({item, level, expandable});
      if (expandable && level < kDeepest && outline_.isExpanded(item) != 0) addChildren(item, level + 1);
    }
  }

  Outline& outline_;
};

id Outline::initWithFrame(NSRect frame) {
  superSend<Outline, id>(self, selector<"initWithFrame:">(), frame);
  auto& table = stateOf<TableState>(self);
  table.rows = std::make_unique<OutlineRows>(table, *this);
  return self;
}

}  // namespace

void registerOutlines() {
  ClassDefinition<Outline>("NSOutlineView", "NSTableView")
      .method<"initWithFrame:", &Outline::initWithFrame>()
      .method<"itemAtRow:", &Outline::itemAtRow>()
      .method<"levelForRow:", &Outline::levelForRow>()
      .method<"isItemExpanded:", &Outline::isExpanded>()
      .method<"expandItem:", &Outline::expand>()
      .method<"collapseItem:", &Outline::collapse>()
      .registered();
}

}  // namespace standin
