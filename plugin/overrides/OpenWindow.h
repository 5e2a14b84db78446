#pragma once
// What an override needs in a window that is open already when the plug-in comes: the host has asked for the colour,
// made the picture or built the view, and has no reason of its own to do it again.

#include <cstdint>
#include <string_view>

namespace velura {

/// The branches of the refresh of open windows, and the host itself where it asks anew at every draw.
enum class RefreshBranch : std::uint8_t {
  kNone,             // only what builds the view anew, or what changes its state, reaches it
  kHost,             // the host itself, which calls it at every draw or event
  kMixerLayout,      // the mixer lays out its contents, which updates every node
  kMixerNodes,       // nodes of that class are marked and forget what they kept
  kMixerBackground,  // the area behind the strips
  kLegend,           // the legend's elements are made anew
  kTrackHeaders,
  kArrangeContents,
  kLiveLoops,
  kLibrary,
  kFileBrowsers,
  kLoopBrowser,
  kListArea,
  kInspector,  // closed and opened, which builds it anew
  kActionBar,
  kSeparators
};

/// The branch's name as reports give it.
std::string_view nameOf(RefreshBranch branch);

/// Stands in the declaration of every override as `kOpenWindow`.
struct OpenWindow {
  RefreshBranch branch;
  std::string_view whyStale{};  // what keeps the host's look until it is built or changed, and for which reason
  std::string_view stale{};     // the things that do: classes, for nodes with their names, between commas
};

/// The refresh reaches all that the override shows in.
constexpr OpenWindow reachedBy(RefreshBranch branch) { return {branch}; }

/// The refresh reaches it, but for the things that are named.
constexpr OpenWindow partlyReachedBy(RefreshBranch branch, std::string_view why, std::string_view stale) {
  return {branch, why, stale};
}

/// Nothing reaches it.
constexpr OpenWindow notReached(std::string_view why, std::string_view stale = {}) {
  return {RefreshBranch::kNone, why, stale};
}

// Reasons that several overrides share.
inline constexpr std::string_view kPassedOver = "nodes of this class are passed over";
inline constexpr std::string_view kSetOnce = "it is set with a value or state, and that is not set again";
inline constexpr std::string_view kKeepsTicks = "a scale's labels are drawn anew, with the ticks that it has";
inline constexpr std::string_view kSetWithLayer = "it is set with the view's layer";
inline constexpr std::string_view kSetWithVariant = "it is set with the variant of the view's look";

}  // namespace velura
