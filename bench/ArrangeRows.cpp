#include "bench/ArrangeRows.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <thread>

#include "bench/Rows.h"
#include "cli/PrivateFolders.h"
#include "cocoa/Call.h"
#include "cocoa/Dispatch.h"
#include "plugin/arrange/BandWalk.h"
#include "plugin/arrange/OffScreen.h"
#include "plugin/arrange/TickDetection.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/imaging/RectToSourceColorData.h"
#include "plugin/imaging/Utility+Recoloring.h"
#include "plugin/language/VLRGridSettings.h"
#include "standin/steering/RunLoop.h"

namespace bench {
namespace {

using namespace cocoa;

// ---- Recolouring ------------------------------------------------------------------------------------

constexpr NSInteger kWidth = 2560;
constexpr NSInteger kHeight = 1600;

/// A scale picture: premultiplied white marks of several alphas, in runs as ticks and digits are, on a ground of
/// other colours.
struct ScalePicture {
  Ref<NSBitmapImageRep> bitmap;
  std::vector<unsigned char> original;

  ScalePicture(NSInteger width, NSInteger height, int percentMatching)
      : bitmap(velura::MyNSBitmapImageRep::withSize(width, height)) {
    constexpr std::size_t kRun = 32 * 4;  // bytes
    std::mt19937 random(5);
    unsigned char* pixels = bitmap->bitmapData();
    const auto size = static_cast<std::size_t>(bitmap->bytesPerRow() * height);
    bool matches = false;
    for (std::size_t i = 0; i < size; i += 4) {
      if (i % kRun == 0) matches = static_cast<int>(random() % 100) < percentMatching;
      const auto alpha = static_cast<unsigned char>(random() % 4 == 0 ? 102 : random() % 255 + 1);
      const auto shade = static_cast<unsigned char>(matches ? alpha : alpha / 2);
      const unsigned char pixel[] = {shade, shade, shade, alpha};
      std::memcpy(pixels + i, pixel, sizeof pixel);
    }
    original.assign(pixels, pixels + size);
  }
  void restore() const { std::memcpy(bitmap->bitmapData(), original.data(), original.size()); }
};

NSArray scaleRules(NSInteger width, NSInteger height) {
  const auto w = static_cast<double>(width);
  const auto h = static_cast<double>(height);
  struct Rule {
    CGRect rect;
    double alpha;
    bool compare;
  };
  const Rule rules[] = {{CGRectMake(0, h / 4, w / 2, 32), 1, true},
                        {CGRectMake(0, 0, w / 2, h), 0.4, false},
                        {CGRectMake(w / 2, h / 4, w / 2, 32), 1, true},
                        {CGRectMake(w / 2, 0, w / 2, h), 0.4, false}};
  const NSMutableArray list = NSMutableArray::array();
  for (const Rule& rule : rules) {
    list.addObject(velura::RectToSourceColorData::make(rule.rect, NSColor::colorWithDeviceRed(1, 1, 1, rule.alpha),
                                                       NSColor::colorWithSRGBRed(0.9, 0.4, 0.1, 0.8), rule.alpha,
                                                       rule.compare));
  }
  return list;
}

bool contains(CGRect rect, double x, double y) {
  return rect.minX() <= x && x < rect.maxX() && rect.minY() <= y && y < rect.maxY();
}

/// The plain way: a colour object for every pixel.
void recolorPlainly(NSBitmapImageRep bitmap, NSArray rules) {
  for (NSInteger y = 0; y < bitmap.pixelsHigh(); ++y) {
    const AutoreleasePool pool;
    for (NSInteger x = 0; x < bitmap.pixelsWide(); ++x) {
      const NSColor color = bitmap.colorAtX(x, y);
      for (const NSObject each : items(rules)) {
        const auto& rule = stateOf<velura::RectToSourceColorData>(each);
        if (!contains(rule.mRect, static_cast<double>(x), static_cast<double>(y))) continue;
        const NSColor source = rule.sourceColor;
        if (color.redComponent() != source.redComponent() || color.greenComponent() != source.greenComponent() ||
            color.blueComponent() != source.blueComponent()) {
          continue;
        }
        if (rule.compareAlphaValue && color.alphaComponent() != source.alphaComponent()) continue;
        bitmap.setColor(rule.suggestedColor, x, y);
        break;
      }
    }
  }
}

Side recolors(const ScalePicture& picture, NSArray rules) {
  return timed([&picture] { picture.restore(); },
               [&picture, rules] {
                 const AutoreleasePool pool;
                 velura::applyTransformationToBitmap(picture.bitmap, rules);
               });
}

Side copies(const std::vector<unsigned char>& source) {
  return repeated([&source, copy = std::make_shared<std::vector<unsigned char>>(source.size())] {
    std::memcpy(copy->data(), source.data(), source.size());
    benchmark::DoNotOptimize(copy->data());
    benchmark::ClobberMemory();
  });
}

// ---- Rulers -------------------------------------------------------------------------------------------

/// A strip of a rendered ruler, of its rows from `top` on.
velura::RulerPixels stripOf(const velura::RulerPixels& ruler, long top, long rows) {
  velura::RulerPixels strip = ruler;
  strip.bytes = ruler.row(top);
  strip.height = rows;
  return strip;
}

// ---- Frames and settings --------------------------------------------------------------------------------

host::Song arrangedSong(std::size_t tracks, std::size_t regions) {
  host::Song song = sampleSong();
  const std::vector<host::Track> sample = song.tracks;
  song.tracks.clear();
  for (std::size_t i = 0; i < tracks; ++i) {
    host::Track track = sample[i % sample.size()];
    track.regions.clear();
    for (std::size_t r = i * regions / tracks; r < (i + 1) * regions / tracks; ++r) {
      host::Region region;
      region.name = "Take " + std::to_string(r);
      region.start = 1 + static_cast<double>(r * 7 % 9) * 4.5;
      region.length = 4;
      track.regions.push_back(region);
    }
    std::ranges::sort(track.regions, {}, &host::Region::start);
    song.tracks.push_back(std::move(track));
  }
  return song;
}

void drawFrame(host::Application& application) {
  static const Ref<NSBitmapImageRep> backing = application.draw(host::WindowKind::kArrange);
  application.runFrame();
  application.draw(host::WindowKind::kArrange, backing);
}

void settle(host::Application& application) { application.settle(host::WindowKind::kArrange); }

std::string gridSettings(int barOpacity) {
  char text[512];
  std::snprintf(text, sizeof text,
                "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict><key>enabled</key><true/>"
                "<key>markerBandsEnabled</key><true/><key>barOpacity</key><real>0.%03d</real></dict></plist>\n",
                barOpacity);
  return text;
}

/// Saves the settings in place, in one write: one event. Answers the opacity that now stands in the file.
double save(const std::string& path) {
  static int opacity = 100;
  opacity = opacity < 999 ? opacity + 1 : 100;
  const std::string settings = gridSettings(opacity);
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0 || ::write(descriptor, settings.data(), settings.size()) < 0) std::abort();
  ::close(descriptor);
  return opacity / 1000.0;
}

/// From a save to the settings on the main thread.
void saveAndWait(host::Application& /*application*/, const std::string& path) {
  const NSObject reader = call<"sharedReader", NSObject>(classNamed("VLRGridSettingsReader"));
  const double expected = save(path);
  // Foundation may read a decimal an ulp off.
  while (std::abs(call<"settings", velura::VLRGridSettings>(reader).barOpacity - expected) > 1e-9) {
    if (standin::runMainQueue() == 0) std::this_thread::yield();  // awake, as the bare program's main thread is
  }
}

/// How often a bare program's queue has read the settings since it was told to watch them.
std::atomic<unsigned> bareReadings{0};

/// Waits for events of the file, on a queue of its own, and has Foundation read it after each.
void watchBarely(const std::string& path) {
  const int events = ::inotify_init1(IN_CLOEXEC);
  ::inotify_add_watch(events, path.c_str(), IN_MODIFY);
  cocoa::async(dispatch_queue_create("bare watch", DISPATCH_QUEUE_SERIAL), [events, path] {
    char event[4096];
    while (::read(events, event, sizeof event) > 0) {
      const AutoreleasePool pool;
      benchmark::DoNotOptimize(call<"dictionaryWithContentsOfFile:", id>(classNamed("NSDictionary"), string(path)));
      ++bareReadings;
    }
  });
}

/// The least that it takes: one wake-up, and Foundation reading the file.
void saveAndRead(host::Application& /*application*/, const std::string& path) {
  static const bool watching = [&] {
    watchBarely(path);
    return true;
  }();
  static_cast<void>(watching);
  const unsigned before = bareReadings;
  save(path);
  while (bareReadings == before) std::this_thread::yield();
}

std::string newGridFile(const char* name) {
  const std::string path = session::privateFolder() + "/" + name;
  writeFile(path, gridSettings(100));
  return path;
}

}  // namespace

host::Song wideSong() {
  host::Song song = sampleSong();
  song.arrange.bars = 80;
  song.arrange.zoom = 32;
  song.arrange.scroll = 0;
  return song;
}

ArrangeWorkers::ArrangeWorkers()
    : gridFile(newGridFile("grid.plist")),
      plainFrame("", arrangedSong(64, 500), settle, drawFrame),
      themedFrame("themes/prism", arrangedSong(64, 500), settle, drawFrame, gridFile),
      manyTracks("themes/prism", arrangedSong(1000, 500 * 1000 / 64), settle, drawFrame, gridFile),
      watched(
          "themes/prism", arrangedSong(1, 1), {},
          [path = newGridFile("watched.plist")](host::Application& application) { saveAndWait(application, path); },
          session::privateFolder() + "/watched.plist"),
      bareWatch("", arrangedSong(1, 1), {}, [path = newGridFile("bare.plist")](host::Application& application) {
        saveAndRead(application, path);
      }) {}

void addRecoloringRows() {
  static const ScalePicture sparse(kWidth, kHeight, 5);
  static const ScalePicture full(kWidth, kHeight, 100);
  static const ScalePicture small(kWidth / 10, kHeight / 10, 5);
  static const Ref<NSArray> rules = scaleRules(kWidth, kHeight);
  static const Ref<NSArray> smallRules = scaleRules(kWidth / 10, kHeight / 10);
  constexpr auto kPixels = static_cast<double>(kWidth * kHeight);
  addRow({"recolouring 2560 x 1600, 4 rules, 5 % matching", 4}, recolors(sparse, rules), copies(sparse.original));
  addRow({"recolouring the same, every pixel matching", 12}, recolors(full, rules), copies(full.original));
  addRow({"the same rules, per pixel, against a colour object each", 0.02, kPixels, kPixels / 100},
         recolors(sparse, rules), timed([] { small.restore(); }, [] { recolorPlainly(small.bitmap, smallRules); }));
}

void addRulerRows(host::Application& application) {
  static const auto ruler = velura::renderRuler(application.arrange().ruler(), CGRectMake(0, 0, 2560, 76));
  if (!ruler || ruler->pixels.width != 5120 || ruler->pixels.height != 152) {
    std::fprintf(stderr, "the ruler cannot be rendered\n");
    std::exit(1);
  }
  static const std::vector<unsigned char> original(
      ruler->pixels.bytes, ruler->pixels.bytes + ruler->pixels.bytesPerRow * ruler->pixels.height);
  addRow({"tick detection, 5,120 x 152 pixels, both strips", 12}, repeated([] {
           benchmark::DoNotOptimize(velura::detectTicks(stripOf(ruler->pixels, 0, 76), -1e9).count());
           benchmark::DoNotOptimize(velura::detectTicks(stripOf(ruler->pixels, 38, 76), -1e9).count());
         }),
         copies(original));
  addRow({"reading the marker bands of the same ruler", 12},
         repeated([] { benchmark::DoNotOptimize(velura::readMarkerLane(ruler->pixels, -1e9).segments.size()); }),
         copies(original));
}

void addArrangeRows(const ArrangeWorkers& workers) {
  addRow({"an arrange frame, 64 tracks, 500 regions, bands and grid", 2}, inWorker(workers.themedFrame),
         inWorker(workers.plainFrame));
  addRow({"the same with 1,000 tracks, per track", 1.25, 1000, 64}, inWorker(workers.manyTracks),
         inWorker(workers.themedFrame));
  addRow({"from a saved settings file to the main thread", 2}, inWorker(workers.watched), inWorker(workers.bareWatch));
}

}  // namespace bench
