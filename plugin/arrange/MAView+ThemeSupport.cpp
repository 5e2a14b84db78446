// The arrange window: strips behind the track headers, the workspace, marker bands and the grid.

#include "cocoa/Association.h"
#include "cocoa/Exception.h"
#include "plugin/arrange/GridOverlay.h"
#include "plugin/arrange/HeaderStrips.h"
#include "plugin/arrange/MarkerBandDiagnostics.h"
#include "plugin/arrange/MarkerBands.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/gradient/FillOver.h"
#include "plugin/hostapi/ArrangeView.h"
#include "plugin/hostapi/HostVersion.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/text/Truncated.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kArrangeTrackHeaderSectionView{"ArrangeTrackHeaderSectionView"};
constexpr FixedString kArrangeContentsSectionView{"ArrangeContentsSectionView"};

// What hangs on a header view: its canvas, and the track table of a mouse press.
const char kBackupImageRep = 0;
const char kCachedTrackData = 0;

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

/// What the host itself draws into its headers.
void drawHostHeader(NSView header, CGRect rect);

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

struct HeaderDrawRect : HostOverride<kArrangeTrackHeaderSectionView, "drawRect:", void(CGRect)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kTrackHeaders);

  static void themed(NSView header, CGRect dirty) {
    constexpr double kEmptyGrey = 97.0 / 255;
    const auto raised = guarded([&] {
      updateBackupBitmapRep(header);
      const ThemeUtility& theme = ThemeUtility::shared();
      const NSColor empty = theme.colorForKey(key<"EmptyAreaBelow">);
      fillOver(dirty, empty ? empty : NSColor::colorWithSRGBRed(kEmptyGrey, kEmptyGrey, kEmptyGrey, 1));
      if (hasStrips(theme)) paintStrips(currentStrips(header, dirty), dirty);
    });
    static_cast<void>(raised);  // the host's headers are drawn whatever happened
    callHost(header, dirty);
  }
};

void drawHostHeader(NSView header, CGRect rect) { HeaderDrawRect::callHost(header, rect); }

struct HeaderMouseDown : HostOverride<kArrangeTrackHeaderSectionView, "mouseDown:", void(NSEvent)> {
  static constexpr Condition kWhen = Condition::kSinceHost12_3;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kHost);

  static void themed(NSView header, NSEvent event) {
    setCachedTrackData(header, trackTableOf(header));
    callHost(header, event);
  }
};

struct HeaderMouseUp : HostOverride<kArrangeTrackHeaderSectionView, "mouseUp:", void(NSEvent)> {
  static constexpr Condition kWhen = Condition::kSinceHost12_3;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kHost);

  static void themed(NSView header, NSEvent event) {
    callHost(header, event);
    setCachedTrackData(header, NSData());
    header.setNeedsDisplay(true);
  }
};

bool isTrackHeader(NSView view) { return view.className().isEqualToString(literal<kArrangeTrackHeaderSectionView>()); }

/// The editor of a track's name lets the strip shine through, and its text would be hard to read.
void makeOpaque(NSView editor) {
  const NSColor empty = ThemeUtility::shared().colorForKey(key<"EmptyAreaBelow">);
  if (!empty || !respondsTo<"setBackgroundColor:">(editor) || !respondsTo<"backgroundColor">(editor)) {
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

struct ContentsDrawRect
    : HostOverride<kArrangeContentsSectionView, "drawRect:", void(CGRect), "customArrangeContentsDrawRect:"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kArrangeContents);

  static void themed(NSView view, CGRect dirty) {
    if (const NSColor workspace = workspaceColor()) fillOver(dirty, workspace);
    callHost(view, dirty);
    // When the host raises in one of them, what it has drawn stays, and the others draw.
    if (!isGridSampling()) {
      static_cast<void>(guarded([&] { VLRMarkerBandsDraw(view, dirty); }));
      static_cast<void>(guarded([&] { VLRBundleGridPostDraw(view, dirty); }));
    }
    static_cast<void>(guarded([&] { VLRMarkerProbe(view); }));
  }
};

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

struct ContentsMoved
    : HostOverride<kArrangeContentsSectionView, "viewDidMoveToWindow", void(), "vlr_viewDidMoveToWindow"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kArrangeContents);

  static void themed(NSView view) {
    callHost(view);
    if (view.window()) {
      registerForGridSettings(view);
    } else {
      unregisterForGridSettings(view);
    }
  }
};

struct ContentsDealloc : HostOverride<kArrangeContentsSectionView, "dealloc", void(), "vlr_dealloc"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kHost);

  static void themed(NSView view) {
    unregisterForGridSettings(view);
    callHost(view);
  }
};

// ---- Global tracks and the window ---------------------------------------------------------------------

struct SectionDrawRect
    : HostOverride<"CLgSectionView", "drawRect:", void(CGRect), "customGlobalTracksContentsDrawRect:"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kHost);

  static void themed(NSView view, CGRect dirty) {
    const NSColor bar = ThemeUtility::shared().colorForKey(key<"GlobalTracks_ContentBar_BG">);
    if (bar && ArrangeSection(view.object).section() == kRulerSection) fillOver(dirty, bar);
    callHost(view, dirty);
  }
};

struct WindowBackground
    : HostOverride<"CLgDocwContentView", "backgroundColor", NSColor(), "clgDocwContentViewBackgroundColor"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kSeparators);

  static NSColor themed(NSView view) {
    const NSColor separators = ThemeUtility::shared().colorForKey(key<"MainSeparators">);
    return separators ? separators : callHost(view);
  }
};

void addMethods(CategoryDefinition& category) {
  category.ownMethod<"addSubview:", addSubview>()
      .ownMethod<"dealloc", dealloc>()
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

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAView =
    OverridesOf<"MAView", HeaderDrawRect, HeaderMouseDown, HeaderMouseUp, ContentsDrawRect, ContentsMoved,
                ContentsDealloc, SectionDrawRect, WindowBackground>::
        themedClass<InstallationRules{.when = Condition::kCustomTheme, .repetition = Repetition::kOnceTargetExists},
                    addMethods>();
}  // namespace overrides

}  // namespace velura
