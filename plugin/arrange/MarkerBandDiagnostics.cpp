#include "plugin/arrange/MarkerBandDiagnostics.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <string_view>

#include "cocoa/Exception.h"
#include "plugin/arrange/PrimaryMouseButton.h"
#include "plugin/files/AtomicWrite.h"
#include "plugin/files/FileExists.h"
#include "plugin/hostapi/Accessibility.h"
#include "plugin/hostapi/ArrangeView.h"

namespace velura {
namespace {

using namespace cocoa;

/// A report as it grows, line by line.
class Report {
 public:
#if defined(__GNUC__)
  [[gnu::format(printf, 2, 3)]]
#endif
  void
  add(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    if (length > 0) {
      const std::size_t before = text_.size();
      text_.resize(before + static_cast<std::size_t>(length) + 1);
      std::vsnprintf(text_.data() + before, static_cast<std::size_t>(length) + 1, format, again);
      text_.pop_back();
    }
    va_end(again);
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

/// Lets something happen at most once in a number of seconds.
class Interval {
 public:
  explicit Interval(double seconds) : seconds_(seconds) {}
  bool isOver() {
    const double now = CFAbsoluteTimeGetCurrent();
    if (has_ && now - last_ < seconds_) return false;
    has_ = true;
    last_ = now;
    return true;
  }

 private:
  double seconds_;
  double last_ = 0;
  bool has_ = false;
};

std::string described(NSObject object) { return object ? toStdString(object.description()) : "(null)"; }
std::string rectText(CGRect rect) { return toStdString(NSString(NSStringFromRect(rect))); }
std::string now() { return described(NSDate::date()); }

void writePng(const char* path, NSBitmapImageRep bitmap) {
  const NSData png = bitmap.representationUsingType(NSBitmapImageFileTypePNG, NSDictionary::dictionary());
  if (png) writeAtomically(path, {static_cast<const char*>(png.bytes()), png.length()});
}

/// The end of a regular file as it is, "" of anything else. Links are not followed.
std::string endOf(const char* path) {
  constexpr std::size_t kLargest = std::size_t{4} << 20U;
  const int descriptor = ::open(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
  if (descriptor < 0) return {};
  std::string contents;
  struct stat status {};
  if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    const auto size = static_cast<std::size_t>(status.st_size);
    contents.resize(std::min(kLargest, size));
    const auto start = static_cast<off_t>(size - contents.size());
    const ssize_t length = ::pread(descriptor, contents.data(), contents.size(), start);
    contents.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  }
  ::close(descriptor);
  return contents;
}

void addLane(const MarkerLane& lane, Report& report) {
  for (const ColoredBand& band : lane.bands) {
    const long rows = band.rows.bottom - band.rows.top + 1;
    if (band.inTopStrip) {
      report.add("  band y[%ld..%ld] rows=%ld SKIPPED (top strip)\n", band.rows.top, band.rows.bottom, rows);
    } else {
      report.add("  band y[%ld..%ld] rows=%ld score=%d\n", band.rows.top, band.rows.bottom, rows, band.score);
    }
  }
  if (!lane.chosen) return report.add("no coloured lane\n");
  report.add("CHOSEN band y[%ld..%ld] score=%d\nSEGMENTS (%lu):\n", lane.chosen->rows.top, lane.chosen->rows.bottom,
             lane.chosen->score, static_cast<unsigned long>(lane.segments.size()));
  unsigned long index = 0;
  for (const BandSegment& segment : lane.segments) {
    if (const auto& color = segment.color) {
      report.add("  [%lu] x=%.1f #%02X%02X%02X\n", index, segment.start, static_cast<unsigned>(color->red),
                 static_cast<unsigned>(color->green), static_cast<unsigned>(color->blue));
    } else {
      report.add("  [%lu] x=%.1f grey/no-band\n", index, segment.start);
    }
    ++index;
  }
}

void addMarkers(const std::vector<BandSegment>& segments, Report& report) {
  report.add("markers detected=%lu:\n", static_cast<unsigned long>(segments.size()));
  for (const BandSegment& segment : segments) {
    if (const auto& color = segment.color) {
      report.add("  #%02X%02X%02X startSectionX=%.1f\n", static_cast<unsigned>(color->red),
                 static_cast<unsigned>(color->green), static_cast<unsigned>(color->blue), segment.start);
    } else {
      report.add("  (grey/no-band) startSectionX=%.1f\n", segment.start);
    }
  }
}

void addChildren(NSView view, Report& report) {
  constexpr std::size_t kMost = 9;
  std::size_t count = 0;
  const NSArray children = accessibilityChildrenOf(view);
  report.add("AX: section children=%lu\n", static_cast<unsigned long>(children.count()));
  for (const NSObject child : items(children)) {
    if (count++ == kMost) return report.add("  …\n");
    const NSString role = accessibilityRole(child);
    report.add("  child role=%s kids=%lu\n", role ? toStdString(role).c_str() : "?",
               static_cast<unsigned long>(accessibilityChildrenOf(child).count()));
  }
}

constexpr const char* kProbeFile = "/tmp/vlr_marker_probe.txt";
constexpr const char* kProbePicture = "/tmp/vlr_marker_probe.png";

void addViews(NSView view, Report& report) {
  constexpr int kMostSections = 8;
  report.add("section=%s frame=%s visible=%s sectionLeftScreen=%.1f\n", described(view).c_str(),
             rectText(view.frame()).c_str(), rectText(view.visibleRect()).c_str(), screenLeftOf(view));
  const ArrangeSection section(view.object);
  report.add("parent=%s\n", described(section.parentView()).c_str());
  for (int number = 0; number < kMostSections; ++number) {
    const NSView sibling = foundBy([&] { return section.sibling(number); });
    if (!sibling) continue;
    report.add("  sectionView:%d = %s frame=%s flipped=%d\n", number, described(sibling).c_str(),
               rectText(sibling.frame()).c_str(), int{sibling.isFlipped()});
  }
}

void addRowProfile(const RulerPixels& ruler, CGRect rect, bool flipped, Report& report) {
  report.add("ROW PROFILE (pixel-y : coloredCount / W , viewY) — colored rows are marker candidates:\n");
  for (long y = 0; y < ruler.height; ++y) {
    const long count = coloredPixelsIn(ruler, y);
    if (count == 0) continue;
    const double down = static_cast<double>(y) / ruler.pixelsPerPoint;
    report.add("  y=%4ld  %5d/%-5ld  viewY=%.1f\n", y, static_cast<int>(count), ruler.width,
               flipped ? rect.minY() + down : rect.maxY() - down);
  }
}

/// The cells of the lane, each up to the next one's start.
void addCells(const MarkerLane& lane, double sectionLeft, double rightEdge, Report& report) {
  if (!lane.chosen) {
    return report.add("\n(no coloured band found — marker track may be hidden, or lane is elsewhere)\n");
  }
  report.add("\nDETECTED MARKER BAND pixel-y [%ld..%ld]\n", lane.chosen->rows.top, lane.chosen->rows.bottom);
  report.add("\nMARKER CELLS (runs of ~constant colour across the band):\n");
  for (std::size_t i = 0; i < lane.segments.size(); ++i) {
    const auto& [start, color] = lane.segments[i];
    if (!color) continue;
    const double end = i + 1 < lane.segments.size() ? lane.segments[i + 1].start : rightEdge;
    report.add("  #%02X%02X%02X  screenX[%.1f..%.1f]  sectionX[%.1f..%.1f]  widthPt=%.1f\n",
               static_cast<unsigned>(color->red), static_cast<unsigned>(color->green),
               static_cast<unsigned>(color->blue), start + sectionLeft, end + sectionLeft, start, end, end - start);
  }
}

void probeRuler(NSView view, NSView ruler, Report& report) {
  if (!ruler) return report.add("NO RULER VIEW (sectionView:2)\n");
  report.add("ruler=%s frame=%s visible=%s flipped=%d\n", described(ruler).c_str(), rectText(ruler.frame()).c_str(),
             rectText(ruler.visibleRect()).c_str(), int{ruler.isFlipped()});
  const double sectionLeft = screenLeftOf(view);
  const CGRect rect = visibleOrBounds(ruler);
  const auto rendering = renderRuler(ruler, rect);
  if (!rendering) return report.add("cacheDisplay rep=nil\n");
  const RulerPixels& pixels = rendering->pixels;
  report.add("rep W=%ld H=%ld scale=%.3f rulerLeftScreen=%.1f\n\n", pixels.width, pixels.height, pixels.pixelsPerPoint,
             pixels.screenLeft);
  addRowProfile(pixels, rect, ruler.isFlipped(), report);
  addCells(readMarkerLane(pixels, sectionLeft), sectionLeft, pixels.screenX(pixels.width) - sectionLeft, report);
  writePng(kProbePicture, rendering->bitmap);
}

}  // namespace

void writeRenderReport(const MarkerRuler& ruler) {
  static Interval interval(0.8);
  if (!fileExists("/tmp/vlr_mb_render_on") || !interval.isOver()) return;
  Report report;
  const RulerPixels& pixels = ruler.rendering.pixels;
  report.add("ruler render W=%ld H=%ld scale=%.2f thr=%d\n", pixels.width, pixels.height, pixels.pixelsPerPoint,
             static_cast<int>(ruler.lane.rowThreshold));
  addLane(ruler.lane, report);
  writeAtomically("/tmp/vlr_mb_render.txt", report.text());
  if (ruler.lane.chosen) writePng("/tmp/vlr_mb_render.png", ruler.rendering.bitmap);
}

void appendBandReport(const BandReport& found) {
  constexpr double kTolerance = 1;
  constexpr const char* kFile = "/tmp/vlr_mb_diag.txt";
  static double lastHeight = -1;
  if (!fileExists("/tmp/vlr_mb_diag_on")) return;
  const double height = found.ruler.frame().size.height;
  if (!(std::abs(height - lastHeight) > kTolerance)) return;
  lastHeight = height;
  Report report;
  report.add("=== MB DIAG %s ===\n", now().c_str());
  report.add("section=%s bounds=%s visible=%s flipped=%d sectionLeft=%.1f\n", described(found.view).c_str(),
             rectText(found.view.bounds()).c_str(), rectText(found.view.visibleRect()).c_str(),
             int{found.view.isFlipped()}, found.sectionLeft);
  report.add("ruler(sv2)=%s frame=%s visible=%s\n", described(found.ruler).c_str(),
             rectText(found.ruler.frame()).c_str(), rectText(found.ruler.visibleRect()).c_str());
  addMarkers(found.segments, report);
  report.add("region rects (section-local) count=%lu:\n", static_cast<unsigned long>(found.regions.size()));
  for (const CGRect region : found.regions) report.add("  %s\n", rectText(region).c_str());
  addChildren(found.view, report);
  writeAtomically(kFile, endOf(kFile) + report.text());
}

void VLRMarkerProbe(NSView view) {
  static Interval interval(2);
  if (!view || !fileExists("/tmp/vlr_marker_probe_on") || isPrimaryMouseButtonDown() || !interval.isOver()) return;
  Report report;
  report.add("=== VLR MARKER PROBE %s ===\n", now().c_str());
  addViews(view, report);
  probeRuler(view, ArrangeSection(view.object).sibling(kRulerSection), report);
  writeAtomically(kProbeFile, report.text());
}

}  // namespace velura
