#include "host/mixer/MixerLegend.h"

#include <array>
#include <cmath>
#include <string>

#include "cocoa/QuartzCore.h"
#include "host/drawing/Painter.h"
#include "host/drawing/ScreenImage.h"
#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"
#include "host/mixer/MixerStrips.h"
#include "host/mixer/ScaleMarks.h"
#include "host/mixer/StripBuilder.h"

namespace host {
namespace {

using namespace cocoa;

constexpr std::string_view kPrefix = "MAMixerLegend";
constexpr std::string_view kLabelSuffix = "LabelItem";
constexpr std::string_view kScaleIdentifier = "MAMixerLegendVolumeScaleItem";

// ---- The scale ----------------------------------------------------------------------------------------

// The picture is shown at half its size. That, and where its 0 dB mark stands, follow from the length of the faders.
constexpr double kShrunk = 2;
constexpr double kScaleWidth = 134;
constexpr double kScaleTicks = 23;
constexpr double kLowestMark = 8;

struct ScalePicture {
  double height;
  double zero;     // how far the mark of 0 dB is from the top
  double density;  // pixels a point of the picture
};
constexpr ScalePicture kScalePictures[] = {{398, 236, 1}, {498, 118, 2}, {598, 333, 1}};

const ScalePicture& scalePicture(const Song& song) {
  return kScalePictures[static_cast<std::size_t>(song.faderLength)];
}

/// Above the lower edge of a strip.
double zeroHeight(const Song& song) {
  return faderBottom() + markHeight(kVolumeScale, kZeroDecibels, faderHeight(song)) + 0.5;
}

void drawScale(const Song& song, CGContextRef context) {
  const Painter painter(context);
  const ScalePicture& picture = scalePicture(song);
  const double fader = faderHeight(song);
  const double zero = markHeight(kVolumeScale, kZeroDecibels, fader);
  for (const ScaleMark& mark : scaleMarks(kVolumeScale)) {
    const NSColor color = paletteColor(mark.position == kZeroDecibels ? Palette::kScaleZero : Palette::kScaleTick);
    const double above = (markHeight(kVolumeScale, mark.position, fader) - zero) * kShrunk;
    // From the bottom, two pixels high. The lowest mark is moved into the picture.
    const double y = std::max(kLowestMark, picture.height - picture.zero + above - 1);
    painter.fill(CGRectMake(kScaleWidth - kScaleTicks + 3, y, kScaleTicks - 5, 2), color);
    painter.text(mark.label, CGRectMake(0, y - 9, kScaleWidth - kScaleTicks - 4, 20), color,
                 {.size = 15, .alignment = TextAlignment::kRight});
  }
}

/// One picture for each length of faders, shared by all legends.
NSImage scaleImage(const Song& song) {
  static std::array<Ref<NSImage>, std::size(kScalePictures)> images;
  Ref<NSImage>& image = images[static_cast<std::size_t>(song.faderLength)];
  if (!image) {
    const ScalePicture& picture = scalePicture(song);
    const CGSize size{kScaleWidth, picture.height};
    image = NSImage::withSize(size);
    image->addRepresentation(drawnBitmap(size, picture.density, [&](CGContextRef context) {
      CGContextScaleCTM(context, picture.density, picture.density);
      drawScale(song, context);
    }));
  }
  return image;
}

/// Shows an image over the whole of its bounds.
struct MAMixerLegendImageView : ObjectState {
  Ref<NSImage> image;
  Ref<NSString> identifier;
  void setImage(NSImage changed) {
    image = changed;
    NSView(self).setNeedsDisplay(true);
  }
  void drawRect(CGRect /*dirty*/) {
    if (image) Painter(NSGraphicsContext::currentContext().CGContext()).image(image, NSView(self).bounds());
  }
};

// ---- Labels -------------------------------------------------------------------------------------------

/// The sections of strips under the names that users read. The notes' has none.
constexpr std::pair<std::string_view, std::string_view> kTitles[] = {
    {"Setting", "Setting"}, {"GainReduction", "Gain Reduction"},
    {"EQ", "EQ"},           {"MIDIEffects", "MIDI FX"},
    {"Input", "Input"},     {"AudioEffects", "Audio FX"},
    {"Sends", "Sends"},     {"Output", "Output"},
    {"Group", "Group"},     {"Automation", "Automation"},
    {"Icon", "Icon"},       {"Pan", "Pan"},
    {"Volume", "dB"},       {"Notes", ""},
    {"Name", "Name"},
};

std::string identifierOf(std::string_view section) {
  return std::string(kPrefix) + std::string(section) + std::string(kLabelSuffix);
}

NSAttributedString styled(std::string_view title) {
  const auto attributes = textAttributes(paletteColor(Palette::kDisplayText), 10.5, 0, NSTextAlignmentRight);
  return autoreleased(NSAttributedString::withString(string(title), attributes));
}

NSObject newLabel(std::string_view title, NSString identifier) {
  const Ref<NSView> label = newView("MATextField", {});
  call<"setIdentifier:">(label.get(), identifier);
  cast<NSTextField>(label.get()).setAttributedStringValue(styled(title));
  return autoreleased(label);
}

NSObject newScale(const Song& song, NSString identifier) {
  const Ref<NSView> view = newView("MAMixerLegendImageView", {});
  call<"setIdentifier:">(view.get(), identifier);
  call<"setImage:">(view.get(), scaleImage(song));
  return autoreleased(view);
}

// ---- The legend ---------------------------------------------------------------------------------------

/// Shows its colour on its layer, given once when the legend is set up.
struct MixerLegendView : ObjectState {
  NSColor backgroundColor() { return paletteColor(Palette::kMixerBackground); }
};

struct MixerLegendViewController : ObjectState {
  const Song* song = nullptr;
  Ref<NSObject> items;

  [[nodiscard]] NSView legend() { return cast<NSViewController>(NSObject(self)).view(); }

  void setupLegendElements() {
    if (song == nullptr) return;
    call<"addElements">(self);
  }
  void addElements() {
    const NSView view = legend();
    view.layer().setBackgroundColor(call<"backgroundColor", NSColor>(view).CGColor());
    for (const StripRow& row : stripRows(*song)) addLabel(view, row);
    view.addSubview(cast<NSView>(item(kScaleIdentifier)));
  }
  /// The label of the volume lies in a view of its own, beside the scale.
  void addLabel(NSView view, const StripRow& row) {
    const auto label = cast<NSView>(item(identifierOf(row.section)));
    if (!label) return;
    if (std::string_view(row.section) != "Volume") return view.addSubview(label);
    const Ref<NSView> place = newView("MAView", {});
    view.addSubview(place);
    place->addSubview(label);
  }
  NSObject item(std::string_view identifier) {
    return call<"legendItemForIdentifier:", NSObject>(items.get(), string(identifier));
  }

  void updateLayout() {
    constexpr double kRight = 8;
    if (song == nullptr) return;
    const NSView view = legend();
    const double width = view.bounds().size.width - kRight;
    const std::vector<StripRow> rows = stripRows(*song);
    std::size_t at = 0;
    for (const NSView element : elementsOf(view)) {
      if (at < rows.size()) {
        const StripRow& row = rows[at++];
        place(element, CGRectMake(0, kBelowStrips + row.y, width, row.height));
      } else {
        const double height = scalePicture(*song).height / kShrunk;
        const double zeroFromTop = scalePicture(*song).zero / kShrunk;
        const double bottom = kBelowStrips + zeroHeight(*song) - (height - zeroFromTop);
        element.setFrame(CGRectMake(width - kScaleWidth / kShrunk + 4, bottom, kScaleWidth / kShrunk, height));
      }
    }
    view.setNeedsDisplay(true);
  }

 private:
  static std::vector<NSView> elementsOf(NSView view) {
    std::vector<NSView> all;
    for (const NSView element : cocoa::items<NSView>(view.subviews())) all.push_back(element);
    return all;
  }
  /// An element of a fixed height, in the middle of its row; one in a view of its own fills that.
  static void place(NSView element, CGRect row) {
    constexpr double kHeight = 15;
    const CGRect frame = CGRectMake(row.minX(), std::round(row.midY() - kHeight / 2), row.size.width, kHeight);
    element.setFrame(frame);
    for (const NSView inside : elementsOf(element)) inside.setFrame(CGRectMake(0, 0, frame.size.width, kHeight));
  }
};

}  // namespace

NSObject newLegendItem(const Song& song, NSString identifier) {
  const std::string name = toStdString(identifier);
  if (name == kScaleIdentifier) return newScale(song, identifier);
  for (const auto& [section, title] : kTitles) {
    if (name == identifierOf(section)) return newLabel(title, identifier);
  }
  return {};
}

Ref<NSObject> newLegendController(const Song& song, NSObject items, CGRect frame) {
  Ref<NSObject> controller = newObject("MixerLegendViewController");
  auto& state = stateOf<MixerLegendViewController>(controller);
  state.song = &song;
  state.items = items;
  cast<NSViewController>(controller).setView(newView("MixerLegendView", frame));
  call<"setupLegendElements">(controller.get());
  call<"updateLayout">(controller.get());
  return controller;
}

void closeLegend(NSObject controller) { stateOf<MixerLegendViewController>(controller).song = nullptr; }

void defineMixerLegend() {
  definePlainClass<"MATextField">("NSTextField");
  ClassDefinition<MAMixerLegendImageView>("MAMixerLegendImageView", "MAView")
      .getter<"image", &MAMixerLegendImageView::image>()
      .method<"setImage:", &MAMixerLegendImageView::setImage>()
      .method<"drawRect:", &MAMixerLegendImageView::drawRect>()
      .registered();
  ClassDefinition<MixerLegendView>("MixerLegendView", "MAView")
      .method<"backgroundColor", &MixerLegendView::backgroundColor>()
      .registered();
  ClassDefinition<MixerLegendViewController>("MixerLegendViewController", "NSViewController")
      .method<"setupLegendElements", &MixerLegendViewController::setupLegendElements>()
      .method<"addElements", &MixerLegendViewController::addElements>()
      .method<"updateLayout", &MixerLegendViewController::updateLayout>()
      .registered();
}

}  // namespace host
