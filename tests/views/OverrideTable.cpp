#include "tests/views/OverrideTable.h"

#include "cocoa/CoreGraphics.h"
#include "cocoa/Override.h"
#include "tests/views/LiveLoopsRows.h"

namespace support {
namespace {

using cocoa::FixedString;
using cocoa::MethodKind;

template <class Tag, class Signature>
struct Counter;
template <class Tag, class R, class... A>
struct Counter<Tag, R(A...)> {
  static inline IMP original = nullptr;
  static inline unsigned count = 0;
  static R counting(id self, SEL sel, A... arguments) {
    ++count;
    return cocoa::detail::invoke<R, A...>(original, self, sel, arguments...);
  }
  static std::string encoding() { return cocoa::methodEncoding<R, A...>(); }
};

/// The one method with a variable list of arguments: what a call passes in registers is passed on, which is all
/// that the host has to say.
struct Format {
  static inline IMP original = nullptr;
  static inline unsigned count = 0;
  static id counting(id self, SEL sel, id format, long a, long b, long c, double x, double y) {
    ++count;
    return reinterpret_cast<id (*)(id, SEL, id, ...)>(reinterpret_cast<void (*)()>(original))(self, sel, format, a, b,
                                                                                              c, x, y);
  }
};

template <FixedString ClassName, FixedString Selector, MethodKind Kind>
struct Pair {};

template <FixedString ClassName, FixedString Selector, class Signature, MethodKind Kind = MethodKind::kInstance>
OverrideRow row(Needs needs = Needs::kNothing) {
  using Counts = Counter<Pair<ClassName, Selector, Kind>, Signature>;
  return {ClassName.text,
          Selector.text,
          Kind == MethodKind::kClass,
          needs,
          cocoa::detail::asImplementation(&Counts::counting),
          &Counts::original,
          &Counts::count,
          Counts::encoding()};
}

template <std::size_t Index>
OverrideRow liveLoopsRow() {
  using Counts = Counter<std::integral_constant<std::size_t, Index>, id()>;
  const LiveLoopsRow& color = kLiveLoopsRows[Index];
  return {color.provider,
          color.method,
          false,
          Needs::kNothing,
          cocoa::detail::asImplementation(&Counts::counting),
          &Counts::original,
          &Counts::count,
          Counts::encoding()};
}

template <std::size_t... Index>
void addLiveLoops(std::vector<OverrideRow>& rows, std::index_sequence<Index...>) {
  (rows.push_back(liveLoopsRow<Index>()), ...);
}

using Getter = id();
using Setter = void(id);
using Update = void(id, id);
using Draw = void(CGRect, CGContextRef);
using DrawView = void(CGRect);
using DrawCap = void(CGRect, CGContextRef, BOOL);
using Tick = id(NSInteger, CGColorRef, CGColorRef, double, id);
using Texture = CGImageRef(NSInteger, CGSize, double);
constexpr auto kClass = MethodKind::kClass;

std::vector<OverrideRow> tableOfPairs() {
  using enum Needs;
  std::vector<OverrideRow> rows{
      row<"ArrangeTrackHeaderSectionView", "drawRect:", DrawView>(),
      row<"ArrangeTrackHeaderSectionView", "mouseDown:", Setter>(kHost123),
      row<"ArrangeTrackHeaderSectionView", "mouseUp:", Setter>(kHost123),
      row<"ArrangeContentsSectionView", "drawRect:", DrawView>(),
      row<"ArrangeContentsSectionView", "viewDidMoveToWindow", void()>(),
      row<"ArrangeContentsSectionView", "dealloc", void()>(),
      row<"CLgSectionView", "drawRect:", DrawView>(),
      row<"CLgDocwContentView", "backgroundColor", Getter>(),
      row<"MATextNode", "foregroundColor", Getter>(),
      row<"MATextNode", "setBackgroundColor:", Setter>(),
      row<"MATextNode", "backgroundColor", Getter>(),
      row<"MAScaleNode", "labelColor", CGColorRef()>(),
      row<"MAScaleNode", "highlightedLabelColor", CGColorRef()>(),
      row<"MAScaleNode", "setType:", void(NSInteger)>(),
      row<"MAStripNode", "willUpdatePresentationObject", void()>(),
      row<"MAStripNode", "backgroundColor", Getter>(),
      row<"MAStripNode", "highlightedBackgroundColor", Getter>(),
      row<"MAStripNode", "borderColor", Getter>(),
      row<"MAStripNode", "cachedElementTitleImageForLocalizedTitle:imageSize:scale:", CGImageRef(id, CGSize, double)>(),
      row<"MAStripNode", "drawSlotFrame:inContext:", Draw>(),
      row<"MAStripNode", "drawKnobFrame:inContext:", Draw>(),
      row<"MAScaleTick", "scaleTickWithType:color:highlightedColor:defaultYPosition:label:", Tick, kClass>(),
      row<"MAScaleTick", "scaleInfinityTickWithType:color:highlightedColor:defaultYPosition:label:", Tick, kClass>(),
      row<"MAButtonNode", "setForegroundColor:", Setter>(),
      row<"MAButtonNode", "foregroundColor", Getter>(),
      row<"MAButtonNode", "attributedTitleForState:", id(NSInteger)>(),
      row<"MAButtonNode", "setAssetSetPath:", Setter>(),
      row<"MAButtonNode", "numberOfSegments", NSInteger()>(),
      row<"MAButtonNode", "updatePresentationObject:view:", Update>(),
      row<"MAButtonNode", "setRepresentedObject:", Setter>(),
      row<"MAButtonNode", "imageForState:", id(NSInteger)>(),
      row<"MAPlanarPannerNode", "valueIndicatorColor", Getter>(),
      row<"MAPlanarPannerNode", "spreadFillColor", Getter>(),
      row<"MAPlanarPannerNode", "spreadStrokeColor", Getter>(),
      row<"MAPlanarPannerNode", "drawRect:inContext:", Draw>(),
      row<"MADisplayNode", "setTextColor:", Setter>(),
      row<"_MAStereoPannerSpreadNode", "fillColor", Getter>(),
      row<"_MAStereoPannerSpreadNode", "updatePresentationObject:view:", Update>(kImages),
      row<"MAEQThumbnailNode", "drawTitleInRect:inContext:", Draw>(),
      row<"MAKnobNode", "updatePresentationObject:view:", Update>(kImages),
      row<"MAKnobNode", "fillColor", Getter>(),
      row<"MAKnobNode", "drawRect:inContext:", Draw>(),
      row<"MAStereoPannerNode", "drawRect:inContext:", Draw>(),
      row<"MAStereoPannerNode", "updatePresentationObject:view:", Update>(kImages),
      row<"_MAStereoPannerCapNode", "updatePresentationObject:view:", Update>(kImages),
      row<"_MAStereoPannerCapNode", "drawCapInRect:inContext:flipped:", DrawCap>(),
      row<"_MACapNode", "updatePresentationObject:view:", Update>(kImages),
      row<"_MACapNode", "drawCapInRect:inContext:flipped:", DrawCap>(),
      row<"MATextField", "viewDidMoveToWindow", void()>(),
      row<"CLgRupertContentsView", "backgroundColor", Getter>(),
      row<"CLgRupertContentsView", "viewWillMoveToWindow:", Setter>(),
      row<"MASymbolButtonNode", "setForegroundColor:", Setter>(),
      row<"MASymbolButtonNode", "setSymbol:", Setter>(),
      row<"NSColor", "colorWithCatalogName:colorName:", id(id, id), kClass>(),
      row<"NSColor", "stepSequencerRowHeadersBackgroundColor", Getter, kClass>(),
      row<"MAKitTableView", "setThemeVariant:", void(NSInteger)>(),
      row<"MAKitTableView", "setGridStyleMask:", void(NSInteger)>(),
      row<"MAKitTabView", "setLayer:", Setter>(),
      row<"MAKitOutlineView", "setThemeVariant:", void(NSInteger)>(),
      row<"NSButtonCell", "setState:", void(NSInteger)>(),
      row<"NSButton", "setImage:", Setter>(),
      row<"MASplitView", "setLayer:", Setter>(),
      row<"NSTableView", "setAutosaveName:", Setter>(),
      row<"MAPopUpButton", "setQuickHelpID:", Setter>(),
      row<"MALoopBrowserSegmentedTextLabelCell", "attributedString", Getter>(),
      row<"MAGainReductionMeterNode", "backgroundFillColor", Getter>(),
      row<"MAGainReductionMeterNode", "fillColor", Getter>(),
      row<"MALevelNodeBackgroundTextureCache", "backgroundTextureNamed:withSize:constentScale:", Texture, kClass>(),
      row<"MALevelNode", "updatePresentationObject:view:", Update>(),
      row<"MALevelNodeTextureCache", "textureNamed:withSize:constentScale:", Texture, kClass>(),
      row<"MixerLegendView", "backgroundColor", Getter>(),
      row<"NotePadBackgroundView", "backgroundColor", Getter>(),
      row<"CLgDocwNotesListView", "drawRect:", DrawView>(),
      row<"MAShapeNode", "updatePresentationObject:view:", Update>(kImages),
      row<"MATextFieldCell", "setTextAttributes:", Setter>(),
      row<"BinTextFieldCell", "setTextColor:", Setter>(),
      row<"BinProEditableInfoFieldCell", "setAttributesPlain:", Setter>(),
      row<"BinProEditableInfoFieldCell", "setAttributesBold:", Setter>(),
      row<"CLgRupertContentsViewController", "legendItemForIdentifier:", id(id)>(kHost112),
      row<"CLgLibraryViewController", "_updateUIWithAvailableDataSource:", Setter>(),
      row<"CLgDocwControlsView", "drawRect:", DrawView>(),
      row<"MAPopUpButtonCell", "sendsOnFaderHackState:", void(NSInteger)>(),
      row<"MAFaderNode", "updatePresentationObject:view:", Update>(),
      row<"MixerLegendViewController", "addElements", void()>(),
      row<"MAGUI.MADynamicScaleNode", "updatePresentationObject:view:", Update>(kHost112),
      {"NSString",
       "localizedStringWithFormat:",
       true,
       kTrackColors,
       reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(&Format::counting)),
       &Format::original,
       &Format::count,
       {}},
  };
  addLiveLoops(rows, std::make_index_sequence<std::size(kLiveLoopsRows)>());
  return rows;
}

}  // namespace

Class OverrideRow::holder() const {
  const Class named = cocoa::classNamed(className);
  return onMetaclass ? cocoa::metaclassOf(named) : named;
}

const std::vector<OverrideRow>& overrideTable() {
  static const std::vector<OverrideRow> rows = tableOfPairs();
  return rows;
}

void countCalls(const OverrideRow& row) {
  const Class holder = row.holder();
  const SEL sel = sel_registerName(row.selectorName);
  const Method method = class_getInstanceMethod(holder, sel);
  *row.original = method_getImplementation(method);
  cocoa::detail::setOwnMethod(holder, sel, row.counting, method_getTypeEncoding(method));
}

}  // namespace support
