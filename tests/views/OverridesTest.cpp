// Which methods of the host are exchanged, on which version of it, and whether the host runs all of them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/views/HostMethods.h"

namespace {

using namespace support;
using testing::ContainerEq;

Names expectedOn(const HostKind& kind) {
  Names names;
  for (const OverrideRow& row : overrideTable()) {
    if (kind.meets(row.needs)) names.insert(row.name());
  }
  return names;
}

class HostOverrides : public testing::TestWithParam<HostKind> {};

TEST_P(HostOverrides, AreInstalledAsListedAndNoOthers) {
  const cocoa::AutoreleasePool pool;
  const auto application = hostOf(GetParam());
  const Methods before = methodsOfAllClasses();
  ASSERT_TRUE(load(*application, themeOf(GetParam())));
  EXPECT_THAT(exchangedSince(before), ContainerEq(expectedOn(GetParam())));
}

TEST_P(HostOverrides, AreReachedByTheHost) {
  const cocoa::AutoreleasePool pool;
  auto application = hostOf(GetParam());
  ASSERT_TRUE(load(*application, themeOf(GetParam())));
  for (const OverrideRow& row : overrideTable()) {
    if (!GetParam().meets(row.needs)) continue;
    const Method method = class_getInstanceMethod(row.holder(), sel_registerName(row.selectorName));
    ASSERT_NE(method, nullptr) << row.name();
    if (!row.encoding.empty()) {
      ASSERT_TRUE(cocoa::sameCallingConvention(method_getTypeEncoding(method), row.encoding)) << row.name();
    }
    countCalls(row);
  }
  operate(*application, sampleSong());
  application.reset();
  Names unreached;
  for (const OverrideRow& row : overrideTable()) {
    if (GetParam().meets(row.needs) && *row.count == 0) unreached.insert(row.name());
  }
  EXPECT_THAT(unreached, ContainerEq(Names()));
}

INSTANTIATE_TEST_SUITE_P(Hosts, HostOverrides,
                         testing::Values(HostKind{"10.7.4"}, HostKind{"11.1.2", true}, HostKind{"11.2"},
                                         HostKind{"12.2", true}, HostKind{"12.3"}, HostKind{"12.3", true}));

TEST(HostOverridesOfTheDefaultTheme, AreNone) {
  const cocoa::AutoreleasePool pool;
  const auto application = hostOf({"12.3"});
  const Methods before = methodsOfAllClasses();
  ASSERT_TRUE(load(*application, ""));
  EXPECT_THAT(exchangedSince(before), ContainerEq(Names()));
}

}  // namespace
