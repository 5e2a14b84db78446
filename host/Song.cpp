#include "host/Song.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>

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

void readColour(const Fields& fields, const char* name, std::optional<SongColour>& out) {
  std::string text;
  fields.read(name, text);
  if (text.empty()) return;
  const bool wellFormed =
      text.size() == 7 && text[0] == '#' && text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
  if (!wellFormed) throw SongError{fields.where(name) + ": expected a colour like \"#4A90D9\""};
  const auto byte = [&](std::size_t at) { return std::stoi(text.substr(at, 2), nullptr, 16); };
  out = SongColour{byte(1), byte(3), byte(5)};
}

void readPlugIns(const Fields& fields, const char* name, std::vector<PlugInSlot>& out) {
  const json* list = fields.array(name, kMostSlots);
  for (std::size_t i = 0; list != nullptr && i < list->size(); ++i) {
    const Fields slot((*list)[i], indexed(fields.where(name), i));
    slot.read("name", out.emplace_back().name);
    slot.read("bypassed", out.back().bypassed);
  }
}

void readSends(const Fields& fields, std::vector<SendSlot>& out) {
  const json* list = fields.array("sends", kMostSlots);
  for (std::size_t i = 0; list != nullptr && i < list->size(); ++i) {
    const Fields slot((*list)[i], indexed(fields.where("sends"), i));
    slot.read("bus", out.emplace_back().bus);
    slot.read("level", out.back().level, 0, 1);
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

Track readTrack(const json& value, const std::string& place) {
  const Fields fields(value, place);
  Track track;
  readType(fields, track);
  readColour(fields, "colour", track.colour);
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
  fields.read("volume", track.volume, -144, 6);
  fields.read("pan", track.pan, -64, 63);
  fields.read("peak", track.peak, -144, 24);
  fields.read("gainReduction", track.gainReduction, 0, 1);
  fields.read("left", track.levels[0], 0, 1);
  fields.read("right", track.levels[1], 0, 1);
  fields.read("stereo", track.stereo);
  fields.read("equalizer", track.equalizer);
  fields.read("muted", track.muted);
  fields.read("soloed", track.soloed);
  fields.read("recordArmed", track.recordArmed);
  fields.read("monitoring", track.monitoring);
  return track;
}

Song readWhole(const json& value) {
  const Fields fields(value, "song");
  Song song;
  fields.read("title", song.title);
  fields.read("audioRows", song.audioRows, 1, static_cast<int>(kMostSlots));
  fields.read("sendRows", song.sendRows, 1, static_cast<int>(kMostSlots));
  fields.read("trackColours", song.trackColours);
  const json* tracks = fields.array("tracks", kMostTracks);
  if (tracks == nullptr) throw SongError{"song.tracks: missing"};
  for (std::size_t i = 0; i < tracks->size(); ++i)
    song.tracks.push_back(readTrack((*tracks)[i], indexed("song.tracks", i)));
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
