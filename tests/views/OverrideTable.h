#pragma once
// Every method of the host that is exchanged, on which class, and under which condition.

#include <vector>

#include "cocoa/ClassDefinition.h"

namespace support {

/// What a pair needs besides a selected theme and its class.
enum class Needs { kNothing, kImages, kTrackColors, kHost112, kHost123 };

struct OverrideRow {
  const char* className;
  const char* selectorName;
  bool onMetaclass;
  Needs needs;
  // A method that counts how often it runs and goes on to what it has taken the place of.
  IMP counting;
  IMP* original;
  unsigned* count;
  std::string encoding;

  [[nodiscard]] std::string name() const {
    return std::string(onMetaclass ? "+[" : "-[") + className + " " + selectorName + "]";
  }
  /// The class, or metaclass, that holds the method; null on a host without it.
  [[nodiscard]] Class holder() const;
};

const std::vector<OverrideRow>& overrideTable();

/// Counts the calls of a method from now on.
void countCalls(const OverrideRow& row);

}  // namespace support
