#pragma once
// Bundles as a host describes them: its own, and those that its classes come from.

#include "cocoa/Foundation.h"

namespace standin {

/// What the main bundle's `infoDictionary` answers from now on; nil for what Foundation finds by itself.
void setMainBundleInfo(NSDictionary info);

/// What `bundleForClass:` answers for a class. On the real platform the image that holds the class decides; here
/// classes are made at run time by the program itself.
void setBundleOfClass(Class cls, NSBundle bundle);

}  // namespace standin
