#pragma once
// One run of the host with a theme: what the companion application would have set up on a user's machine.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/app/Application.h"

namespace session {

/// Every kind of window, by the name that it has on the command line and in file names.
const std::map<std::string, host::WindowKind>& windowsByName();

enum class Theming {
  kWithoutBundle,  // the host alone
  kDefaultTheme,   // the bundle is loaded, the selected theme is "Default"
  kTheme           // the bundle is loaded with a theme
};

struct SessionOptions {
  Theming theming = Theming::kWithoutBundle;
  /// Holds "PluginHelper.plist" and "Companion.bundle". Used with `kTheme` only.
  std::string themeFolder;
  /// Files that stand at the plug-in's paths for grid settings and theme state; "" for none. They are linked,
  /// so that the plug-in sees their changes.
  std::string gridSettings;
  std::string themeState;
  std::optional<long> tracksBackground;  // the user's choice of workspace: 0 dark, 1 bright, 2 the host's
  /// Whether the bundle is loaded once the windows are open and have been drawn, instead of before.
  bool loadsLate = false;
  std::vector<host::WindowKind> windows;  // that are opened beside those that every song opens
  host::HostOptions host;
  std::string bundlePath = defaultBundlePath();

  /// "Velura.bundle" beside the running program.
  static std::string defaultBundlePath();
};

/// Selects a theme as the companion application does: the name in its defaults, the settings file in
/// Application Support, its bundle at hand. `enterPrivateFolders` must have been called.
/// False, with `error` set, when a folder or link cannot be made.
bool selectTheme(const SessionOptions& options, std::string& error);

/// Starts the host, selects the theme, loads the bundle and opens the song, or the song first.
/// Null, with `error` set, when one of it cannot be done.
std::unique_ptr<host::Application> startSession(const SessionOptions& options, host::Song song, std::string& error);

/// A bitmap as PNG bytes; "" for nil.
std::string pngOf(NSBitmapImageRep bitmap);

/// Draws a window once nothing is due any more; nil when it cannot be drawn at that size.
cocoa::Ref<NSBitmapImageRep> finalBitmap(host::Application& application, host::WindowKind window);

/// Draws a window as it is now: PNG bytes, "" when it cannot be drawn at that size.
std::string drawnAsPng(host::Application& application, host::WindowKind window);

/// The same once nothing is due any more.
std::string windowAsPng(host::Application& application, host::WindowKind window);

/// Draws the part of the mixer window that one strip takes: PNG bytes. Nothing else is drawn, so that a large
/// scale costs no more than the strip. "", with `error` set, when there is no such strip to be seen.
/// `number` counts from 1.
std::string stripAsPng(host::Application& application, long number, double scale, std::string& error);

}  // namespace session
