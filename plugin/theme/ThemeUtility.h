#pragma once
// The class `ThemeUtility`: the theme in force. Read once, when the shared instance is made, and asked for
// values by every override. Main thread only, save for making the shared instance.

#include <array>
#include <atomic>
#include <cstdint>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "plugin/language/ThemeKeys.h"
#include "plugin/theme/DerivedValues.h"
#include "plugin/theme/VLRStripBevel.h"
#include "plugin/theme/VLRStripGradient.h"

namespace velura {

struct ThemeUtility : cocoa::ObjectState {
  /// The one instance, made on first use and kept for the life of the process.
  static ThemeUtility& shared() {
    ThemeUtility* theme = shared_.load(std::memory_order_acquire);
    return theme != nullptr ? *theme : makeShared();
  }

  /// Runs `observe` with the instance as soon as it is made: for what begins with a theme, such as the colouring of
  /// window titles. To be called while the bundle is loaded.
  static void whenMade(void (*observe)(NSObject theme));

  id init();

  /// Takes over all values of a theme dictionary. Keys that are absent leave what is there.
  void apply(NSDictionary theme);

  /// nil where the theme leaves the host's own colour.
  [[nodiscard]] NSColor colorForKey(ThemeKey key) const { return colors_[indexOf(key)]; }
  /// The same for names that only exist at run time, such as those of catalogue colours.
  [[nodiscard]] NSColor colorForKey(NSString key) const;

  /// The colour of a colour string; nil for any other text.
  [[nodiscard]] NSColor fromString(NSString text) const;
  /// Red, green and blue from 0 to 255, alpha in percent. Not clamped.
  [[nodiscard]] NSColor colorWithRed(std::int64_t red, std::int64_t green, std::int64_t blue, std::int64_t alpha) const;

  /// Whether strips of a track type (a code of `TrackType`) use the images that all types share.
  [[nodiscard]] BOOL useSharedPannerType(NSInteger type) const;
  [[nodiscard]] BOOL useSharedFaderType(NSInteger type) const;

  /// What shows behind the strips; nil for the host's own.
  [[nodiscard]] NSColor mixerBackgroundColor() const;

  [[nodiscard]] NSDictionary colorCollection() const { return colorCollection_; }
  /// The collection must not change afterwards.
  void setColorCollection(NSDictionary collection);

  /// The gradient or bevel in a property; null when there is none.
  static VLRStripGradient* gradient(const cocoa::Ref<NSObject>& property) {
    return cocoa::stateIfKind<VLRStripGradient>(property.get());
  }
  static const VLRStripBevel* bevel(const cocoa::Ref<NSObject>& property) {
    return cocoa::stateIfKind<VLRStripBevel>(property.get());
  }

  /// What others make of the theme and keep as long as it: the one `T` of this theme, made on first use.
  template <class T>
  [[nodiscard]] T& derived() {
    return derived_.of<T>();
  }

  /// One bit for each track type, as `kTrackTypes` places them.
  std::uint32_t useDifferentPannerTypes = 0;
  std::uint32_t useDifferentFaderTypes = 0;

  bool useImagesToDraw = false;
  bool useTrackColorAsStripBackground = false;
  bool useCalibratedColor = false;
  bool useTrackColorAsArrangeStripBackground = false;
  /// On only while the table of arrange tracks is being built.
  bool isInDrawingMode = false;
  bool mixerBGMatchGradient = true;

  /// In percent. A negative number of the theme counts modulo 2 to the 64th, as the property stores it.
  std::uint64_t arrangeOpacity = 100;
  std::uint64_t arrangeHighlightedOpacity = 100;
  std::uint64_t arrangeFolderOpacity = 100;
  std::uint64_t arrangeFolderHighlightedOpacity = 100;
  std::uint64_t mixerOpacity = 100;
  std::uint64_t mixerHighlightedOpacity = 100;
  std::uint64_t mixerFolderOpacity = 100;
  std::uint64_t mixerFolderHighlightedOpacity = 100;
  std::uint64_t mixerAuxOpacity = 100;
  std::uint64_t mixerAuxHighlightedOpacity = 100;
  std::uint64_t emptySlotCornerRadius = 4;  // points

  cocoa::Ref<NSMutableDictionary> imageCache;
  cocoa::Ref<NSMutableDictionary> gradientPatternCache;
  cocoa::Ref<NSDictionary> pluginGroupsMap;

  cocoa::Ref<NSObject> mixerStripGradient;
  cocoa::Ref<NSObject> mixerStripHighlightGradient;
  cocoa::Ref<NSObject> arrangeStripGradient;
  cocoa::Ref<NSObject> arrangeStripHighlightGradient;
  cocoa::Ref<NSObject> mixerAutoGradient;
  cocoa::Ref<NSObject> arrangeAutoGradient;
  cocoa::Ref<NSObject> mixerStripBevel;
  cocoa::Ref<NSObject> arrangeStripBevel;

 private:
  static ThemeUtility& makeShared();
  void applyGradientsAndBevels(NSDictionary theme);
  void applyPluginGroups(NSDictionary theme);
  void applyColors(NSDictionary theme);

  static inline std::atomic<ThemeUtility*> shared_{nullptr};
  cocoa::Ref<NSDictionary> colorCollection_;
  std::array<cocoa::Ref<NSColor>, kThemeKeyCount> colors_;
  DerivedValues derived_;
};

/// Registers the class.
void defineThemeUtility();

}  // namespace velura
