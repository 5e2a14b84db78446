#include "host/arrange/ArrangeTrackHeaderSectionView.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/arrange/CLgArrangeView.h"
#include "host/arrange/CLgSectionView.h"
#include "host/arrange/LocalizedFormat.h"
#include "host/arrange/MAAccessibilityElement.h"
#include "host/drawing/Painter.h"
#include "host/drawing/TrackIcon.h"
#include "host/mixer/MixerData.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kColorBarWidth = 6;
constexpr double kControlSurfaceBarWidth = 5;
constexpr double kIconSide = 24;
constexpr double kGap = 5;
constexpr double kTallHeader = 32;  // from this height on, the buttons have a row of their own
constexpr double kNameHeight = 15;
constexpr double kButtonWidth = 18;
constexpr double kButtonPitch = 20;
constexpr double kButtonHeight = 13;
constexpr double kButtonGap = 2;
constexpr double kDisclosureWidth = 12;

/// A header as it is laid out: from its top left corner downwards.
struct Header {
  CGRect frame;  // in the view
  bool flipped = false;

  [[nodiscard]] CGRect at(double x, double y, double width, double height) const {
    return {{frame.minX() + x, flipped ? frame.minY() + y : frame.maxY() - y - height}, {width, height}};
  }
  [[nodiscard]] double height() const { return frame.size.height; }
  [[nodiscard]] bool isTall() const { return height() >= kTallHeader; }
  /// Where the name begins, with the buttons below it when the header is tall.
  [[nodiscard]] double nameTop() const {
    const double block = isTall() ? kNameHeight + kButtonGap + kButtonHeight : kNameHeight;
    return std::floor((height() - 1 - block) / 2);
  }
  [[nodiscard]] double buttonTop() const {
    return isTall() ? nameTop() + kNameHeight + kButtonGap : std::floor((height() - 1 - kButtonHeight) / 2);
  }
};

/// Where the parts of a header begin, from left to right.
struct Columns {
  double colorBar = 0;
  double number = 0;
  double icon = 0;
  double name = 0;

  Columns(const HeaderSetup& setup, bool knowsControlSurfaces) {
    constexpr double kNumberWidth = 22;
    constexpr double kUnknownSurfaces = 4;  // room that is left for what the mixer's model does not tell
    constexpr double kUnknownSurfacesNumbered = 7;
    if (setup.controlSurfaceBars) {
      colorBar = knowsControlSurfaces ? kControlSurfaceBarWidth * *setup.controlSurfaceBars
                 : setup.trackNumbers ? kUnknownSurfacesNumbered
                                      : kUnknownSurfaces;
    }
    number = colorBar + kColorBarWidth + 1;
    icon = number + (setup.trackNumbers ? kNumberWidth : 0) + 3;
    name = icon + kIconSide + kGap;
  }
};

struct Button {
  const char* letter;
  bool Track::*on;
  Palette color;
};
constexpr std::array<Button, 4> kButtons{{{"M", &Track::muted, Palette::kMuteOn},
                                          {"S", &Track::soloed, Palette::kSoloOn},
                                          {"R", &Track::recordArmed, Palette::kRecordOn},
                                          {"I", &Track::monitoring, Palette::kMonitorOn}}};

/// The buttons of a header: in the lower row of a tall one, else at the right.
CGRect buttonRect(const Header& header, const Columns& columns, std::size_t index) {
  const double all = kButtonPitch * static_cast<double>(kButtons.size());
  const double left = header.isTall() ? columns.name : header.frame.size.width - kGap - all;
  return header.at(left + kButtonPitch * static_cast<double>(index), header.buttonTop(), kButtonWidth, kButtonHeight);
}

CGRect textRect(const Header& header, const Columns& columns, const Track& track) {
  const double left = columns.name + (track.folder ? kDisclosureWidth : 0);
  const double right = kGap + (header.isTall() ? 0 : kButtonPitch * static_cast<double>(kButtons.size()));
  return header.at(left, header.nameTop(), std::max(0.0, header.frame.size.width - left - right), kNameHeight);
}

CGRect disclosureRect(const Header& header, const Columns& columns) {
  return header.at(columns.name, header.nameTop(), kDisclosureWidth, kNameHeight);
}

/// Draws the parts of one header.
class HeaderDrawing {
 public:
  HeaderDrawing(const Painter& painter, const ArrangeModel& model, std::size_t row, const Header& header)
      : painter_(painter),
        setup_(model.song.arrange.headers),
        track_(model.song.tracks[row]),
        number_(row + 1),
        header_(header),
        columns_(setup_, model.knowsControlSurfaces),
        surfaces_(model.knowsControlSurfaces ? setup_.controlSurfaceBars.value_or(0) : 0) {}

  void draw() const {
    painter_.fill(header_.at(0, header_.height() - 1, header_.frame.size.width, 1),
                  paletteColor(Palette::kArrangeHeaderLine));
    drawBars();
    if (setup_.trackNumbers) {
      painter_.text(std::to_string(number_),
                    header_.at(columns_.number, 0, columns_.icon - columns_.number - 3, header_.height()),
                    paletteColor(Palette::kNumberText), {.size = 9.5, .alignment = TextAlignment::kRight});
    }
    drawIcon();
    if (track_.folder) drawDisclosure();
    painter_.text(track_.name, textRect(header_, columns_, track_), paletteColor(Palette::kNameText),
                  {.size = 11.5, .weight = track_.selected ? 0.23 : 0, .alignment = TextAlignment::kLeft});
    for (std::size_t i = 0; i < kButtons.size(); ++i) drawButton(kButtons[i], buttonRect(header_, columns_, i));
    if (header_.isTall()) drawVolume();
  }

 private:
  void drawBars() const {
    for (int bar = 0; bar < surfaces_; ++bar) {
      const double grey = (80 + bar % 2 * 40) / 255.0;
      painter_.fill(header_.at(kControlSurfaceBarWidth * bar, 0, kControlSurfaceBarWidth, header_.height()),
                    NSColor::colorWithSRGBRed(grey, grey, grey, 1));
    }
    if (!setup_.colorBars) return;
    const NSColor color = trackColor(track_);
    painter_.fill(header_.at(columns_.colorBar, 0, kColorBarWidth, header_.height()),
                  color ? color : paletteColor(Palette::kArrangeNoColor));
  }

  void drawIcon() const {
    constexpr double kDrawnSide = 22;  // of an icon at its own scale, with some air
    const double side = std::min(kIconSide, header_.height() - 5);
    const CGRect place =
        header_.at(columns_.icon + (kIconSide - side) / 2, (header_.height() - 1 - side) / 2, side, side);
    painter_.fillRounded(place, 4, paletteColor(Palette::kIconBackground));
    drawTrackIcon(painter_, track_.icon, {place.midX(), place.midY()}, side / kDrawnSide * 0.85);
  }

  void drawDisclosure() const {
    const CGRect place = disclosureRect(header_, columns_);
    const double down = header_.flipped ? 1 : -1;
    const CGContextRef context = painter_.context();
    CGContextBeginPath(context);
    CGContextMoveToPoint(context, place.minX() + 1, place.midY() - 2 * down);
    CGContextAddLineToPoint(context, place.minX() + 8, place.midY() - 2 * down);
    CGContextAddLineToPoint(context, place.minX() + 4.5, place.midY() + 3 * down);
    CGContextClosePath(context);
    CGContextSetFillColorWithColor(context, paletteColor(Palette::kNameText).CGColor());
    CGContextFillPath(context);
  }

  void drawButton(const Button& button, CGRect place) const {
    const bool on = track_.*button.on;
    painter_.fillRounded(place, 3, paletteColor(on ? button.color : Palette::kSymbolOff));
    painter_.text(button.letter, place, paletteColor(on ? Palette::kRegionTextDark : Palette::kSymbolText),
                  {.size = 8.5, .weight = 0.3});
  }

  /// A slider right of the buttons, as far as there is room.
  void drawVolume() const {
    constexpr double kSoftest = -60;
    constexpr double kLoudest = 6;
    constexpr double kThumb = 8;
    const double left = columns_.name + kButtonPitch * static_cast<double>(kButtons.size()) + 2;
    const double width = header_.frame.size.width - left - 8;
    if (width < 2 * kThumb) return;
    const double level = std::clamp((track_.volume - kSoftest) / (kLoudest - kSoftest), 0.0, 1.0);
    const double y = header_.buttonTop() + kButtonHeight / 2;
    painter_.fillRounded(header_.at(left, y - 1.5, width, 3), 1.5, paletteColor(Palette::kArrangeVolumeTrack));
    painter_.fillRounded(header_.at(left, y - 1.5, width * level, 3), 1.5, paletteColor(Palette::kArrangeVolume));
    painter_.fillEllipse(header_.at(left + (width - kThumb) * level, y - kThumb / 2, kThumb, kThumb),
                         paletteColor(Palette::kFaderTop));
  }

  const Painter& painter_;
  const HeaderSetup& setup_;
  const Track& track_;
  std::size_t number_;
  Header header_;
  Columns columns_;
  int surfaces_;
};

Ref<NSArray> makeButtonElements(NSView view, const Header& header, const Columns& columns, const Track& track) {
  const auto list = NSMutableArray::array();
  if (track.folder) {
    list.addObject(
        makeAccessibilityElement(view, NSAccessibilityDisclosureTriangleRole, disclosureRect(header, columns)));
  }
  for (std::size_t i = 0; i < kButtons.size(); ++i) {
    const auto button = makeAccessibilityElement(view, literal<"AXButton">(), buttonRect(header, columns, i));
    stateOf<MAAccessibilityElement>(button).makeDescription = [i] { return string(kButtons[i].letter); };
    list.addObject(button);
  }
  return list;
}

}  // namespace

BOOL ArrangeTrackHeaderSectionView::isFlipped() {
  const ArrangeModel* model = stateOf<CLgSectionView>(self).model;
  return static_cast<BOOL>(model != nullptr && model->flippedHeaders);
}

CGRect ArrangeTrackHeaderSectionView::headerRect(std::size_t row) {
  const CGSize size = NSView(self).frame().size;
  const TrackRows& rows = stateOf<CLgSectionView>(self).model->rows;
  const double y = isFlipped() != 0 ? rows.top(row) : size.height - rows.top(row) - rows.height(row);
  return CGRectMake(0, y, size.width, rows.height(row));
}

CGRect ArrangeTrackHeaderSectionView::nameRect(std::size_t row) {
  const ArrangeModel& model = *stateOf<CLgSectionView>(self).model;
  return textRect({headerRect(row), isFlipped() != 0}, Columns(model.song.arrange.headers, model.knowsControlSurfaces),
                  model.song.tracks[row]);
}

void ArrangeTrackHeaderSectionView::drawRect(CGRect dirty) {
  const ArrangeModel* model = stateOf<CLgSectionView>(self).model;
  if (model == nullptr) return;
  const NSGraphicsContext graphics = NSGraphicsContext::currentContext();
  const Painter painter(graphics.CGContext(), graphics.isFlipped());
  const double height = NSView(self).frame().size.height;
  const bool flipped = isFlipped() != 0;
  const auto [first, end] = flipped ? model->rows.rowsIn(dirty.minY(), dirty.maxY())
                                    : model->rows.rowsIn(height - dirty.maxY(), height - dirty.minY());
  for (std::size_t row = first; row < end; ++row) {
    HeaderDrawing(painter, *model, row, {headerRect(row), flipped}).draw();
  }
}

/// Selects the track under the pointer, and that one alone.
void ArrangeTrackHeaderSectionView::mouseDown(NSEvent event) {
  ArrangeModel* model = stateOf<CLgSectionView>(self).model;
  if (model == nullptr) return;
  const CGPoint point = NSView(self).convertPointFromView(event.locationInWindow(), NSView());
  const double height = NSView(self).frame().size.height;
  const std::size_t row = model->rows.rowAt(isFlipped() != 0 ? point.y : height - point.y);
  if (row >= model->rows.count()) return;
  for (std::size_t i = 0; i < model->song.tracks.size(); ++i) model->song.tracks[i].selected = i == row;
  stateOf<CLgArrangeView>(stateOf<CLgSectionView>(self).parentView).contentsChanged();
}

void ArrangeTrackHeaderSectionView::mouseUp(NSEvent /*event*/) { NSView(self).setNeedsDisplay(true); }

NSArray ArrangeTrackHeaderSectionView::accessibilityChildren() {
  auto& section = stateOf<CLgSectionView>(self);
  if (section.model == nullptr) return NSArray::array();
  const auto make = [&]() -> Ref<NSArray> {
    const auto list = NSMutableArray::array();
    const ArrangeModel& model = *section.model;
    const NSView view(self);
    for (std::size_t row = 0; row < model.song.tracks.size(); ++row) {
      const Track& track = model.song.tracks[row];
      const Header header{headerRect(row), isFlipped() != 0};
      const auto made = makeAccessibilityElement(view, NSAccessibilityGroupRole, header.frame);
      auto& element = stateOf<MAAccessibilityElement>(made);
      element.selected = track.selected;
      element.makeDescription = [&track, row] { return trackDescription(row + 1, string(track.name)); };
      element.makeChildren = [&track, &model, view, header] {
        return makeButtonElements(view, header, Columns(model.song.arrange.headers, model.knowsControlSurfaces), track);
      };
      list.addObject(made);
    }
    return list;
  };
  const NSArray elements = section.elements(make);
  // Whoever asks for the headers gets them by their names.
  for (const NSObject each : items(elements)) stateOf<MAAccessibilityElement>(each).accessibilityDescription();
  return elements;
}

void defineArrangeTrackHeaderSectionView() {
  using View = ArrangeTrackHeaderSectionView;
  ClassDefinition<View>("ArrangeTrackHeaderSectionView", "CLgSectionView")
      .method<"isFlipped", &View::isFlipped>()
      .method<"drawRect:", &View::drawRect>()
      .method<"mouseDown:", &View::mouseDown>()
      .method<"mouseDragged:", &View::mouseDragged>()
      .method<"mouseUp:", &View::mouseUp>()
      .method<"accessibilityChildren", &View::accessibilityChildren>()
      .registered();
}

}  // namespace host
