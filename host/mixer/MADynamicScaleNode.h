#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A scale as a picture, which all scales of a kind, size and density share. Newer hosts have it.
struct MADynamicScaleNode : cocoa::ObjectState {
  CGSize shownSize;  // of the picture that the node was given
  double shownScale = 0;

  void willUpdatePresentationObject();
};

inline constexpr const char* kDynamicScaleClass = "MAGUI.MADynamicScaleNode";

void defineMADynamicScaleNode();

}  // namespace host
