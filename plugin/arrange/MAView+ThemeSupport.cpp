// The arrange window: strips behind the track headers, the workspace, marker bands and the grid.

#include "cocoa/Association.h"
#include "cocoa/Exception.h"
#include "cocoa/Override.h"
#include "plugin/arrange/GridOverlay.h"
#include "plugin/arrange/HeaderStrips.h"
#include "plugin/arrange/MarkerBandDiagnostics.h"
#include "plugin/arrange/MarkerBands.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/hostapi/ArrangeView.h"
#include "plugin/hostapi/HostVersion.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/loader/Attach.h"
#include "plugin/text/Truncated.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using HeaderDrawRect = Override<"ArrangeTrackHeaderSectionView", void(CGRect), "drawRect:", "customDrawRect:">;
using HeaderMouseDown = Override<"ArrangeTrackHeaderSectionView", void(NSEvent), "mouseDown:", "customMouseDown:">;
using HeaderMouseUp = Override<"ArrangeTrackHeaderSectionView", void(NSEvent), "mouseUp:", "customMouseUp:">;
using ContentsDrawRect =
    Override<"ArrangeContentsSectionView", void(CGRect), "drawRect:", "customArrangeContentsDrawRect:">;
using ContentsMoved = Override<"ArrangeContentsSectionView", void(), "viewDidMoveToWindow", "vlr_viewDidMoveToWindow">;
using ContentsDealloc = Override<"ArrangeContentsSectionView", void(), "dealloc", "vlr_dealloc">;
using SectionDrawRect = Override<"CLgSectionView", void(CGRect), "drawRect:", "customGlobalTracksContentsDrawRect:">;
using WindowBackground =
    Override<"CLgDocwContentView", NSColor(), "backgroundColor", "clgDocwContentViewBackgroundColor">;

// What hangs on a header view: its canvas, and the track table of a mouse press.
const char kBackupImageRep = 0;
const char kCachedTrackData = 0;

void fill(CGRect rect, NSColor color) {
  color.setFill();
  NSRectFillUsingOperation(rect, NSCompositingOperationSourceOver);
}

// ---- Track headers ------------------------------------------------------------------------------------

NSBitmapImageRep backupImageRep(NSView header) { return associated<NSBitmapImageRep>(header, &kBackupImageRep); }
void setBackupImageRep(NSView header, NSBitmapImageRep canvas) { associate(header, &kBackupImageRep, canvas); }
NSData cachedTrackData(NSView header) { return associated<NSData>(header, &kCachedTrackData); }
void setCachedTrackData(NSView header, NSData table) { associate(header, &kCachedTrackData, table); }

void updateBackupBitmapRep(NSView header) {
  constexpr NSInteger kCanvasWidth = 32;
  const NSInteger height = truncated(header.frame().size.height);
  const NSBitmapImageRep canvas = backupImageRep(header);
  if (canvas && canvas.pixelsHigh() == height) return;
  setBackupImageRep(header, MyNSBitmapImageRep::withSize(kCanvasWidth, height));
}

NSData getTracksData(NSView header) { return trackTableOf(header); }
BOOL isFolder(NSView /*header*/, NSObject element) { return BOOL(isFolderTrack(element)); }

NSInteger getXOffset(NSView header, BOOL* colorBarShown, BOOL* trackNumbersShown) {
  const ColorBar bar = colorBarOf(header);
  if (colorBarShown != nullptr) *colorBarShown = BOOL(bar.isShown);
  if (trackNumbersShown != nullptr) *trackNumbersShown = BOOL(bar.areTrackNumbersShown);
  return bar.column;
}

void drawHostHeader(NSView header, CGRect rect) { HeaderDrawRect::callHost(header, rect); }

std::vector<HeaderStrip> currentStrips(NSView header, CGRect dirty) {
  const NSInteger column = colorBarOf(header).column;
  const NSData cached = cachedTrackData(header);
  return stripsOf({.view = header,
                   .tracks = tracksIn(cached ? cached : trackTableOf(header)),
                   .colorBarColumn = column,
                   .canvas = backupImageRep(header),
                   .drawHost = drawHostHeader},
                  dirty);
}

/// The strips as the list that crosses messages: rectangle, colour and whether selected.
NSArray verifyColor(NSView header, CGRect dirty) {
  const NSMutableArray list = NSMutableArray::array();
  for (const HeaderStrip& strip : currentStrips(header, dirty)) {
    const id entry[] = {NSValue::valueWithRect(strip.rect).object, strip.color.get().object,
                        NSNumber::numberWithBool(strip.selected).object};
    list.addObject(NSArray::arrayWithObjects(entry, std::size(entry)));
  }
  return list;
}

void drawStripColor(NSView /*header*/, CGRect dirty, NSArray list) {
  constexpr NSUInteger kShortest = 2;
  std::vector<HeaderStrip> strips;
  for (const NSArray entry : items<NSArray>(list)) {
    const NSUInteger count = entry.count();
    if (count < kShortest) continue;
    strips.push_back({cast<NSValue>(entry.objectAtIndex(0)).rectValue(), cast<NSColor>(entry.objectAtIndex(1)),
                      count > kShortest && cast<NSNumber>(entry.objectAtIndex(2)).boolValue()});
  }
  paintStrips(strips, dirty);
}

/// Whether the theme says anything about the strips.
bool hasStrips(const ThemeUtility& theme) {
  const auto same = [&](ThemeKey a, ThemeKey b) { return theme.colorForKey(a) == theme.colorForKey(b); };
  const bool plain =
      same(key<"arrangeFolderSelectedStripBackgroundColor">, key<"arrangeStripHighlightBackgroundColor">) &&
      same(key<"arrangeFolderStripBackgroundColor">, key<"arrangeStripBackgroundColor">) &&
      !theme.arrangeStripGradient && !theme.arrangeStripHighlightGradient && !theme.arrangeStripBevel;
  return theme.useTrackColorAsArrangeStripBackground || !plain;
}

void customDrawRect(NSView header, CGRect dirty) {
  constexpr double kEmptyGrey = 97.0 / 255;
  const auto raised = guarded([&] {
    updateBackupBitmapRep(header);
    const ThemeUtility& theme = ThemeUtility::shared();
    const NSColor empty = theme.colorForKey(key<"EmptyAreaBelow">);
    fill(dirty, empty ? empty : NSColor::colorWithSRGBRed(kEmptyGrey, kEmptyGrey, kEmptyGrey, 1));
    if (hasStrips(theme)) paintStrips(currentStrips(header, dirty), dirty);
  });
  static_cast<void>(raised);  // the host's headers are drawn whatever happened
  HeaderDrawRect::callHost(header, dirty);
}

void customMouseDown(NSView header, NSEvent event) {
  setCachedTrackData(header, trackTableOf(header));
  HeaderMouseDown::callHost(header, event);
}

void customMouseUp(NSView header, NSEvent event) {
  HeaderMouseUp::callHost(header, event);
  setCachedTrackData(header, NSData());
  header.setNeedsDisplay(true);
}

bool isTrackHeader(NSView view) { return view.className().isEqualToString(literal<"ArrangeTrackHeaderSectionView">()); }

/// The editor of a track's name lets the strip shine through, and its text would be hard to read.
void makeOpaque(NSView editor) {
  const NSColor empty = ThemeUtility::shared().colorForKey(key<"EmptyAreaBelow">);
  if (!empty || !editor.respondsToSelector(selector<"setBackgroundColor:">()) ||
      !editor.respondsToSelector(selector<"backgroundColor">())) {
    return;
  }
  if (call<"backgroundColor", NSColor>(editor).alphaComponent() < 1) {
    call<"setBackgroundColor:">(editor, empty.colorWithAlphaComponent(1));
  }
}

void addSubview(NSView view, NSView added) {
  const bool isNameEditor =
      isTrackHeader(view) && added.className().isEqualToString(literal<"GCMALineEditorTextField">());
  if (isNameEditor && VLRIsCustomThemeSelected()) makeOpaque(added);
  sendSuper<void>(classNamed("MAView"), view.object, selector<"addSubview:">(), added);
}

void dealloc(NSView view) {
  setBackupImageRep(view, NSBitmapImageRep());
  if (isTrackHeader(view)) {
    NSNotificationCenter::defaultCenter().removeObserver(view, NSViewFrameDidChangeNotification, view);
  }
  sendSuper<void>(classNamed("MAView"), view.object, selector<"dealloc">());
}

// ---- Contents -----------------------------------------------------------------------------------------

/// The workspace's colour under the user's choice of background; nil leaves the host's own.
NSColor workspaceColor() {
  enum Background : NSInteger { kDark = 0, kBright = 1 };
  const ThemeUtility& theme = ThemeUtility::shared();
  switch (NSUserDefaults::standardUserDefaults().integerForKey(literal<"TracksBackgroundMode">())) {
    case kDark:
      return theme.colorForKey(key<"ArrangeWorkspaceColor">);
    case kBright:
      return theme.colorForKey(key<"ArrangeWorkspaceBrightColor">);
    default:
      return {};
  }
}

void customArrangeContentsDrawRect(NSView view, CGRect dirty) {
  if (const NSColor workspace = workspaceColor()) fill(dirty, workspace);
  ContentsDrawRect::callHost(view, dirty);
  // When the host raises in one of them, what it has drawn stays, and the others draw.
  if (!gVBGSampling) {
    static_cast<void>(guarded([&] { VLRMarkerBandsDraw(view, dirty); }));
    static_cast<void>(guarded([&] { VLRBundleGridPostDraw(view, dirty); }));
  }
  static_cast<void>(guarded([&] { VLRMarkerProbe(view); }));
}

/// The key under which a view records that it listens: the selector's own address.
const void* registrationKey() { return selector<"vlr_registerForGridSettingsIfNeeded">(); }

void registerForGridSettings(NSView view) {
  if (associated(view, registrationKey())) return;
  associate(view, registrationKey(), NSNumber::numberWithBool(true));
  NSNotificationCenter::defaultCenter().addObserver(view, selector<"vlr_gridSettingsDidChange:">(),
                                                    literal<kGridSettingsDidChange>(), NSObject());
}

void unregisterForGridSettings(NSView view) {
  if (!associated(view, registrationKey())) return;
  associate(view, registrationKey(), NSObject());
  NSNotificationCenter::defaultCenter().removeObserver(view, literal<kGridSettingsDidChange>(), NSObject());
}

void gridSettingsDidChange(NSView view, NSObject /*notification*/) { view.setNeedsDisplay(true); }

void contentsDidMoveToWindow(NSView view) {
  ContentsMoved::callHost(view);
  if (view.window()) {
    registerForGridSettings(view);
  } else {
    unregisterForGridSettings(view);
  }
}

void contentsDealloc(NSView view) {
  unregisterForGridSettings(view);
  ContentsDealloc::callHost(view);
}

// ---- Global tracks and the window ---------------------------------------------------------------------

void customGlobalTracksContentsDrawRect(NSView view, CGRect dirty) {
  const NSColor bar = ThemeUtility::shared().colorForKey(key<"GlobalTracks_ContentBar_BG">);
  if (bar && ArrangeSection(view.object).section() == kRulerSection) fill(dirty, bar);
  SectionDrawRect::callHost(view, dirty);
}

NSColor clgDocwContentViewBackgroundColor(NSView view) {
  const NSColor separators = ThemeUtility::shared().colorForKey(key<"MainSeparators">);
  return separators ? separators : WindowBackground::callHost(view);
}

/// Exchanges the overrides of one host class once; a host that brings the class along later is asked again.
template <class Install>
void onceFor(const char* className, bool& done, Install&& install) {
  if (done || classNamed(className) == nullptr) return;
  done = true;
  install();
}

void addSwizzleMethod(Class /*self*/) {
  if (!VLRIsCustomThemeSelected()) return;
  static bool headers = false;
  static bool contents = false;
  static bool sections = false;
  static bool windows = false;
  onceFor("ArrangeTrackHeaderSectionView", headers, [] {
    HeaderDrawRect::install();
    if (!isHostEqualOrNewerThan("12.3")) return;
    HeaderMouseDown::install();
    HeaderMouseUp::install();
  });
  onceFor("ArrangeContentsSectionView", contents, [] {
    ContentsDrawRect::install();
    ContentsMoved::install();
    ContentsDealloc::install();
  });
  onceFor("CLgSectionView", sections, [] { SectionDrawRect::install(); });
  onceFor("CLgDocwContentView", windows, [] { WindowBackground::install(); });
}

}  // namespace

void attachMAViewThemeSupport() {
  CategoryDefinition("MAView")
      .classMethod<"addSwizzleMethod", addSwizzleMethod>()
      .ownMethod<"addSubview:", addSubview>()
      .ownMethod<"dealloc", dealloc>()
      .replacement<HeaderDrawRect, customDrawRect>()
      .replacement<HeaderMouseDown, customMouseDown>()
      .replacement<HeaderMouseUp, customMouseUp>()
      .replacement<ContentsDrawRect, customArrangeContentsDrawRect>()
      .replacement<ContentsMoved, contentsDidMoveToWindow>()
      .replacement<ContentsDealloc, contentsDealloc>()
      .replacement<SectionDrawRect, customGlobalTracksContentsDrawRect>()
      .replacement<WindowBackground, clgDocwContentViewBackgroundColor>()
      .method<"backupImageRep", backupImageRep>()
      .method<"setBackupImageRep:", setBackupImageRep>()
      .method<"vlrCachedTrackData", cachedTrackData>()
      .method<"setVlrCachedTrackData:", setCachedTrackData>()
      .method<"getTracksData", getTracksData>()
      .method<"isFolderTrack:", isFolder>()
      .method<"getXOffsetinTrack:showTrackNumP:", getXOffset>()
      .method<"updateBackupBitmapRep", updateBackupBitmapRep>()
      .method<"verifyColor:", verifyColor>()
      .method<"drawStripColor:colorCollection:", drawStripColor>()
      .method<"vlr_registerForGridSettingsIfNeeded", registerForGridSettings>()
      .method<"vlr_unregisterForGridSettingsIfNeeded", unregisterForGridSettings>()
      .method<"vlr_gridSettingsDidChange:", gridSettingsDidChange>();
}

}  // namespace velura
