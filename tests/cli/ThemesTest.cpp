// The themes of this repository: the images that they bring along, the keys that they use.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "cocoa/AppKit.h"
#include "plugin/language/ThemeKeys.h"
#include "plugin/language/TrackTypes.h"
#include "plugin/plist/PropertyListReader.h"
#include "tests/support/Theme.h"

namespace {

using namespace cocoa;

using velura::ImageSet;

/// Every name that a theme's images are asked for under, with its flags as they are, and the image's points.
std::map<std::string, double> namesAsked(NSDictionary theme) {
  const auto isShared = [&](velura::ThemeKey key) {
    const auto flag = as<NSNumber>(theme.objectForKey(string(rowOf(key).name)));
    return flag && flag.boolValue() ? ImageSet::kShared : ImageSet::kOwn;
  };
  std::map<std::string, double> names;
  for (const bool isHighlighted : {false, true}) {
    const std::string suffix = isHighlighted ? "_sel" : "";
    for (const auto& row : velura::kTrackTypes) {
      for (const char* stem : {"mixer_panner_stereo_bg", "mixer_panner_knob", "mixer_panner_pointer"}) {
        names[pannerImageName(stem, isHighlighted, row.type, isShared(row.sharedPanner))] = 40;
      }
      if (const auto cap = faderImageName(isHighlighted, row.type, isShared(row.sharedFader))) names[*cap] = 22;
    }
    names["mixer_panner_surround_bg" + suffix] = 40;
    names["mixer_sendvolume_bg" + suffix] = names["mixer_sendvolume_knob" + suffix] = 18;
  }
  return names;
}

TEST(ImagesOfThemes, AreThereAtBothScalesForEveryNameThatIsAskedFor) {
  const AutoreleasePool pool;
  const std::string ember = VELURA_SOURCE_DIR "/themes/ember";
  const Ref<NSObject> list = velura::readPropertyList((ember + "/PluginHelper.plist").c_str());
  const auto theme = as<NSDictionary>(list);
  ASSERT_TRUE(theme);
  for (const auto& [name, width] : namesAsked(theme)) {
    for (const int scale : {1, 2}) {
      const std::string file =
          ember + "/Companion.bundle/Contents/Resources/" + name + (scale == 2 ? "@2x.png" : ".png");
      const std::string bytes = support::fileContents(file);
      const auto bitmap = NSBitmapImageRep::imageRepWithData(NSData::dataWithBytes(bytes.data(), bytes.size()));
      ASSERT_TRUE(bitmap) << file;
      EXPECT_EQ(static_cast<double>(bitmap.pixelsWide()), width * scale) << file;
    }
  }
}

TEST(Themes, UseEveryKeyBetweenThem) {
  const AutoreleasePool pool;
  std::set<std::string> used;
  for (const char* name : {"ember", "fjord", "linen", "prism"}) {
    const std::string path = std::string(VELURA_SOURCE_DIR "/themes/") + name + "/PluginHelper.plist";
    const Ref<NSObject> list = velura::readPropertyList(path.c_str());
    const auto theme = as<NSDictionary>(list);
    ASSERT_TRUE(theme) << path;
    for (const NSString key : items<NSString>(theme.allKeys())) used.insert(toStdString(key));
  }
  for (const velura::ThemeKeyRow& row : velura::kThemeKeys) {
    EXPECT_TRUE(row.used == velura::Used::kNotYet || used.contains(std::string(row.name))) << row.name;
  }
}

}  // namespace
