#pragma once
// CGGradient.

#include "standin/Objects.h"
#include "standin/RowFill.h"

namespace standin {

/// State of a CGGradient.
struct GradientState : cocoa::ObjectState {
  GradientStops stops;
};

}  // namespace standin
