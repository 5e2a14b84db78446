#pragma once

#include <initializer_list>

#include "host/drawing/Painter.h"
#include "host/mixer/MANode.h"

namespace host {

/// A rotary control: a ring, and above it the arc of its value and a cap that turns. `value` runs from 0 to 1.
struct MAKnobNode : cocoa::ObjectState {
  double value = 0;
  double neutral = 0;  // where the arc begins
  bool bypassed = false;
  Palette fill = Palette::kKnobArc;

  id init();
  void setFrame(CGRect frame);
  void setValue(double newValue);
  void setBypassed(BOOL bypass);
  NSColor fillColor();
  void drawRect(CGRect rect, CGContextRef context);
};

/// The arc of a knob's value, in the fill colour of the knob above it.
struct MAShapeNode : cocoa::ObjectState {
  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

/// The cap of a knob or panner. Its layer turns with the value; the pointer is drawn upright into its picture, by a
/// child.
struct RotaryCapNode : cocoa::ObjectState {
  double value = 0;

  id init();
  void setFrame(CGRect frame);
  void setValue(double newValue);
  void updatePresentationObject(NSObject presentation, NSObject view);
  void drawRect(CGRect rect, CGContextRef context);
  void drawCap(CGRect disc, CGContextRef context, BOOL flipped);
};

struct MAKnobCapNode : cocoa::ObjectState {};
struct MAStereoPannerCapNode : cocoa::ObjectState {};

/// The line on a cap that points at the value.
struct MAPointerNode : cocoa::ObjectState {
  void drawRect(CGRect rect, CGContextRef context);
};

/// What knobs and panners have in common.
namespace knob {

/// The ring leaves a gap of 50 degrees at the bottom. Counter-clockwise from the positive x axis.
inline constexpr double kSweep = 310;
inline constexpr double kFirst = -65;
double angleAt(double value);

/// The ring behind a value.
void drawRing(const Painter& painter, CGRect rect, NSColor color);
/// The part of the ring between two values.
void drawArc(const Painter& painter, CGRect rect, double from, double to, NSColor color);
/// The disc of a cap on a control of that size.
CGRect discOf(CGRect rect);
/// A layer that lies where its frame says whatever the frame's size.
void anchorAtOrigin(id node);
/// Adds a node over the whole of a control, above all other layers of it.
void addPart(id control, NSObject part);
/// Lays the named parts over the whole of a control of that size.
void layOut(id control, CGSize size, std::initializer_list<const char*> parts);
/// Turns the cap of a control, and marks all of the control.
void turnCap(id control, double value);
/// Marks a control and what lies on it.
void changed(id control);

}  // namespace knob

void defineMAKnobNode();

}  // namespace host
