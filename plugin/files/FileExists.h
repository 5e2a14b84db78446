#pragma once

#include <sys/stat.h>

namespace velura {

/// Whether anything stands at a path. Links are followed.
inline bool fileExists(const char* path) {
  struct stat status {};
  return ::stat(path, &status) == 0;
}

}  // namespace velura
