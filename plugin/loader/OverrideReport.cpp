#include "plugin/loader/OverrideReport.h"

#include <algorithm>
#include <array>
#include <string>

#include "plugin/files/FileExists.h"
#include "plugin/files/Report.h"
#include "plugin/loader/ThemedClasses.h"
#include "plugin/overrides/Signature.h"

namespace velura {
namespace {

using namespace cocoa;

std::string_view nameOf(Outcome outcome) {
  constexpr auto kNames =
      std::to_array<std::string_view>({"not under this theme", "not on this version", "installed", "exchanged back",
                                       "class missing", "method missing", "other signature"});
  return kNames[static_cast<std::size_t>(outcome)];
}

/// The encoding of the host's own method; "" where there is none.
std::string hostEncoding(const OverrideRow& row) {
  const Class named = classNamed(row.target);
  const Method method =
      class_getInstanceMethod(row.isClassMethod ? metaclassOf(named) : named, sel_registerName(row.selectorName));
  const char* encoding = method == nullptr ? nullptr : method_getTypeEncoding(method);
  return encoding == nullptr ? std::string() : std::string(encoding);
}

std::string fullName(const OverrideRow& row) {
  return std::string(row.isClassMethod ? "+[" : "-[") + row.target + ' ' + row.selectorName + ']';
}

std::string signatureOf(const std::string& encoding) {
  return encoding.empty() ? std::string() : spelledOutSignature(encoding);
}

NSDictionary entryOf(const OverrideState& state) {
  const OverrideRow& row = *state.row;
  const NSMutableDictionary entry = NSMutableDictionary::dictionary();
  const auto add = [&](std::string_view name, std::string_view value) { entry.setObject(string(value), string(name)); };
  add("class", row.target);
  add("selector", std::string(row.isClassMethod ? "+" : "-") + row.selectorName);
  add("outcome", nameOf(state.outcome));
  add("hostTypes", signatureOf(hostEncoding(row)));
  add("ownTypes", signatureOf(row.encoding()));
  add("openWindow", nameOf(row.openWindow.branch));
  add("whyStale", row.openWindow.whyStale);
  add("stale", row.openWindow.stale);
  return entry;
}

std::string lineOf(const OverrideState& state) {
  constexpr std::size_t kOutcomeColumn = 22;
  std::string line(nameOf(state.outcome));
  line.resize(std::max(kOutcomeColumn, line.size() + 1), ' ');
  line += fullName(*state.row);
  if (state.outcome == Outcome::kOtherSignature) {
    line +=
        "\n    host: " + signatureOf(hostEncoding(*state.row)) + "\n    here: " + signatureOf(state.row->encoding());
  }
  return line + '\n';
}

}  // namespace

NSArray overrideList() {
  const NSMutableArray list = NSMutableArray::array();
  for (const OverrideState& state : overrideStates()) list.addObject(entryOf(state));
  return list;
}

NSString overrideText() {
  const std::vector<OverrideState> states = overrideStates();
  std::string text;
  for (const OverrideState& state : states) text += lineOf(state);
  const auto installed =
      static_cast<std::size_t>(std::ranges::count(states, Outcome::kInstalled, &OverrideState::outcome));
  return string(text + std::to_string(installed) + " of " + std::to_string(states.size()) + " installed\n");
}

void dumpOverridesIfArmed() {
  if (!fileExists("/tmp/vlr_dump_overrides")) return;
  writeReport("/tmp/vlr_overrides_dump.txt", "overrides-dump.txt", toStdString(overrideText()));
}

}  // namespace velura
