#include "plugin/gradient/StripNodeDump.h"

#include <unistd.h>

#include <algorithm>
#include <set>
#include <vector>

#include "plugin/files/Report.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr const char* kSwitchFile = "/tmp/vlr_dump_strip_nodes";
constexpr const char* kDumpFile = "/tmp/vlr_strip_nodes_dump.txt";
constexpr const char* kDumpName = "strip-nodes-dump.txt";
constexpr std::size_t kMostLayouts = 12;
constexpr NSInteger kDeepestRecursion = 2;

std::string frameText(MANode node) { return toStdString(NSString(NSStringFromRect(node.frame()))); }

/// The names of the strip's sections, sorted: equal for strips of one layout.
std::string layoutSignature(MAStripNode strip) {
  std::vector<std::string> names;
  for (const MANode section : items<MANode>(strip.childrenArray())) names.push_back(toStdString(section.name()));
  std::sort(names.begin(), names.end());
  std::string signature;
  for (const std::string& name : names) signature += name + ",";
  return signature;
}

struct Dump {
  bool armed = ::access(kSwitchFile, F_OK) == 0;
  std::set<std::string> layouts;
  std::string text;
};

void dump(MAStripNode strip, Dump& state) {
  std::string signature = layoutSignature(strip);
  if (state.layouts.count(signature) != 0 || state.layouts.size() >= kMostLayouts) return;
  state.layouts.insert(std::move(signature));
  state.text += "==== strip '" + toStdString(strip.name()) + "' frame=" + frameText(strip) +
                " parent=" + toStdString(strip.parent().className()) + " ====\n";
  appendNodeTree(strip, 0, state.text);
  writeReport(kDumpFile, kDumpName, state.text);
}

}  // namespace

void dumpStripNodesIfArmed(MAStripNode strip) {
  static Dump& state = *new Dump;  // kept for the life of the process
  if (state.armed) dump(strip, state);
}

void appendNodeTree(MANode node, NSInteger depth, std::string& text) {
  constexpr NSInteger kDeepestIndent = 64;
  text += std::string(static_cast<std::size_t>(std::clamp<NSInteger>(depth, 0, kDeepestIndent)) * 2, ' ') +
          toStdString(node.className()) + " '" + toStdString(node.name()) + "' frame=" + frameText(node) + "\n";
  if (depth > kDeepestRecursion) return;
  for (const MANode child : items<MANode>(node.childrenArray())) appendNodeTree(child, depth + 1, text);
}

}  // namespace velura
