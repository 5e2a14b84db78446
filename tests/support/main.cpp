#include <gtest/gtest.h>

#include <cstdlib>

#include "cli/PrivateFolders.h"
#include "host/kit/HostOptions.h"

// Every test gets folders of its own before Foundation looks for any. Listing tests needs none.
int main(int argc, char** argv) {
  bool listing = false;
  for (int i = 1; i < argc; ++i) listing = listing || std::string_view(argv[i]).starts_with("--gtest_list_tests");
  if (!listing) session::enterPrivateFolders(argv);
  // The whole suite can be run against another version of the host; tests that are about one say so.
  if (const char* version = std::getenv("VELURA_HOST_VERSION")) host::HostOptions::usualVersion = version;
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
