// The theme in force, read from the files of a theme that is selected in folders of the test's own.

#include "plugin/theme/ThemeUtility.h"

#include <gtest/gtest.h>

#include "cocoa/Call.h"
#include "cocoa/Exception.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/Utility.h"
#include "tests/support/HostTest.h"

namespace velura {
namespace {

using namespace cocoa;
using namespace support;

class Theme : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    defineVLRStripGradient();
    defineVLRStripBevel();
    defineThemeUtility();
    defineUtility();
  }

  /// A theme object that has read a settings file, and the reference file where one is given. The theme's
  /// folder stays the same: a companion bundle is opened once.
  ThemeUtility& load(const std::string& settings, const std::string& reference = {}) {
    if (folder_.empty()) select(reference);
    writeFile(folder_ + "/PluginHelper.plist", settings);
    const std::string referenceFile = folder_ + "/Companion.bundle/Contents/Resources/PluginHelper.plist";
    if (!reference.empty()) writeFile(referenceFile, reference);
    return make();
  }
  ThemeUtility& load(const ThemeFile& settings, const ThemeFile& reference) {
    return load(settings.list(), reference.list());
  }
  ThemeUtility& load(const ThemeFile& settings) { return load(settings.list()); }
  ThemeUtility& make() {
    theme_ = newObject("ThemeUtility");
    return stateOf<ThemeUtility>(theme_.get());
  }

  AutoreleasePool pool_;
  Ref<NSObject> theme_;

 private:
  void select(const std::string& reference) {
    folder_ = writeTheme("", reference);
    session::SessionOptions options;
    options.theming = session::Theming::kTheme;
    options.themeFolder = folder_;
    std::string error;
    EXPECT_TRUE(session::selectTheme(options, error)) << error;
  }
  std::string folder_;
};

TEST_F(Theme, WithoutAFileHasTheStatedValues) {
  ThemeUtility& theme = make();
  EXPECT_FALSE(VLRIsCustomThemeSelected());
  EXPECT_EQ(toStdString(VLRSelectedThemeName()), "Default");
  const auto number = [&](const char* name) {
    return send<std::uint64_t>(theme_.get().object, sel_registerName(name));
  };
  for (const char* name :
       {"arrangeOpacity", "arrangeHighlightedOpacity", "arrangeFolderOpacity", "arrangeFolderHighlightedOpacity",
        "mixerOpacity", "mixerHighlightedOpacity", "mixerFolderOpacity", "mixerFolderHighlightedOpacity",
        "mixerAuxOpacity", "mixerAuxHighlightedOpacity"}) {
    EXPECT_EQ(number(name), 100U) << name;
  }
  EXPECT_EQ(number("emptySlotCornerRadius"), 4U);
  EXPECT_TRUE(theme.mixerBGMatchGradient);
  EXPECT_EQ((call<"useDifferentPannerTypes", std::uint32_t>(theme_.get())), 0U);
  EXPECT_EQ((call<"colorCollection", NSDictionary>(theme_.get())).count(), 0U);
  EXPECT_TRUE((call<"gradientPatternCache", NSMutableDictionary>(theme_.get())));
  EXPECT_FALSE((call<"pluginGroupsMap", NSDictionary>(theme_.get())));
  EXPECT_FALSE((call<"mixerStripBevel", NSObject>(theme_.get())));
  EXPECT_FALSE((call<"vlrMixerBackgroundColor", NSColor>(theme_.get())));
}

TEST_F(Theme, TakesFlagsAndNumbersOfAnyKindThatAnswersForOne) {
  ThemeUtility& theme = load(ThemeFile()
                                 .flag("useImagesToDrawKnob", true)
                                 .integer("useTrackColorAsStripBackground", 1)
                                 .text("useCalibratedColor", "YES")
                                 .flag("mixerBGMatchGradient", false)
                                 .text("UseTrackColor_MixerOpacity", "52 percent")
                                 .integer("UseTrackColor_MixerAuxOpacity", -1)
                                 .xml("UseTrackColor_MixerFolderOpacity", "<real>77.9</real>")
                                 .xml("UseTrackColor_ArrangeOpacity", "<real>1e300</real>")
                                 .xml("UseTrackColor_ArrangeFolderOpacity", "<real>nan</real>")
                                 .text("emptySlotBGCornerRadius", "99999999999999999999999"));
  EXPECT_TRUE(theme.useImagesToDraw);
  EXPECT_TRUE(theme.useTrackColorAsStripBackground);
  EXPECT_TRUE(theme.useCalibratedColor);
  EXPECT_FALSE(theme.useTrackColorAsArrangeStripBackground);
  EXPECT_FALSE(theme.mixerBGMatchGradient);
  EXPECT_EQ(theme.mixerOpacity, 52U);
  EXPECT_EQ(theme.mixerAuxOpacity, UINT64_MAX);
  EXPECT_EQ(theme.mixerFolderOpacity, 77U);
  EXPECT_EQ(theme.arrangeOpacity, std::uint64_t{INT64_MAX});
  EXPECT_EQ(theme.arrangeFolderOpacity, 0U);
  EXPECT_EQ(theme.emptySlotCornerRadius, std::uint64_t{INT64_MAX});
  EXPECT_EQ(theme.mixerHighlightedOpacity, 100U);
}

TEST_F(Theme, ImagesAreUsedWithACustomThemeOnly) {
  load(ThemeFile().flag("useImagesToDrawKnob", true).flag("useCalibratedColor", true));
  std::string error;
  session::SessionOptions untouched;
  untouched.theming = session::Theming::kDefaultTheme;
  ASSERT_TRUE(session::selectTheme(untouched, error)) << error;
  EXPECT_FALSE(make().useImagesToDraw);
  EXPECT_TRUE(stateOf<ThemeUtility>(theme_.get()).useCalibratedColor) << "the file itself is read all the same";
}

TEST_F(Theme, EveryTrackTypeHasItsBitInBothRecords) {
  struct Case {
    const char* name;
    NSInteger type;
    std::uint32_t bit;
  };
  constexpr Case kCases[] = {{"audio", 0, 1},   {"instrument", 1, 2}, {"aux", 2, 4},        {"bus", 3, 8},
                             {"master", 8, 16}, {"folder", 100, 32},  {"stereo_out", 7, 64}};
  for (const Case& c : kCases) {
    ThemeUtility& panner = load(ThemeFile().flag(std::string("useSharedPanner?") + c.name, true));
    EXPECT_EQ(panner.useDifferentPannerTypes, c.bit) << c.name;
    EXPECT_EQ(panner.useDifferentFaderTypes, 0U) << c.name;
    for (const Case& other : kCases) {
      EXPECT_EQ(callBool<"useSharedPannerType:">(theme_.get().object, other.type), other.type == c.type) << other.name;
    }
    ThemeUtility& fader = load(ThemeFile().flag(std::string("useSharedFader?") + c.name, true));
    EXPECT_EQ(fader.useDifferentFaderTypes, c.bit) << c.name;
    EXPECT_EQ(fader.useDifferentPannerTypes, 0U) << c.name;
    EXPECT_TRUE(callBool<"useSharedFaderType:">(theme_.get().object, c.type)) << c.name;
    for (const NSInteger unnamed : {-1, 4, 5, 6, 9, 99}) {
      EXPECT_TRUE(callBool<"useSharedFaderType:">(theme_.get().object, unnamed)) << unnamed;
    }
  }
}

TEST_F(Theme, KeepsOnlyTheColorsThatDifferFromTheHosts) {
  const ThemeFile same = ThemeFile()
                             .text("mixerBackgroundColor", color(1, 2, 3))
                             .text("emptySlotBGColor", color(1, 2, 3))
                             .text("mixerStripBevel", "Bevel:{R,2,30}")
                             .flag("mixerBGMatchGradient", false)
                             .integer("UseTrackColor_MixerOpacity", 50);
  ThemeUtility& theme =
      load(ThemeFile(same)
               .text("stripBackgroundColor", color(1, 2, 4))
               .text("stripBorderColor", "sRGBColor:{1,2,3,100}")
               .text("RunTimeName", "sRGBColor:{9, 9, 9, 50}")
               .text("solid", "solid"),
           ThemeFile(same).text("stripBackgroundColor", color(1, 2, 3)).text("stripBorderColor", color(1, 2, 3)));
  EXPECT_FALSE(theme.colorForKey(key<"mixerBackgroundColor">));
  EXPECT_EQ(rgba(theme.colorForKey(key<"emptySlotBGColor">)), (Rgba{1, 2, 3})) << "a kept key";
  EXPECT_EQ(rgba(theme.colorForKey(key<"stripBackgroundColor">)), (Rgba{1, 2, 4}));
  EXPECT_EQ(rgba(theme.colorForKey(key<"stripBorderColor">)), (Rgba{1, 2, 3})) << "the texts differ";
  EXPECT_FALSE(theme.mixerStripBevel) << "a string that equals the host's is no change, colour or not";
  EXPECT_FALSE(theme.mixerBGMatchGradient);
  EXPECT_EQ(theme.mixerOpacity, 50U);
  const auto named = [&](const char* key) { return call<"colorForKey:", NSColor>(theme_.get(), string(key)); };
  EXPECT_EQ(rgba(named("RunTimeName")), (Rgba{9, 9, 9, 50}));
  EXPECT_EQ(named("stripBackgroundColor"), theme.colorForKey(key<"stripBackgroundColor">));
  EXPECT_EQ((call<"liveLoopsColorForKey:", NSColor>(theme_.get(), string("RunTimeName"))), named("RunTimeName"));
  EXPECT_FALSE(named("runtimename"));
  EXPECT_FALSE(named("solid"));
  EXPECT_FALSE((call<"colorForKey:", NSColor>(theme_.get(), NSString())));
}

TEST_F(Theme, TheColorCollectionIsReadAnewAtEachCall) {
  load(ThemeFile().text("a", color(1, 2, 3)).text("b", "x"), ThemeFile().text("b", "x"));
  const auto utility = call<"sharedInstance", NSObject>(classNamed("Utility"));
  EXPECT_EQ((call<"sharedInstance", NSObject>(classNamed("Utility"))), utility);
  const auto first = call<"getColorCollection", NSMutableDictionary>(utility);
  EXPECT_EQ(first.count(), 1U);
  first.removeAllObjects();
  EXPECT_EQ((call<"getColorCollection", NSMutableDictionary>(utility)).count(), 1U);
}

TEST_F(Theme, ColorsAreMadeInTheSpaceOfTheTheme) {
  const NSString text = string("sRGBColor:{255, 0, 300, 150}");
  ThemeUtility& theme = load(ThemeFile());
  const NSColor plain = call<"fromString:", NSColor>(theme_.get(), text);
  EXPECT_TRUE(plain.isEqual(NSColor::colorWithSRGBRed(1, 0, 300 / 255.0, 1.5)));
  theme.useCalibratedColor = true;
  const NSColor calibrated = call<"fromString:", NSColor>(theme_.get(), text);
  EXPECT_TRUE(calibrated.isEqual(NSColor::colorWithCalibratedRed(1, 0, 300 / 255.0, 1.5)));
  EXPECT_FALSE(calibrated.isEqual(plain));
  EXPECT_FALSE((call<"fromString:", NSColor>(theme_.get(), string("solid"))));
  EXPECT_FALSE((call<"fromString:", NSColor>(theme_.get(), NSString())));
}

TEST_F(Theme, PluginGroupsGetTheColorsOfTheirStrings) {
  load(ThemeFile().xml("PluginGroupMapV2",
                       "<dict><key>g</key><dict>"
                       "<key>onTextColorStr</key><string></string>"
                       "<key>offTextColorStr</key><string>sRGBColor:{1, 2, 3, 100}</string>"
                       "<key>dimTextColorStr</key><integer>3</integer>"
                       "<key>image</key><string>AudioPlugIn_Blue</string></dict>"
                       "<key>odd</key><string>no group</string></dict>"));
  const auto map = call<"pluginGroupsMap", NSDictionary>(theme_.get());
  const auto group = as<NSDictionary>(map.objectForKey(string("g")));
  const auto entry = [&](const char* key) { return group.objectForKey(string(key)); };
  EXPECT_EQ(rgba(cast<NSColor>(entry("offTextColor"))), (Rgba{1, 2, 3}));
  EXPECT_FALSE(entry("onTextColor"));
  EXPECT_FALSE(entry("dimTextColor"));
  EXPECT_EQ(toStdString(as<NSString>(entry("image"))), "AudioPlugIn_Blue");
  EXPECT_EQ(toStdString(as<NSString>(map.objectForKey(string("odd")))), "no group");
}

TEST_F(Theme, ValuesOfAnyKindUnderAnyKeyDoNoHarm) {
  const char* values[] = {"<array><string>sRGBColor:{1,2,3,4}</string></array>",
                          "<dict><key>a</key><dict/></dict>",
                          "<data>AAEC</data>",
                          "<date>2001-01-01T00:00:00Z</date>",
                          "<real>-1e308</real>",
                          "<integer>9223372036854775807</integer>",
                          "<string></string>",
                          "<string>sRGBColor:{1,2,3,4}</string>",
                          "<string>LinearGradient:{{1,2,3,4},{5,6,7,8},V}</string>",
                          "<string>&#x10FFFF;&#xE000;</string>"};
  for (const char* value : values) {
    ThemeFile file;
    for (const ThemeKeyRow& row : kThemeKeys) file.xml(std::string(row.name), value);
    ThemeUtility& theme = load(file);
    const bool isColor = std::string_view(value).starts_with("<string>sRGB");
    for (const ThemeKeyRow& row : kThemeKeys) {
      EXPECT_EQ(bool(theme.colorForKey(keyOf(row))), isColor && row.kind == ThemeKeyKind::kColor) << row.name;
    }
    EXPECT_FALSE(theme.mixerStripBevel);
    static_cast<void>(theme.mixerBackgroundColor());
  }
}

TEST_F(Theme, AFileThatIsNoDictionaryIsAnEmptyTheme) {
  for (const std::string& bytes : {std::string(), std::string("(a, b)"), std::string("\xFF\xFE\0", 3),
                                   std::string("<plist><array/></plist>"), std::string("bplist00")}) {
    EXPECT_EQ(load(bytes, "not a list either").colorCollection().count(), 0U);
    EXPECT_FALSE((call<"getColorCollection", NSObject>(call<"sharedInstance", NSObject>(classNamed("Utility")))));
  }
  // The reference may be as bad: then nothing is removed.
  EXPECT_TRUE(load(ThemeFile().text("stripBackgroundColor", color(1, 2, 3)).list(), "(")
                  .colorForKey(key<"stripBackgroundColor">));
}

TEST(ThemeKeys, AreFoundByTheirExactNames) {
  for (const ThemeKeyRow& row : kThemeKeys) {
    EXPECT_EQ(keyNamed(row.name), keyOf(row));
    EXPECT_FALSE(keyNamed(std::string(row.name) + "x"));
    EXPECT_TRUE(std::string_view(row.effect).ends_with('.')) << row.name;
    EXPECT_TRUE(row.kept == Kept::kNo || row.kind == ThemeKeyKind::kColor) << row.name;
  }
  EXPECT_FALSE(keyNamed(""));
  EXPECT_FALSE(keyNamed("STRIPBACKGROUNDCOLOR"));
}

}  // namespace
}  // namespace velura
