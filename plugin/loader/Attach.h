#pragma once
// One function per category of the plug-in: it adds the category's methods to its class. Each is defined
// in the file that is named after the category.

namespace velura {

void attachMAStripNodeThemeSupport();
void attachMATextNodeThemeSupport();
void attachNSColorThemeSupport();
void attachNSStringCompareToVersion();

}  // namespace velura
