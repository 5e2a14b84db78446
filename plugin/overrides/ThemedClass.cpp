#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using cocoa::Installation;

Outcome outcomeOf(Installation installation, Outcome before) {
  switch (installation) {
    case Installation::kInstalled:
      return before == Outcome::kInstalled ? Outcome::kExchangedBack : Outcome::kInstalled;
    case Installation::kNoClass:
      return Outcome::kNoClass;
    case Installation::kNoHostMethod:
      return Outcome::kNoMethod;
    case Installation::kOtherSignature:
      return Outcome::kOtherSignature;
  }
  return before;
}

bool wasTried(const OverrideRow& row, Repetition repetition) {
  const Outcome outcome = *row.outcome;
  if (repetition == Repetition::kEveryTime || outcome == Outcome::kNotUnderThisTheme) return false;
  return outcome != Outcome::kNoClass || repetition == Repetition::kOnce;
}

void installRow(const OverrideRow& row, Repetition repetition) {
  if (wasTried(row, repetition)) return;
  *row.outcome = holds(row.when) ? outcomeOf(row.install(), *row.outcome) : outcomeWithout(row.when);
}

}  // namespace

void installOverrides(std::span<const OverrideRow> rows, const InstallationRules& rules) {
  if (!holds(rules.when)) return;
  for (const OverrideRow& row : rows) installRow(row, rules.repetition);
}

}  // namespace velura
