#pragma once
// The host's lists: tables and outlines, their cells, and what stands in them.

#include <string>
#include <vector>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/drawing/Icons.h"

namespace host {

/// A row of a list: a text for each column, and what lies below the row in an outline.
struct ListRow {
  std::vector<std::string> texts;
  Icon icon = Icon::kNone;
  std::vector<ListRow> children{};
};

struct ListColumn {
  const char* title;
  double width;
  const char* cellClass;  // a kind of MATextFieldCell
  NSTextAlignment alignment = NSTextAlignmentLeft;
};

struct ListLayout {
  const char* className;  // an MAKitTableView or MAKitOutlineView
  NSUInteger gridStyleMask = 0;
  std::vector<ListColumn> columns;
  bool hasTitles = true;
  double rowHeight = 20;
};

inline constexpr double kListTitleHeight = 20;

/// A controller of the class, which is a kind of MAKitListController, with its rows.
cocoa::Ref<NSObject> newListController(const char* className, const std::vector<ListRow>& rows);

/// Puts a list into a view, its titles at the top of the place, and gives it its looks: first come its data source
/// and its superview, which others may look at, then lines, colours and the attributes of its texts. All outline items
/// are open.
cocoa::Ref<NSTableView> addList(NSView parent, CGRect place, const ListLayout& layout, NSObject controller);

/// How the host's lists look: 0 for dark surroundings, 1 for bright ones. The window's appearance has changed: every
/// list below a view takes its colours anew.
void appearanceChanged(NSView root, NSInteger themeVariant);

void defineKitLists();

}  // namespace host
