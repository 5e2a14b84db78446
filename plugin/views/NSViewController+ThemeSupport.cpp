// View controllers of the host: the library's title and menu, and the items of the mixer's legend.

#include <array>
#include <string>

#include "cocoa/AppKit.h"
#include "plugin/hostapi/HostVersion.h"
#include "plugin/hostapi/Identifiers.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/imaging/RectToSourceColorData.h"
#include "plugin/imaging/Utility+Recoloring.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/text/ColoredText.h"
#include "plugin/text/StringBytes.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/views/LibraryColors.h"

namespace velura {
namespace {

using namespace cocoa;

// ---- The library --------------------------------------------------------------------------------------

struct UpdateLibrary : HostOverride<"CLgLibraryViewController", "_updateUIWithAvailableDataSource:", void(NSObject),
                                    "customeUpdateUIWithAvailableDataSource:"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLibrary);

  static void themed(NSObject controller, NSObject dataSource) {
    callHost(controller, dataSource);
    const NSColor title = ThemeUtility::shared().colorForKey(key<"LibraryHeaderTextColor">);
    if (title && respondsTo<"headerTitle">(controller)) {
      call<"headerTitle", NSTextField>(controller).setTextColor(title);
    }
    if (respondsTo<"soundPacksFilterPopUpButton">(controller)) {
      colorLibraryMenu(call<"soundPacksFilterPopUpButton", NSObject>(controller));
    }
  }
};

// ---- The scale of the mixer's legend ------------------------------------------------------------------

/// Pictures of the scale that a theme may bring along, by the size of the host's.
struct ReadyMadeScale {
  std::string_view size;
  NSString (*image)();
};
constexpr ReadyMadeScale kReadyMadeScales[] = {{"{134, 598}", literal<"LongFaderScale">},
                                               {"{134, 398}", literal<"FaderScale">}};

/// From the size of the host's picture to the one that is shown: one for each size, and sizes are the host's.
struct LegendScales {
  Ref<NSMutableDictionary> bySize = make<NSMutableDictionary>();
};

struct ScaleColors {
  NSColor tick;
  NSColor number;
  NSColor zero;
  [[nodiscard]] bool any() const { return tick || number || zero; }
};

ScaleColors scaleColors() {
  const ThemeUtility& theme = ThemeUtility::shared();
  return {theme.colorForKey(key<"scaleTickMarkColor">), theme.colorForKey(key<"scaleNumberColor">),
          theme.colorForKey(key<"scale0DBTickMarkColor">)};
}

NSImage readyMadeScale(NSString size) {
  for (const ReadyMadeScale& scale : kReadyMadeScales) {
    if (utf8Bytes(size) != scale.size) continue;
    const NSBundle companion = NSBundle::bundleWithIdentifier(literal<kCompanionIdentifier>());
    return call<"imageForResource:", NSImage>(companion, scale.image());
  }
  return {};
}

bool hasLongFaders(NSObject controller) {
  if (!respondsTo<"delegate">(controller)) return false;
  const auto delegate = call<"delegate", NSObject>(controller);
  return respondsTo<"longFaders">(delegate) && callBool<"longFaders">(delegate.object);
}

/// Numbers stand left of the ticks; the mark of 0 dB lies in a band of its own in both parts.
NSArray scaleRules(NSBitmapImageRep bitmap, const ScaleColors& colors, bool longFaders) {
  constexpr double kTickWidth = 23;  // points
  constexpr double kBandHeight = 32;
  constexpr double kBandOfLongFaders = 323;
  constexpr double kBandOfShortFaders = 220;
  const auto width = static_cast<double>(bitmap.pixelsWide());
  const auto height = static_cast<double>(bitmap.pixelsHigh());
  const double points = bitmap.size().width;
  const double ticks = width - kTickWidth * (points > 0 ? width / points : 1);
  const double band = longFaders ? kBandOfLongFaders : kBandOfShortFaders;
  struct Rule {
    CGRect rect;
    double alpha;
    NSColor suggested;
  };
  const Rule rules[] = {{CGRectMake(0, band, ticks, kBandHeight), 1, colors.zero},
                        {CGRectMake(0, 0, ticks, height), 0.4, colors.number},
                        {CGRectMake(ticks, band, width - ticks, kBandHeight), 1, colors.zero},
                        {CGRectMake(ticks, 0, width - ticks, height), 0.4, colors.tick}};
  const NSMutableArray list = NSMutableArray::array();
  for (const Rule& rule : rules) {
    const NSColor white = NSColor::colorWithDeviceRed(1, 1, 1, rule.alpha);
    list.addObject(RectToSourceColorData::make(rule.rect, white, rule.suggested, rule.alpha, false));
  }
  return list;
}

/// The host's picture in the theme's colours; nil when it cannot be read.
Ref<NSImage> recoloredScale(NSImage image, const ScaleColors& colors, bool longFaders) {
  const NSData tiff = image.TIFFRepresentation();
  if (!tiff) return {};
  const auto bitmap =
      call<"imageRepWithData:", NSBitmapImageRep>(asObject(DefinedClass<MyNSBitmapImageRep>::cls), tiff);
  if (!bitmap) return {};
  applyTransformationToBitmap(bitmap, scaleRules(bitmap, colors, longFaders));
  const NSSize size{static_cast<double>(bitmap.pixelsWide()), static_cast<double>(bitmap.pixelsHigh())};
  Ref<NSImage> recolored = NSImage::withSize(size);
  recolored->addRepresentation(bitmap);
  return recolored;
}

void themeScale(NSObject controller, NSObject item) {
  const ScaleColors colors = scaleColors();
  if (!item || !colors.any()) return;
  const auto image = call<"image", NSImage>(item);
  const NSMutableDictionary cache = ThemeUtility::shared().derived<LegendScales>().bySize;
  const NSString key(NSStringFromSize(image.size()));
  if (const NSObject known = cache.objectForKey(key)) return call<"setImage:">(item, known);
  Ref<NSImage> themed = readyMadeScale(key);
  if (!themed) themed = recoloredScale(image, colors, hasLongFaders(controller));
  if (!themed) return;
  cache.setObject(themed.get(), key);
  call<"setImage:">(item, themed.get());
}

void themeLabel(NSObject item) {
  const NSColor color = ThemeUtility::shared().colorForKey(key<"componentsLabelColor">);
  if (!color || !respondsTo<"attributedStringValue">(item)) return;
  const auto text = as<NSAttributedString>(call<"attributedStringValue", NSObject>(item));
  if (text.length() > 0) call<"setAttributedStringValue:">(item, inColor(text, color));
}

struct LegendItem : HostOverride<"CLgRupertContentsViewController", "legendItemForIdentifier:", NSObject(NSString)> {
  static constexpr Condition kWhen = Condition::kSinceHost11_2;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLegend);

  static NSObject themed(NSObject controller, NSString identifier) {
    constexpr std::string_view kLegend = "MAMixerLegend";
    const NSObject item = callHost(controller, identifier);
    const BriefUTF8 name(identifier);
    if (name.view() == "MAMixerLegendVolumeScaleItem") {
      themeScale(controller, item);
    } else if (item && name.view().starts_with(kLegend)) {
      themeLabel(item);
    }
    return item;
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass NSViewController =
    OverridesOf<"NSViewController", UpdateLibrary, LegendItem>::themedClass<>();
}  // namespace overrides

}  // namespace velura
