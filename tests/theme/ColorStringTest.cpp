// Colour strings, read as `scanf` reads them.

#include "plugin/language/ColorString.h"

#include <gtest/gtest.h>

namespace velura {

void PrintTo(const ColorComponents& color, std::ostream* out) {
  *out << color.red << ' ' << color.green << ' ' << color.blue << ' ' << color.alpha;
}

namespace {

constexpr std::int32_t kHighest = 2147483647;

struct Case {
  const char* text;
  std::optional<ColorComponents> expected;
};

TEST(ColorString, ReadsNumbersUntilTheFirstThatDoesNotFit) {
  const Case cases[] = {
      {"sRGBColor:{255, 128, 0, 100}", {{255, 128, 0, 100}}},
      {"sRGBColor:{0,0,0,50}", {{0, 0, 0, 50}}},
      {"sRGBColor:{1,2,3,4", {{1, 2, 3, 4}}},
      {"sRGBColor:{1,2,3,4} and more", {{1, 2, 3, 4}}},
      {"sRGBColor:{ 1,\t2,\n 3,\v\f\r4}", {{1, 2, 3, 4}}},
      {"sRGBColor:{-1,+2,-0,300}", {{-1, 2, 0, 300}}},
      // Stops early.
      {"sRGBColor:{12, 34", {{12, 34, 0, 1}}},
      {"sRGBColor:{12 , 34, 56, 78}", {{12, 0, 0, 1}}},
      {"sRGBColor:{12,, 34}", {{12, 0, 0, 1}}},
      {"sRGBColor:{- 1, 2}", {{0, 0, 0, 1}}},
      {"sRGBColor:{1.5, 2, 3, 4}", {{1, 0, 0, 1}}},
      {"sRGBColor:{", {{0, 0, 0, 1}}},
      {"sRGBColor:", {{0, 0, 0, 1}}},
      {"sRGBColor: {1, 2, 3, 4}", {{0, 0, 0, 1}}},
      // The prefix is recognised in any case, the pattern in its own only.
      {"SRGBCOLOR:{1, 2, 3, 4}", {{0, 0, 0, 1}}},
      {"srgbcolor:{1, 2, 3, 4}", {{0, 0, 0, 1}}},
      // Bases.
      {"sRGBColor:{0x10, 010, 10, 100}", {{16, 8, 10, 100}}},
      {"sRGBColor:{0XfF, -0x10, 00, 0}", {{255, -16, 0, 0}}},
      {"sRGBColor:{08, 1, 1, 1}", {{0, 0, 0, 1}}},
      {"sRGBColor:{0x, 1, 1, 1}", {{0, 0, 0, 1}}},
      {"sRGBColor:{0xg, 1, 1, 1}", {{0, 0, 0, 1}}},
      {"sRGBColor:{ff, 1, 1, 1}", {{0, 0, 0, 1}}},
      // Any number of digits.
      {"sRGBColor:{2147483647, 2147483648, -2147483649, 99999999999999999999}",
       {{kHighest, kHighest, -kHighest - 1, kHighest}}},
      {"sRGBColor:{0xffffffffffffffffffff, 0777777777777777777777, 1, 1}", {{kHighest, kHighest, 1, 1}}},
      // No colour strings.
      {"", std::nullopt},
      {"solid", std::nullopt},
      {"stops:1", std::nullopt},
      {" sRGBColor:{1,2,3,4}", std::nullopt},
      {"sRGBColor", std::nullopt},
  };
  for (const Case& c : cases) EXPECT_EQ(parseColorString(c.text), c.expected) << c.text;
}

TEST(ColorString, AnyNumberOfDigitsIsReadInLinearTime) {
  const std::string digits(16 << 20, '9');
  EXPECT_EQ(parseColorString("sRGBColor:{" + digits + ",-" + digits + ",1,2}"),
            (ColorComponents{kHighest, -kHighest - 1, 1, 2}));
}

}  // namespace
}  // namespace velura
