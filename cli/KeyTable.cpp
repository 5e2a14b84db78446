#include "cli/KeyTable.h"

#include <filesystem>

#include "cli/KeyPictures.h"
#include "plugin/language/ThemeKeys.h"

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
    {ThemeSection::kTrackColors, "Track colours"},
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
    {ThemeKeyKind::kColor, "colour"},
    {ThemeKeyKind::kGradient, "gradient"},
    {ThemeKeyKind::kBevel, "bevel"},
    {ThemeKeyKind::kFlag, "true or false"},
    {ThemeKeyKind::kPercentage, "percent"},
    {ThemeKeyKind::kPoints, "points"},
    {ThemeKeyKind::kPluginGroups, "dictionary"},
};

/// A cell with a key's picture, empty while there is none; "" without a column for it.
std::string pictureCell(const ThemeKeyRow& row, const std::filesystem::path& pictures) {
  if (pictures.empty()) return {};
  const std::string name = keyPictureName(row.name);
  if (!exists(pictures / name)) return " |";
  return " <img src=\"" + (pictures.filename() / name).string() + "\" width=\"120\" alt=\"\"> |";
}

std::string rowText(const ThemeKeyRow& row, const std::filesystem::path& pictures) {
  const auto* kind = std::ranges::find(kKinds, row.kind, &KindName::kind);
  std::string text = "| `" + std::string(row.name) + "` | " + kind->name + " | " + std::string(row.effect);
  if (row.kept == velura::Kept::kYes) text += " Kept.";
  if (!row.hostVersion.empty()) text += " On host " + std::string(row.hostVersion) + " or newer.";
  return text + " |" + pictureCell(row, pictures) + "\n";
}

}  // namespace

std::string keyTables(const std::string& pictures) {
  const std::string heading = pictures.empty() ? "| Key | Value | What it changes |\n|---|---|---|\n"
                                               : "| Key | Value | What it changes | |\n|---|---|---|---|\n";
  std::string text;
  for (const SectionTitle& section : kSections) {
    std::string rows;
    for (const ThemeKeyRow& row : velura::kThemeKeys) {
      if (row.section == section.section && row.used == velura::Used::kYes) rows += rowText(row, pictures);
    }
    if (rows.empty()) continue;
    text += "\n### " + std::string(section.title) + "\n\n" + heading + rows;
  }
  return text;
}

}  // namespace session
