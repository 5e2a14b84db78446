#pragma once
// The one screen there is.

namespace standin {

/// How many pixels a point has, for every window. 1 at first.
void setBackingScaleFactor(double scale);
double backingScaleFactor();

}  // namespace standin
