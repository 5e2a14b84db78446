#include "cli/KeyTable.h"

#include "plugin/theme/ThemeKeys.h"

namespace session {
namespace {

using velura::ThemeKeyKind;
using velura::ThemeKeyRow;
using velura::ThemeSection;

struct SectionTitle {
  ThemeSection section;
  const char* title;
};
constexpr SectionTitle kSections[] = {
    {ThemeSection::kGeneral, "General"},
    {ThemeSection::kMixerStrips, "Mixer strips"},
    {ThemeSection::kTrackColours, "Track colours"},
    {ThemeSection::kEmptySlots, "Empty slots"},
    {ThemeSection::kText, "Text"},
    {ThemeSection::kButtons, "Buttons and plug-in slots"},
    {ThemeSection::kKnobs, "Knobs and panners"},
    {ThemeSection::kImages, "Images"},
    {ThemeSection::kMeters, "Meters and scales"},
    {ThemeSection::kArrange, "Arrange area"},
    {ThemeSection::kLiveLoops, "Live Loops"},
    {ThemeSection::kBrowsers, "Browsers and lists"},
};

struct KindName {
  ThemeKeyKind kind;
  const char* name;
};
constexpr KindName kKinds[] = {
    {ThemeKeyKind::kColour, "colour"},
    {ThemeKeyKind::kGradient, "gradient"},
    {ThemeKeyKind::kBevel, "bevel"},
    {ThemeKeyKind::kFlag, "true or false"},
    {ThemeKeyKind::kPercentage, "percent"},
    {ThemeKeyKind::kPoints, "points"},
    {ThemeKeyKind::kPluginGroups, "dictionary"},
};

std::string rowText(const ThemeKeyRow& row) {
  const auto* kind = std::ranges::find(kKinds, row.kind, &KindName::kind);
  std::string text = "| `" + std::string(row.name) + "` | " + kind->name + " | " + std::string(row.effect);
  if (row.kept == velura::Kept::kYes) text += " Kept.";
  if (!row.hostVersion.empty()) text += " On host " + std::string(row.hostVersion) + " or newer.";
  return text + " |\n";
}

}  // namespace

std::string keyTables() {
  std::string text;
  for (const SectionTitle& section : kSections) {
    std::string rows;
    for (const ThemeKeyRow& row : velura::kThemeKeys) {
      if (row.section == section.section && row.used == velura::Used::kYes) rows += rowText(row);
    }
    if (rows.empty()) continue;
    text += "\n### " + std::string(section.title) + "\n\n| Key | Value | What it changes |\n|---|---|---|\n" + rows;
  }
  return text;
}

}  // namespace session
