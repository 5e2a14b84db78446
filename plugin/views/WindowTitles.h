#pragma once
// The titles of the host's windows and panels.

namespace velura {

/// Has the theme colour the title of every window of the host that updates. Adds `windowDidUpdate:` to the class
/// `ThemeUtility`.
void attachWindowTitles();

}  // namespace velura
