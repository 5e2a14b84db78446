#include "cli/PrivateFolders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#if defined(__SANITIZE_ADDRESS__)
/// What the runtime and Foundation keep for the life of a process is no leak. Read before `main` runs.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }  // NOLINT(bugprone-reserved-identifier)
#endif

namespace session {
namespace {

constexpr const char* kFolderVariable = "VELURA_PRIVATE_FOLDER";

std::string folder;  // NOLINT(cert-err58-cpp): empty until main
pid_t owner = 0;

void removeFolder() {
  if (::getpid() != owner) return;  // a forked child shares the folder
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

[[noreturn]] void fail(const std::string& what) {
  std::fprintf(stderr, "velura: %s: %s\n", what.c_str(), std::strerror(errno));
  std::exit(1);
}

std::string makeFolder() {
  const char* temporary = std::getenv("TMPDIR");
  std::string path = std::string(temporary == nullptr ? "/tmp" : temporary) + "/velura-XXXXXX";
  if (::mkdtemp(path.data()) == nullptr) fail("cannot make a folder in " + path);
  return path;
}

void writeConfiguration(const std::string& path, const std::string& root) {
  std::ofstream file(path);
  file << "GNUSTEP_USER_DIR_LIBRARY=" << root << "/Library\n"
       << "GNUSTEP_USER_DEFAULTS_DIR=" << root << "/Defaults\n"
       << "GNUSTEP_USER_DIR_APPS=" << root << "/Applications\n"
       << "GNUSTEP_USER_CONFIG_FILE=\n";
  if (!file.flush()) fail("cannot write " + path);
  ::chmod(path.c_str(), S_IRUSR | S_IWUSR);
}

}  // namespace

void enterPrivateFolders(char** argv) {
  if (const char* given = std::getenv(kFolderVariable); given != nullptr) {
    folder = given;
    owner = ::getpid();
    ::unsetenv(kFolderVariable);
    std::atexit(removeFolder);
    return;
  }
  const std::string root = makeFolder();
  const std::string configuration = root + "/GNUstep.conf";
  writeConfiguration(configuration, root);
  ::setenv("GNUSTEP_CONFIG_FILE", configuration.c_str(), 1);
  ::setenv(kFolderVariable, root.c_str(), 1);
  ::execv("/proc/self/exe", argv);
  fail("cannot start again");
}

const std::string& privateFolder() { return folder; }

}  // namespace session
