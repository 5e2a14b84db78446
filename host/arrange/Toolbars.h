#pragma once
// What the arrange window shows above its tracks.

#include "cocoa/AppKit.h"
#include "host/song/Song.h"

namespace host {

/// The transport: what plays, where, how fast.
void drawTransport(const Arrangement& arrange, CGRect bounds, CGContextRef context);
/// The menus of the arrange view.
void drawArrangeMenu(CGRect bounds, CGContextRef context);
/// Left of the ruler: what the global tracks are called.
void drawGlobalTracksCorner(CGRect bounds, CGContextRef context);

}  // namespace host
