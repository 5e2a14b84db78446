#pragma once
// A diagnostic for theme authors: writes which sections the host's strips have, and where.

#include <string>

#include "plugin/hostapi/MANode.h"

namespace velura {

/// Writes the strip's node tree if the switch file "/tmp/vlr_dump_strip_nodes" existed when a strip was
/// first drawn. Each layout is written once, twelve layouts at most.
void dumpStripNodesIfArmed(MAStripNode strip);

/// Appends one line for the node and for what is below it, indented by two blanks per level, four levels
/// at most.
void appendNodeTree(MANode node, NSInteger depth, std::string& text);

}  // namespace velura
