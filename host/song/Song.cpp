#include "host/song/Song.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>
#include <utility>

namespace host {
namespace {

using nlohmann::json;

constexpr std::size_t kLongestText = 400;
constexpr std::size_t kMostSlots = 15;

/// What is wrong, and where. Caught by `parseSong`.
struct SongError {
  std::string message;
};

struct NamedType {
  std::string_view name;
  StripType type;
  bool folder;
};

constexpr NamedType kTypes[] = {
    {"audio", StripType::kAudio, false},
    {"instrument", StripType::kInstrument, false},
    {"aux", StripType::kAux, false},
    {"bus", StripType::kBus, false},
    {"stereo_out", StripType::kStereoOut, false},
    {"master", StripType::kMaster, false},
    {"folder", StripType::kAudio, true},
};

/// One JSON object, and where it stands in the song.
class Fields {
 public:
  Fields(const json& object, std::string place) : object_(object), place_(std::move(place)) {
    if (!object.is_object()) throw SongError{place_ + ": expected an object"};
  }

  [[nodiscard]] const json* find(const char* name) const {
    const auto found = object_.find(name);
    return found == object_.end() ? nullptr : &*found;
  }
  void read(const char* name, std::string& out) const {
    const json* value = find(name);
    if (value == nullptr) return;
    if (!value->is_string()) fail(name, "a string");
    out = value->get<std::string>().substr(0, kLongestText);
  }
  void read(const char* name, bool& out) const {
    const json* value = find(name);
    if (value == nullptr) return;
    if (!value->is_boolean()) fail(name, "true or false");
    out = value->get<bool>();
  }
  void read(const char* name, double& out, double least, double most) const {
    const json* value = find(name);
    if (value == nullptr) return;
    if (!value->is_number()) fail(name, "a number");
    const double number = value->get<double>();
    out = std::isfinite(number) ? std::clamp(number, least, most) : least;
  }
  void read(const char* name, int& out, int least, int most) const {
    double number = out;
    read(name, number, least, most);
    out = static_cast<int>(number);
  }
  /// Stays empty when the field is missing.
  void read(const char* name, std::optional<int>& out, int least, int most) const {
    if (find(name) == nullptr) return;
    int number = least;
    read(name, number, least, most);
    out = number;
  }
  [[nodiscard]] const json* array(const char* name, std::size_t most) const {
    const json* value = find(name);
    if (value == nullptr) return nullptr;
    if (!value->is_array()) fail(name, "a list");
    if (value->size() > most) throw SongError{where(name) + ": more than " + std::to_string(most) + " entries"};
    return value;
  }
  [[nodiscard]] std::string where(const char* name) const { return place_ + "." + name; }

 private:
  [[noreturn]] void fail(const char* name, const char* expected) const {
    throw SongError{where(name) + ": expected " + expected};
  }
  const json& object_;
  std::string place_;
};

std::string indexed(const std::string& place, std::size_t index) { return place + "[" + std::to_string(index) + "]"; }

void readColor(const Fields& fields, const char* name, std::optional<SongColor>& out) {
  std::string text;
  fields.read(name, text);
  if (text.empty()) return;
  const bool wellFormed =
      text.size() == 7 && text[0] == '#' && text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
  if (!wellFormed) throw SongError{fields.where(name) + ": expected a colour like \"#4A90D9\""};
  const auto byte = [&](std::size_t at) { return std::stoi(text.substr(at, 2), nullptr, 16); };
  out = SongColor{byte(1), byte(3), byte(5)};
}

unsigned readCode(const Fields& fields, const char* name) {
  std::string text;
  fields.read(name, text);
  const bool wellFormed =
      text.size() == 4 && std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
  if (!wellFormed) throw SongError{fields.where(name) + ": expected a code of four characters"};
  unsigned code = 0;
  for (const char c : text) code = code << 8U | static_cast<unsigned char>(c);
  return code;
}

/// All three codes, or none.
void readCodes(const Fields& fields, std::optional<ComponentCodes>& out) {
  const auto isThere = [&](const char* name) { return fields.find(name) != nullptr; };
  if (!isThere("type") && !isThere("subType") && !isThere("manufacturer")) return;
  out = ComponentCodes{readCode(fields, "type"), readCode(fields, "subType"), readCode(fields, "manufacturer")};
}

void readPlugIn(const Fields& fields, PlugInSlot& slot) {
  fields.read("name", slot.name);
  fields.read("bypassed", slot.bypassed);
  fields.read("lowLatency", slot.lowLatency);
  fields.read("dimmed", slot.dimmed);
  readCodes(fields, slot.codes);
}

void readPlugIns(const Fields& fields, const char* name, std::vector<PlugInSlot>& out) {
  const json* list = fields.array(name, kMostSlots);
  for (std::size_t i = 0; list != nullptr && i < list->size(); ++i) {
    readPlugIn(Fields((*list)[i], indexed(fields.where(name), i)), out.emplace_back());
  }
}

/// Without one of its own, the instrument is what the track has as its input.
void readInstrument(const Fields& fields, Track& track) {
  const json* value = fields.find("instrument");
  if (value == nullptr) {
    track.instrument.name = track.input;
    return;
  }
  const Fields slot(*value, fields.where("instrument"));
  readPlugIn(slot, track.instrument);
  slot.read("audio", track.instrument.audio);
}

/// A field that holds one of a few words; `out` stays as it is when it is missing.
template <class Value, std::size_t Count>
void readWord(const Fields& fields, const char* name, const std::pair<std::string_view, Value> (&words)[Count],
              Value& out) {
  if (fields.find(name) == nullptr) return;
  std::string text;
  fields.read(name, text);
  const auto* found =
      std::find_if(std::begin(words), std::end(words), [&](const auto& word) { return word.first == text; });
  if (found == std::end(words)) {
    std::string all;
    for (const auto& word : words) all += (all.empty() ? "" : ", ") + std::string(word.first);
    throw SongError{fields.where(name) + ": expected one of " + all};
  }
  out = found->second;
}

constexpr std::pair<std::string_view, SendMode> kSendModes[] = {{"postFader", SendMode::kPostFader},
                                                                {"preFader", SendMode::kPreFader},
                                                                {"postPan", SendMode::kPostPan},
                                                                {"none", SendMode::kNone}};
constexpr std::pair<std::string_view, PanMode> kPanModes[] = {
    {"balance", PanMode::kBalance}, {"stereo", PanMode::kStereo}, {"surround", PanMode::kSurround}};
constexpr std::pair<std::string_view, FaderLength> kFaderLengths[] = {
    {"short", FaderLength::kShort}, {"medium", FaderLength::kMedium}, {"long", FaderLength::kLong}};
constexpr std::pair<std::string_view, bool> kMeters[] = {{"exponential", true}, {"linear", false}};

void readPanning(const Fields& fields, Panning& panning) {
  readWord(fields, "panMode", kPanModes, panning.mode);
  fields.read("spread", panning.spread, 0, 1);
  fields.read("inverseSpread", panning.inverseSpread);
  fields.read("surroundX", panning.x, -1, 1);
  fields.read("surroundY", panning.y, -1, 1);
}

void readBlinking(const Fields& fields, Blinking& blinking) {
  fields.read("muteBlink", blinking.mute);
  fields.read("soloBlink", blinking.solo);
  fields.read("recordBlink", blinking.record);
  fields.read("monitoringBlink", blinking.monitoring);
}

void readInputGain(const Fields& fields, std::optional<double>& gain) {
  if (fields.find("inputGain") == nullptr) return;
  fields.read("inputGain", gain.emplace(0), kLowestInputGain, kHighestInputGain);
}

void readSends(const Fields& fields, std::vector<SendSlot>& out) {
  const json* list = fields.array("sends", kMostSlots);
  for (std::size_t i = 0; list != nullptr && i < list->size(); ++i) {
    const Fields slot((*list)[i], indexed(fields.where("sends"), i));
    slot.read("bus", out.emplace_back().bus);
    slot.read("level", out.back().level, 0, 1);
    readWord(slot, "mode", kSendModes, out.back().mode);
    slot.read("bypassed", out.back().bypassed);
    slot.read("lowLatency", out.back().lowLatency);
    slot.read("onFader", out.back().onFader);
  }
}

void readType(const Fields& fields, Track& track) {
  std::string name = "audio";
  fields.read("type", name);
  const auto* found =
      std::find_if(std::begin(kTypes), std::end(kTypes), [&](const auto& row) { return row.name == name; });
  track.type = found == std::end(kTypes) ? StripType::kOther : found->type;
  track.folder = found != std::end(kTypes) && found->folder;
}

constexpr int kLowestTrack = 12;
constexpr int kHighestTrack = 400;

/// The order in which things follow in time.
constexpr auto kByStart = [](const auto& a, const auto& b) { return a.start < b.start; };

void readRegions(const Fields& fields, std::vector<Region>& out) {
  const json* list = fields.array("regions", kMostRegions);
  for (std::size_t i = 0; list != nullptr && i < list->size(); ++i) {
    const Fields entry((*list)[i], indexed(fields.where("regions"), i));
    Region& region = out.emplace_back();
    entry.read("name", region.name);
    entry.read("start", region.start, 1, kFurthestBar);
    entry.read("length", region.length, 0, kFurthestBar);
    readColor(entry, "colour", region.color);
    entry.read("selected", region.selected);
    entry.read("muted", region.muted);
    entry.read("loop", region.loop);
  }
  std::stable_sort(out.begin(), out.end(), kByStart);
}

void readMarkers(const Fields& fields, std::vector<Marker>& out) {
  const json* list = fields.array("markers", kMostMarkers);
  for (std::size_t i = 0; list != nullptr && i < list->size(); ++i) {
    const Fields entry((*list)[i], indexed(fields.where("markers"), i));
    Marker& marker = out.emplace_back();
    entry.read("name", marker.name);
    entry.read("start", marker.start, 1, kFurthestBar);
    marker.end = marker.start + 1;
    entry.read("end", marker.end, marker.start, kFurthestBar);
    readColor(entry, "colour", marker.color);
  }
  std::stable_sort(out.begin(), out.end(), kByStart);
}

void readCycle(const Fields& fields, Cycle& cycle) {
  const json* value = fields.find("cycle");
  if (value == nullptr) return;
  const Fields entry(*value, fields.where("cycle"));
  entry.read("start", cycle.start, 1, kFurthestBar);
  cycle.end = std::max(cycle.start, cycle.end);
  entry.read("end", cycle.end, cycle.start, kFurthestBar);
  entry.read("on", cycle.on);
}

void readHeaders(const Fields& fields, HeaderSetup& headers) {
  constexpr int kMostBars = 12;
  const json* value = fields.find("headers");
  if (value == nullptr) return;
  const Fields entry(*value, fields.where("headers"));
  entry.read("trackNumbers", headers.trackNumbers);
  entry.read("colourBars", headers.colorBars);
  entry.read("controlSurfaceBars", headers.controlSurfaceBars, 0, kMostBars);
}

void readArrangement(const Fields& song, Arrangement& arrange) {
  constexpr double kFurthestScroll = kFurthestBar * kLargestZoom;
  constexpr int kMostParts = 16;
  const json* value = song.find("arrange");
  if (value == nullptr) return;
  const Fields fields(*value, song.where("arrange"));
  fields.read("zoom", arrange.zoom, kSmallestZoom, kLargestZoom);
  fields.read("scroll", arrange.scroll, 0, kFurthestScroll);
  fields.read("beatsPerBar", arrange.beatsPerBar, 1, kMostParts);
  fields.read("division", arrange.division, 1, kMostParts);
  fields.read("bars", arrange.bars, 1, static_cast<int>(kFurthestBar) - 1);
  fields.read("playhead", arrange.playhead, 1, kFurthestBar);
  fields.read("trackHeight", arrange.trackHeight, kLowestTrack, kHighestTrack);
  readCycle(fields, arrange.cycle);
  readMarkers(fields, arrange.markers);
  readHeaders(fields, arrange.headers);
}

Track readTrack(const json& value, const std::string& place) {
  const Fields fields(value, place);
  Track track;
  readType(fields, track);
  readColor(fields, "colour", track.color);
  fields.read("name", track.name);
  fields.read("selected", track.selected);
  fields.read("setting", track.setting);
  fields.read("input", track.input);
  fields.read("output", track.output);
  fields.read("group", track.group);
  fields.read("automation", track.automation);
  fields.read("icon", track.icon);
  fields.read("notes", track.notes);
  readPlugIns(fields, "midiPlugIns", track.midiPlugIns);
  readPlugIns(fields, "audioPlugIns", track.audioPlugIns);
  readSends(fields, track.sends);
  readInstrument(fields, track);
  readInputGain(fields, track.inputGain);
  fields.read("volume", track.volume, -144, 6);
  fields.read("faderMode", track.faderMode, 0, 2);
  fields.read("pan", track.pan, -64, 63);
  readPanning(fields, track.panning);
  fields.read("peak", track.peak, -144, 24);
  fields.read("gainReduction", track.gainReduction, 0, 1);
  fields.read("left", track.levels[0], 0, 1);
  fields.read("right", track.levels[1], 0, 1);
  readWord(fields, "meter", kMeters, track.exponentialMeter);
  fields.read("stereo", track.stereo);
  fields.read("equalizer", track.equalizer);
  fields.read("muted", track.muted);
  fields.read("soloed", track.soloed);
  fields.read("recordArmed", track.recordArmed);
  fields.read("monitoring", track.monitoring);
  readBlinking(fields, track.blinking);
  fields.read("height", track.height, kLowestTrack, kHighestTrack);
  readRegions(fields, track.regions);
  return track;
}

Song readWhole(const json& value) {
  const Fields fields(value, "song");
  Song song;
  fields.read("title", song.title);
  fields.read("audioRows", song.audioRows, 1, static_cast<int>(kMostSlots));
  fields.read("sendRows", song.sendRows, 1, static_cast<int>(kMostSlots));
  fields.read("trackColours", song.trackColors);
  fields.read("legend", song.legend);
  readWord(fields, "faders", kFaderLengths, song.faderLength);
  const json* tracks = fields.array("tracks", kMostTracks);
  if (tracks == nullptr) throw SongError{"song.tracks: missing"};
  std::size_t regions = 0;
  for (std::size_t i = 0; i < tracks->size(); ++i) {
    song.tracks.push_back(readTrack((*tracks)[i], indexed("song.tracks", i)));
    regions += song.tracks.back().regions.size();
    if (regions > kMostRegions) {
      throw SongError{"song.tracks: more than " + std::to_string(kMostRegions) + " regions"};
    }
  }
  readArrangement(fields, song.arrange);
  return song;
}

class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  [[nodiscard]] int get() const { return descriptor_; }

 private:
  int descriptor_;
};

bool readAll(int descriptor, std::string& out) {
  char buffer[65536];
  for (;;) {
    const ssize_t got = ::read(descriptor, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got == 0;
    out.append(buffer, static_cast<std::size_t>(got));
    if (out.size() > kLargestSongFile) return false;
  }
}

}  // namespace

std::optional<Song> parseSong(std::string_view text, std::string& error) {
  constexpr int kDeepest = 16;
  bool deep = false;
  try {
    const json parsed = json::parse(text, [&](int depth, json::parse_event_t, json&) {
      deep = deep || depth > kDeepest;
      return !deep;
    });
    if (deep) {
      error = "nested deeper than a song can be";
      return std::nullopt;
    }
    return readWhole(parsed);
  } catch (const SongError& failure) {
    error = failure.message;
  } catch (const json::exception& failure) {
    error = failure.what();
    const auto named = error.find("] ");
    if (named != std::string::npos) error = error.substr(named + 2);
  }
  return std::nullopt;
}

std::optional<Song> readSong(const std::string& path, std::string& error) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (file.get() < 0 || ::fstat(file.get(), &status) != 0) {
    error = path + ": " + std::strerror(errno);
    return std::nullopt;
  }
  if (!S_ISREG(status.st_mode)) {
    error = path + ": not a file";
    return std::nullopt;
  }
  std::string text;
  if (static_cast<std::size_t>(status.st_size) > kLargestSongFile || !readAll(file.get(), text)) {
    error = path + ": larger than a song can be, or unreadable";
    return std::nullopt;
  }
  auto song = parseSong(text, error);
  if (!song) error = path + ": " + error;
  return song;
}

}  // namespace host
