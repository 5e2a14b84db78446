#include "plugin/overrides/Condition.h"

#include <iterator>

#include "plugin/hostapi/HostVersion.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

struct ConditionRow {
  bool (*holds)();
  Outcome otherwise;
};

/// In the order of `Condition`.
constexpr ConditionRow kRows[] = {
    {[] { return true; }, Outcome::kNotUnderThisTheme},
    {VLRIsCustomThemeSelected, Outcome::kNotUnderThisTheme},
    {[] { return ThemeUtility::shared().useImagesToDraw; }, Outcome::kNotUnderThisTheme},
    {[] { return ThemeUtility::shared().useTrackColorAsArrangeStripBackground; }, Outcome::kNotUnderThisTheme},
    {[] { return isHostEqualOrNewerThan("11.2"); }, Outcome::kNotOnThisVersion},
    {[] { return isHostEqualOrNewerThan("12.3"); }, Outcome::kNotOnThisVersion},
};
static_assert(std::size(kRows) == static_cast<std::size_t>(Condition::kSinceHost12_3) + 1, "one row per condition");

const ConditionRow& rowOf(Condition condition) { return kRows[static_cast<std::size_t>(condition)]; }

}  // namespace

bool holds(Condition condition) { return rowOf(condition).holds(); }

Outcome outcomeWithout(Condition condition) { return rowOf(condition).otherwise; }

}  // namespace velura
