#include "cli/Session.h"

#include <cmath>
#include <filesystem>

#include "cli/PrivateFolders.h"
#include "cocoa/Call.h"
#include "cocoa/CoreGraphics.h"
#include "plugin/hostapi/Identifiers.h"
#include "standin/steering/RunLoop.h"

namespace session {
namespace {

using namespace cocoa;
namespace fs = std::filesystem;

std::string applicationSupport() {
  const NSArray paths(NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, BOOL(1)));
  return toStdString(cast<NSString>(paths.objectAtIndex(0)));
}

void storeSelectedTheme(const char* name) {
  const Ref<NSUserDefaults> suite = NSUserDefaults::suiteNamed(literal<velura::kCompanionSuite>());
  suite->setObject(string(name), literal<"kLastSelectedTheme">());
  call<"synchronize", BOOL>(suite.get().object);
}

/// Puts a link to `target` at a path of the plug-in's folder; "" leaves what stands there.
bool linkFile(const fs::path& target, const char* name, std::string& error) {
  if (target.empty()) return true;
  const fs::path folder = applicationSupport() + "/Velura";
  std::error_code failure;
  fs::create_directories(folder, failure);
  if (!failure) fs::remove(folder / name, failure);
  if (!failure) fs::create_symlink(fs::absolute(target), folder / name, failure);
  if (failure) error = (folder / name).string() + ": " + failure.message();
  return !failure;
}

bool linkSettings(const SessionOptions& options, std::string& error) {
  const fs::path theme = fs::path(options.themeFolder) / "PluginHelper.plist";
  return (options.theming != Theming::kTheme || linkFile(theme, "PluginHelper.plist", error)) &&
         linkFile(options.gridSettings, "grid-settings.plist", error) &&
         linkFile(options.themeState, "theme-state.plist", error);
}

void openCompanionBundle(const std::string& themeFolder) {
  const fs::path path = fs::absolute(themeFolder) / "Companion.bundle";
  if (fs::is_directory(path)) NSBundle::bundleWithPath(string(path.string()));
}

/// Draws a part of a view into a bitmap of its size.
Ref<NSBitmapImageRep> drawnPart(NSView view, CGRect part, double scale) {
  const auto pixels = [&](double points) { return static_cast<NSInteger>(std::ceil(points * scale)); };
  Ref<NSBitmapImageRep> bitmap = NSBitmapImageRep::withBitmapDataPlanes(
      nullptr, pixels(part.size.width), pixels(part.size.height), 8, 4, true, false, NSDeviceRGBColorSpace, 0, 32);
  if (!bitmap) return bitmap;
  bitmap->setSize(part.size);
  const NSGraphicsContext context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
  CGContextTranslateCTM(context.CGContext(), -part.minX(), -part.minY());
  view.displayRectIgnoringOpacity(part, context);
  return bitmap;
}

}  // namespace

const std::map<std::string, host::WindowKind>& windowsByName() {
  using enum host::WindowKind;
  static const std::map<std::string, host::WindowKind> windows{
      {"mixer", kMixer},     {"arrange", kArrange},          {"step-sequencer", kStepSequencer},
      {"library", kLibrary}, {"loop-browser", kLoopBrowser}, {"live-loops", kLiveLoops},
      {"lists", kLists},     {"inspector", kInspector},      {"overview", kOverview}};
  return windows;
}

std::string SessionOptions::defaultBundlePath() {
  std::error_code failure;
  return (fs::read_symlink("/proc/self/exe", failure).parent_path() / "Velura.bundle").string();
}

bool selectTheme(const SessionOptions& options, std::string& error) {
  const AutoreleasePool pool;
  if (options.tracksBackground) {
    NSUserDefaults::standardUserDefaults().setInteger(*options.tracksBackground, literal<"TracksBackgroundMode">());
  }
  if (!linkSettings(options, error)) return false;
  if (options.theming != Theming::kTheme) {
    storeSelectedTheme("Default");
    return true;
  }
  storeSelectedTheme(
      fs::path(options.themeFolder).filename().empty() ? "Custom" : fs::path(options.themeFolder).filename().c_str());
  openCompanionBundle(options.themeFolder);
  return true;
}

std::unique_ptr<host::Application> startSession(const SessionOptions& options, host::Song song, std::string& error) {
  auto application = std::make_unique<host::Application>(options.host);
  if (!selectTheme(options, error)) return nullptr;
  const auto load = [&] {
    return options.theming == Theming::kWithoutBundle || application->loadBundle(options.bundlePath, error);
  };
  if (!options.loadsLate && !load()) return nullptr;
  application->open(std::move(song));
  for (const auto window : options.windows) application->openWindow(window);
  application->runFrame();
  if (options.loadsLate) {
    for (const auto window : host::kWindowKinds) {
      if (application->isOpen(window)) application->settle(window);
    }
    if (!load()) return nullptr;
  }
  return application;
}

std::string pngOf(NSBitmapImageRep bitmap) {
  const NSData data = bitmap.representationUsingType(NSBitmapImageFileTypePNG, NSDictionary::dictionary());
  return data ? std::string(static_cast<const char*>(data.bytes()), data.length()) : std::string();
}

Ref<NSBitmapImageRep> finalBitmap(host::Application& application, host::WindowKind window) {
  application.settle(window);
  application.runFrame();
  return application.draw(window);
}

std::string drawnAsPng(host::Application& application, host::WindowKind window) {
  const AutoreleasePool pool;
  application.runFrame();
  return pngOf(application.draw(window));
}

std::string windowAsPng(host::Application& application, host::WindowKind window) {
  const AutoreleasePool pool;
  return pngOf(finalBitmap(application, window));
}

std::string stripAsPng(host::Application& application, long number, double scale, std::string& error) {
  const AutoreleasePool pool;
  host::MixerWindow& mixer = application.mixer();
  const auto count = static_cast<long>(mixer.strips().count());
  if (number < 1 || number > count) {
    error = "there is no strip " + std::to_string(number) + ": the song's strips are 1 to " + std::to_string(count);
    return {};
  }
  do {
    application.runFrame();
  } while (standin::runMainQueue() > 0);
  const auto strip = mixer.strips().objectAtIndex(static_cast<NSUInteger>(number - 1));
  const auto origin = call<"frame", CGRect>(mixer.rootNode()).origin;
  const NSView contents(mixer.contentsView().object);
  const NSView frame = mixer.window().contentView().superview();
  const CGRect inContents = call<"frame", CGRect>(strip).offsetBy(origin.x, origin.y);
  if (inContents.maxX() > contents.bounds().maxX()) {
    error = "strip " + std::to_string(number) + " lies beyond the edge of the window";
    return {};
  }
  return pngOf(drawnPart(frame, contents.convertRectToView(inContents, frame), scale));
}

}  // namespace session
