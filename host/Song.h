#pragma once
// The song that the simulated host opens: tracks with what a mixer strip shows of them.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct SongColour {
  int red = 0;
  int green = 0;
  int blue = 0;
};

struct PlugInSlot {
  std::string name;
  bool bypassed = false;
};

struct SendSlot {
  std::string bus;
  double level = 0;  // 0 to 1
};

/// What the host's mixer data source answers for a strip, and the folder's own mark.
enum class StripType { kAudio = 0, kInstrument = 1, kAux = 2, kBus = 3, kOther = 4, kStereoOut = 7, kMaster = 8 };

struct Track {
  std::string name;
  StripType type = StripType::kAudio;
  bool folder = false;
  std::optional<SongColour> colour;
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
  std::array<double, 2> levels{0, 0};
  bool stereo = true;
  bool equalizer = false;
  bool muted = false;
  bool soloed = false;
  bool recordArmed = false;
  bool monitoring = false;
};

struct Song {
  std::string title = "Untitled";
  std::vector<Track> tracks;
  int audioRows = 5;         // insert rows shown
  int sendRows = 3;          // send rows shown
  bool trackColours = true;  // the mixer is configured to show track colours
};

inline constexpr std::size_t kMostTracks = 20'000;
inline constexpr std::size_t kLargestSongFile = 64U << 20U;

/// Reads a song. Fields that are missing keep their defaults; an unknown track type is shown as a strip of
/// an unnamed kind. Nothing, with `error` set to one line that says where, when the text is no song.
std::optional<Song> parseSong(std::string_view json, std::string& error);

/// Reads a song file. Nothing, with `error` set, when it cannot be read or is no song.
std::optional<Song> readSong(const std::string& path, std::string& error);

}  // namespace host
