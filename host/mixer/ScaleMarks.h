#pragma once
// Which marks the scales beside fader and meter have.

#include <vector>

#include "host/mixer/MANode.h"

namespace host {

/// What a scale belongs to.
enum ScaleType : NSInteger { kLevelScale = 1, kVolumeScale = 2 };

enum ScaleTickType : NSInteger { kScaleTick = 1, kInfinityTick = 2 };

/// `position` is the upper edge of the mark, in points from the bottom of a scale of the default height.
struct ScaleMark {
  ScaleTickType type;
  double position;
  const char* label;
};

inline constexpr double kDefaultScaleHeight = 146;
inline constexpr double kZeroDecibels = 101;  // where a volume scale has its mark of 0 dB

/// From the top down; empty for another type.
const std::vector<ScaleMark>& scaleMarks(NSInteger scaleType);

/// The lower edge of a mark on a scale of any height: beside the middle of a fader cap, or a meter's level.
double markHeight(NSInteger scaleType, double position, double scaleHeight);

/// Where a scale's ticks and numbers stand, across.
struct ScaleColumns {
  double numbersTo;
  double ticksFrom;
};
ScaleColumns scaleColumns(NSInteger scaleType, double width);

}  // namespace host
