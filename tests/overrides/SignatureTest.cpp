// Signatures as people read them.

#include "plugin/overrides/Signature.h"

#include <gtest/gtest.h>

namespace velura {
namespace {

TEST(Signature, SpellsEncodingsOutAsCTypes) {
  const struct {
    const char* encoding;
    const char* spelled;
  } kCases[] = {
      {"v48@0:8{CGRect={CGPoint=dd}{CGSize=dd}}16", "void (id, SEL, struct CGRect)"},
      {"@24@0:8q16", "id (id, SEL, long long)"},
      {"B@:Q", "bool (id, SEL, unsigned long long)"},
      {"r^{CGColor=}16@0:8", "struct CGColor * (id, SEL)"},
      {"@\"NSColor\"16@0:8@?16", "id (id, SEL, id)"},
      {"{?=dI}@:^^v", "struct { double; unsigned; } (id, SEL, void * *)"},
  };
  for (const auto& c : kCases) EXPECT_EQ(spelledOutSignature(c.encoding), c.spelled);
}

TEST(Signature, QuotesWhatItCannotRead) {
  std::string deep(64, '^');
  for (const std::string& encoding : {std::string(), std::string("{CGRect"), std::string("v@:%"), deep + "v"}) {
    EXPECT_EQ(spelledOutSignature(encoding), '"' + encoding + '"');
  }
}

}  // namespace
}  // namespace velura
