#include "host/kit/KitViews.h"

#include <algorithm>

#include "cocoa/Call.h"
#include "host/drawing/Icons.h"
#include "host/palette/Palette.h"

namespace host {
namespace {

using namespace cocoa;

/// Its looks are kept by its cell.
struct MAPopUpButton : ObjectState {
  Ref<NSObject> quickHelpID;

  MAPopUpButtonCell& cell() { return stateOf<MAPopUpButtonCell>(NSControl(self).cell()); }
  NSColor titleColor() { return cell().titleColor; }
  void setTitleColor(NSColor color) { cell().setTitleColor(color); }
};

/// What stands on a bar: its title, and the sign of its menu.
struct CLgDocwMenusView : ObjectState {
  std::string title;

  void drawRect(CGRect /*dirty*/) {
    const CGRect bounds = NSView(self).bounds();
    const Painter painter = currentPainter();
    painter.text(title, bounds.insetBy(10, 0), paletteColor(Palette::kPaneBarText),
                 {.size = 11, .weight = 0.23, .alignment = TextAlignment::kLeft});
    for (int line = -1; line <= 1; ++line) {
      painter.fillRounded(CGRectMake(bounds.maxX() - 22, bounds.midY() + 3.5 * line - 0.75, 11, 1.5), 0.75,
                          paletteColor(Palette::kListTextDim));
    }
  }
};

struct MAKitSearchIconView : ObjectState {
  void drawRect(CGRect /*dirty*/) {
    const CGRect bounds = NSView(self).bounds();
    drawMagnifier(currentPainter(), {bounds.midX(), bounds.midY()}, paletteColor(Palette::kListTextDim));
  }
};

/// Parts of a pane one above the other.
struct MASplitView : ObjectState {
  void setLayer(CALayer layer) {
    superSend<MASplitView, void>(self, selector<"setLayer:">(), layer);
    layer.setBackgroundColor(paletteColor(Palette::kLoopHeader).CGColor());
  }
};

struct NamedColor {
  std::string_view path;
  Palette which;
};
constexpr NamedColor kNamedColors[] = {
    {"Dark.menuArrows", Palette::kMenuArrow},   {"Dark.text", Palette::kListText},
    {"Dark.dimmedText", Palette::kListTextDim}, {"Dark.background", Palette::kPaneBackground},
    {"Dark.separator", Palette::kPaneLine},
};

/// Colours that several parts of the host share, by name.
struct MAKitColor : ObjectState {};

NSColor colorWithPath(Class /*cls*/, NSString path) {
  const std::string text = toStdString(path);
  for (const NamedColor& named : kNamedColors) {
    if (named.path == text) return paletteColor(named.which);
  }
  return {};
}

Class popUpCellClass(Class /*cls*/) { return classNamed<"MAPopUpButtonCell">(); }

}  // namespace

// ---- Pop-up buttons -----------------------------------------------------------------------------------

id MAPopUpButtonCell::init() {
  constexpr NSUInteger kNoArrow = 0;
  superSend<MAPopUpButtonCell, id>(self, selector<"init">());
  call<"setArrowPosition:">(self, kNoArrow);
  NSCell(self).setFont(NSFont::systemFontOfSize(11));
  return self;
}

void MAPopUpButtonCell::sendsOnFaderHackState(NSInteger /*state*/) { NSCell(self).controlView().setNeedsDisplay(true); }

void MAPopUpButtonCell::setMenuArrowColor(NSColor color) {
  menuArrowColor = color;
  NSCell(self).controlView().setNeedsDisplay(true);
}

void MAPopUpButtonCell::setTitleColor(NSColor color) {
  titleColor = color;
  NSCell(self).controlView().setNeedsDisplay(true);
}

NSAttributedString MAPopUpButtonCell::attributedTitle() {
  const auto title = superSend<MAPopUpButtonCell, NSAttributedString>(self, selector<"attributedTitle">());
  if (!titleColor || title.length() == 0) return title;
  const auto colored = Ref<NSMutableAttributedString>::adopt(call<"mutableCopy", NSMutableAttributedString>(title));
  colored->addAttribute(NSForegroundColorAttributeName, titleColor, {0, title.length()});
  return autoreleased(colored);
}

void MAPopUpButtonCell::drawInterior(CGRect frame, NSView view) {
  constexpr double kArrow = 14;
  const CGRect beside{frame.origin, {frame.size.width - kArrow, frame.size.height}};
  superSend<MAPopUpButtonCell, void>(self, selector<"drawInteriorWithFrame:inView:">(), beside, view);
  const Painter painter = currentPainter();
  const double down = painter.isFlipped() ? 1 : -1;
  const CGPoint tip{frame.maxX() - 11, frame.midY() + down * 1.75};
  const NSColor color = menuArrowColor ? menuArrowColor.get() : paletteColor(Palette::kMenuArrow);
  painter.line({tip.x - 3.25, tip.y - down * 3.5}, tip, color, 1.5);
  painter.line(tip, {tip.x + 3.25, tip.y - down * 3.5}, color, 1.5);
}

Ref<NSPopUpButton> newPopUpButton(const char* className, CGRect frame, std::initializer_list<std::string_view> items) {
  const auto button = Ref<NSPopUpButton>::adopt(
      NSPopUpButton(call<"initWithFrame:pullsDown:", id>(call<"alloc", id>(classNamed(className)), frame, BOOL(0))));
  for (const std::string_view item : items) button->addItemWithTitle(string(item));
  return button;
}

// ---- Tabs and bars ------------------------------------------------------------------------------------

void drawTabs(CGRect bounds, const std::vector<std::string>& tabs, std::size_t selected) {
  if (tabs.empty()) return;
  constexpr double kHeight = 19;
  constexpr double kWidest = 92;
  const Painter painter = currentPainter();
  const double width = std::min(kWidest, (bounds.size.width - 16) / static_cast<double>(tabs.size()));
  const double whole = width * static_cast<double>(tabs.size());
  const CGRect bar = CGRectMake(bounds.midX() - whole / 2, bounds.midY() - kHeight / 2, whole, kHeight);
  painter.fillRounded(bar, 5, paletteColor(Palette::kTabOff));
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    const CGRect tab = CGRectMake(bar.minX() + width * static_cast<double>(i), bar.minY(), width, kHeight);
    if (i == selected) {
      painter.fillRounded(tab, 5, paletteColor(Palette::kTabOn));
    } else if (i > 0 && i != selected + 1) {
      painter.fill(CGRectMake(tab.minX(), tab.minY() + 5, 1, kHeight - 10), paletteColor(Palette::kListGridBright));
    }
    painter.text(tabs[i], tab, paletteColor(Palette::kTabText), {.size = 11, .weight = i == selected ? 0.23 : 0});
  }
}

void MAKitTabView::setLayer(CALayer layer) {
  superSend<MAKitTabView, void>(self, selector<"setLayer:">(), layer);
  layer.setBackgroundColor(paletteColor(Palette::kLoopPaneHeader).CGColor());
}

void MAKitTabView::drawRect(CGRect /*dirty*/) {
  constexpr double kTabHeight = 28;
  CGRect rest = NSView(self).bounds();
  drawTabs(takeTop(rest, kTabHeight), tabs, selected);
}

void CLgDocwControlsView::drawRect(CGRect dirty) {
  const Painter painter = currentPainter();
  painter.fill(dirty, paletteColor(Palette::kPaneBar));
  painter.fill(CGRectMake(0, 0, NSView(self).bounds().size.width, 1), paletteColor(Palette::kPaneLine));
}

Ref<NSView> newControlsView(CGRect frame, NSInteger type, std::string title) {
  auto view = newView("CLgDocwControlsView", frame);
  namedVariable<NSInteger>(view->object, "docwControlsViewType") = type;
  const Ref<NSView> controls = newView("CLgDocwMenusView", view->bounds());
  stateOf<CLgDocwMenusView>(controls.get()).title = std::move(title);
  view->addSubview(controls);
  return view;
}

Ref<NSTextField> newLabel(std::string_view text, CGRect frame, NSColor color, double size, double weight) {
  auto label = NSTextField::withFrame(frame);
  label->setFont(NSFont::systemFontOfSize(size, weight));
  call<"setLineBreakMode:">(label.get(), NSLineBreakByTruncatingTail);
  label->setTextColor(color);
  label->setStringValue(string(text));
  return label;
}

Ref<NSBox> newBox(CGRect frame, NSColor color, double cornerRadius) {
  auto box = NSBox::withFrame(frame);
  box->setFillColor(color);
  box->setCornerRadius(cornerRadius);
  return box;
}

void addSearchField(NSView parent, CGRect place, std::string_view prompt, NSColor background, NSColor text) {
  const double height = place.size.height;
  const Ref<NSBox> box = newBox(place, background, height / 2);
  parent.addSubview(box);
  box->addSubview(newView("MAKitSearchIconView", CGRectMake(5, 0, 18, height)));
  constexpr double kText = 15;
  parent.addSubview(newLabel(
      prompt, CGRectMake(place.minX() + 24, place.midY() - kText / 2, place.size.width - 34, kText), text, 11));
}

CGRect takeTop(CGRect& rest, double height) {
  rest.size.height -= height;
  return CGRectMake(rest.minX(), rest.maxY(), rest.size.width, height);
}

void defineKitViews() {
  definePlainClass<"MAKitView">("MAView");
  ClassDefinition<CLgDocwControlsView>("CLgDocwControlsView", "MAKitView")
      .variable<NSInteger>("docwControlsViewType")
      .method<"drawRect:", &CLgDocwControlsView::drawRect>()
      .registered();
  ClassDefinition<CLgDocwMenusView>("CLgDocwMenusView", "NSView")
      .method<"drawRect:", &CLgDocwMenusView::drawRect>()
      .registered();
  ClassDefinition<MAKitSearchIconView>("MAKitSearchIconView", "NSView")
      .method<"drawRect:", &MAKitSearchIconView::drawRect>()
      .registered();
  ClassDefinition<MAKitTabView>("MAKitTabView", "NSView")
      .method<"setLayer:", &MAKitTabView::setLayer>()
      .method<"drawRect:", &MAKitTabView::drawRect>()
      .registered();
  ClassDefinition<MASplitView>("MASplitView", "NSView").method<"setLayer:", &MASplitView::setLayer>().registered();
  ClassDefinition<MAKitColor>("MAKitColor", "NSObject").classMethod<"colorWithPath:", colorWithPath>().registered();
  ClassDefinition<MAPopUpButtonCell>("MAPopUpButtonCell", "NSPopUpButtonCell")
      .method<"init", &MAPopUpButtonCell::init>()
      .method<"sendsOnFaderHackState:", &MAPopUpButtonCell::sendsOnFaderHackState>()
      .getter<"menuArrowColor", &MAPopUpButtonCell::menuArrowColor>()
      .method<"setMenuArrowColor:", &MAPopUpButtonCell::setMenuArrowColor>()
      .method<"attributedTitle", &MAPopUpButtonCell::attributedTitle>()
      .method<"drawInteriorWithFrame:inView:", &MAPopUpButtonCell::drawInterior>()
      .registered();
  ClassDefinition<MAPopUpButton>("MAPopUpButton", "NSPopUpButton")
      .classMethod<"cellClass", popUpCellClass>()
      .method<"titleColor", &MAPopUpButton::titleColor>()
      .method<"setTitleColor:", &MAPopUpButton::setTitleColor>()
      .property<"quickHelpID", "setQuickHelpID:", &MAPopUpButton::quickHelpID>()
      .registered();
}

}  // namespace host
