#pragma once
// Soft shapes, as shadows are.

#include <memory>

#include "standin/pixels/Surface.h"

namespace standin {

/// The picture's shape in one colour, its edges softened over about `radius` pixels by three box filters.
/// The result is `margin` pixels larger on every side. Null when that is too large.
std::shared_ptr<Surface> blurredShape(const Surface& picture, int margin, double radius, Pixel color);

}  // namespace standin
