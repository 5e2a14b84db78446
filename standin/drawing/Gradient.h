#pragma once
// CGGradient.

#include "standin/pixels/RowFill.h"
#include "standin/runtime/Objects.h"

namespace standin {

/// State of a CGGradient.
struct GradientState : cocoa::ObjectState {
  GradientStops stops;
};

}  // namespace standin
