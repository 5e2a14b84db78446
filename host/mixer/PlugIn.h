#pragma once
// What buttons and knobs of a strip stand for: plug-ins and sends.

#include "cocoa/ClassDefinition.h"
#include "host/song/Song.h"

namespace host {

/// A plug-in that sits in a slot.
struct CLgPlugIn : cocoa::ObjectState {
  ComponentCodes codes;

  unsigned type() { return codes.type; }
  unsigned subType() { return codes.subType; }
  unsigned manufacturer() { return codes.manufacturer; }
};

/// A send to a bus.
struct CLgSend : cocoa::ObjectState {
  SendMode mode = SendMode::kPostFader;

  NSInteger type() { return static_cast<NSInteger>(mode); }
};

cocoa::Ref<NSObject> representedPlugIn(const ComponentCodes& codes);
cocoa::Ref<NSObject> representedSend(SendMode mode);

void definePlugIns();

}  // namespace host
