#pragma once
// The application's own bundle, as a host describes itself.

#include "cocoa/Foundation.h"

namespace standin {

/// What the main bundle's `infoDictionary` answers from now on; nil for what Foundation finds by itself.
void setMainBundleInfo(NSDictionary info);

}  // namespace standin
