#include "plugin/files/AtomicWrite.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "cocoa/Foundation.h"

namespace velura {
namespace {

using namespace cocoa;

bool writeAll(int descriptor, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = ::write(descriptor, contents.data(), contents.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

bool writeAtomically(const std::string& path, std::string_view contents) {
  std::string beside = path + ".XXXXXX";
  const int descriptor = ::mkstemp(beside.data());
  if (descriptor < 0) return false;
  constexpr mode_t kReadable = 0644;
  const bool written = writeAll(descriptor, contents) && ::fchmod(descriptor, kReadable) == 0;
  const bool closed = ::close(descriptor) == 0;
  if (written && closed && std::rename(beside.c_str(), path.c_str()) == 0) return true;
  ::unlink(beside.c_str());
  return false;
}

std::string applicationSupportFolder() {
  const NSArray paths(NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, BOOL(1)));
  return paths.count() == 0 ? std::string() : toStdString(cast<NSString>(paths.objectAtIndex(0)));
}

}  // namespace velura
