// Names of the images that panners and faders may have per track type.

#include <gtest/gtest.h>

#include "cocoa/Call.h"
#include "plugin/theme/Utility.h"

namespace velura {
namespace {

using namespace cocoa;

struct Case {
  NSInteger type;
  const char* panner;  // behind the stem
  const char* fader;   // nullptr for the host's own cap
};
constexpr Case kCases[] = {
    {0, "_audio", "mixer_fader_audio"},
    {1, "_instrument", "mixer_fader_instrument"},
    {2, "_aux", "mixer_fader_aux"},
    {3, "_bus", "mixer_fader_bus"},
    {7, "_stereo_out", "mixer_fader_stereo_out"},
    {8, "", "mixer_fader_master"},
    {100, "_folder", "mixer_fader_folder"},
    {-1, "", nullptr},
    {5, "", nullptr},
    {9, "", nullptr},
};

template <FixedString Selector>
std::string name(bool highlighted, NSInteger type, bool shared) {
  const auto text = call<Selector, NSString>(classNamed("Utility"), BOOL(highlighted), type, BOOL(shared));
  return text ? toStdString(text) : "nil";
}

TEST(ImageNames, FollowTypeHighlightAndSharing) {
  const AutoreleasePool pool;
  defineUtility();
  for (const Case& c : kCases) {
    for (const bool highlighted : {false, true}) {
      const std::string end = highlighted ? "_sel" : "";
      constexpr FixedString kBackground{"getmixer_panner_stereo:trackType:useSharedType:"};
      constexpr FixedString kPointer{"getmixer_panner_pointer:trackType:useSharedType:"};
      constexpr FixedString kKnob{"getmixer_panner_knob:trackType:useSharedType:"};
      constexpr FixedString kFader{"getFaderImage:trackType:useSharedType:"};
      EXPECT_EQ(name<kBackground>(highlighted, c.type, false), std::string("mixer_panner_stereo_bg") + c.panner + end);
      EXPECT_EQ(name<kPointer>(highlighted, c.type, false), std::string("mixer_panner_pointer") + c.panner + end);
      EXPECT_EQ(name<kKnob>(highlighted, c.type, false), std::string("mixer_panner_knob") + c.panner + end);
      EXPECT_EQ(name<kFader>(highlighted, c.type, false), c.fader == nullptr ? "nil" : c.fader + end) << c.type;
      EXPECT_EQ(name<kKnob>(highlighted, c.type, true), "mixer_panner_knob" + end);
      EXPECT_EQ(name<kFader>(highlighted, c.type, true), "nil");
    }
  }
}

}  // namespace
}  // namespace velura
