#pragma once
// What became of each override, told to those who ask: on a new version of the host this says what was refused, and
// why.

#include "cocoa/Foundation.h"

namespace velura {

/// One dictionary per override: "class", "selector", "outcome", "hostTypes" and "ownTypes" (signatures as C types;
/// "hostTypes" is "" where the host has no such method), "openWindow" (the branch of the refresh that reaches it),
/// "whyStale" and "stale" (what keeps the host's look in a window that is open already, between commas). All are
/// strings.
NSArray overrideList();

/// The same as lines of text for people.
NSString overrideText();

/// Writes the text to "/tmp/vlr_overrides_dump.txt" if the switch file "/tmp/vlr_dump_overrides" exists.
void dumpOverridesIfArmed();

}  // namespace velura
