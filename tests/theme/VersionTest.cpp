// Version strings.

#include <gtest/gtest.h>

#include "cocoa/Call.h"
#include "plugin/hostapi/NSString+CompareToVersion.h"
namespace velura {
namespace {

using namespace cocoa;

TEST(Version, ComparesNumberByNumber) {
  struct Case {
    std::string a;
    std::string b;
    int order;
  };
  const std::string digits(1 << 20, '1');
  const Case cases[] = {
      {"12.3", "12.10", -1},
      {"11.2", "11.2.0", 0},
      {"11", "10.7.5", 1},
      {"10.7", "10.7.5", -1},
      {"7a", "7", 0},
      {"7a.1", "7.0", 1},
      {"", "0.0", 0},
      {"", "0.1", -1},
      {"..1", "0.0.1", 0},
      {"-1", "0", -1},
      {" 12", "12", 0},
      {"version 12", "0", 0},
      {"99999999999999999999999", "9223372036854775807", 0},
      {digits, digits + "1", 0},  // both beyond any number that is told apart
      {digits, "11.2", 1},
      {std::string(1 << 20, '.'), "", 0},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(compareVersions(c.a, c.b), c.order) << c.a.substr(0, 40) << " and " << c.b.substr(0, 40);
    EXPECT_EQ(compareVersions(c.b, c.a), -c.order) << c.b.substr(0, 40) << " and " << c.a.substr(0, 40);
  }
}

TEST(Version, StringsAnswerEveryComparison) {
  const AutoreleasePool pool;
  attachNSStringCompareToVersion();
  const NSString older = string("10.7.4");
  const NSString newer = string("10.7.5");
  EXPECT_EQ((call<"compareToVersion:", NSInteger>(older, newer)), -1);
  EXPECT_TRUE(callBool<"isOlderThanVersion:">(older.object, newer));
  EXPECT_FALSE(callBool<"isNewerThanVersion:">(older.object, newer));
  EXPECT_FALSE(callBool<"isEqualToVersion:">(older.object, newer));
  EXPECT_TRUE(callBool<"isEqualOrOlderThanVersion:">(older.object, newer));
  EXPECT_TRUE(callBool<"isEqualOrOlderThanVersion:">(older.object, older));
  EXPECT_TRUE(callBool<"isEqualOrNewerThanVersion:">(newer.object, older));
  EXPECT_TRUE(callBool<"isEqualOrNewerThanVersion:">(newer.object, newer));
  EXPECT_TRUE(callBool<"isNewerThanVersion:">(older.object, NSString()));
}

}  // namespace
}  // namespace velura
