#pragma once
// Bar, beat and division lines over the host's regions, where the ruler has its ticks.

#include <vector>

#include "cocoa/AppKit.h"

namespace velura {

/// Whether a view is being drawn off the screen for its region colours; grid and bands then stay away.
extern bool gVBGSampling;

/// Draws the lines of an arrange view that meet a dirty rectangle. Takes the view's current graphics context.
void VLRBundleGridPostDraw(NSView view, CGRect dirty);

/// Has the view redrawn once the primary mouse button is up.
void VLRBGScheduleMouseUpRefresh(NSView view);

/// Has the colours of the regions read again if they are out of date, off the drawing path.
void VLRBGScheduleRegionSampleIfNeeded(NSView view);

/// Sorts the numbers and answers the middle one, the upper of two; 0 of none.
double VLRBGMedian(std::vector<double>& numbers);

/// Whether the primary button of the mouse is held down.
bool isPrimaryMouseButtonDown();

}  // namespace velura
