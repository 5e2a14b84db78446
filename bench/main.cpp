// `make bench`: each row is a ratio against a baseline that is measured in the same run, interleaved with it.

#include <benchmark/benchmark.h>
#include <cairo/cairo.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "bench/ArrangeRows.h"
#include "bench/ControlRows.h"
#include "bench/Rows.h"
#include "bench/ViewRows.h"
#include "bench/Worker.h"
#include "cli/PrivateFolders.h"
#include "cli/Session.h"
#include "cocoa/Call.h"
#include "cocoa/QuartzCore.h"
#include "host/mixer/StripBuilder.h"
#include "plugin/gradient/PatternRenderer.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/imaging/RectToSourceColorData.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Utility.h"

namespace {

using namespace cocoa;
using bench::addRow;
using bench::difference;
using bench::inWorker;
using bench::repeated;
using bench::Result;
using bench::Side;
using bench::writeFile;

// ---- Messages and look-ups -------------------------------------------------------------------------

constexpr int kInner = 64;  // repetitions in one iteration of what takes a few nanoseconds

void addMessageRow() {
  static const Ref<NSNumber> receiver = NSNumber::numberWithLong(7);
  addRow({"a message through send", 1.25, kInner, kInner}, repeated([] {
           for (int n = 0; n < kInner; ++n) {
             benchmark::DoNotOptimize(send<NSInteger>(receiver.get().object, selector<"integerValue">()));
           }
         }),
         repeated([sel = sel_registerName("integerValue")] {
           using F = NSInteger (*)(id, SEL);
           for (int n = 0; n < kInner; ++n) {
             const id object = receiver.get().object;
             benchmark::DoNotOptimize(
                 reinterpret_cast<F>(reinterpret_cast<void (*)()>(objc_msg_lookup(object, sel)))(object, sel));
           }
         }));
}

void addLookUpRow() {
  static const Ref<NSDictionary> dictionary = velura::ThemeUtility::shared().colorCollection();
  static const Ref<NSString> key = makeString("stripBackgroundColor");
  addRow({"a colour by its key in the table", 0.3, kInner, kInner}, repeated([] {
           for (int n = 0; n < kInner; ++n) {
             benchmark::DoNotOptimize(
                 velura::ThemeUtility::shared().colorForKey(velura::key<"stripBackgroundColor">).object);
           }
         }),
         repeated([] {
           for (int n = 0; n < kInner; ++n) benchmark::DoNotOptimize(dictionary->objectForKey(key.get()).object);
         }));
}

// ---- Patterns --------------------------------------------------------------------------------------

struct PatternCase {
  CGSize size;
  double angle = 180;
  const velura::VLRStripBevel* bevel = nullptr;
};

NSColor drawPattern(const PatternCase& c) {
  static const Ref<NSColor> colors[] = {NSColor::colorWithSRGBRed(0.3, 0.3, 0.35, 1),
                                        NSColor::colorWithSRGBRed(0.2, 0.22, 0.25, 1),
                                        NSColor::colorWithSRGBRed(0.1, 0.1, 0.12, 1)};
  velura::GradientStops stops;
  stops.append(colors[0], 0);
  stops.append(colors[1], 0.6);
  stops.append(colors[2], 1);
  return velura::patternColor({.base = colors[0],
                               .size = c.size,
                               .stops = &stops,
                               .angleDegrees = c.angle,
                               .bevel = c.bevel,
                               .bevelStyle = c.bevel != nullptr ? 1 : 0});
}

Side fresh(const PatternCase& c) {
  return repeated([&c] {
    const AutoreleasePool pool;
    benchmark::DoNotOptimize(drawPattern(c).object);
    velura::ThemeUtility::shared().gradientPatternCache.get().removeAllObjects();
  });
}

Side cached(const PatternCase& c) {
  return [&c, again = repeated([&c] {
                const AutoreleasePool pool;
                benchmark::DoNotOptimize(drawPattern(c).object);
              })](unsigned count) {
    const AutoreleasePool pool;
    static_cast<void>(drawPattern(c));
    return again(count);
  };
}

/// Cairo's own gradient, and for the oblique case its two fills, into a surface of the same size.
void drawWithCairo(const PatternCase& c, int width) {
  const auto height = static_cast<int>(c.size.height);
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(surface);
  cairo_pattern_t* gradient = cairo_pattern_create_linear(0, 0, c.angle == 180 ? 0 : width, height);
  cairo_pattern_add_color_stop_rgba(gradient, 0, 0.3, 0.3, 0.35, 1);
  cairo_pattern_add_color_stop_rgba(gradient, 0.6, 0.2, 0.22, 0.25, 1);
  cairo_pattern_add_color_stop_rgba(gradient, 1, 0.1, 0.1, 0.12, 1);
  cairo_set_source(cr, gradient);
  cairo_paint(cr);
  if (c.bevel != nullptr) {
    for (const double x : {0.0, width - 2.0}) {
      cairo_set_source_rgba(cr, x == 0 ? 1 : 0, x == 0 ? 1 : 0, x == 0 ? 1 : 0, 0.3);
      cairo_rectangle(cr, x, 0, 2, height);
      cairo_fill(cr);
    }
  }
  cairo_pattern_destroy(gradient);
  cairo_destroy(cr);
  cairo_surface_flush(surface);
  benchmark::DoNotOptimize(cairo_image_surface_get_data(surface));
  cairo_surface_destroy(surface);
}

void addPatternRows() {
  static const Ref<NSObject> bevel = velura::VLRStripBevel::bevelFromString(literal<"Bevel:{R,4,30}">());
  static const PatternCase vertical{{84, 600}};
  static const PatternCase oblique{{90, 600}, 135, &stateOf<velura::VLRStripBevel>(bevel.get())};
  addRow({"a fresh vertical pattern, 8 x 600, 3 stops", 0.7}, fresh(vertical),
         repeated([] { drawWithCairo(vertical, 8); }));
  addRow({"a fresh oblique pattern with bevel, 90 x 600", 1.2}, fresh(oblique),
         repeated([] { drawWithCairo(oblique, 90); }));
  addRow({"a cached pattern, vertical", 0.25}, cached(vertical), fresh(vertical));
  addRow({"a cached pattern, oblique with bevel", 0.02}, cached(oblique), fresh(oblique));
}

// ---- Themes ----------------------------------------------------------------------------------------

std::string listOf(const std::string& entries) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>\n" + entries + "</dict></plist>\n";
}

/// A theme folder of the benchmark's own.
std::string writeTheme(const std::string& name, const std::string& entries, const std::string& reference) {
  const std::string folder = session::privateFolder() + "/" + name;
  const std::string contents = folder + "/Companion.bundle/Contents/";
  writeFile(folder + "/PluginHelper.plist", listOf(entries));
  writeFile(contents + "Info.plist", listOf("<key>CFBundleIdentifier</key><string>com.velura.companion</string>"));
  writeFile(contents + "Resources/PluginHelper.plist", listOf(reference));
  return folder;
}

std::string text(const std::string& key, const std::string& value) {
  return "<key>" + key + "</key><string>" + value + "</string>\n";
}

/// 400 colours, the first half of them as in the reference.
std::string fourHundredColors(bool reference) {
  std::ostringstream entries;
  for (int i = 0; i < 400; ++i) {
    const int blue = i < 200 || reference ? 10 : 20;
    entries << text("colour" + std::to_string(i) + "BackgroundColor",
                    "sRGBColor:{" + std::to_string(i % 256) + ", 120, " + std::to_string(blue) + ", 100}");
  }
  return entries.str();
}

void addLoadRow() {
  static const std::string folder = writeTheme("load", fourHundredColors(false), fourHundredColors(true));
  static const Ref<NSString> theme = makeString(folder + "/PluginHelper.plist");
  static const Ref<NSString> reference = makeString(folder + "/Companion.bundle/Contents/Resources/PluginHelper.plist");
  session::SessionOptions options;
  options.theming = session::Theming::kTheme;
  options.themeFolder = folder;
  std::string error;
  if (!session::selectTheme(options, error)) {
    std::fprintf(stderr, "%s\n", error.c_str());
    std::exit(1);
  }
  addRow(
      {"loading a theme of 400 keys with its reference", 1.5}, repeated([] {
        const AutoreleasePool pool;
        const auto loaded =
            Ref<NSObject>::adopt(NSObject(call<"init", id>(call<"alloc", id>(classNamed("ThemeUtility")))));
        NSNotificationCenter::defaultCenter().removeObserver(loaded);
        if (call<"colorCollection", NSDictionary>(loaded.get()).count() == 200) return;
        std::fprintf(stderr, "the theme was not loaded\n");
        std::exit(1);
      }),
      repeated([] {
        const AutoreleasePool pool;
        for (const auto& path : {theme, reference}) {
          benchmark::DoNotOptimize(call<"dictionaryWithContentsOfFile:", id>(classNamed("NSDictionary"), path.get()));
        }
      }));
}

// ---- Frames ----------------------------------------------------------------------------------------

host::Song songOfStrips(std::size_t count) {
  host::Song song;
  const host::Song sample = bench::sampleSong();
  for (std::size_t i = 0; i < count; ++i) {
    host::Track track = sample.tracks[i % sample.tracks.size()];
    track.selected = i % 9 == 0;
    song.tracks.push_back(std::move(track));
  }
  return song;
}

void drawFrame(host::Application& application) {
  static const Ref<NSBitmapImageRep> backing = application.draw(host::WindowKind::kMixer);
  application.runFrame();
  application.draw(host::WindowKind::kMixer, backing);
}

/// A frame of any number of strips: no window is as wide as a thousand strips, so each is drawn by itself,
/// into one bitmap of a strip's size.
void presentAndDrawStrips(host::Application& application) {
  static const CFRef<CGContextRef> context = [] {
    const auto space = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateDeviceRGB());
    return CFRef<CGContextRef>::adopt(CGBitmapContextCreate(nullptr, static_cast<std::size_t>(host::kStripWidth),
                                                            static_cast<std::size_t>(host::stripHeight(host::Song())),
                                                            8, 0, space, kCGImageAlphaPremultipliedLast));
  }();
  application.runFrame();
  for (const NSObject strip : items(application.mixer().strips())) {
    const AutoreleasePool pool;
    call<"presentationObject", CALayer>(strip).renderInContext(context);
  }
}

void askBorders(host::Application& application) {
  static const NSObject strip = application.mixer().strips().objectAtIndex(0);
  for (int n = 0; n < 4096; ++n) benchmark::DoNotOptimize(call<"borderColor", id>(strip));
}

/// Heights from a set of eight, in turn.
void giveEightHeights(host::Application& application) {
  NSUInteger index = 0;
  for (const NSObject strip : items(application.mixer().strips())) {
    auto frame = call<"frame", CGRect>(strip);
    frame.size.height = 560 + 10 * static_cast<double>(index++ % 8);
    call<"setFrame:">(strip, frame);
  }
  application.runFrame();
}

/// A theme of strips: gradients with anchors, bevels, the colours of tracks, titles. What colours controls and draws
/// them from images has rows of its own.
std::string writeStripTheme() {
  constexpr std::pair<const char*, const char*> kTexts[] = {
      {"mixerStripBGGradient",
       "LinearGradient:{{74,61,54,100,0},{62,51,45,100,@eq},{50,41,37,100,@audiofx},{43,36,33,100,@audiofx},"
       "{38,32,30,100,@automation},{55,45,39,100,@automation},{46,38,34,100,@fader},{34,28,26,100,@fader},"
       "{26,22,21,100,@name},{40,33,29,100,100},V,S10}"},
      {"mixerStripHighlightBGGradient",
       "LinearGradient:{{168,106,52,100,0},{140,88,46,100,@audiofx},{112,72,42,100,@automation},"
       "{132,84,45,100,@automation},{92,59,37,100,@fader},{62,41,29,100,100},V,S14}"},
      {"mixerStripBevel", "Bevel:{R,3,22,D}"},
      {"mixerBackgroundColor", "sRGBColor:{24, 20, 19, 100}"},
      {"stripBackgroundColor", "sRGBColor:{50, 41, 37, 100}"},
      {"stripHighlightBackgroundColor", "sRGBColor:{112, 72, 42, 100}"},
      {"stripBorderColor", "sRGBColor:{15, 12, 11, 100}"},
      {"emptySlotBGColor", "sRGBColor:{20, 16, 15, 55}"},
      {"emptySlotSelectedBGColor", "sRGBColor:{40, 22, 10, 50}"},
      {"emptySlotButtonLabelColor", "sRGBColor:{190, 156, 130, 100}"},
      {"nameAndNumberTitleColor", "sRGBColor:{240, 228, 214, 100}"},
      {"nameAndNumberTitleHighlightColor", "sRGBColor:{255, 246, 230, 100}"},
      {"typeAndNumberTitleColor", "sRGBColor:{168, 144, 124, 100}"},
      {"typeAndNumberTitleHighlightColor", "sRGBColor:{250, 214, 170, 100}"},
      {"pannerTitleColor", "sRGBColor:{222, 176, 132, 100}"},
      {"pannerTitleHighlightColor", "sRGBColor:{255, 232, 200, 100}"},
  };
  constexpr std::pair<const char*, int> kNumbers[] = {
      {"UseTrackColor_MixerOpacity", 9},        {"UseTrackColor_MixerHighlightedOpacity", 14},
      {"UseTrackColor_MixerFolderOpacity", 24}, {"UseTrackColor_MixerFolderHighlightedOpacity", 16},
      {"UseTrackColor_MixerAuxOpacity", 5},     {"UseTrackColor_MixerAuxHighlightedOpacity", 8},
      {"emptySlotBGCornerRadius", 9},
  };
  std::string entries = "<key>mixerBGMatchGradient</key><true/>\n<key>useTrackColorAsStripBackground</key><true/>\n";
  for (const auto& [key, value] : kTexts) entries += text(key, value);
  for (const auto& [key, value] : kNumbers) {
    entries += std::string("<key>") + key + "</key><integer>" + std::to_string(value) + "</integer>\n";
  }
  return writeTheme("strips", entries, "");
}

const std::string kAnchored =
    "LinearGradient:{{70,60,54,100,0},{50,41,37,100,@audiofx},{43,36,33,100,@automation},{34,28,26,100,@fader},"
    "{26,22,21,100,100},V,S10}";

struct Workers {
  bench::Worker plainFrame{"", songOfStrips(128), {}, drawFrame};
  std::string strips = writeStripTheme();
  bench::Worker themedFrame{strips, songOfStrips(128), {}, drawFrame};
  bench::Worker plainBorder{"", songOfStrips(4), {}, askBorders};
  bench::Worker themedBorder{writeTheme("absent", text("unrelated", "x"), ""), songOfStrips(4), {}, askBorders};
  std::string anchored = writeTheme("anchored", text("mixerStripBGGradient", kAnchored), "");
  bench::Worker few{anchored, songOfStrips(128), {}, presentAndDrawStrips};
  bench::Worker many{anchored, songOfStrips(1024), {}, presentAndDrawStrips};
  bench::Worker heights{anchored, songOfStrips(1024), giveEightHeights, presentAndDrawStrips};
  bench::Worker looksFew{strips, songOfStrips(128), {}, presentAndDrawStrips};
  bench::Worker looksMany{strips, songOfStrips(1024), {}, presentAndDrawStrips};
};

/// Fills the areas of 128 strips once, each in a colour of its own.
Side fillStripAreas() {
  const double height = host::stripHeight(host::Song());
  const std::shared_ptr<cairo_surface_t> surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(128 * host::kStripWidth),
                                 static_cast<int>(height)),
      cairo_surface_destroy);
  const std::shared_ptr<cairo_t> context(cairo_create(surface.get()), cairo_destroy);
  return repeated([surface, context, height] {
    cairo_t* cr = context.get();
    for (int strip = 0; strip < 128; ++strip) {
      cairo_set_source_rgb(cr, strip / 128.0, 0.3, 0.4);
      cairo_rectangle(cr, strip * host::kStripWidth, 0, host::kStripWidth, height);
      cairo_fill(cr);
    }
    cairo_surface_flush(surface.get());
    benchmark::DoNotOptimize(cairo_image_surface_get_data(surface.get()));
  });
}

void addFrameRows(const Workers& workers) {
  addRow({"an override whose key is absent (strip borderColor)", 4, 4096, 4096}, inWorker(workers.themedBorder),
         inWorker(workers.plainBorder));
  addRow({"a frame of 128 strips, gradient theme, warm", 1.3}, inWorker(workers.themedFrame),
         inWorker(workers.plainFrame));
  addRow({"what theming adds to that frame", 1},
         difference(inWorker(workers.themedFrame), inWorker(workers.plainFrame)), fillStripAreas());
  addRow({"time per strip at 1,024 strips of one height", 1.25, 1024, 128}, inWorker(workers.looksMany),
         inWorker(workers.looksFew));
  addRow({"time per strip at 1,024 strips of eight heights, anchored gradient", 3, 1024, 128},
         inWorker(workers.heights), inWorker(workers.few));
}

// ---- Results ---------------------------------------------------------------------------------------

bool print(const std::vector<Result>& all, const std::string& path) {
  std::ofstream json(path);
  json << "[\n";
  bool within = true;
  std::printf("%-68s %13s %13s %7s %6s\n", "row", "ours", "baseline", "ratio", "limit");
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Result& r = all[i];
    const double ratio = r.ratio();
    const double ours = r.ours * 1e9;
    const double baseline = r.baseline * 1e9;
    within = within && ratio <= r.row.limit;
    std::printf("%-68s %10.1f ns %10.1f ns %7.3f %6.2f %s\n", r.row.name.c_str(), ours, baseline, ratio, r.row.limit,
                ratio <= r.row.limit ? "" : "over");
    json << "  {\"name\": \"" << r.row.name << "\", \"ours_ns\": " << ours << ", \"baseline_ns\": " << baseline
         << ", \"ratio\": " << ratio << ", \"limit\": " << r.row.limit << "}" << (i + 1 < all.size() ? "," : "")
         << "\n";
  }
  json << "]\n";
  return within;
}

void defineClasses() {
  velura::defineVLRStripGradient();
  velura::defineVLRStripBevel();
  velura::defineThemeUtility();
  velura::defineUtility();
  velura::defineRectToSourceColorData();
  velura::defineMyNSBitmapImageRep();
}

}  // namespace

int main(int argc, char** argv) {
  session::enterPrivateFolders(argv);
  std::string out = "bench.json";
  if (argc > 2 && std::strcmp(argv[1], "--out") == 0) out = argv[2];
  // Before anything of Foundation runs in this process: workers are forked.
  const Workers workers;
  const bench::ArrangeWorkers arrangeWorkers;
  const bench::ControlWorkers controlWorkers;
  const bench::ViewWorkers viewWorkers;
  const AutoreleasePool pool;
  host::HostOptions hostOptions;
  hostOptions.scale = 2;
  host::Application application(hostOptions);
  application.open(bench::wideSong());
  defineClasses();
  addMessageRow();
  addLookUpRow();
  addPatternRows();
  addLoadRow();
  addFrameRows(workers);
  bench::addRecoloringRows();
  bench::addRulerRows(application);
  bench::addArrangeRows(arrangeWorkers);
  bench::addControlRows(controlWorkers);
  bench::addViewRows(viewWorkers);

  benchmark::Initialize(&argc, argv);
  const char* filter = std::getenv("BENCH_FILTER");
  return print(bench::measured(filter != nullptr ? filter : "."), out) ? 0 : 1;
}
