#include "host/panes/Inspector.h"

#include <algorithm>
#include <cmath>

#include "cocoa/QuartzCore.h"
#include "host/drawing/Painter.h"
#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"
#include "host/mixer/MixerStrips.h"
#include "host/mixer/StripBuilder.h"

namespace host {
namespace {

using namespace cocoa;

struct CLgInspectorAreaView : ObjectState {
  void drawRect(CGRect dirty) {
    Painter(NSGraphicsContext::currentContext().CGContext()).fill(dirty, paletteColor(Palette::kPaneBackground));
  }
};

struct Parameter {
  std::string name;
  std::string value;
};

constexpr double kMargin = 8;
constexpr double kTitleHeight = 24;
constexpr double kRowHeight = 18;

double boxHeight(std::size_t rows) { return kTitleHeight + static_cast<double>(rows) * kRowHeight + 4; }

void drawBox(const std::string& title, const std::vector<Parameter>& rows, CGRect bounds, CGContextRef context) {
  const Painter painter(context);
  painter.fillRounded(bounds.insetBy(kMargin, 2), 6, paletteColor(Palette::kPaneBar));
  double y = bounds.maxY() - kTitleHeight;
  const double left = kMargin * 2;
  const double width = bounds.size.width - 2 * left;
  painter.text(title, CGRectMake(left, y, width, kTitleHeight), paletteColor(Palette::kTabText),
               {.size = 11, .weight = 0.3, .alignment = TextAlignment::kLeft});
  for (const Parameter& row : rows) {
    y -= kRowHeight;
    painter.text(row.name, CGRectMake(left, y, width / 2, kRowHeight), paletteColor(Palette::kRulerText),
                 {.size = 10.5, .alignment = TextAlignment::kLeft});
    painter.text(row.value, CGRectMake(left + width / 2, y, width / 2, kRowHeight), paletteColor(Palette::kTabText),
                 {.size = 10.5, .alignment = TextAlignment::kRight});
  }
}

/// The selected track, or the first; and the stereo output, if it is another one.
std::vector<std::size_t> tracksOf(const Song& song) {
  const auto find = [&](auto&& accepts) -> std::optional<std::size_t> {
    const auto found = std::ranges::find_if(song.tracks, accepts);
    if (found == song.tracks.end()) return std::nullopt;
    return static_cast<std::size_t>(found - song.tracks.begin());
  };
  std::vector<std::size_t> tracks;
  if (!song.tracks.empty()) tracks.push_back(find([](const Track& track) { return track.selected; }).value_or(0));
  const auto output = find([](const Track& track) { return track.type == StripType::kStereoOut; });
  if (output && *output != tracks.front()) tracks.push_back(*output);
  return tracks;
}

std::vector<Parameter> regionParameters(const Track& track) {
  const bool loops = !track.regions.empty() && track.regions.front().loop;
  return {{"Mute", track.muted ? "On" : "Off"},
          {"Loop", loops ? "On" : "Off"},
          {"Quantize", "1/16 Note"},
          {"Transpose", "0"},
          {"Gain", "0 dB"}};
}

std::vector<Parameter> trackParameters(const Track& track) {
  return {{"Icon", track.icon.empty() ? "None" : track.icon},
          {"Channel", track.stereo ? "Stereo" : "Mono"},
          {"Output", track.output.empty() ? "No Output" : track.output},
          {"Freeze", "Off"}};
}

class InspectorPane : public Pane {
 public:
  explicit InspectorPane(const PanePlace& place)
      : song_(place.song), view_(newView("CLgInspectorAreaView", place.frame)) {
    open();
  }
  [[nodiscard]] NSView view() const override { return view_; }
  [[nodiscard]] bool isOpen() const override { return strips_ != nullptr; }
  void updatePresentation() const override {
    if (strips_) strips_->updatePresentation();
  }
  /// Closed, it gives up everything that it shows; opened, it builds it anew.
  void toggle() override {
    if (!strips_) return open();
    for (const auto& part : parts_) part->removeFromSuperview();
    parts_.clear();
    strips_.reset();
  }

 private:
  void open() {
    const AutoreleasePool pool;
    const CGRect bounds = view_->bounds();
    const std::vector<std::size_t> tracks = tracksOf(song_);
    const double stripsWidth = kStripWidth * static_cast<double>(tracks.size());
    strips_ = std::make_unique<MixerStrips>(song_, tracks,
                                            CGRectMake(std::floor((bounds.size.width - stripsWidth) / 2), 0,
                                                       stripsWidth, stripHeight(song_) + kAboveStrips + kBelowStrips));
    add(strips_->view());
    if (tracks.empty()) return;
    const Track& track = song_.tracks[tracks.front()];
    double top = bounds.maxY() - 4;
    const std::string region = track.regions.empty() ? "no selection" : track.regions.front().name;
    addBox("Region: " + region, regionParameters(track), top);
    addBox("Track: " + track.name, trackParameters(track), top);
  }
  void addBox(std::string title, std::vector<Parameter> rows, double& top) {
    const double height = boxHeight(rows.size());
    top -= height;
    // What does not fit above the strips is not shown.
    if (top < strips_->view().frame().maxY()) return;
    add(drawnView(CGRectMake(0, top, view_->bounds().size.width, height),
                  [title = std::move(title), rows = std::move(rows)](CGRect bounds, CGContextRef context) {
                    drawBox(title, rows, bounds, context);
                  }));
    top -= 4;
  }
  void add(NSView part) {
    view_->addSubview(part);
    parts_.emplace_back(part);
  }

  const Song& song_;
  Ref<NSView> view_;
  std::vector<Ref<NSView>> parts_;
  std::unique_ptr<MixerStrips> strips_;  // none while the inspector is closed
};

}  // namespace

std::unique_ptr<Pane> makeInspectorPane(const PanePlace& place) { return std::make_unique<InspectorPane>(place); }

void defineInspectorClasses() {
  ClassDefinition<CLgInspectorAreaView>("CLgInspectorAreaView", "MAView")
      .method<"drawRect:", &CLgInspectorAreaView::drawRect>()
      .registered();
}

}  // namespace host
