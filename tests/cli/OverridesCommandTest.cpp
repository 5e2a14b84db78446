// What the command tells of the overrides on hosts of several versions.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "cocoa/Override.h"
#include "tests/support/Commands.h"
#include "tests/support/HostTest.h"

namespace {

using nlohmann::json;
using Outcomes = std::map<std::string, std::string>;

/// Outcomes by class and selector.
Outcomes outcomes(const std::string& arguments) {
  const auto result = support::runVelura("overrides --format json " + arguments);
  EXPECT_EQ(result.status, 0) << result.output;
  Outcomes byName;
  for (const json& entry : json::parse(result.output, nullptr, false)) {
    byName[entry.value("class", "") + " " + entry.value("selector", "")] = entry.value("outcome", "");
  }
  return byName;
}

TEST(OverridesCommand, TellsWhatEachVersionOfTheHostGot) {
  const std::string update = "-updatePresentationObject:view:";
  const struct {
    const char* version;
    bool hasScalePictures;
    bool pressesHeaders;
  } kCases[] = {{"10.7.4", false, false},
                {"11.1.2", false, false},
                {"11.2", true, false},
                {"12.2", true, false},
                {"12.3", true, true}};
  for (const auto& c : kCases) {
    const Outcomes found = outcomes(std::string("--theme themes/ember --host-version ") + c.version);
    const auto since = [](bool reached) { return reached ? "installed" : "not on this version"; };
    ASSERT_GT(found.size(), 100U);
    EXPECT_EQ(found.at("MAStripNode -borderColor"), "installed");
    EXPECT_EQ(found.at("MAKnobNode " + update), "installed") << "ember draws images";
    EXPECT_EQ(found.at("NSString +localizedStringWithFormat:"), "not under this theme");
    EXPECT_EQ(found.at("MAGUI.MADynamicScaleNode " + update), since(c.hasScalePictures)) << c.version;
    EXPECT_EQ(found.at("ArrangeTrackHeaderSectionView -mouseDown:"), since(c.pressesHeaders)) << c.version;
  }
  const Outcomes plain = outcomes("--theme themes/fjord");
  EXPECT_EQ(plain.at("MAKnobNode " + update), "not under this theme");
  for (const auto& [name, outcome] : outcomes("")) EXPECT_EQ(outcome, "not under this theme") << name;
}

/// In the place of a method without a result.
double differently(NSObject /*field*/) { return 0; }

TEST(OverridesCommand, SpellsOutWhatTheHostDoesOtherwise) {
  const cocoa::AutoreleasePool pool;
  host::Application application{host::HostOptions()};
  // The class inherits the method; here it has one of its own, of another signature.
  ASSERT_TRUE((cocoa::detail::addFunction<"viewDidMoveToWindow", differently>(cocoa::classNamed("MATextField"))));
  session::SessionOptions options;
  options.theming = session::Theming::kTheme;
  options.themeFolder = support::writeTheme(support::ThemeFile().list());
  std::string error;
  ASSERT_TRUE(session::selectTheme(options, error)) << error;
  ASSERT_TRUE(application.loadBundle(options.bundlePath, error)) << error;
  const auto loader = support::newObject("LoaderClass");
  const std::string text = cocoa::toStdString(cocoa::call<"vlrOverridesAsText", NSString>(loader));
  EXPECT_NE(text.find("other signature       -[MATextField viewDidMoveToWindow]\n"
                      "    host: double (id, SEL)\n"
                      "    here: void (id, SEL)\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("installed             -[MAStripNode backgroundColor]\n"), std::string::npos);
}

TEST(OverridesCommand, Refuses) {
  support::expectRefusals({{"overrides --host-version newest", 2, "no version"},
                           {"overrides --host-version 11.", 2, "no version"},
                           {"overrides --format yaml", 2, "yaml"},
                           {"overrides --theme no-such-folder", 1, "no-such-folder"}});
}

}  // namespace
