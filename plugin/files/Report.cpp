#include "plugin/files/Report.h"

#include <sys/stat.h>

#include "plugin/files/AtomicWrite.h"

namespace velura {
namespace {

void writeToApplicationSupport(const std::string& name, const std::string& text) {
  const std::string support = applicationSupportFolder();
  if (support.empty()) return;
  const std::string folder = support + "/Velura";
  ::mkdir(folder.c_str(), S_IRWXU);
  writeAtomically(folder + "/" + name, text);
}

}  // namespace

void writeReport(const std::string& path, const std::string& name, const std::string& text) {
  if (!writeAtomically(path, text)) writeToApplicationSupport(name, text);
}

}  // namespace velura
