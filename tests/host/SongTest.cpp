#include "host/song/Song.h"

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
  EXPECT_EQ(kick.color->red, 10);
  EXPECT_EQ(kick.color->blue, 255);
  EXPECT_EQ(kick.pan, -64) << "clamped";
  EXPECT_TRUE(kick.audioPlugIns.at(0).bypassed);
  EXPECT_TRUE(song->tracks[1].folder);
  EXPECT_EQ(song->tracks[2].type, StripType::kOther) << "an unknown type is a strip of an unnamed kind";
  EXPECT_EQ(song->tracks[3].type, StripType::kAudio);
}

TEST(Song, ReadsTheStatesOfControls) {
  std::string error;
  const auto song = parseSong(R"({"tracks": [{"type": "instrument", "input": "Piano", "inputGain": 1e9, "faderMode": 7,
      "audioPlugIns": [{"type": "aufx", "subType": "dely", "manufacturer": "demo", "dimmed": true}, {}],
      "sends": [{"mode": "postPan", "onFader": true}], "panMode": "surround", "surroundX": -3, "meter": "linear",
      "soloBlink": true}, {"instrument": {"name": "Pad", "audio": true}}]})",
                              error);
  ASSERT_TRUE(song) << error;
  const host::Track& track = song->tracks[0];
  ASSERT_TRUE(track.audioPlugIns[0].codes);
  EXPECT_EQ(track.audioPlugIns[0].codes->subType, 0x64656C79U);
  EXPECT_TRUE(track.audioPlugIns[0].dimmed);
  EXPECT_FALSE(track.audioPlugIns[1].codes);
  EXPECT_EQ(track.sends[0].mode, host::SendMode::kPostPan);
  EXPECT_EQ(track.instrument.name, "Piano") << "as songs without an instrument of their own have it";
  EXPECT_EQ(track.inputGain, host::kHighestInputGain);
  EXPECT_EQ(track.faderMode, 2);
  EXPECT_EQ(track.panning.mode, host::PanMode::kSurround);
  EXPECT_EQ(track.panning.x, -1);
  EXPECT_FALSE(track.exponentialMeter);
  EXPECT_TRUE(track.blinking.solo);
  EXPECT_TRUE(song->tracks[1].instrument.audio);
  EXPECT_FALSE(song->tracks[1].inputGain);
}

TEST(Song, ReadsAnArrangementInTheOrderOfTimeAndKeepsItWithinBounds) {
  std::string error;
  const auto song =
      parseSong(R"({"arrange": {"zoom": 1e9, "scroll": -5, "beatsPerBar": 3, "bars": 1e308, "trackHeight": 2,
      "cycle": {"start": 9, "end": 3, "on": true}, "headers": {"controlSurfaceBars": 40},
      "markers": [{"name": "B", "start": 9, "end": -4}, {"name": "A", "colour": "#102030"}]},
    "tracks": [{"height": 1e6, "regions": [{"name": "late", "start": 7.5, "length": -1}, {"start": -3, "length": 2.25}]}]})",
                error);
  ASSERT_TRUE(song) << error;
  const host::Arrangement& arrange = song->arrange;
  EXPECT_EQ(arrange.zoom, host::kLargestZoom);
  EXPECT_EQ(arrange.scroll, 0);
  EXPECT_EQ(arrange.bars, 10'000);
  EXPECT_GE(arrange.trackHeight, 8);
  EXPECT_EQ(arrange.cycle.end, 9) << "not before its start";
  EXPECT_EQ(arrange.headers.controlSurfaceBars, 12);
  ASSERT_EQ(arrange.markers.size(), 2U);
  EXPECT_EQ(arrange.markers[0].name, "A");
  EXPECT_EQ(arrange.markers[1].end, 9);
  const auto& regions = song->tracks[0].regions;
  ASSERT_EQ(regions.size(), 2U);
  EXPECT_EQ(regions[0].start, 1);
  EXPECT_EQ(regions[0].end(), 3.25);
  EXPECT_EQ(regions[1].length, 0);
  EXPECT_FALSE(parseSong(R"({"tracks": []})", error)->arrange.headers.controlSurfaceBars) << "not shown";
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
      {R"({"tracks": [], "arrange": []})", "song.arrange: expected an object"},
      {R"({"tracks": [], "arrange": {"markers": [{"start": "1"}]}})",
       "song.arrange.markers[0].start: expected a number"},
      {R"({"tracks": [], "arrange": {"headers": 1}})", "song.arrange.headers: expected an object"},
      {R"({"tracks": [{"regions": [{"colour": "#12"}]}]})", "song.tracks[0].regions[0].colour: expected a colour"},
      {R"({"tracks": [{"midiPlugIns": [{"subType": "dely"}]}]})",
       "song.tracks[0].midiPlugIns[0].type: expected a code of four characters"},
      {R"({"tracks": [{"audioPlugIns": [{"type": "a\u00e4b", "subType": "", "manufacturer": 3}]}]})",
       ".type: expected a code of four characters"},
      {R"({"tracks": [{"panMode": "mono"}]})", "song.tracks[0].panMode: expected one of balance, stereo, surround"},
      {R"({"tracks": [{"instrument": "Piano"}]})", "song.tracks[0].instrument: expected an object"},
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
  // Two tracks of which each is within the bound, together they are not.
  std::string regions = "{}";
  for (std::size_t i = 0; i < host::kMostRegions / 2; ++i) regions += ",{}";
  const std::string track = "{\"regions\": [" + regions + "]}";
  EXPECT_TRUE(parseSong("{\"tracks\": [" + track + "]}", error)) << error;
  EXPECT_FALSE(parseSong("{\"tracks\": [" + track + "," + track + "]}", error));
  EXPECT_NE(error.find("more than 100000 regions"), std::string::npos) << error;
}

TEST(Song, FilesThatAreNoneAreNamed) {
  std::string error;
  EXPECT_FALSE(host::readSong("/no/such/song.json", error));
  EXPECT_NE(error.find("/no/such/song.json: No such file"), std::string::npos) << error;
  EXPECT_FALSE(host::readSong("/tmp", error));
  EXPECT_NE(error.find("not a file"), std::string::npos) << error;
}

}  // namespace
