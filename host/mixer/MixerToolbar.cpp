#include "host/mixer/MixerToolbar.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/drawing/Painter.h"
#include "host/kit/KitViews.h"
#include "host/kit/KitWindow.h"

namespace host {
namespace {

using namespace cocoa;

double drawMenu(const Painter& painter, double x, double height, const char* title) {
  constexpr double kWidth = 46;
  painter.text(title, CGRectMake(x, 0, kWidth, height), catalogueColor(Palette::kToolbarText), {.size = 11.5});
  return x + kWidth;
}

void drawToolbar(CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  const double height = bounds.size.height;
  painter.fill(bounds, catalogueColor(Palette::kToolbarBackground));
  painter.fill(CGRectMake(0, 0, bounds.size.width, 1), catalogueColor(Palette::kToolbarEdge));
  double x = 10;
  for (const char* menu : {"Edit", "Options", "View"}) x = drawMenu(painter, x, height, menu);
  constexpr std::array<const char*, 3> kModes{"Single", "Tracks", "All"};
  constexpr double kModeWidth = 62;
  const double left = std::floor(bounds.midX() - kModeWidth * 1.5);
  painter.fillRounded(CGRectMake(left - 1, 6, kModeWidth * 3 + 2, height - 12), 6, faded(NSColor::blackColor(), 0.25));
  for (std::size_t mode = 0; mode < kModes.size(); ++mode) {
    const CGRect frame = CGRectMake(left + kModeWidth * static_cast<double>(mode), 7, kModeWidth, height - 14);
    if (mode == 1) painter.fillRounded(frame, 5, catalogueColor(Palette::kToolbarActive));
    painter.text(kModes[mode], frame, catalogueColor(Palette::kToolbarText), {.size = 11, .weight = 0.23});
  }
}

/// The bus that the faders show the sends to, if they do.
std::string busOnFaders(const Song& song) {
  for (const Track& track : song.tracks) {
    for (const SendSlot& send : track.sends) {
      if (send.onFader) return send.bus;
    }
  }
  return {};
}

}  // namespace

Ref<NSView> newMixerToolbar(const Song& song, CGRect frame) {
  constexpr double kMenuWidth = 170;
  constexpr double kNarrowest = 560;  // below that the menu would lie on the view modes
  Ref<NSView> bar = drawnView(frame, drawToolbar);
  if (frame.size.width < kNarrowest) return bar;
  const std::string bus = busOnFaders(song);
  const auto menu = newPopUpButton("MAPopUpButton", CGRectMake(frame.size.width - kMenuWidth - 8, 6, kMenuWidth, 22),
                                   {"Sends on Faders: Off", "Sends on Faders: " + (bus.empty() ? "Bus 1" : bus)});
  menu->selectItemAtIndex(bus.empty() ? 0 : 1);
  call<"setQuickHelpID:">(menu.get(), literal<"MIX_SendsOnFaders">());
  call<"sendsOnFaderHackState:">(menu->cell(), NSInteger(bus.empty() ? 0 : 1));
  bar->addSubview(menu);
  return bar;
}

}  // namespace host
