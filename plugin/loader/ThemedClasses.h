#pragma once
// Which classes of the host are themed, in the order in which start-up goes through them.

#include <vector>

#include "plugin/overrides/ThemedClass.h"

namespace velura {

/// Attaches every category whose class is there. Runs once, when the bundle is loaded.
void attachCategories();

/// Sends every themed class `addSwizzleMethod`, skipping those without a category and those whose condition does not
/// hold.
void installThemedClasses();

/// An override and what became of it.
struct OverrideState {
  const OverrideRow* row;
  Outcome outcome;
};

/// All overrides, in the order of start-up.
std::vector<OverrideState> overrideStates();

}  // namespace velura
