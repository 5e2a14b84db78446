#include "host/kit/KitLists.h"

#include <algorithm>

#include "cocoa/Call.h"
#include "host/kit/KitViews.h"

namespace host {
namespace {

using namespace cocoa;

// ---- Tables -------------------------------------------------------------------------------------------

struct Variant {
  Palette background;
  Palette grid;
  Palette title;
};
constexpr Variant kVariants[] = {
    {Palette::kListBackground, Palette::kListGrid, Palette::kListHeaderText},
    {Palette::kListBackgroundBright, Palette::kListGridBright, Palette::kListTextBright},
};

/// What tables and outlines have in common. `Cls` tells them apart.
template <FixedString Cls>
struct KitList : ObjectState {
  NSInteger variant = 0;

  void setThemeVariant(NSInteger changed) {
    variant = std::clamp<NSInteger>(changed, 0, std::size(kVariants) - 1);
    const Variant& looks = kVariants[variant];
    const NSTableView list(self);
    list.setBackgroundColor(paletteColor(looks.background));
    list.setGridColor(paletteColor(looks.grid));
    for (const NSTableColumn column : items<NSTableColumn>(list.tableColumns())) {
      call<"setTextColor:">(column.headerCell(), paletteColor(looks.title));
    }
  }
};

template <FixedString Cls>
void defineList(const char* superclass) {
  ClassDefinition<KitList<Cls>>(Cls.text, superclass)
      .template getter<"themeVariant", &KitList<Cls>::variant>()
      .template method<"setThemeVariant:", &KitList<Cls>::setThemeVariant>()
      .registered();
}

// ---- Rows ---------------------------------------------------------------------------------------------

/// A row as the views know it.
struct MAKitListItem : ObjectState {
  std::vector<Ref<NSString>> texts;
  Icon icon = Icon::kNone;
  std::vector<Ref<NSObject>> children;
};

std::vector<Ref<NSObject>> itemsOf(const std::vector<ListRow>& rows) {
  std::vector<Ref<NSObject>> items;
  items.reserve(rows.size());
  for (const ListRow& row : rows) {
    items.push_back(newObject("MAKitListItem"));
    auto& item = stateOf<MAKitListItem>(items.back().get());
    for (const std::string& text : row.texts) item.texts.push_back(makeString(text));
    item.icon = row.icon;
    item.children = itemsOf(row.children);
  }
  return items;
}

/// Columns are identified by their places.
NSObject textOf(NSObject item, NSTableColumn column) {
  const auto* state = stateIfKind<MAKitListItem>(item);
  const auto place = static_cast<std::size_t>(column.identifier().integerValue());
  return state != nullptr && place < state->texts.size() ? state->texts[place].get() : NSString();
}

void showIcon(NSObject item, NSCell cell) {
  const auto* state = stateIfKind<MAKitListItem>(item);
  if (state != nullptr && cell.isKindOfClass(classNamed("ImageAndTextCell"))) cell.setImage(iconImage(state->icon));
}

/// Data source and delegate of one list.
struct MAKitListController : ObjectState {
  std::vector<Ref<NSObject>> rows;

  NSObject row(NSInteger index) const {
    return index >= 0 && static_cast<std::size_t>(index) < rows.size() ? rows[static_cast<std::size_t>(index)].get()
                                                                       : NSObject();
  }
  const std::vector<Ref<NSObject>>& below(NSObject item) const {
    const auto* state = stateIfKind<MAKitListItem>(item);
    return state == nullptr ? rows : state->children;
  }
  NSInteger numberOfRows(NSTableView) { return static_cast<NSInteger>(rows.size()); }
  NSObject value(NSTableView, NSTableColumn column, NSInteger index) { return textOf(row(index), column); }
  void willDisplay(NSTableView, NSCell cell, NSTableColumn, NSInteger index) { showIcon(row(index), cell); }

  NSInteger numberOfChildren(NSOutlineView, NSObject item) { return static_cast<NSInteger>(below(item).size()); }
  NSObject child(NSOutlineView, NSInteger index, NSObject item) {
    const auto& all = below(item);
    return index >= 0 && static_cast<std::size_t>(index) < all.size() ? all[static_cast<std::size_t>(index)].get()
                                                                      : NSObject();
  }
  BOOL isExpandable(NSOutlineView, NSObject item) { return static_cast<BOOL>(!below(item).empty()); }
  NSObject valueOfItem(NSOutlineView, NSTableColumn column, NSObject item) { return textOf(item, column); }
  void willDisplayItem(NSOutlineView, NSCell cell, NSTableColumn, NSObject item) { showIcon(item, cell); }
};

// ---- Cells --------------------------------------------------------------------------------------------

void drawText(NSString text, NSDictionary attributes, CGRect frame) {
  if (text.length() == 0 || frame.isEmpty()) return;
  currentPainter().text(NSAttributedString::withString(text, attributes), frame);
}

/// Draws its text in attributes of its own.
struct MATextFieldCell : ObjectState {
  Ref<NSDictionary> attributes;

  void setTextAttributes(NSDictionary changed) {
    attributes = Ref<NSDictionary>::adopt(call<"copy", NSDictionary>(changed));
    NSCell(self).controlView().setNeedsDisplay(true);
  }
  void drawInterior(CGRect frame, NSView view) {
    if (!attributes)
      return superSend<MATextFieldCell, void>(self, selector<"drawInteriorWithFrame:inView:">(), frame, view);
    drawText(NSCell(self).stringValue(), attributes, frame.insetBy(5, 0));
  }
};

/// Images follow the direction of the view, which has y down.
void drawUpright(NSImage image, CGRect place) {
  const Painter painter = currentPainter();
  CGContextSaveGState(painter.context());
  if (painter.isFlipped()) {
    CGContextTranslateCTM(painter.context(), 0, 2 * place.midY());
    CGContextScaleCTM(painter.context(), 1, -1);
  }
  painter.image(image, place);
  CGContextRestoreGState(painter.context());
}

/// An icon at the left of the text.
struct ImageAndTextCell : ObjectState {
  void drawInterior(CGRect frame, NSView view) {
    constexpr double kBefore = 4;
    const NSImage image = NSCell(self).image();
    CGRect rest = frame;
    if (image) {
      drawUpright(image, CGRectMake(frame.minX() + kBefore, frame.midY() - kIconSize / 2, kIconSize, kIconSize));
      rest.origin.x += kBefore + kIconSize;
      rest.size.width = std::max(0.0, rest.size.width - kBefore - kIconSize);
    }
    superSend<ImageAndTextCell, void>(self, selector<"drawInteriorWithFrame:inView:">(), rest, view);
  }
};

/// One line in the cell's own colour.
struct BinTextFieldCell : ObjectState {
  void drawInterior(CGRect frame, NSView) {
    const auto color = call<"textColor", NSColor>(self);
    drawText(NSCell(self).stringValue(), textAttributes(color, 11, 0), frame.insetBy(5, 0));
  }
};

/// A bold part and, after a tab, a plain one.
struct BinProEditableInfoFieldCell : ObjectState {
  Ref<NSDictionary> plain;
  Ref<NSDictionary> bold;

  void setPlain(NSDictionary attributes) {
    plain = Ref<NSDictionary>::adopt(call<"copy", NSDictionary>(attributes));
    NSCell(self).controlView().setNeedsDisplay(true);
  }
  void setBold(NSDictionary attributes) {
    bold = Ref<NSDictionary>::adopt(call<"copy", NSDictionary>(attributes));
    NSCell(self).controlView().setNeedsDisplay(true);
  }
  void drawInterior(CGRect frame, NSView) {
    constexpr double kGap = 6;
    const std::string text = toStdString(NSCell(self).stringValue());
    const std::size_t tab = std::min(text.find('\t'), text.size());
    const NSString first = string(text.substr(0, tab));
    CGRect rest = frame.insetBy(5, 0);
    drawText(first, bold, rest);
    const double width = first.length() > 0 ? cocoa::text::sizeWithAttributes(first, bold).width + kGap : 0;
    rest.origin.x += width;
    rest.size.width -= width;
    if (tab < text.size() && rest.size.width > 0) drawText(string(text.substr(tab + 1)), plain, rest);
  }
};

// ---- Building -----------------------------------------------------------------------------------------

void addColumn(NSTableView list, std::size_t place, const ListColumn& column) {
  const auto made = NSTableColumn::withIdentifier(string(std::to_string(place)));
  const auto cell = Ref<NSCell>::adopt(call<"init", NSCell>(call<"alloc", id>(classNamed(column.cellClass))));
  made->setDataCell(cell);
  made->setWidth(column.width);
  made->headerCell().setStringValue(string(column.title));
  call<"setAlignment:">(made->headerCell(), column.alignment);
  call<"setTextColor:">(made->headerCell(), paletteColor(Palette::kListHeaderText));
  call<"setBackgroundColor:">(made->headerCell(), paletteColor(Palette::kListHeader));
  list.addTableColumn(made);
}

/// Names and what else is read first are brighter than the rest.
void setAttributes(NSObject cell, bool isFirst, NSTextAlignment alignment) {
  const NSColor color = paletteColor(isFirst ? Palette::kListText : Palette::kListTextDim);
  if (cell.respondsToSelector(selector<"setAttributesBold:">())) {
    call<"setAttributesPlain:">(cell, textAttributes(paletteColor(Palette::kListTextDim), 10, 0));
    call<"setAttributesBold:">(cell, textAttributes(paletteColor(Palette::kListText), 10, NSFontWeightSemibold));
  } else if (cell.isKindOfClass(classNamed("BinTextFieldCell"))) {
    call<"setTextColor:">(cell, color);
  } else if (cell.isKindOfClass(classNamed("MATextFieldCell"))) {
    call<"setTextAttributes:">(cell, textAttributes(color, 11, 0, alignment));
  }
}

void openItems(NSOutlineView outline, const std::vector<Ref<NSObject>>& items) {
  for (const auto& item : items) {
    const auto& children = stateOf<MAKitListItem>(item.get()).children;
    if (children.empty()) continue;
    outline.expandItem(item);
    openItems(outline, children);
  }
}

}  // namespace

Ref<NSObject> newListController(const char* className, const std::vector<ListRow>& rows) {
  auto controller = newObject(className);
  stateOf<MAKitListController>(controller.get()).rows = itemsOf(rows);
  return controller;
}

Ref<NSTableView> addList(NSView parent, CGRect place, const ListLayout& layout, NSObject controller) {
  const double titles = layout.hasTitles ? kListTitleHeight : 0;
  const Ref<NSTableView> list = cast<NSTableView>(
      newView(layout.className, CGRectMake(place.minX(), place.minY(), place.size.width, place.size.height - titles)));
  for (std::size_t i = 0; i < layout.columns.size(); ++i) addColumn(list, i, layout.columns[i]);
  list->setDataSource(controller);
  list->setDelegate(controller);
  list->setRowHeight(layout.rowHeight);
  list->setUsesAlternatingRowBackgroundColors(true);
  if (layout.hasTitles) {
    list->headerView().setFrame(CGRectMake(place.minX(), place.maxY() - titles, place.size.width, titles));
    parent.addSubview(list->headerView());
  }
  parent.addSubview(list);
  list->setGridStyleMask(layout.gridStyleMask);
  if (list->respondsToSelector(selector<"setThemeVariant:">())) call<"setThemeVariant:">(list.get(), NSInteger{0});
  for (std::size_t i = 0; i < layout.columns.size(); ++i) {
    setAttributes(cast<NSTableColumn>(list->tableColumns().objectAtIndex(i)).dataCell(), i == 0,
                  layout.columns[i].alignment);
  }
  list->reloadData();
  if (list->isKindOfClass(classNamed("NSOutlineView"))) {
    openItems(cast<NSOutlineView>(list.get()), stateOf<MAKitListController>(controller).rows);
  }
  return list;
}

void appearanceChanged(NSView root, NSInteger themeVariant) {
  if (root.respondsToSelector(selector<"setThemeVariant:">())) call<"setThemeVariant:">(root, themeVariant);
  for (const NSView view : items<NSView>(root.subviews())) appearanceChanged(view, themeVariant);
}

void defineKitLists() {
  defineList<"MAKitTableView">("NSTableView");
  defineList<"MAKitOutlineView">("NSOutlineView");
  ClassDefinition<MAKitListItem>("MAKitListItem", "NSObject").registered();
  ClassDefinition<MAKitListController>("MAKitListController", "NSViewController")
      .method<"numberOfRowsInTableView:", &MAKitListController::numberOfRows>()
      .method<"tableView:objectValueForTableColumn:row:", &MAKitListController::value>()
      .method<"tableView:willDisplayCell:forTableColumn:row:", &MAKitListController::willDisplay>()
      .method<"outlineView:numberOfChildrenOfItem:", &MAKitListController::numberOfChildren>()
      .method<"outlineView:child:ofItem:", &MAKitListController::child>()
      .method<"outlineView:isItemExpandable:", &MAKitListController::isExpandable>()
      .method<"outlineView:objectValueForTableColumn:byItem:", &MAKitListController::valueOfItem>()
      .method<"outlineView:willDisplayCell:forTableColumn:item:", &MAKitListController::willDisplayItem>()
      .registered();
  ClassDefinition<MATextFieldCell>("MATextFieldCell", "NSTextFieldCell")
      .getter<"textAttributes", &MATextFieldCell::attributes>()
      .method<"setTextAttributes:", &MATextFieldCell::setTextAttributes>()
      .method<"drawInteriorWithFrame:inView:", &MATextFieldCell::drawInterior>()
      .registered();
  ClassDefinition<ImageAndTextCell>("ImageAndTextCell", "MATextFieldCell")
      .method<"drawInteriorWithFrame:inView:", &ImageAndTextCell::drawInterior>()
      .registered();
  definePlainClass<"LGFileBrowserTextFieldCell">("MATextFieldCell");
  ClassDefinition<BinTextFieldCell>("BinTextFieldCell", "MATextFieldCell")
      .method<"drawInteriorWithFrame:inView:", &BinTextFieldCell::drawInterior>()
      .registered();
  ClassDefinition<BinProEditableInfoFieldCell>("BinProEditableInfoFieldCell", "MATextFieldCell")
      .getter<"attributesPlain", &BinProEditableInfoFieldCell::plain>()
      .method<"setAttributesPlain:", &BinProEditableInfoFieldCell::setPlain>()
      .getter<"attributesBold", &BinProEditableInfoFieldCell::bold>()
      .method<"setAttributesBold:", &BinProEditableInfoFieldCell::setBold>()
      .method<"drawInteriorWithFrame:inView:", &BinProEditableInfoFieldCell::drawInterior>()
      .registered();
}

}  // namespace host
