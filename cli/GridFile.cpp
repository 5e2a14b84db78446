#include "cli/GridFile.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>

#include "cocoa/Call.h"
#include "plugin/files/AtomicWrite.h"
#include "plugin/language/VLRGridSettings.h"
#include "plugin/plist/PropertyListReader.h"

namespace session {
namespace {

using namespace cocoa;
using velura::GridKeyRow;
using velura::VLRGridSettings;

constexpr double kTrue = 1;
constexpr double kFalse = 0;

struct FlagWord {
  std::string_view word;
  bool value;
};
constexpr FlagWord kFlagWords[] = {{"true", true},   {"yes", true}, {"on", true},   {"1", true},
                                   {"false", false}, {"no", false}, {"off", false}, {"0", false}};

const GridKeyRow* rowNamed(std::string_view key) {
  const auto* const row = std::ranges::find(velura::kGridKeys, key, &GridKeyRow::key);
  return row == velura::kGridKeys.end() ? nullptr : row;
}

bool isFlag(const GridKeyRow& row) { return std::holds_alternative<bool VLRGridSettings::*>(row.field); }
bool isWhole(const GridKeyRow& row) { return std::holds_alternative<std::int32_t VLRGridSettings::*>(row.field); }

/// "0.75" rather than "0.750000".
std::string shortText(double number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%g", number);
  return text.data();
}

std::string rangeText(const GridKeyRow& row) {
  if (isFlag(row)) return "true or false";
  return (isWhole(row) ? "a whole number from 0 to " : "a number from 0 to ") + shortText(row.most);
}

std::string valueText(const VLRGridSettings& settings, const GridKeyRow& row) {
  return std::visit(
      [&](auto field) -> std::string {
        const auto value = settings.*field;
        if constexpr (std::is_same_v<decltype(value), const bool>) return value ? "true" : "false";
        return shortText(static_cast<double>(value));
      },
      row.field);
}

/// The value of a text, a flag as 1 or 0; nothing for a text of another kind or a number out of range.
std::optional<double> parseValue(const GridKeyRow& row, std::string_view text) {
  if (isFlag(row)) {
    const auto* const word = std::ranges::find(kFlagWords, text, &FlagWord::word);
    if (word == std::end(kFlagWords)) return std::nullopt;
    return word->value ? kTrue : kFalse;
  }
  double value = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (problem != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  if (value < 0 || value > row.most || (isWhole(row) && value != std::floor(value))) return std::nullopt;
  return value;
}

NSNumber numberOf(const GridKeyRow& row, double value) {
  if (isFlag(row)) return NSNumber::numberWithBool(value != kFalse);
  return isWhole(row) ? NSNumber::numberWithLong(static_cast<long>(value)) : NSNumber::numberWithDouble(value);
}

/// One edit, written into the dictionary. False, with `error` set, when it cannot be understood.
bool apply(const std::string& edit, NSMutableDictionary settings, std::string& error) {
  const auto equals = edit.find('=');
  const std::string key = edit.substr(0, equals);
  const GridKeyRow* row = rowNamed(key);
  if (equals == std::string::npos) {
    error = edit + ": expected KEY=VALUE";
  } else if (row == nullptr) {
    error = key + ": no such key; `velura grid --keys` lists them";
  } else if (const auto value = parseValue(*row, std::string_view(edit).substr(equals + 1))) {
    settings.setObject(numberOf(*row, *value), string(key));
    return true;
  } else {
    error = key + ": expected " + rangeText(*row) + ", not \"" + edit.substr(equals + 1) + "\"";
  }
  return false;
}

/// What a file holds already; an empty dictionary where there is no file, nil for a file that is no dictionary.
NSMutableDictionary readExisting(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) return NSMutableDictionary::dictionary();
  const Ref<NSObject> list = velura::readPropertyList(path.c_str());
  const auto dictionary = as<NSDictionary>(list);
  return dictionary ? NSMutableDictionary::dictionaryWithDictionary(dictionary) : NSMutableDictionary();
}

std::string asPropertyList(NSDictionary settings) {
  constexpr NSUInteger kXml = 100;
  constexpr NSUInteger kNoOptions = 0;
  constexpr id* kNoError = nullptr;
  const auto data = callClass<NSPropertyListSerialization, "dataWithPropertyList:format:options:error:", NSData>(
      settings, kXml, kNoOptions, kNoError);
  return data ? std::string(static_cast<const char*>(data.bytes()), data.length()) : std::string();
}

}  // namespace

bool editGridFile(const std::string& path, const std::vector<std::string>& edits, std::string& error) {
  const AutoreleasePool pool;
  const NSMutableDictionary settings = readExisting(path);
  if (!settings) {
    error = path + ": not a dictionary property list";
    return false;
  }
  for (const std::string& edit : edits) {
    if (!apply(edit, settings, error)) return false;
  }
  errno = 0;
  if (velura::writeAtomically(path, asPropertyList(settings))) return true;
  error = path + ": cannot be written: " + std::strerror(errno);
  return false;
}

std::string gridFileText(const std::string& path) {
  const AutoreleasePool pool;
  const Ref<NSObject> list = velura::readPropertyList(path.c_str());
  const VLRGridSettings settings = velura::gridSettingsFrom(as<NSDictionary>(list));
  std::string text;
  for (const GridKeyRow& row : velura::kGridKeys) text += std::string(row.key) + "=" + valueText(settings, row) + "\n";
  return text;
}

std::string gridKeyTable() {
  constexpr VLRGridSettings kDefaults;
  std::string text = "\n| Key | Value | Default | What it does |\n|---|---|---|---|\n";
  for (const GridKeyRow& row : velura::kGridKeys) {
    text += "| `" + std::string(row.key) + "` | " + rangeText(row) + " | " + valueText(kDefaults, row) + " | " +
            std::string(row.effect) + " |\n";
  }
  return text;
}

}  // namespace session
