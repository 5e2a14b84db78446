#pragma once
// Bar, beat and division lines over the host's regions, where the ruler has its ticks.

#include "cocoa/AppKit.h"

namespace velura {

/// Whether a view is being drawn off the screen for its region colours; grid and bands then stay away.
bool isGridSampling();

/// Draws the lines of an arrange view that meet a dirty rectangle. Takes the view's current graphics context.
void VLRBundleGridPostDraw(NSView view, CGRect dirty);

/// Has the view redrawn once the primary mouse button is up.
void VLRBGScheduleMouseUpRefresh(NSView view);

/// Has the colours of the regions read again if they are out of date, off the drawing path.
void VLRBGScheduleRegionSampleIfNeeded(NSView view);

}  // namespace velura
