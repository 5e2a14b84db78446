#pragma once
// The song that the simulated host opens: tracks with what a mixer strip shows of them, and their arrangement.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct SongColor {
  int red = 0;
  int green = 0;
  int blue = 0;
};

/// Names a plug-in among all plug-ins: three codes of four characters, the first in the highest byte.
struct ComponentCodes {
  unsigned type = 0;
  unsigned subType = 0;
  unsigned manufacturer = 0;
};

struct PlugInSlot {
  std::string name;
  bool bypassed = false;
  bool lowLatency = false;  // left out while recording with little delay
  bool dimmed = false;      // cannot be used as things are
  std::optional<ComponentCodes> codes;
};

/// An instrument is a plug-in; one that is no MIDI instrument of the host's own kind says so.
struct InstrumentSlot : PlugInSlot {
  bool audio = false;
};

/// Where a send takes its signal from.
enum class SendMode { kPostFader = 0, kPreFader = 1, kPostPan = 2, kNone = 3 };

struct SendSlot {
  std::string bus;
  double level = 0;  // 0 to 1
  SendMode mode = SendMode::kPostFader;
  bool bypassed = false;
  bool lowLatency = false;
  bool onFader = false;  // the channel faders show the levels of this bus
};

enum class PanMode { kBalance, kStereo, kSurround };

/// Where a track lies between its speakers. Places run from -1 to 1, spreads from 0 to 1.
struct Panning {
  PanMode mode = PanMode::kBalance;
  double spread = 0.5;
  bool inverseSpread = false;  // left and right are exchanged
  double x = 0;
  double y = 0;
};

/// Buttons that blink instead of being on: muted by another track's solo, about to record.
struct Blinking {
  bool mute = false;
  bool solo = false;
  bool record = false;
  bool monitoring = false;
};

/// A stretch of material on a track. Bars count from 1 and may be fractional.
struct Region {
  std::string name;
  double start = 1;
  double length = 4;
  std::optional<SongColor> color;  // the track's when there is none
  bool selected = false;
  bool muted = false;
  bool loop = false;

  [[nodiscard]] double end() const { return start + length; }
};

struct Marker {
  std::string name;
  double start = 1;
  double end = 2;
  std::optional<SongColor> color;  // grey when there is none
};

struct Cycle {
  double start = 1;
  double end = 5;
  bool on = false;
};

/// What a track header shows besides its track's name.
struct HeaderSetup {
  bool trackNumbers = true;
  bool colorBars = true;
  std::optional<int> controlSurfaceBars;  // how many; shown at all when there is a number, even 0
};

/// How the song is laid out in time and shown in the arrange window. Sizes in points.
struct Arrangement {
  double zoom = 32;  // a bar
  double scroll = 0;
  int beatsPerBar = 4;
  int division = 4;  // of a beat
  int bars = 64;
  double playhead = 1;
  int trackHeight = 40;
  Cycle cycle;
  std::vector<Marker> markers;  // in the order of their starts
  HeaderSetup headers;
};

/// What the host's mixer data source answers for a strip, and the folder's own mark.
enum class StripType { kAudio = 0, kInstrument = 1, kAux = 2, kBus = 3, kOther = 4, kStereoOut = 7, kMaster = 8 };

struct Track {
  std::string name;
  StripType type = StripType::kAudio;
  bool folder = false;
  std::optional<SongColor> color;
  bool selected = false;
  std::string setting;
  std::string input;
  std::string output;
  std::string group;
  std::string automation;  // "Read", "Touch", "Latch", "Write" or empty when off
  std::string icon;
  std::string notes;
  std::vector<PlugInSlot> midiPlugIns;
  std::vector<PlugInSlot> audioPlugIns;
  std::vector<SendSlot> sends;
  double volume = 0;         // dB
  double pan = 0;            // -64 to 63
  double peak = -144;        // dB
  double gainReduction = 0;  // 0 to 1
  Panning panning;
  InstrumentSlot instrument;        // of an instrument track; none while its name is empty
  std::optional<double> inputGain;  // dB; there is a knob for it when there is a number
  bool exponentialMeter = true;
  int faderMode = 0;  // 1 shows the fader of a group
  Blinking blinking;
  std::array<double, 2> levels{0, 0};
  bool stereo = true;
  bool equalizer = false;
  bool muted = false;
  bool soloed = false;
  bool recordArmed = false;
  bool monitoring = false;
  std::optional<int> height;    // in the arrange window, in points
  std::vector<Region> regions;  // in the order of their starts
};

enum class FaderLength { kShort = 0, kMedium = 1, kLong = 2 };

struct Song {
  std::string title = "Untitled";
  std::vector<Track> tracks;
  int audioRows = 5;        // insert rows shown
  int sendRows = 3;         // send rows shown
  bool trackColors = true;  // the mixer is configured to show track colours
  bool legend = false;      // the mixer names its sections at its left edge
  FaderLength faderLength = FaderLength::kShort;
  std::size_t loopRows = 13;  // at most so many rows and scenes are shown in the Live Loops grid
  std::size_t loopScenes = 8;
  Arrangement arrange;
};

inline constexpr std::size_t kMostTracks = 20'000;
inline constexpr std::size_t kMostRegions = 100'000;  // on all tracks together
inline constexpr std::size_t kMostMarkers = 2'000;
inline constexpr double kLowestInputGain = -20;  // dB
inline constexpr double kHighestInputGain = 60;
inline constexpr double kSmallestZoom = 4;
inline constexpr double kLargestZoom = 2'000;
inline constexpr double kFurthestBar = 10'001;
inline constexpr std::size_t kLargestSongFile = 64U << 20U;

/// Reads a song. Fields that are missing keep their defaults; an unknown track type is shown as a strip of
/// an unnamed kind. Nothing, with `error` set to one line that says where, when the text is no song.
std::optional<Song> parseSong(std::string_view json, std::string& error);

/// Reads a song file. Nothing, with `error` set, when it cannot be read or is no song.
std::optional<Song> readSong(const std::string& path, std::string& error);

}  // namespace host
