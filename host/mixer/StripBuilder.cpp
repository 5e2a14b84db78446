#include "host/mixer/StripBuilder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "host/mixer/MAButtonNode.h"
#include "host/mixer/MADisplayNode.h"
#include "host/mixer/MADynamicScaleNode.h"
#include "host/mixer/MAEQThumbnailNode.h"
#include "host/mixer/MAFaderNode.h"
#include "host/mixer/MAGainReductionMeterNode.h"
#include "host/mixer/MAKnobNode.h"
#include "host/mixer/MALevelNode.h"
#include "host/mixer/MAPannerNode.h"
#include "host/mixer/MAScaleNode.h"
#include "host/mixer/MAStripNode.h"
#include "host/mixer/MASymbolButtonNode.h"
#include "host/mixer/MATextNode.h"
#include "host/mixer/MixerData.h"
#include "host/mixer/PlugIn.h"
#include "host/mixer/ScaleMarks.h"

namespace host {
namespace {

using namespace cocoa;

// The lower part of a strip, from the bottom edge upwards, in points.
constexpr double kMargin = 5;
constexpr double kInnerWidth = kStripWidth - 1 - 2 * kMargin;
constexpr CGRect row(double y, double height) { return {{kMargin, y}, {kInnerWidth, height}}; }
constexpr CGRect kName = row(4, 20);
constexpr CGRect kNotes = row(25, 14);
constexpr CGRect kNumber = {{kMargin, 40}, {20, 13}};
constexpr CGRect kLabel = {{kMargin + 20, 40}, {kInnerWidth - 20, 13}};
constexpr double kMuteY = 56;
constexpr double kRecordY = 76;
constexpr double kSymbolHeight = 18;
constexpr CGRect kVolumeMarks = {{2, 98}, {18, kDefaultScaleHeight}};
constexpr CGRect kFader = {{20, 98}, {26, kDefaultScaleHeight}};
constexpr CGRect kLevelMarks = {{47, 98}, {15, kDefaultScaleHeight}};
constexpr CGRect kLevel = {{63, 98}, {15, kDefaultScaleHeight}};

// Above the fader, which a song may have longer: from the lower edge of a strip with a fader of the usual length.
constexpr double kReadoutY = 247;
constexpr double kReadoutHeight = 14;
constexpr CGRect kPan = {{22, 267}, {40, 40}};
constexpr CGRect kIcon = {{kMargin + 14, 313}, {kInnerWidth - 28, 26}};
constexpr CGRect kAutomation = row(344, 17);
constexpr CGRect kGroup = row(364, 15);
constexpr CGRect kOutput = row(383, 17);
constexpr double kSendsY = 404;

// The upper part, whose rows the song decides.
constexpr double kRowPitch = 20;
constexpr double kSlotHeight = 18;
constexpr double kGap = 4;
constexpr double kEqualizerHeight = 40;
constexpr double kReductionHeight = 8;
constexpr double kTopMargin = 8;
constexpr double kSmallKnob = 18;

struct UpperRows {
  double sends = kSendsY;
  double audio = 0;
  double input = 0;
  double midi = 0;
  double equalizer = 0;
  double reduction = 0;
  double setting = 0;
  double top = 0;
};

double faderExtra(const Song& song) {
  constexpr double kExtra[] = {0, 36, 73};
  return kExtra[static_cast<std::size_t>(song.faderLength)];
}

UpperRows upperRows(const Song& song) {
  UpperRows rows;
  rows.sends += faderExtra(song);
  rows.audio = rows.sends + song.sendRows * kRowPitch + kGap;
  rows.input = rows.audio + song.audioRows * kRowPitch + kGap;
  rows.midi = rows.input + kRowPitch;
  rows.equalizer = rows.midi + kRowPitch + kGap;
  rows.reduction = rows.equalizer + kEqualizerHeight + kGap;
  rows.setting = rows.reduction + kReductionHeight + kGap;
  rows.top = rows.setting + kSlotHeight + kTopMargin;
  return rows;
}

/// What a kind of track shows.
struct Sections {
  bool setting, reduction, equalizer, midi, input, audio, sends, output, group, pan, fader, record, solo, name;
};

constexpr Sections kAll{true, true, true, false, true, true, true, true, true, true, true, true, true, true};

Sections sectionsOf(const Track& track) {
  Sections s = kAll;
  if (track.folder) {
    s = {false, false, true, false, false, true, false, true, false, true, true, false, true, true};
    return s;
  }
  switch (track.type) {
    case StripType::kAudio:
      break;
    case StripType::kInstrument:
      s.midi = true;
      break;
    case StripType::kAux:
      s.record = false;
      break;
    case StripType::kBus:
      s.record = s.input = false;
      break;
    case StripType::kStereoOut:
      s.record = s.solo = s.input = s.output = s.sends = s.group = false;
      break;
    case StripType::kMaster:
      s = {false, false, false, false, false, false, false, false, false, false, true, false, false, true};
      break;
    case StripType::kOther:
      s = {false, false, false, false, false, false, false, false, false, true, true, false, true, false};
      break;
  }
  return s;
}

const char* labelOf(const Track& track) {
  if (track.folder) return "Stack";
  switch (track.type) {
    case StripType::kAudio:
      return "Audio";
    case StripType::kInstrument:
      return "Inst";
    case StripType::kAux:
      return "Aux";
    case StripType::kBus:
      return "Bus";
    case StripType::kStereoOut:
      return "Output";
    case StripType::kMaster:
      return "Master";
    case StripType::kOther:
      break;
  }
  return "Other";
}

bool isBright(SongColor color) { return color.red * 299 + color.green * 587 + color.blue * 114 > 105'000; }

/// Puts one strip together, section by section.
class StripBuilder {
 public:
  StripBuilder(const Song& song, const Track& track, std::size_t number)
      : song_(song),
        track_(track),
        number_(number),
        rows_(upperRows(song)),
        sections_(sectionsOf(track)),
        lift_(faderExtra(song)) {
    strip_ = makeNode("MAStripNode", "strip", CGRectMake(0, 0, kStripWidth, rows_.top));
    node().stripLook = stripLook();
  }

  Ref<NSObject> build() {
    addHeader();
    addInput();
    addSlots();
    addSends();
    addRouting();
    addPan();
    addFader();
    addButtons();
    addTexts();
    node().setEmptySlots(std::move(empty_));
    if (track_.selected) call<"setHighlightState:">(strip_.get(), NSInteger(1));
    return strip_;
  }

 private:
  MAStripNode& node() { return stateOf<MAStripNode>(strip_.get()); }

  [[nodiscard]] StripLook stripLook() const {
    if (track_.folder) return {Palette::kFolderBackground, Palette::kFolderHighlight};
    if (track_.type == StripType::kAux) return {Palette::kAuxBackground, Palette::kAuxHighlight};
    return {};
  }

  NSObject add(const char* className, const char* name, CGRect frame, std::string_view title = {}) {
    const Ref<NSObject> child = makeNode(className, name, frame);
    stateOf<MANode>(child.get()).title = string(title);
    call<"addChild:">(strip_.get(), child.get());
    return child;
  }
  NSObject addButton(const char* name, CGRect frame, std::string_view title, const char* path, bool on = true) {
    const NSObject button = add("MAButtonNode", name, frame, title);
    stateOf<MANode>(button).state = on ? 1 : 0;
    call<"setAssetSetPath:">(button, string(path));
    stateOf<MAButtonNode>(button).applyForeground();
    return button;
  }
  void addPlugIn(const char* name, CGRect frame, const PlugInSlot& slot, const char* path) {
    const NSObject button = addButton(name, frame, slot.name, path);
    stateOf<MAButtonNode>(button).isPlugIn = true;
    showPlugIn(button, slot);
  }
  NSObject addKnob(const char* name, CGRect frame, double value, Palette fill, double neutral = 0) {
    const NSObject made = add("MAKnobNode", name, frame);
    MAKnobNode& knob = stateOf<MAKnobNode>(made);
    knob.neutral = neutral;
    knob.fill = fill;
    call<"setValue:">(made, value);
    return made;
  }
  static void addReadout(NSObject knob, const char* name, CGRect frame, std::string_view text) {
    const Ref<NSObject> readout = makeNode("MATextNode", name, frame);
    stateOf<MANode>(readout.get()).title = string(text);
    stateOf<MATextNode>(readout.get()).style = {.size = 7.5, .alignment = TextAlignment::kRight};
    call<"setForegroundColor:">(readout.get(), paletteColor(Palette::kReadoutText));
    knob::addPart(knob.object, readout);
  }
  void addSymbol(const char* name, CGRect frame, const char* glyph, bool on, bool blinks = false) {
    const NSObject button = add("MASymbolButtonNode", name, frame, glyph);
    stateOf<MANode>(button).state = on       ? MASymbolButtonNode::kOn
                                    : blinks ? MASymbolButtonNode::kBlinking
                                             : MASymbolButtonNode::kOff;
    call<"setForegroundColor:">(button, paletteColor(Palette::kSymbolText));
    stateOf<MASymbolButtonNode>(button).applySymbol();
  }
  void leaveEmpty(CGRect rect, std::string_view title = {}) {
    EmptySlot& slot = empty_.emplace_back();
    slot.rect = rect;
    if (!title.empty()) slot.title = string(title);
  }

  void addHeader() {
    if (sections_.setting) {
      const CGRect frame = row(rows_.setting, kSlotHeight);
      addButton("setting", frame, track_.setting.empty() ? "Setting" : track_.setting, "Buttons.Default",
                !track_.setting.empty());
      if (track_.selected) addLibraryIndicator(frame);
    }
    if (sections_.reduction) {
      const NSObject meter =
          add("MAGainReductionMeterNode", "gainReductionMeter", row(rows_.reduction, kReductionHeight));
      stateOf<MAGainReductionMeterNode>(meter).reduction = track_.gainReduction;
      stateOf<MAGainReductionMeterNode>(meter).isOn = track_.gainReduction > 0;
    }
    if (sections_.equalizer) {
      const NSObject thumbnail =
          add("MAEQThumbnailNode", "equalizerThumbnail", row(rows_.equalizer, kEqualizerHeight), "EQ");
      stateOf<MAEQThumbnailNode>(thumbnail).curve = track_.equalizer ? static_cast<unsigned>(number_) : 0;
    }
  }
  void addLibraryIndicator(CGRect frame) {
    const NSObject indicator =
        add("MATextNode", "libraryIndicator", CGRectMake(frame.minX() + 2, frame.minY() + 2, 3, frame.size.height - 4));
    call<"setBackgroundColor:">(indicator, paletteColor(Palette::kLibraryIndicator));
  }

  void addInput() {
    if (sections_.midi) {
      const CGRect frame = row(rows_.midi, kSlotHeight);
      if (track_.midiPlugIns.empty()) {
        leaveEmpty(frame, "MIDI FX");
      } else {
        addPlugIn("midiPlugIn", frame, track_.midiPlugIns.front(), "Buttons.MIDIPlugIn");
      }
    }
    if (!sections_.input) return;
    const CGRect frame = row(rows_.input, kSlotHeight);
    if (track_.type == StripType::kInstrument) {
      addInstrument(frame);
    } else {
      addAudioInput(frame);
    }
  }
  void addInstrument(CGRect frame) {
    const InstrumentSlot& slot = track_.instrument;
    if (slot.name.empty()) {
      addButton("input", frame, "Instrument", "Buttons.EmptyPlugIn");
    } else {
      addPlugIn("input", frame, slot, slot.audio ? "Buttons.AudioPlugIn" : "Buttons.MIDIPlugIn");
    }
  }
  void addAudioInput(CGRect frame) {
    constexpr double kMode = 18;
    constexpr double kBetween = 2;
    addSymbol("channelMode", CGRectMake(frame.minX(), frame.minY(), kMode, kSlotHeight), track_.stereo ? "oo" : "o",
              false);
    double right = frame.maxX();
    if (track_.inputGain && track_.type == StripType::kAudio) {
      right -= kSmallKnob;
      addInputGain(CGRectMake(right, frame.minY(), kSmallKnob, kSmallKnob), *track_.inputGain);
      right -= kBetween;
    }
    const double left = frame.minX() + kMode + kBetween;
    const CGRect input = CGRectMake(left, frame.minY(), right - left, kSlotHeight);
    if (track_.input.empty()) {
      leaveEmpty(input, "Input");
    } else {
      addButton("input", input, track_.input, "Buttons.InputSegment");
    }
  }
  void addInputGain(CGRect frame, double gain) {
    constexpr double kRange = kHighestInputGain - kLowestInputGain;
    const NSObject knob = addKnob("inputGainKnob", frame, (gain - kLowestInputGain) / kRange, Palette::kInputGainArc,
                                  -kLowestInputGain / kRange);
    addReadout(knob, "knob readout", CGRectMake(-12, frame.size.height, 32, 10), signedNumber(gain));
  }

  void addSlots() {
    if (!sections_.audio) return;
    for (int i = 0; i < song_.audioRows; ++i) {
      const CGRect frame = row(rows_.audio + (song_.audioRows - 1 - i) * kRowPitch, kSlotHeight);
      const auto index = static_cast<std::size_t>(i);
      if (index < track_.audioPlugIns.size()) {
        addPlugIn("audioPlugIn", frame, track_.audioPlugIns[index], "Buttons.AudioPlugIn");
      } else if (track_.type == StripType::kStereoOut && i + 1 == song_.audioRows) {
        addButton("masteringAssistant", frame, "Mastering", "Buttons.Default");
      } else if (index == track_.audioPlugIns.size()) {
        leaveEmpty(frame, "Audio FX");
      }
    }
  }

  void addSends() {
    if (!sections_.sends) return;
    for (int i = 0; i < song_.sendRows; ++i) {
      const CGRect frame = row(rows_.sends + (song_.sendRows - 1 - i) * kRowPitch, kSlotHeight);
      const CGRect slot = CGRectMake(frame.minX(), frame.minY(), frame.size.width - kSmallKnob - 2, kSlotHeight);
      const CGRect knob = CGRectMake(frame.maxX() - kSmallKnob, frame.minY(), kSmallKnob, kSmallKnob);
      const auto index = static_cast<std::size_t>(i);
      if (index < track_.sends.size()) {
        addSend(track_.sends[index], slot, knob);
      } else if (index == track_.sends.size()) {
        leaveEmpty(slot, "Send");
        empty_.push_back({EmptyElement::kKnob, knob.insetBy(1, 1), {}});
      }
    }
  }

  void addSend(const SendSlot& send, CGRect slot, CGRect frame) {
    const NSObject button = addButton("sendButton", slot, send.bus,
                                      send.onFader ? "Buttons.SendIsOnFader" : "Buttons.Send", !send.bypassed);
    if (send.lowLatency) stateOf<MAButtonNode>(button).setMode(ButtonMode::kLowLatency);
    const bool postPan = send.mode == SendMode::kPostPan;
    const NSObject knob =
        addKnob("sendKnob", frame, send.level, postPan ? Palette::kSendPostPanArc : Palette::kSendArc);
    call<"setRepresentedObject:">(knob, representedSend(send.mode).get());
    stateOf<MAKnobNode>(knob).setBypassed(BOOL(send.bypassed));
  }

  void addRouting() {
    if (sections_.output)
      addButton("output", lifted(kOutput), track_.output.empty() ? "No Output" : track_.output, "Buttons.Default");
    if (sections_.group) {
      const NSObject group =
          add("MADisplayNode", "group", lifted(kGroup), track_.group.empty() ? "Group" : track_.group);
      stateOf<MANode>(group).assetSetPath = string(track_.group.empty() ? "Displays.Empty" : "Displays.Default");
      call<"setTextColor:">(
          group, track_.group.empty() ? paletteColor(Palette::kEmptySlotTitle) : paletteColor(Palette::kGroupText));
    }
    if (track_.type != StripType::kMaster) {
      const std::string mode = track_.automation.empty() ? "Read" : track_.automation;
      addButton("automation", lifted(kAutomation), mode, ("Buttons.Automation" + mode).c_str(),
                !track_.automation.empty());
      add("MAImageNode", "icon", lifted(kIcon), track_.icon);
    }
  }

  void addPan() {
    if (!sections_.pan) return;
    const double value = (track_.pan + 64) / 127;
    if (track_.type == StripType::kOther) addAssignKnobs();
    switch (track_.panning.mode) {
      case PanMode::kSurround:
        stateOf<MAPlanarPannerNode>(add("MAPlanarPannerNode", "surround", lifted(kPan))).setPanning(track_.panning);
        return;
      case PanMode::kStereo: {
        const NSObject pan = add("MAStereoPannerNode", "pan", lifted(kPan));
        stateOf<MAStereoPannerNode>(pan).setPanning(value, track_.panning);
        return addPanReadout(pan);
      }
      case PanMode::kBalance:
        return addPanReadout(addKnob("pan", lifted(kPan), value, Palette::kKnobArc, 0.5));
    }
  }
  void addPanReadout(NSObject pan) const {
    if (track_.pan == 0) return;
    addReadout(pan, "panner readout", CGRectMake(34, 0, 22, 10), signedNumber(track_.pan));
  }
  /// Two controllers that a strip of an external instrument is assigned.
  void addAssignKnobs() {
    constexpr double kSize = 30;
    const double y = lifted(kAutomation).maxY() + 3;
    addKnob("midiAssignKnob1", CGRectMake(kMargin + 4, y, kSize, kSize), 0.7, Palette::kKnobArc);
    addKnob("midiAssignKnob2", CGRectMake(kStripWidth - 1 - kMargin - 4 - kSize, y, kSize, kSize), 0.35,
            Palette::kKnobArc);
  }

  [[nodiscard]] CGRect lifted(CGRect frame) const { return frame.offsetBy(0, lift_); }
  [[nodiscard]] CGRect lengthened(CGRect frame) const {
    frame.size.height += lift_;
    return frame;
  }

  void addFader() {
    const double half = (kInnerWidth - 2) / 2;
    const NSObject volume = add("MADisplayNode", "volume", lifted(CGRectMake(kMargin, kReadoutY, half, kReadoutHeight)),
                                decibels(track_.volume));
    call<"setTextColor:">(volume, paletteColor(Palette::kDisplayText));
    const NSObject peak =
        add("MADisplayNode", "peak", lifted(CGRectMake(kMargin + half + 2, kReadoutY, half, kReadoutHeight)),
            decibels(track_.peak));
    call<"setTextColor:">(peak, peakColor(track_.peak));
    addScale("volumeScale", lengthened(kVolumeMarks), kVolumeScale);
    const NSObject fader = add("MAFaderNode", "volumeFader", lengthened(kFader));
    call<"setFaderMode:">(fader, static_cast<NSInteger>(track_.faderMode));
    call<"setValue:">(fader, faderPosition(track_.volume));
    addScale("levelScale", lengthened(kLevelMarks), kLevelScale);
    MALevelNode& level = stateOf<MALevelNode>(add("MALevelNode", "level", lengthened(kLevel)));
    level.setMixerLevelType(meterType());
    level.setBars(track_.stereo ? 2 : 1);
    level.setLevels(track_.levels);
  }
  [[nodiscard]] NSInteger meterType() const {
    const bool output = track_.type == StripType::kStereoOut || track_.type == StripType::kMaster;
    return (track_.exponentialMeter ? 3 : 1) + (output ? 1 : 0);
  }
  /// Hosts that have scales as pictures have them on all strips but two kinds.
  void addScale(const char* name, CGRect frame, ScaleType type) {
    const bool ticks = track_.type == StripType::kMaster || track_.type == StripType::kOther;
    if (!ticks && classNamed(kDynamicScaleClass) != nullptr) {
      add(kDynamicScaleClass, name, frame);
    } else {
      call<"setType:">(add("MAScaleNode", name, frame), static_cast<NSInteger>(type));
    }
  }

  void addButtons() {
    const double half = (kInnerWidth - 2) / 2;
    const CGRect left = CGRectMake(kMargin, kMuteY, half, kSymbolHeight);
    const CGRect right = left.offsetBy(half + 2, 0);
    addSymbol("mute", left, "M", track_.muted, track_.blinking.mute);
    if (sections_.solo) {
      addSymbol("solo", right, "S", track_.soloed, track_.blinking.solo);
    } else {
      const bool master = track_.type == StripType::kMaster;
      addSymbol(master ? "dim" : "bounce", right, master ? "D" : "Bnce", false);
    }
    if (sections_.record) {
      addSymbol("monitoring", CGRectMake(kMargin, kRecordY, half, kSymbolHeight), "I", track_.monitoring,
                track_.blinking.monitoring);
      addSymbol("record", CGRectMake(kMargin + half + 2, kRecordY, half, kSymbolHeight), "R", track_.recordArmed,
                track_.blinking.record);
    }
    if (track_.folder) addSymbol("disclosure", CGRectMake(kMargin, kRecordY, half, kSymbolHeight), "", false);
  }

  void addTexts() {
    if (sections_.name) addName();
    if (!track_.notes.empty()) addText("notes", kNotes, track_.notes, paletteColor(Palette::kNotesText), {.size = 8.5});
    if (sections_.name) {
      const NSObject number = addText("number", kNumber, std::to_string(number_), paletteColor(Palette::kNumberText),
                                      {.size = 9, .weight = 0.23});
      if (stripLook().background != Palette::kStripBackground) call<"setBackgroundColor:">(number, NSColor());
    }
    const NSObject label =
        addText("label", kLabel, std::string(labelOf(track_)) + " " + std::to_string(number_),
                paletteColor(Palette::kLabelText), {.size = 8.5, .alignment = TextAlignment::kRight});
    call<"setBackgroundColor:">(label, NSColor());
  }
  /// Audio, instrument, folder and output strips colour their name; the others leave it to the data source.
  void addName() {
    const bool colored = track_.color && song_.trackColors;
    const bool leftToDataSource = track_.type == StripType::kAux || track_.type == StripType::kBus;
    const NSColor text = paletteColor(
        colored && !leftToDataSource && isBright(*track_.color) ? Palette::kNameTextOnColor : Palette::kNameText);
    const NSObject name = addText("name", kName, track_.name, text, {.size = 10.5, .weight = 0.3});
    if (leftToDataSource) {
      call<"setBackgroundColor:">(name, NSColor());
    } else if (colored) {
      call<"setBackgroundColor:">(name, trackColor(track_));
    }
  }
  NSObject addText(const char* name, CGRect frame, std::string_view text, NSColor color, TextStyle style) {
    const NSObject made = add("MATextNode", name, frame, text);
    stateOf<MATextNode>(made).style = style;
    call<"setForegroundColor:">(made, color);
    call<"setBackgroundColor:">(made, paletteColor(stripLook().background));
    return made;
  }

  const Song& song_;
  const Track& track_;
  std::size_t number_;
  UpperRows rows_;
  Sections sections_;
  double lift_ = 0;  // how much longer the fader is than usual
  Ref<NSObject> strip_;
  std::vector<EmptySlot> empty_;
};

}  // namespace

std::string decibels(double value) {
  if (value <= -96) return "-\u221E";
  char text[32];
  std::snprintf(text, sizeof text, std::abs(value) < 10 ? "%.1f" : "%.0f", value);
  return text;
}

std::string signedNumber(double value) {
  char text[16];
  std::snprintf(text, sizeof text, "%+.0f", value);
  return text;
}

/// What a slot represents is known later than its kind.
void showPlugIn(NSObject button, const PlugInSlot& slot) {
  MAButtonNode& state = stateOf<MAButtonNode>(button);
  call<"setTitle:">(button, string(slot.name));
  call<"setRepresentedObject:">(button, slot.codes ? representedPlugIn(*slot.codes).get() : NSObject());
  call<"setState:">(button, NSInteger(slot.bypassed ? 0 : 1));
  state.setMode(slot.lowLatency ? ButtonMode::kLowLatency : slot.dimmed ? ButtonMode::kDimmed : ButtonMode::kNormal);
  state.applyForeground();
}

NSColor peakColor(double decibels) {
  return paletteColor(decibels >= 0   ? Palette::kPeakMaximum
                      : decibels > -3 ? Palette::kPeakWarning
                                      : Palette::kPeakNormal);
}

double stripHeight(const Song& song) { return upperRows(song).top; }

double faderHeight(const Song& song) { return kFader.size.height + faderExtra(song); }
double faderBottom() { return kFader.minY(); }

std::vector<StripRow> stripRows(const Song& song) {
  const UpperRows rows = upperRows(song);
  const double lift = faderExtra(song);
  const double sends = song.sendRows * kRowPitch;
  const double audio = song.audioRows * kRowPitch;
  return {{"Setting", rows.setting, kSlotHeight},
          {"GainReduction", rows.reduction, kReductionHeight},
          {"EQ", rows.equalizer, kEqualizerHeight},
          {"MIDIEffects", rows.midi, kSlotHeight},
          {"Input", rows.input, kSlotHeight},
          {"AudioEffects", rows.audio + audio - kRowPitch, kSlotHeight},
          {"Sends", rows.sends + sends - kRowPitch, kSlotHeight},
          {"Output", kOutput.minY() + lift, kOutput.size.height},
          {"Group", kGroup.minY() + lift, kGroup.size.height},
          {"Automation", kAutomation.minY() + lift, kAutomation.size.height},
          {"Icon", kIcon.minY() + lift, kIcon.size.height},
          {"Pan", kPan.minY() + lift, kPan.size.height},
          {"Volume", kReadoutY + lift, kReadoutHeight},
          {"Notes", kNotes.minY(), kNotes.size.height},
          {"Name", kName.minY(), kName.size.height}};
}

Ref<NSObject> buildStrip(const Song& song, const Track& track, std::size_t number) {
  return StripBuilder(song, track, number).build();
}

}  // namespace host
