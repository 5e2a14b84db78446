#include "plugin/loader/WindowRefresh.h"

#include <array>

#include "cocoa/Call.h"
#include "cocoa/QuartzCore.h"
#include "plugin/arrange/Utility+TrackColorWarning.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/text/ColoredText.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/views/LayerColor.h"
#include "plugin/views/LibraryColors.h"

namespace velura {
namespace {

using namespace cocoa;

template <FixedString Name>
bool isOfClass(NSObject object) {
  return object && object.className().isEqualToString(literal<Name>());
}

template <FixedString Name>
NSView find(NSView root) {
  return findSubviewOfClass(literal<Name>(), root);
}

NSColor colorFor(ThemeKey key) { return ThemeUtility::shared().colorForKey(key); }

/// Sets a property to what it is: an override that came since takes part this time.
template <FixedString Getter, FixedString Setter>
void setAgain(NSObject object) {
  if (respondsTo<Getter>(object) && respondsTo<Setter>(object)) call<Setter>(object, call<Getter, NSObject>(object));
}

void redraw(NSView view) {
  view.setNeedsDisplay(true);
  view.display();
}

// ---- Library and browsers -----------------------------------------------------------------------------

/// Colours of the host's catalogue may be the theme's by now.
NSColor resolvedAgain(NSColor color) {
  if (!color || color.type() != NSColorTypeCatalog) return color;
  return NSColor::colorWithCatalogName(call<"catalogNameComponent", NSString>(color),
                                       call<"colorNameComponent", NSString>(color));
}

/// Whether a field is the title above its view controller's view.
bool isHeaderTitle(NSView field) {
  const Class controllers = classNamed<"NSViewController">();
  NSObject responder = field;
  while (responder && !responder.isKindOfClass(controllers)) responder = call<"nextResponder", NSObject>(responder);
  return callIfResponds<"headerTitle">(responder) == field;
}

void resetTextField(NSTextField field) {
  const NSColor title = colorFor(key<"LibraryHeaderTextColor">);
  field.setTextColor(title && isHeaderTitle(field) ? title : resolvedAgain(field.textColor()));
}

void resetFileBrowserCell(NSObject cell) {
  if (isOfClass<"ImageAndTextCell">(cell) || isOfClass<"LGFileBrowserTextFieldCell">(cell)) {
    setAgain<"textAttributes", "setTextAttributes:">(cell);
  }
}

void resetBinCell(NSObject cell) {
  if (isOfClass<"BinTextFieldCell">(cell)) setAgain<"textColor", "setTextColor:">(cell);
  if (!isOfClass<"BinProEditableInfoFieldCell">(cell)) return;
  setAgain<"attributesPlain", "setAttributesPlain:">(cell);
  setAgain<"attributesBold", "setAttributesBold:">(cell);
}

void resetColumns(NSView table, void (*resetCell)(NSObject)) {
  if (!table) return;
  for (const NSObject column : items(callIfResponds<"tableColumns", NSArray>(table)))
    resetCell(callIfResponds<"dataCell">(column));
  if (respondsTo<"reloadData">(table)) call<"reloadData">(table);
}

void refreshBrowsers(NSObject controller) {
  const auto library = callIfResponds<"browserUnilibView", NSView>(controller);
  if (!colorFor(key<"FileBrowserCellTextColor">)) return;
  resetColumns(find<"MyMAKitTableView">(library), resetFileBrowserCell);
  resetColumns(find<"BinMAKitOutlineView">(library), resetBinCell);
}

void refreshLoopBrowser(NSView browser) {
  const auto delegate = callIfResponds<"delegate">(browser);
  const NSColor menuTitle = colorFor(key<"LoopPacksMenuTitleColor">);
  if (const auto menu = callIfResponds<"jamPackControl">(delegate); menuTitle && respondsTo<"setTitleColor:">(menu)) {
    call<"setTitleColor:">(menu, menuTitle);
  }
  fillLayer(find<"MALoopBrowserSplitView">(browser).layer(), key<"LoopBrowser_PaneHeaderColor">);
  const NSView search = find<"MALoopBrowserFilterSegmentedControl">(browser);
  search.setNeedsDisplay(true);
  search.displayIfNeeded();
}

void refreshListArea(NSView split) {
  fillLayer(find<"NotePadBackgroundView">(split).layer(), key<"ListArea_NotePad_BG">);
  const NSView events = find<"CLgListAreaTabView">(split);
  if (const NSView browser = find<"MALoopBrowserView">(split)) {
    refreshLoopBrowser(browser);
  } else if (events) {
    resetEventViewColors(events);
  }
}

// ---- The mixer ----------------------------------------------------------------------------------------

/// Marks what a node draws, and forgets what it kept of it.
void invalidate(MANode node) {
  if (!respondsTo<"invalidateCache">(node)) return;
  node.invalidateCache();
  node.setNeedsDisplay(true);
  node.setNeedsUpdateContents(true);
}

void resetFader(MANode fader) {
  if (respondsTo<"customUpdateFaderKnob">(fader)) call<"customUpdateFaderKnob">(fader);
}

void resetMeter(MANode meter) {
  if (!respondsTo<"setUpdateBackgroundTexture:">(meter)) return;
  call<"setUpdateBackgroundTexture:">(meter, BOOL(1));
  meter.setNeedsDisplay(true);
}

/// The glyphs of mute, solo, monitoring and record have colours of their own for each state.
void resetSymbolButton(MANode button) {
  if (!respondsTo<"setForegroundColor:">(button)) return;
  const bool hasStates = button.isNamed<"mute">() || button.isNamed<"solo">() || button.isNamed<"monitoring">() ||
                         button.isNamed<"record">();
  if (!hasStates) setAgain<"foregroundColor", "setForegroundColor:">(button);
  button.setNeedsDisplay(true);
  button.setNeedsUpdateContents(true);
}

void resetButton(MANode button) {
  if (!respondsTo<"invalidateCache">(button)) return;
  setAgain<"assetSetPath", "setAssetSetPath:">(button);
  invalidate(button);
}

struct NodeReset {
  NSString (*className)();
  void (*reset)(MANode);
};
constexpr NodeReset kNodeResets[] = {
    {literal<"MAScaleNode">, invalidate},        {literal<"MAKnobNode">, invalidate},
    {literal<"MAStereoPannerNode">, invalidate}, {literal<"_MACapNode">, invalidate},
    {literal<"MAFaderNode">, resetFader},        {literal<"MALevelNode">, resetMeter},
    {literal<"MAButtonNode">, resetButton},      {literal<"MASymbolButtonNode">, resetSymbolButton},
};

void resetNodesOf(NSObject contentsView) {
  const auto delegate = callIfResponds<"delegate">(contentsView);
  if (respondsTo<"contentsController">(delegate))
    resetMixerNode(callIfResponds<"node">(callIfResponds<"contentsController">(delegate)));
}

/// A frame that changes and changes back has the mixer lay out its contents.
void layOutAgain(NSView view) {
  constexpr double kSmall = 10;
  const NSRect frame = view.frame();
  view.setFrame({frame.origin, {kSmall, kSmall}});
  view.setFrame(frame);
}

void refreshMixer(NSView mixer) {
  if (!mixer) return;
  layOutAgain(mixer);
  const auto contents = callIfResponds<"contentSectionView", NSView>(mixer);
  if (!contents) return;
  fillLayer(contents.layer(), key<"mixerBackgroundColor">);
  resetNodesOf(contents);
}

void recolorLabels(NSView legend) {
  const NSColor color = colorFor(key<"componentsLabelColor">);
  const Class fields = classNamed<"MATextField">();
  if (!color || fields == nullptr) return;
  for (const NSControl field : items<NSControl>(legend.subviews())) {
    if (!field.isKindOfClass(fields)) continue;
    const NSAttributedString text = field.attributedStringValue();
    if (text.length() > 0) field.setAttributedStringValue(inColor(text, color));
  }
}

void refreshLegend(NSView mixer) {
  const auto controller = callIfResponds<"legendViewController">(mixer);
  const NSView legend = find<"MixerLegendView">(mixer);
  if (!controller || !legend) return;
  for (const NSView element : items<NSView>(legend.subviews())) element.removeFromSuperview();
  if (respondsTo<"setupLegendElements">(controller)) call<"setupLegendElements">(controller);
  if (respondsTo<"updateLayout">(controller)) call<"updateLayout">(controller);
  fillLayer(legend.layer(), key<"componentsLabelBackgroundColor">);
  recolorLabels(legend);
}

// ---- The arrange area ---------------------------------------------------------------------------------

/// Whether the user is to be warned: track headers take colours of colour bars that are not shown.
bool refreshArrange(NSView split) {
  const NSView arrange = find<"CLgArrangeView">(split);
  if (!arrange) return false;
  const bool warns = !isArrangeColorBarVisible(arrange) && ThemeUtility::shared().useTrackColorAsArrangeStripBackground;
  resetLiveLoopsView(arrange);
  if (const NSView headers = find<"ArrangeTrackHeaderSectionView">(arrange)) {
    redraw(headers);
    resetLibViewColors(find<"CLgLibBrowserView">(split));
  }
  if (const NSView contents = find<"ArrangeContentsSectionView">(arrange)) {
    if (respondsTo<"vlr_registerForGridSettingsIfNeeded">(contents))
      call<"vlr_registerForGridSettingsIfNeeded">(contents);
    redraw(contents);
  }
  return warns;
}

// ---- Windows ------------------------------------------------------------------------------------------

/// Closed and opened again, the inspector is built anew.
void refreshInspector(NSObject controller) {
  if (!respondsTo<"inspectorIsVisible">(controller) || !respondsTo<"toggleInspectors">(controller)) return;
  if (!callBool<"inspectorIsVisible">(controller.object)) return;
  call<"toggleInspectors">(controller);
  call<"toggleInspectors">(controller);
}

bool refreshSplitView(NSWindow window, NSView split) {
  const NSView mixer = find<"CLgRupertView">(split);
  refreshMixer(mixer);
  resetNodesOf(find<"CLgRupertContentsView">(find<"CLgInspectorAreaView">(split)));
  refreshLegend(mixer);
  const bool warns = refreshArrange(split);
  refreshListArea(split);
  const NSView content = window.contentView();
  if (colorFor(key<"MainSeparators">) && isOfClass<"CLgDocwContentView">(content)) content.setNeedsDisplay(true);
  return warns;
}

void refreshActionBar(NSObject controller) {
  const auto bar = callIfResponds<"actionBarView", NSView>(controller);
  if (!respondsTo<"updateActionBar">(bar)) return;
  for (const NSView place : items<NSView>(bar.subviews())) {
    const NSArray views = place.subviews();
    const NSObject first = views.count() > 0 ? views.objectAtIndex(0) : NSObject();
    if (first && first.isKindOfClass(classNamed<"NSButton">())) setAgain<"image", "setImage:">(first);
  }
}

/// Whether the user is to be warned.
bool refreshWindow(NSWindow window) {
  const NSObject controller = window.windowController();
  refreshInspector(controller);
  refreshBrowsers(controller);
  const auto split = callIfResponds<"mainSplitView", NSView>(controller);
  const bool warns = split && refreshSplitView(window, split);
  refreshActionBar(controller);
  return warns;
}

}  // namespace

NSView findSubviewOfClass(NSString className, NSView root) {
  for (const NSView view : items<NSView>(root.subviews())) {
    if (view.className().isEqualToString(className)) return view;
    if (const NSView found = findSubviewOfClass(className, view)) return found;
  }
  return {};
}

void resetLibViewColors(NSView view) {
  if (isOfClass<"NSBox">(view)) {
    const auto box = cast<NSBox>(view);
    box.setFillColor(resolvedAgain(box.fillColor()));
  } else if (isOfClass<"NSTextField">(view)) {
    resetTextField(cast<NSTextField>(view));
  } else if (isOfClass<"NSPopUpButton">(view)) {
    colorLibraryMenu(view);
  }
  for (const NSView subview : items<NSView>(view.subviews())) resetLibViewColors(subview);
}

void resetMixerNode(NSObject node) {
  if (!node) return;
  const NSString name = node.className();
  for (const NodeReset& row : kNodeResets) {
    if (name.isEqualToString(row.className())) row.reset(cast<MANode>(node));
  }
  for (const NSObject child : items(callIfResponds<"childrenArray", NSArray>(node))) resetMixerNode(child);
}

void resetLiveLoopsView(NSView view) {
  if (isOfClass<"LiveLoopsRulerView">(view)) {
    view.setNeedsDisplay(true);
  } else if (isOfClass<"LiveLoopsRowTriggerHeaderView">(view)) {
    if (respondsTo<"prerenderGlyphs">(view)) call<"prerenderGlyphs">(view);
    view.setNeedsDisplay(true);
  } else if (isOfClass<"LiveLoopsGridClockView">(view)) {
    if (respondsTo<"commonInit">(view)) call<"commonInit">(view);
    view.setNeedsDisplay(true);
  } else if (isOfClass<"LiveLoopsDividerBackgroundView">(view)) {
    const auto next = call<"nextResponder", NSObject>(view);
    if (isOfClass<"LiveLoopsDividerViewController">(next) && respondsTo<"reloadDividerView">(next)) {
      call<"reloadDividerView">(next);
    }
  } else if (isOfClass<"LiveLoopsGridHeaderControlsContainerView">(view)) {
    redraw(view);
  }
  for (const NSView subview : items<NSView>(view.subviews())) resetLiveLoopsView(subview);
}

void resetEventViewColors(NSView view) {
  if (isOfClass<"CLgDocwControlsView">(view)) view.display();
  for (const NSView subview : items<NSView>(view.subviews())) resetEventViewColors(subview);
}

void refreshWindows() {
  const Class documents = classNamed<"MAKitWindow">();
  if (documents == nullptr) return;
  bool warns = false;
  for (const NSWindow window : items<NSWindow>(NSApp.windows())) {
    if (window.isKindOfClass(documents)) warns = refreshWindow(window) || warns;
  }
  if (warns) showArrangeUseTrackColorAlert();
}

}  // namespace velura
