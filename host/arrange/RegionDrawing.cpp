#include "host/arrange/RegionDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include "host/arrange/Colors.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kRadius = 4;
constexpr double kTitleHeight = 12;
constexpr SongColor kWhite{255, 255, 255};
constexpr SongColor kBlack{0, 0, 0};
constexpr SongColor kMutedGrey{112, 113, 116};
constexpr SongColor kNoColor{124, 124, 124};

/// The colours of one region.
struct Shades {
  SongColor body;
  SongColor title;
  SongColor content;
};

Shades shadesOf(const Region& region, const Track& track) {
  SongColor base = region.color.value_or(track.color.value_or(kNoColor));
  if (region.muted) base = mixed(base, kMutedGrey, 1);
  if (region.selected) return {mixed(base, kWhite, 0.3), mixed(base, kWhite, 0.72), mixed(base, kBlack, 0.5)};
  return {mixed(base, kBlack, 0.3), base, mixed(base, kWhite, region.muted ? 0.2 : 0.5)};
}

/// A well-mixed number for a seed and a step: the same on every machine.
std::uint64_t noise(std::uint64_t seed, std::uint64_t step) {
  std::uint64_t z = seed + (step + 1) * 0x9E3779B97F4A7C15U;
  z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
  return z ^ (z >> 31U);
}

/// From 0 up to, without, 1.
double fraction(std::uint64_t number) { return static_cast<double>(number >> 11U) * 0x1p-53; }

std::uint64_t seedOf(const Region& region) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : region.name) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return noise(hash, static_cast<std::uint64_t>(region.start * 16));
}

bool isStruck(const Track& track) {
  constexpr std::string_view kStruck[] = {"drums", "kick", "snare", "hat", "overhead", "hands", "click"};
  return std::find(std::begin(kStruck), std::end(kStruck), track.icon) != std::end(kStruck);
}

/// How loud a sound is at a place, from 0 to 1; `beats` counts from the beginning of its region.
double loudness(std::uint64_t seed, bool struck, double beats) {
  const double grain = fraction(noise(seed, static_cast<std::uint64_t>(beats * 64)));
  if (struck) {
    const double hits = beats * 2;
    const double accent = 0.35 + 0.65 * fraction(noise(seed, static_cast<std::uint64_t>(hits) % 8));
    return accent * std::exp(-3.2 * (hits - std::floor(hits))) * (0.75 + 0.25 * grain);
  }
  const double phrase = 0.55 + 0.35 * std::sin(beats * std::numbers::pi / 4 + fraction(seed) * 6);
  const double note = 0.45 + 0.55 * fraction(noise(seed, static_cast<std::uint64_t>(beats) % 16));
  return phrase * note * (0.6 + 0.4 * grain);
}

}  // namespace

double RegionDrawing::snapped(double length) const { return std::floor(length * scale_) / scale_; }

void RegionDrawing::draw(const PlacedRegion& placed) const {
  const Shades shades = shadesOf(placed.region, placed.track);
  const CGRect frame = placed.frame;
  const double title = std::min(kTitleHeight, frame.size.height);
  painter_.fillRounded(frame, kRadius, asColor(shades.title));
  const CGRect body = CGRectMake(frame.minX(), frame.minY() + title, frame.size.width, frame.size.height - title);
  if (!body.isEmpty()) {
    painter_.fillRounded(body, kRadius, asColor(shades.body));
    const CGRect inside = body.insetBy(1, 2);
    const NSColor content = asColor(shades.content);
    if (placed.track.folder) {
      drawParts(placed, inside, content);
    } else if (placed.track.type == StripType::kInstrument) {
      drawNotes(placed, inside, content);
    } else {
      drawSound(placed, inside, content);
    }
  }
  const NSColor text =
      paletteColor(luminance(shades.title) > kBright ? Palette::kRegionTextDark : Palette::kRegionTextLight);
  constexpr double kLoopSign = 12;
  const double room = frame.size.width - 8 - (placed.region.loop ? kLoopSign : 0);
  if (room < 6) return;
  painter_.text(placed.region.name, CGRectMake(frame.minX() + 5, frame.minY(), room, title), text,
                {.size = 9, .weight = 0.23, .alignment = TextAlignment::kLeft});
  if (placed.region.loop) drawLoopSign({frame.maxX() - kLoopSign + 3, frame.minY() + title / 2}, text);
}

void RegionDrawing::drawLoopSign(CGPoint centre, NSColor color) const {
  painter_.strokeEllipse(CGRectMake(centre.x - 3, centre.y - 3, 6, 6), color, 1.1);
  painter_.fillEllipse(CGRectMake(centre.x + 1.4, centre.y - 3.4, 3, 3), color);
}

/// A sound's outline: a column every two points.
void RegionDrawing::drawSound(const PlacedRegion& placed, CGRect inside, NSColor color) const {
  constexpr double kPitch = 2;
  const std::uint64_t seed = seedOf(placed.region);
  const bool struck = isStruck(placed.track);
  const double beatWidth = timeline_.x(1 + timeline_.beat());
  const double middle = snapped(inside.midY());
  const double from = std::max(inside.minX() + 1, dirty_.minX() - kPitch);
  const double to = std::min(inside.maxX() - 1, dirty_.maxX());
  std::vector<CGRect> columns;
  for (double x = std::ceil(from / kPitch) * kPitch; x + 1 <= to; x += kPitch) {
    const double level = loudness(seed, struck, (x - placed.frame.minX()) / beatWidth);
    const double half = std::max(1 / scale_, snapped(level * inside.size.height / 2));
    columns.push_back(CGRectMake(x, middle - half, 1, 2 * half));
  }
  CGContextSetFillColorWithColor(painter_.context(), color.CGColor());
  CGContextFillRects(painter_.context(), columns.data(), columns.size());
}

/// Notes on a grid of half beats; a pattern repeats every two bars.
void RegionDrawing::drawNotes(const PlacedRegion& placed, CGRect inside, NSColor color) const {
  constexpr std::uint64_t kPitches = 9;
  constexpr std::uint64_t kPattern = 16;
  const std::uint64_t seed = seedOf(placed.region);
  const double stepWidth = timeline_.x(1 + timeline_.beat() / 2);
  const double lane = inside.size.height / static_cast<double>(kPitches);
  const double height = std::max(1 / scale_, snapped(std::min(2.5, lane)));
  const double left = placed.frame.minX();
  const double from = std::max(inside.minX(), dirty_.minX() - 4 * stepWidth);
  const double to = std::min(inside.maxX() - 1, dirty_.maxX());
  std::vector<CGRect> notes;
  for (auto step = static_cast<std::uint64_t>(std::max(0.0, std::floor((from - left) / stepWidth)));; ++step) {
    const double x = left + 1 + stepWidth * static_cast<double>(step);
    if (x >= to) break;
    const std::uint64_t number = noise(seed, step % kPattern);
    if (number % 5 < 2) continue;
    for (std::uint64_t voice = 0; voice <= number / 5 % 2; ++voice) {
      const std::uint64_t pitch = (noise(seed, step % kPattern / 4) + number / 16 % 4 + 3 * voice) % kPitches;
      const double length = stepWidth * static_cast<double>(1 + number / 64 % 3);
      const double y = inside.maxY() - lane * static_cast<double>(pitch + 1);
      notes.push_back(CGRectMake(snapped(x), snapped(y), std::min(length, inside.maxX() - 1 - x) - 1, height));
    }
  }
  CGContextSetFillColorWithColor(painter_.context(), color.CGColor());
  for (const CGRect& note : notes) {
    if (!note.isEmpty()) CGContextFillRect(painter_.context(), note);
  }
}

/// What a folder holds: one line for each of some tracks.
void RegionDrawing::drawParts(const PlacedRegion& placed, CGRect inside, NSColor color) const {
  constexpr int kParts = 3;
  const std::uint64_t seed = seedOf(placed.region);
  const double barWidth = timeline_.x(2);
  const double pitch = inside.size.height / kParts;
  const double from = std::max(inside.minX(), dirty_.minX() - barWidth);
  const double to = std::min(inside.maxX() - 1, dirty_.maxX());
  const double left = placed.frame.minX();
  for (auto bar = static_cast<std::uint64_t>(std::max(0.0, std::floor((from - left) / barWidth)));; ++bar) {
    const double x = left + 2 + barWidth * static_cast<double>(bar);
    if (x >= to) break;
    for (int part = 0; part < kParts; ++part) {
      if (noise(seed + static_cast<std::uint64_t>(part), bar / 4) % 4 == 0) continue;
      const double width = std::min(barWidth - 1, inside.maxX() - 1 - x);
      painter_.fill(
          CGRectMake(snapped(x), snapped(inside.minY() + pitch * part + pitch / 2 - 1), std::max(0.0, width), 2),
          color);
    }
  }
}

}  // namespace host
