#pragma once
// The arrange contents of a host with the bundle loaded, under grid settings that a test changes.

#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "cocoa/Call.h"
#include "standin/steering/Clock.h"
#include "standin/steering/Display.h"
#include "standin/steering/Mouse.h"
#include "standin/steering/RunLoop.h"
#include "tests/host/ArrangeHost.h"
#include "tests/support/HostTest.h"

namespace support {

class ArrangeContents : public HostTest {
 protected:
  static constexpr double kNow = 7e8;

  /// Starts at a clock that stands still.
  void start(const ThemeFile& grid, host::Song song, host::HostOptions options = {}, const ThemeFile& theme = {}) {
    standin::setClock(kNow);
    startWith(writeTheme(theme.list()), std::move(song), std::move(options),
              {.grid = writeList("grid.plist", grid), .tracksBackground = 2});
    // Settings are read when a test says so, not whenever the watcher comes to it.
    cocoa::call<"_tearDownSource">(reader());
  }
  /// What the user sets from now on.
  static void set(const ThemeFile& grid) {
    writeList("grid.plist", grid);
    cocoa::call<"reloadSettings">(reader());
  }
  static NSObject reader() { return cocoa::call<"sharedReader", NSObject>(cocoa::classNamed("VLRGridSettingsReader")); }
  [[nodiscard]] host::Song& song() const { return const_cast<host::Song&>(application_->song()); }
  [[nodiscard]] NSView contents() const { return application_->arrange().contents(); }
  NSBitmapImageRep picture() const { return drawn(contents(), contents().visibleRect()); }
  /// The same once the colours of regions are known.
  NSBitmapImageRep settledPicture() const {
    picture();
    standin::runMainQueue();
    return picture();
  }

  void draw() const { static_cast<void>(application_->draw(host::WindowKind::kArrange)); }
  [[nodiscard]] bool needsDisplay() const {
    return standin::windowNeedsDisplay(application_->window(host::WindowKind::kArrange));
  }

  /// The columns in which two pictures differ in a row.
  static std::set<long> changedColumns(NSBitmapImageRep a, NSBitmapImageRep b, long y) {
    std::set<long> columns;
    const auto at = [&](NSBitmapImageRep bitmap, long x) {
      return bitmap.bitmapData() + y * bitmap.bytesPerRow() + 4 * x;
    };
    for (long x = 0; x < a.pixelsWide(); ++x) {
      if (std::memcmp(at(a, x), at(b, x), 4) != 0) columns.insert(x);
    }
    return columns;
  }
  static bool areSame(NSBitmapImageRep a, NSBitmapImageRep b) {
    for (long y = 0; y < a.pixelsHigh(); ++y) {
      if (!changedColumns(a, b, y).empty()) return false;
    }
    return true;
  }
};

}  // namespace support
