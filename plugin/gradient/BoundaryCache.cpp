#include "plugin/gradient/BoundaryCache.h"

#include <initializer_list>
#include <limits>
#include <span>

namespace velura {
namespace {

using namespace cocoa;

constexpr double kLongestUse = 2.0;  // seconds

enum class Side { kNone, kAbove, kBelow };

struct AnchorRow {
  StripAnchor anchor;
  std::span<const std::string_view> above;
  std::span<const std::string_view> below;
  double fallbackY;
};

template <std::size_t N>
using Names = std::array<std::string_view, N>;

constexpr Names<2> kAboveReduction{"setting", "libraryIndicator"};
constexpr Names<1> kBelowReduction{"gainReductionMeter"};
constexpr Names<3> kAboveEqualizer{"gainReductionMeter", "setting", "libraryIndicator"};
constexpr Names<1> kBelowEqualizer{"equalizerThumbnail"};
constexpr Names<4> kHeader{"setting", "gainReductionMeter", "equalizerThumbnail", "libraryIndicator"};
constexpr Names<1> kBelowMidi{"midiPlugIn"};
constexpr Names<2> kAboveInput{"midiPlugIn", "equalizerThumbnail"};
constexpr Names<2> kBelowInput{"input", "channelMode"};
constexpr Names<4> kAboveAudio{"input", "channelMode", "midiPlugIn", "equalizerThumbnail"};
constexpr Names<2> kBelowAudio{"audioPlugIn", "masteringAssistant"};
constexpr Names<7> kInserts{"midiPlugIn", "input",       "audioPlugIn",       "sendButton",
                            "output",     "channelMode", "masteringAssistant"};
constexpr Names<5> kAboveSends{"midiPlugIn", "input", "audioPlugIn", "channelMode", "masteringAssistant"};
constexpr Names<2> kBelowSends{"sendButton", "output"};
constexpr Names<3> kBelowInserts{"group", "automation", "icon"};
constexpr Names<5> kAbovePan{"group", "automation", "icon", "sendButton", "output"};
constexpr Names<1> kBelowPan{"pan"};
constexpr Names<4> kAboveFader{"group", "automation", "icon", "pan"};
constexpr Names<6> kBelowFader{"peak", "volume", "volumeFader", "volumeScale", "level", "levelScale"};
constexpr Names<4> kAboveName{"mute", "bounce", "solo", "dim"};
constexpr Names<2> kBelowName{"name", "notes"};

constexpr std::array<AnchorRow, kStripAnchorNames.size()> kAnchorTable{{
    {StripAnchor::kGainReduction, kAboveReduction, kBelowReduction, 535},
    {StripAnchor::kEQ, kAboveEqualizer, kBelowEqualizer, 524},
    {StripAnchor::kMIDIFX, kHeader, kBelowMidi, 480},
    {StripAnchor::kInput, kAboveInput, kBelowInput, 465},
    {StripAnchor::kAudioFX, kAboveAudio, kBelowAudio, 440},
    {StripAnchor::kInserts, kHeader, kInserts, 490},
    {StripAnchor::kSends, kAboveSends, kBelowSends, 395},
    {StripAnchor::kAutomation, kInserts, kBelowInserts, 344},
    {StripAnchor::kPan, kAbovePan, kBelowPan, 297},
    {StripAnchor::kFader, kAboveFader, kBelowFader, 254},
    {StripAnchor::kName, kAboveName, kBelowName, 48},
}};

const AnchorRow& rowOf(StripAnchor anchor) { return kAnchorTable[static_cast<std::size_t>(anchor)]; }

constexpr bool rowsFollowTheAnchors() {
  for (std::size_t i = 0; i < kAnchorTable.size(); ++i) {
    if (kAnchorTable[i].anchor != static_cast<StripAnchor>(i)) return false;
  }
  return true;
}
static_assert(rowsFollowTheAnchors());

bool contains(std::span<const std::string_view> names, std::string_view name) {
  for (const std::string_view candidate : names) {
    if (candidate == name) return true;
  }
  return false;
}

/// On which side of an anchor a section lies. A section that is not shown lies on none.
Side sideOf(const AnchorRow& row, MANode section, CGRect frame) {
  if (!(frame.size.height > 0)) return Side::kNone;
  const NSString name = section.name();
  const char* text = name ? name.UTF8String() : nullptr;
  if (text == nullptr) return Side::kNone;
  if (contains(row.above, text)) return Side::kAbove;
  return contains(row.below, text) ? Side::kBelow : Side::kNone;
}

/// The edge that a section turns to the border: its bottom when it lies above, its top when it lies below.
double edgeOf(Side side, CGRect frame) { return side == Side::kAbove ? frame.minY() : frame.maxY(); }

bool isStrip(NSObject node) { return node.isKindOfClass(classOf<MAStripNode>()); }

template <class Visit>
void visitSections(const AnchorRow& row, MANode strip, Visit&& visit) {
  const NSArray children = strip.childrenArray();
  const NSUInteger count = children.count();
  for (NSUInteger i = 0; i < count; ++i) {
    const auto section = cast<MANode>(children.objectAtIndex(i));
    const CGRect frame = section.frame();
    if (const Side side = sideOf(row, section, frame); side != Side::kNone) {
      visit(i, section, side, edgeOf(side, frame));
    }
  }
}

}  // namespace

void BoundaryCache::enter(MANode parent, double height, NSUInteger strips, double now) {
  const bool sameMixer = started_ && layout_.parent == parent && layout_.strips == strips;
  const bool current = sameMixer && layout_.height == height && !(now - layout_.startedAt > kLongestUse);
  if (current) return;
  const bool otherHeight = sameMixer && layout_.height != height;
  for (Border& border : borders_) {
    border.known = false;
    border.walked = border.walked && otherHeight;
  }
  layout_ = {parent, height, strips, now};
  started_ = true;
}

void BoundaryCache::walk(NSArray strips, StripAnchor anchor, double now, Border& border) {
  const AnchorRow& row = rowOf(anchor);
  border.lowestAbove.reset();
  border.highestBelow.reset();
  const NSUInteger count = strips.count();
  for (NSUInteger i = 0; i < count; ++i) {
    const auto strip = cast<MANode>(strips.objectAtIndex(i));
    if (!isStrip(strip)) continue;
    visitSections(row, strip, [&](NSUInteger child, MANode node, Side side, double edge) {
      auto& extreme = side == Side::kAbove ? border.lowestAbove : border.highestBelow;
      const bool further = !extreme || (side == Side::kAbove ? edge < extreme->edge : edge > extreme->edge);
      if (further) extreme = Section{i, child, node, edge};
    });
  }
  const bool apart = border.lowestAbove && border.highestBelow && border.highestBelow->edge <= border.lowestAbove->edge;
  border.y = apart ? (border.highestBelow->edge + border.lowestAbove->edge) / 2 : row.fallbackY;
  border.walked = true;
  border.walkedAt = now;
}

bool BoundaryCache::stillHolds(NSArray strips, MAStripNode strip, StripAnchor anchor, double now,
                               const Border& border) {
  if (!border.walked || now - border.walkedAt > kLongestUse || now < border.walkedAt) return false;
  const AnchorRow& row = rowOf(anchor);
  const auto unmoved = [&](const std::optional<Section>& section, Side side) {
    if (!section) return true;
    if (section->strip >= strips.count()) return false;
    const NSArray children = cast<MANode>(strips.objectAtIndex(section->strip)).childrenArray();
    if (section->child >= children.count()) return false;
    const auto node = cast<MANode>(children.objectAtIndex(section->child));
    if (!(node == section->node)) return false;
    const CGRect frame = node.frame();
    return sideOf(row, node, frame) == side && edgeOf(side, frame) == section->edge;
  };
  if (!unmoved(border.lowestAbove, Side::kAbove) || !unmoved(border.highestBelow, Side::kBelow)) return false;
  bool within = true;
  visitSections(row, strip, [&](NSUInteger, MANode, Side side, double edge) {
    within = within && (side == Side::kAbove ? border.lowestAbove && edge >= border.lowestAbove->edge
                                             : border.highestBelow && edge <= border.highestBelow->edge);
  });
  return within;
}

double BoundaryCache::boundary(MAStripNode strip, StripAnchor anchor) {
  const MANode parent = strip.parent();
  const NSArray strips = parent.childrenArray();
  const double now = CFAbsoluteTimeGetCurrent();
  enter(parent, strip.frame().size.height, strips.count(), now);
  Border& border = borders_[static_cast<std::size_t>(anchor)];
  // One that was taken over is as old as the walk that found it.
  if (!border.known || now - border.walkedAt > kLongestUse) {
    if (!stillHolds(strips, strip, anchor, now, border)) walk(strips, anchor, now, border);
    border.known = true;
  }
  return border.y;
}

}  // namespace velura
