#pragma once
// Image I/O under its own names: reading and writing image files of one or several frames.

#include "cocoa/CoreGraphics.h"

using CFDataRef = const struct __CFData*;
using CFMutableDataRef = struct __CFData*;
using CGImageSourceRef = struct CGImageSource*;
using CGImageDestinationRef = struct CGImageDestination*;

extern "C" {
/// Null without data. Data that is no image makes a source without frames.
CGImageSourceRef CGImageSourceCreateWithData(CFDataRef data, CFDictionaryRef options);
/// "public.tiff" or "public.png"; null when the data is neither.
CFStringRef CGImageSourceGetType(CGImageSourceRef source);
size_t CGImageSourceGetCount(CGImageSourceRef source);
/// Null for a frame that is not there or cannot be read.
CGImageRef CGImageSourceCreateImageAtIndex(CGImageSourceRef source, size_t index, CFDictionaryRef options);
CFDictionaryRef CGImageSourceCopyPropertiesAtIndex(CGImageSourceRef source, size_t index, CFDictionaryRef options);

/// Null for a type that cannot be written, or for more frames than it can hold.
CGImageDestinationRef CGImageDestinationCreateWithData(CFMutableDataRef data, CFStringRef type, size_t count,
                                                       CFDictionaryRef options);
void CGImageDestinationAddImage(CGImageDestinationRef destination, CGImageRef image, CFDictionaryRef properties);
/// False when fewer images were added than announced, or when writing fails.
bool CGImageDestinationFinalize(CGImageDestinationRef destination);
}
