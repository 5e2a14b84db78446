#include "host/mixer/ScaleMarks.h"

#include <cmath>

#include "host/mixer/MAFaderNode.h"

namespace host {
namespace {

/// A label, and at which place of the fader's travel it stands, in dB. A meter's travel is another's labels.
struct Label {
  double decibels;
  const char* text;
};
constexpr Label kVolumeLabels[] = {{6, "6"},  {3, "3"},    {0, "0"},    {-3, "3"},
                                   {-6, "6"}, {-12, "12"}, {-18, "18"}, {-30, "30"}};
constexpr Label kLevelLabels[] = {{6, "0"}, {0, "6"}, {-6, "12"}, {-15, "24"}, {-30, "48"}};
constexpr double kVolumeInset = 19;  // the middle of a fader cap at the end of its travel
constexpr double kLevelInset = 4;

template <std::size_t Count>
std::vector<ScaleMark> marksOf(const Label (&labels)[Count], double inset) {
  std::vector<ScaleMark> marks;
  const double travel = kDefaultScaleHeight - 2 * inset;
  for (const Label& label : labels) {
    marks.push_back({kScaleTick, std::round(inset + travel * faderPosition(label.decibels)) + 1, label.text});
  }
  marks.push_back({kInfinityTick, inset + 1, "\u221E"});
  return marks;
}

}  // namespace

const std::vector<ScaleMark>& scaleMarks(NSInteger scaleType) {
  static const std::vector<ScaleMark> volume = marksOf(kVolumeLabels, kVolumeInset);
  static const std::vector<ScaleMark> level = marksOf(kLevelLabels, kLevelInset);
  static const std::vector<ScaleMark> none;
  return scaleType == kVolumeScale ? volume : scaleType == kLevelScale ? level : none;
}

double markHeight(NSInteger scaleType, double position, double scaleHeight) {
  const double inset = scaleType == kVolumeScale ? kVolumeInset : kLevelInset;
  const double share = (position - 1 - inset) / (kDefaultScaleHeight - 2 * inset);
  return std::round(inset + (scaleHeight - 2 * inset) * share);
}

ScaleColumns scaleColumns(NSInteger scaleType, double width) {
  constexpr double kGap = 1;
  const double ticks = scaleType == kVolumeScale ? width - 4 : width * 0.8;
  return {ticks - kGap, ticks};
}

}  // namespace host
