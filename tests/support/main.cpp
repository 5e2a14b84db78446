#include <gtest/gtest.h>

#include "cli/PrivateFolders.h"

// Every test gets folders of its own before Foundation looks for any. Listing tests needs none.
int main(int argc, char** argv) {
  bool listing = false;
  for (int i = 1; i < argc; ++i) listing = listing || std::string_view(argv[i]).starts_with("--gtest_list_tests");
  if (!listing) session::enterPrivateFolders(argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
