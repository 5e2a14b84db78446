#include "host/Song.h"

#include <gtest/gtest.h>

#include "tests/support/Theme.h"

namespace {

using host::parseSong;
using host::StripType;

TEST(Song, ReadsTracksAndKeepsDefaultsForWhatIsMissing) {
  std::string error;
  const auto song = parseSong(R"({"audioRows": 7, "tracks": [
    {"name": "Kick", "type": "audio", "colour": "#0a10FF", "pan": -80, "audioPlugIns": [{"name": "EQ", "bypassed": true}]},
    {"type": "folder"}, {"type": "something new"}, {}]})",
                              error);
  ASSERT_TRUE(song) << error;
  EXPECT_EQ(song->audioRows, 7);
  ASSERT_EQ(song->tracks.size(), 4U);
  const host::Track& kick = song->tracks[0];
  EXPECT_EQ(kick.name, "Kick");
  EXPECT_EQ(kick.colour->red, 10);
  EXPECT_EQ(kick.colour->blue, 255);
  EXPECT_EQ(kick.pan, -64) << "clamped";
  EXPECT_TRUE(kick.audioPlugIns.at(0).bypassed);
  EXPECT_TRUE(song->tracks[1].folder);
  EXPECT_EQ(song->tracks[2].type, StripType::kOther) << "an unknown type is a strip of an unnamed kind";
  EXPECT_EQ(song->tracks[3].type, StripType::kAudio);
}

TEST(Song, SaysWhereAndWhyItIsNone) {
  struct Case {
    std::string text;
    const char* message;
  };
  const Case kCases[] = {
      {"", "parse error"},
      {"[]", "song: expected an object"},
      {"{}", "song.tracks: missing"},
      {R"({"tracks": 3})", "song.tracks: expected a list"},
      {R"({"tracks": [1]})", "song.tracks[0]: expected an object"},
      {R"({"tracks": [{"name": 3}]})", "song.tracks[0].name: expected a string"},
      {R"({"tracks": [{}, {"colour": "red"}]})", "song.tracks[1].colour: expected a colour"},
      {R"({"tracks": [{"sends": [{"level": "loud"}]}]})", "song.tracks[0].sends[0].level: expected a number"},
      {R"({"tracks": [{"muted": 1}]})", "song.tracks[0].muted: expected true or false"},
      {R"({"tracks": [{"audioPlugIns": [{},{},{},{},{},{},{},{},{},{},{},{},{},{},{},{}]}]})", "more than 15"},
      {"{\"tracks\": [{\"name\": \"\xff\xfe\"}]}", "invalid string"},
      {std::string(200'000, '['), "parse error"},
      {std::string(200'000, '[') + std::string(200'000, ']'), "nested deeper"},
      {R"({"tracks": [)" + std::string(1'000'000, '{'), "parse error"},
  };
  for (const Case& c : kCases) {
    std::string error;
    EXPECT_FALSE(parseSong(c.text, error)) << c.text.substr(0, 60);
    EXPECT_NE(error.find(c.message), std::string::npos) << error;
  }
}

TEST(Song, HoldsTenThousandTracksAndRefusesMoreThanItCan) {
  const auto tracks = [](std::size_t count) {
    std::string text = "{\"tracks\": [";
    for (std::size_t i = 0; i < count; ++i) text += i == 0 ? "{}" : ",{}";
    return text + "]}";
  };
  std::string error;
  EXPECT_EQ(parseSong(tracks(10'000), error)->tracks.size(), 10'000U);
  EXPECT_FALSE(parseSong(tracks(host::kMostTracks + 1), error));
}

TEST(Song, FilesThatAreNoneAreNamed) {
  std::string error;
  EXPECT_FALSE(host::readSong("/no/such/song.json", error));
  EXPECT_NE(error.find("/no/such/song.json: No such file"), std::string::npos) << error;
  EXPECT_FALSE(host::readSong("/tmp", error));
  EXPECT_NE(error.find("not a file"), std::string::npos) << error;
}

TEST(Song, TheSampleShowsEveryKindOfStrip) {
  const host::Song song = support::sampleSong();
  EXPECT_GE(song.tracks.size(), 24U);
  for (const StripType type : {StripType::kAudio, StripType::kInstrument, StripType::kAux, StripType::kBus,
                               StripType::kOther, StripType::kStereoOut, StripType::kMaster}) {
    EXPECT_TRUE(std::any_of(song.tracks.begin(), song.tracks.end(), [&](const auto& t) { return t.type == type; }))
        << static_cast<int>(type);
  }
}

}  // namespace
