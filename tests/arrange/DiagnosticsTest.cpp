// Reports of the marker bands under /tmp, each made while its switch file exists.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/PrivateFolders.h"
#include "cocoa/ClassDefinition.h"
#include "tests/arrange/ArrangeContents.h"

namespace {

namespace fs = std::filesystem;
using namespace cocoa;
using namespace support;

constexpr const char* kRender = "/tmp/vlr_mb_render.txt";
constexpr const char* kRenderPicture = "/tmp/vlr_mb_render.png";
constexpr const char* kDiagnosis = "/tmp/vlr_mb_diag.txt";
constexpr const char* kProbe = "/tmp/vlr_marker_probe.txt";
constexpr const char* kProbePicture = "/tmp/vlr_marker_probe.png";
constexpr const char* kRenderSwitch = "/tmp/vlr_mb_render_on";
constexpr const char* kDiagnosisSwitch = "/tmp/vlr_mb_diag_on";
constexpr const char* kProbeSwitch = "/tmp/vlr_marker_probe_on";
constexpr const char* kReports[] = {kRender, kRenderPicture, kDiagnosis, kProbe, kProbePicture};
constexpr const char* kSwitches[] = {kRenderSwitch, kDiagnosisSwitch, kProbeSwitch};

/// Two markers at 32 points a bar, a cycle above them and a region.
host::Song songOfMarkers() {
  host::Song song;
  song.arrange.markers = {{.name = "", .start = 3, .end = 5, .color = host::SongColor{220, 40, 40}},
                          {.name = "", .start = 5, .end = 9, .color = host::SongColor{40, 60, 230}}};
  song.arrange.cycle = {.start = 1, .end = 31, .on = true};
  song.tracks.resize(1);
  song.tracks[0].regions = {{.name = "", .start = 4, .length = 2}};
  return song;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// Lines that match a pattern each.
auto areLike(const std::vector<std::string>& patterns) {
  std::vector<testing::Matcher<std::string>> lines;
  for (const std::string& pattern : patterns) lines.emplace_back(testing::MatchesRegex(pattern));
  return testing::ElementsAreArray(lines);
}

class SwitchFileDiagnostics : public ArrangeContents {
 protected:
  void SetUp() override { clear(); }
  void TearDown() override {
    application_.reset();
    clear();
  }
  static void clear() {
    for (const char* path : kReports) fs::remove(path);
    for (const char* path : kSwitches) fs::remove(path);
  }
  static void switchOn(const char* file) { writeFile(file, ""); }
  void open(host::Song song = songOfMarkers()) { start(ThemeFile().flag("markerBandsEnabled", true), std::move(song)); }
  static CGSize pictureSize(const char* path) {
    const std::string bytes = fileContents(path);
    const auto picture = NSBitmapImageRep::imageRepWithData(NSData::dataWithBytes(bytes.data(), bytes.size()));
    return {static_cast<double>(picture.pixelsWide()), static_cast<double>(picture.pixelsHigh())};
  }
};

TEST_F(SwitchFileDiagnostics, SayNothingWithoutTheirSwitches) {
  open();
  picture();
  for (const char* path : kReports) EXPECT_FALSE(fs::exists(path)) << path;
}

TEST_F(SwitchFileDiagnostics, ReportTheRulersBands) {
  switchOn(kRenderSwitch);
  open();
  picture();
  EXPECT_EQ(fileContents(kRender),
            "ruler render W=959 H=76 scale=1.00 thr=9\n"
            "  band y[1..7] rows=7 SKIPPED (top strip)\n"
            "  band y[39..57] rows=19 score=2\n"
            "CHOSEN band y[39..57] score=2\n"
            "SEGMENTS (4):\n"
            "  [0] x=0.0 grey/no-band\n"
            "  [1] x=64.0 #DC2828\n"
            "  [2] x=128.0 #283CE6\n"
            "  [3] x=256.0 grey/no-band\n");
  EXPECT_EQ(pictureSize(kRenderPicture), (CGSize{959, 76}));

  fs::remove(kRender);
  fs::remove(kRenderPicture);
  song().arrange.markers.clear();
  application_->arrange().songChanged();
  standin::setClock(kNow + 0.79);
  picture();
  EXPECT_FALSE(fs::exists(kRender)) << "too early";
  standin::setClock(kNow + 0.81);
  picture();
  EXPECT_EQ(fileContents(kRender),
            "ruler render W=959 H=76 scale=1.00 thr=9\n"
            "  band y[1..7] rows=7 SKIPPED (top strip)\n"
            "no coloured lane\n");
  EXPECT_FALSE(fs::exists(kRenderPicture));
}

TEST_F(SwitchFileDiagnostics, AppendWhatAPassFoundWhenTheRulerHasChanged) {
  switchOn(kDiagnosisSwitch);
  host::Song song = songOfMarkers();
  song.tracks.resize(11);
  open(song);
  picture();
  const std::string first = fileContents(kDiagnosis);
  std::vector<std::string> expected = {
      R"(=== MB DIAG [0-9]{4}-.* ===)",
      R"(section=<Arrange.*> bounds=\{\{0, 0\}, \{2048, [0-9]+\}\} visible=\{\{0, 0\}, \{959, [0-9]+\}\} flipped=1 sectionLeft=[0-9]+\.[0-9])",
      R"(ruler\(sv2\)=<CLgSectionView.*> frame=\{\{0, 0\}, \{2048, 76\}\} visible=\{\{0, 0\}, \{959, 76\}\})",
      "markers detected=4:",
      R"(  \(grey/no-band\) startSectionX=0\.0)",
      R"(  #DC2828 startSectionX=64\.0)",
      R"(  #283CE6 startSectionX=128\.0)",
      R"(  \(grey/no-band\) startSectionX=256\.0)",
      R"(region rects \(section-local\) count=1:)",
      R"(  \{\{96, 0\}, \{64, 39\}\})",
      "AX: section children=12",
      "  child role=AXGroup kids=1",
  };
  expected.insert(expected.end(), 8, "  child role=AXGroup kids=0");
  expected.emplace_back("  …");
  EXPECT_TRUE(first.ends_with('\n'));
  EXPECT_THAT(linesOf(first), areLike(expected));

  picture();
  EXPECT_EQ(fileContents(kDiagnosis), first) << "nothing new";
  const NSView ruler = application_->arrange().ruler();
  const CGSize size = ruler.frame().size;
  ruler.setFrameSize({size.width, size.height + 1});
  picture();
  EXPECT_EQ(fileContents(kDiagnosis), first) << "a point is no change";
  ruler.setFrameSize({size.width, size.height + 2});
  picture();
  const std::string both = fileContents(kDiagnosis);
  EXPECT_TRUE(both.starts_with(first));
  EXPECT_EQ(linesOf(both).size(), 2 * linesOf(first).size());
}

NSView noSection(NSView /*self*/, NSInteger /*number*/) { return {}; }
NSBitmapImageRep noBitmap(NSView /*self*/, CGRect /*rect*/) { return {}; }

TEST_F(SwitchFileDiagnostics, ProbeTheViewsAroundTheMarkers) {
  open();
  picture();
  switchOn(kProbeSwitch);
  standin::setPressedMouseButtons(1);
  picture();
  EXPECT_FALSE(fs::exists(kProbe)) << "not while the button is down";
  standin::setPressedMouseButtons(0);
  picture();
  const auto lines = linesOf(fileContents(kProbe));
  const std::vector<std::string> patterns = {
      R"(=== VLR MARKER PROBE [0-9]{4}-.* ===)",
      R"(section=<Arrange.*> frame=\{\{0, 0\}, \{2048, [0-9]+\}\} visible=\{\{0, 0\}, \{959, [0-9]+\}\} sectionLeftScreen=[0-9]+\.[0-9])",
      R"(parent=<CLgArrangeView.*>)",
      R"(  sectionView:0 = <ArrangeTrackHeaderSectionView.*> frame=.* flipped=0)",
      R"(  sectionView:1 = <ArrangeContentsSectionView.*> frame=.* flipped=1)",
      R"(  sectionView:2 = <CLgSectionView.*> frame=.* flipped=1)",
      R"(ruler=<CLgSectionView.*> frame=\{\{0, 0\}, \{2048, 76\}\} visible=\{\{0, 0\}, \{959, 76\}\} flipped=1)",
      R"(rep W=959 H=76 scale=1\.000 rulerLeftScreen=[0-9]+\.[0-9])",
      "",
      "ROW PROFILE \\(pixel-y : coloredCount / W , viewY\\) — colored rows are marker candidates:",
  };
  ASSERT_GT(lines.size(), patterns.size());
  EXPECT_THAT(std::vector(lines.begin(), lines.begin() + std::ssize(patterns)), areLike(patterns));
  EXPECT_THAT(lines, testing::Contains("  y=  39     96/959    viewY=39.0"));
  EXPECT_THAT(
      std::vector(lines.end() - 6, lines.end()),
      areLike({"", R"(DETECTED MARKER BAND pixel-y \[39\.\.57\])", "",
               R"(MARKER CELLS \(runs of ~constant colour across the band\):)",
               R"(  #DC2828  screenX\[[0-9]+\.[0-9]\.\.[0-9]+\.[0-9]\]  sectionX\[64\.0\.\.128\.0\]  widthPt=64\.0)",
               ".*"}));
  EXPECT_EQ(pictureSize(kProbePicture), (CGSize{959, 76}));

  double now = kNow;
  const auto expectLast = [&](const std::string& last) {
    const auto draw = [&] { call<"drawRect:">(contents(), contents().visibleRect()); };
    const Ref<NSBitmapImageRep> bitmap =
        NSBitmapImageRep::withBitmapDataPlanes(nullptr, 40, 40, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
    const SavedGraphicsState saved;
    NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap));
    fs::remove(kProbe);
    standin::setClock(now + 1.9);
    draw();
    EXPECT_FALSE(fs::exists(kProbe)) << last;
    standin::setClock(now += 2.1);
    draw();
    EXPECT_TRUE(fileContents(kProbe).ends_with(last)) << last << fileContents(kProbe);
  };
  song().arrange.markers.clear();
  application_->arrange().songChanged();
  expectLast("\n\n(no coloured band found — marker track may be hidden, or lane is elsewhere)\n");
  detail::replaceFunction<"bitmapImageRepForCachingDisplayInRect:", noBitmap>(classNamed("CLgSectionView"));
  expectLast("\ncacheDisplay rep=nil\n");
  detail::replaceFunction<"sectionView:", noSection>(classNamed("CLgArrangeView"));
  expectLast("\nNO RULER VIEW (sectionView:2)\n");
}

TEST_F(SwitchFileDiagnostics, NeverFollowALink) {
  const std::string secret = session::privateFolder() + "/secret";
  writeFile(secret, "do not touch");
  for (const char* path : kReports) fs::create_symlink(secret, path);
  for (const char* path : kSwitches) switchOn(path);
  open();
  picture();
  EXPECT_EQ(fileContents(secret), "do not touch");
  for (const char* path : kReports) {
    EXPECT_FALSE(fs::is_symlink(path)) << path;
    EXPECT_GT(fs::file_size(path), 100U) << path;
  }
  EXPECT_TRUE(fileContents(kDiagnosis).starts_with("=== MB DIAG")) << "what a link points to is not read either";
}

}  // namespace
