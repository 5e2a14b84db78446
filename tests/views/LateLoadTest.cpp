// A bundle that is loaded once the windows are open shows what one that was there before shows, but for what the
// overrides declare that a refresh does not reach.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <sstream>

#include "cli/PrivateFolders.h"
#include "cocoa/Call.h"
#include "host/mixer/MANode.h"
#include "tests/support/KeyColors.h"
#include "tests/support/Memory.h"

namespace {

using host::WindowKind;
using testing::ContainerEq;

using Names = std::set<std::string>;

/// The innermost node at a place, by its class and name. Places count from the lower left of the node's parent.
std::string nodeAt(NSObject node, CGPoint place) {
  const auto& state = cocoa::stateOf<host::MANode>(node);
  const CGPoint inside{place.x - state.frame.minX(), place.y - state.frame.minY()};
  std::string found = cocoa::toStdString(node.className()) + " " + cocoa::toStdString(state.name.get());
  for (const NSObject child : cocoa::items(state.childrenArray)) {
    const CGRect frame = cocoa::stateOf<host::MANode>(child).frame;
    if (CGRectContainsPoint(frame, inside)) found = nodeAt(child, inside);
  }
  return found;
}

/// The innermost view at a place of the window, by its class; a node where there is one.
std::string thingAt(NSView view, CGPoint place) {
  std::string found = cocoa::toStdString(view.className());
  if (view.respondsToSelector(cocoa::selector<"node">())) {
    const auto node = cocoa::call<"node", NSObject>(view);
    if (node) return nodeAt(node, view.convertPointFromView(place, {}));
  }
  for (const NSView subview : cocoa::items<NSView>(view.subviews())) {
    if (CGRectContainsPoint(subview.bounds(), subview.convertPointFromView(place, {}))) found = thingAt(subview, place);
  }
  return found;
}

/// Every colour that a theme can have, and those of the library in the host's catalogue.
std::string loudTheme() {
  support::ThemeFile theme = support::allColors();
  int index = 0;
  for (const char* name : {"LibraryHeader", "LibraryText", "LibraryPicture", "LibrarySearchField", "LibrarySearchText",
                           "LibrarySeparator"}) {
    theme.text(name, support::color(40 * ++index, 250, 200));
  }
  return support::writeTheme(theme.list());
}

std::unique_ptr<host::Application> startWith(const std::string& theme, bool late,
                                             host::Song song = support::sampleSong()) {
  session::SessionOptions options;
  options.theming = session::Theming::kTheme;
  options.themeFolder = theme;
  options.loadsLate = late;
  options.windows.assign(std::begin(host::kWindowKinds), std::end(host::kWindowKinds));
  std::string error;
  auto application = session::startSession(options, std::move(song), error);
  EXPECT_TRUE(application) << error;
  return application;
}

std::string earlyPicture(WindowKind window) {
  return session::privateFolder() + "/early-" + std::to_string(static_cast<int>(window)) + ".png";
}

/// Draws every window of a host that had the bundle before it opened them.
bool drawEarly(const std::string& theme) {
  return support::inChild([&] {
    const auto application = startWith(theme, false);
    for (const WindowKind window : host::kWindowKinds) {
      support::writeFile(earlyPicture(window), session::windowAsPng(*application, window));
    }
    return true;
  });
}

cocoa::Ref<NSBitmapImageRep> bitmapOf(const std::string& png) {
  return cocoa::call<"imageRepWithData:", NSBitmapImageRep>(cocoa::asObject(cocoa::classNamed("NSBitmapImageRep")),
                                                            NSData::dataWithBytes(png.data(), png.size()));
}

/// What looks another way in two pictures of a window.
Names differences(NSWindow window, NSBitmapImageRep a, NSBitmapImageRep b) {
  const NSView frame = window.contentView().superview();
  Names names;
  for (long y = 0; y < a.pixelsHigh(); ++y) {
    const unsigned char* one = a.bitmapData() + y * a.bytesPerRow();
    const unsigned char* other = b.bitmapData() + y * b.bytesPerRow();
    for (long x = 0; x < a.pixelsWide(); ++x) {
      if (std::memcmp(one + 4 * x, other + 4 * x, 4) == 0) continue;
      const CGPoint place{static_cast<double>(x) + 0.5, frame.bounds().size.height - static_cast<double>(y) - 0.5};
      names.insert(thingAt(frame, place));
    }
  }
  return names;
}

NSObject newLoader() {
  return cocoa::autoreleased(
      cocoa::Ref<NSObject>::adopt(NSObject(cocoa::call<"new", id>(cocoa::asObject(cocoa::classNamed("LoaderClass"))))));
}

/// What the installed overrides declare to keep the host's look in a window that is open already.
Names declaredStale() {
  Names names;
  for (const NSDictionary entry : cocoa::items<NSDictionary>(cocoa::call<"vlrOverrides", NSArray>(newLoader()))) {
    const auto text = [&](const char* key) {
      return cocoa::toStdString(cocoa::cast<NSString>(entry.objectForKey(cocoa::string(key))));
    };
    if (text("outcome") != "installed") continue;
    std::istringstream stale(text("stale"));
    for (std::string name; std::getline(stale >> std::ws, name, ',');) names.insert(name);
  }
  // Older hosts make the legend's elements out of reach, so that those of a legend that is open when the bundle comes
  // are the only ones in the theme's colours.
  if (std::stod(host::HostOptions::usualVersion) < 11.2) names.insert({"MATextField", "MAMixerLegendImageView"});
  return names;
}

TEST(LateLoad, DiffersWhereTheOverridesDeclareItAndNowhereElse) {
  const cocoa::AutoreleasePool pool;
  const std::string theme = loudTheme();
  ASSERT_TRUE(drawEarly(theme));
  const auto application = startWith(theme, true);
  Names kept;
  for (const WindowKind window : host::kWindowKinds) {
    const auto early = bitmapOf(support::fileContents(earlyPicture(window)));
    const auto late = bitmapOf(session::windowAsPng(*application, window));
    ASSERT_TRUE(early && late);
    ASSERT_EQ(late->pixelsWide(), early->pixelsWide());
    ASSERT_EQ(late->pixelsHigh(), early->pixelsHigh());
    kept.merge(differences(application->window(window), early, late));
  }
  EXPECT_THAT(kept, ContainerEq(declaredStale()));
}

TEST(LateLoad, LooksForTheOutermostOfNestedViews) {
  const cocoa::AutoreleasePool pool;
  const auto application = support::start("default", support::sampleSong());
  ASSERT_TRUE(application);
  const auto root = NSBox::withFrame({{0, 0}, {9, 9}});
  const auto outer = NSBox::withFrame({{0, 0}, {9, 9}});
  const auto inner = NSBox::withFrame({{0, 0}, {9, 9}});
  outer->addSubview(inner);
  root->addSubview(outer);
  const auto found = [](NSView in) {
    return cocoa::call<"findSubviewOfClass:inView:", NSView>(newLoader(), cocoa::literal<"NSBox">(), in);
  };
  EXPECT_EQ(found(root), outer.get());
  EXPECT_EQ(found(outer), inner.get()) << "what is looked in is not what is looked for";
  EXPECT_FALSE(found(inner));
  EXPECT_FALSE(found({}));
}

TEST(Windows, LeaveNothingBehindWhenTheyAreDrawnOrRefreshedOverAndOver) {
  const cocoa::AutoreleasePool pool;
  host::Song song = support::sampleSong();
  song.tracks.resize(4);
  const auto application = startWith(loudTheme(), false, std::move(song));
  std::vector<cocoa::Ref<NSBitmapImageRep>> backing;
  for (const WindowKind window : host::kWindowKinds) backing.push_back(application->draw(window));
  const auto draw = [&](std::size_t window) { application->draw(host::kWindowKinds[window], backing[window]); };
  const long drawn = support::keptAfter(10'000, [&](int frame) {
    application->mixer().setLevels(0, {frame % 101 / 100.0, 0.5});
    application->runFrame();
    if (frame % 8 == 0) draw(static_cast<std::size_t>(frame / 8) % backing.size());
  });
  EXPECT_LE(drawn, 64 * 1024);
  const NSObject loader = newLoader();
  const long refreshed = support::keptAfter(1'000, [&](int time) {
    cocoa::call<"refreshWindows">(loader);
    for (std::size_t window = 0; time % 50 == 0 && window < backing.size(); ++window) draw(window);
  });
  EXPECT_LE(refreshed, 64 * 1024);
}

}  // namespace
