// The reader of property lists, on files that are meant to bring it down.

#include "plugin/plist/PropertyListReader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <vector>

#include "cli/PrivateFolders.h"
#include "plugin/plist/PropertyListCheck.h"
#include "tests/support/Theme.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr const char* kPublicType =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Somebody//DTD PLIST 1.0//EN\" "
    "\"http://127.0.0.1:9/list.dtd\">\n";

std::string xml(std::string_view value) {
  std::string list("<plist version=\"1.0\">");
  return list.append(value).append("</plist>");
}

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

/// Puts binary lists together.
class BinaryList {
 public:
  BinaryList& add(const std::string& object) {
    offsets_.push_back(bytes_.size());
    bytes_ += object;
    return *this;
  }
  [[nodiscard]] std::string list(unsigned referenceSize = 1, std::uint64_t top = 0) const {
    std::string all = bytes_;
    const unsigned offsetSize = bytes_.size() < 0x10000 ? 2 : 4;
    for (const std::size_t offset : offsets_) all += number(offset, offsetSize);
    all += std::string(6, '\0') + number(offsetSize, 1) + number(referenceSize, 1);
    return all + number(offsets_.size(), 8) + number(top, 8) + number(bytes_.size(), 8);
  }
  static std::string number(std::uint64_t value, unsigned size) {
    std::string bytes;
    for (unsigned i = size; i > 0; --i) bytes += static_cast<char>(value >> (8 * (i - 1)) & 0xFF);
    return bytes;
  }

 private:
  std::string bytes_ = "bplist00";
  std::vector<std::size_t> offsets_;
};

std::string nestedBinary(int depth) {
  BinaryList list;
  for (int i = 1; i <= depth; ++i) list.add("\xA1" + BinaryList::number(static_cast<std::uint64_t>(i), 2));
  return list.add("\x51x").list(2);
}

/// Twelve arrays, each of which holds the next one eight times.
std::string expandingBinary() {
  BinaryList list;
  for (char i = 1; i <= 12; ++i) list.add("\xA8" + std::string(8, i));
  return list.add("\x51x").list();
}

std::string descriptionOf(const std::string& bytes) {
  const AutoreleasePool pool;
  const Ref<NSObject> list = parsePropertyList(bytes);
  return list ? toStdString(list->description()) : "null";
}

TEST(PropertyList, ReadsEveryForm) {
  const std::string dictionary = BinaryList().add("\xD1\1\2").add("\x51k").add("\x51v").list();
  const struct {
    std::string bytes;
    const char* expected;
  } cases[] = {
      {kPublicType + xml("<dict><key>k</key><string>v</string></dict>"), "{k = v; }"},
      {"\xEF\xBB\xBF \n<!-- c -->" + xml("<!-- c --><dict ><key>k</key><!-- c --><string>v</string></dict>") +
           "\n<!-- c -->\n",
       "{k = v; }"},
      {xml("<string>a&lt;&#65;&#x42;<!-- < --></string>"), "a<AB"},
      {xml("<array><true/><false></false><integer> 3 </integer><real>1.5e0</real><data>AAE=</data><dict/></array>"),
       "(1, 0, 3, \"1.5\", <0001>, {})"},
      {dictionary, "{k = v; }"},
      {BinaryList().add(std::string("\x62\xD8\x3D\xDE\0", 5)).list(), "\xF0\x9F\x98\x80"},
      {"{ k = v; } // end", "{k = v; }"},
      {"/* a */ ( a, \"b\\\"\", <00 ff>, {}, ( ), )", "(a, \"b\\\"\", <00ff>, {}, ())"},
      {"\xEF\xBB\xBFplain/word.x", "plain/word.x"},
  };
  for (const auto& c : cases) EXPECT_EQ(descriptionOf(c.bytes), c.expected) << c.bytes;
}

TEST(PropertyList, RefusesWhatIsMalformed) {
  testing::internal::CaptureStderr();
  for (const std::string text : {"",          "\x02\x01\x02\x03", "hello there",  "\"open",      "( a, b",
                                 "( a b )",   "{ a = b }",        "{ a; }",       "(a) b",       "( <012> )",
                                 "( <*I5> )", "/* open",          "( \"\xFF\" )", "( \"a\\",     "<!DOCTYPE plist",
                                 "<?xml",     "<plist a",         "<plist a=",    "<plist a=\"", "<plist a=\"b\"/>"}) {
    EXPECT_EQ(descriptionOf(text), "null") << text;
  }
  for (const char* value : {"", "<true/><true/>", "<array>", "</array>", "<array></dict>", "<array>text</array>",
                            "<array><key>a</key></array>", "<dict><string>a</string></dict>",
                            "<dict><key>a</key></dict>", "<dict><key>a</key><key>b</key></dict>", "<bogus/>",
                            "<plist/>", "<integer>abc</integer>", "<integer/>", "<real>one</real>", "<date/>",
                            "<date>2001-02-29T00:00:00Z</date>", "<date>yesterday</date>", "<data>!!</data>"}) {
    EXPECT_EQ(descriptionOf(xml(value)), "null") << value;
  }
  for (const std::string content : {"\xED\xA0\x80", "\xC0\x80", "\xFF", "\x01", "&#0;", "&#xD800;", "&#x110000;",
                                    "&name;", "&", "<![CDATA[x", "a<b/>"}) {
    EXPECT_EQ(descriptionOf(xml("<string>" + content + "</string>")), "null") << content;
  }
  const std::string surrogate("\x61\xD8\x00", 3);
  const std::string good = BinaryList().add("\xD1\1\2").add("\x51k").add("\x51v").list();
  const std::string others[] = {
      std::string(1, '\0'),
      std::string("( \"a\0b\" )", 9),
      xml("<true/>").substr(0, 20),
      xml("<true/>") + "x",
      "<dict><key>a</key><string>b</string></dict>",
      "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" + xml("<string>&a;</string>"),
      "<!DOCTYPE plist [<!ENTITY a \"&a;&a;\">]>" + xml("<string>&a;</string>"),
      "bplist00",
      "bplist00" + std::string(32, '\0'),
      "bplist00" + std::string(32, '\xFF'),
      good.substr(0, good.size() - 5),
      BinaryList().add("\xA1" + std::string(1, '\0')).list(),
      BinaryList().add("\xA1\1").add("\xA1" + std::string(1, '\0')).list(),
      BinaryList().add("\xA1\7").list(),
      BinaryList().add("\xD1\1\2").add("\x10\1").add("\x51v").list(),
      BinaryList().add("\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF").list(),
      BinaryList().add("\x6F\x13\x80" + std::string(7, '\0')).list(),
      BinaryList().add("\xDF\x13\x80" + std::string(7, '\0')).list(),
      BinaryList().add("\x5F\x14" + std::string(16, '\0')).list(),
      BinaryList().add("\x52\x80\x81").list(),
      BinaryList().add("\x33\x7F\xF8" + std::string(6, '\0')).list(),
      BinaryList().add("\x81\0\0").list(),
      BinaryList().add("\x51x").list(1, 5),
      BinaryList().add("\x51x").list(3),
      BinaryList().add("\xD1\1\2").add(surrogate).add("\x51v").list(),
      BinaryList().add(surrogate).list(),
      BinaryList().add(std::string("\x62\xDC\0\xD8\0", 5)).list(),
  };
  for (const std::string& bytes : others) EXPECT_EQ(descriptionOf(bytes), "null") << testing::PrintToString(bytes);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "malformed lists are not worth a log line";
}

TEST(PropertyList, EveryTruncationIsSurvived) {
  const std::string lists[] = {
      kPublicType + xml("<dict><key>k</key><string>v&lt;<![CDATA[x]]></string></dict>"),
      "{ k = \"v\\U0041\"; l = ( a, <00ff> ); /* c */ }",
      BinaryList().add("\xD1\1\2").add("\x51k").add("\x5F\x10\x01v").list(),
  };
  for (const std::string& list : lists) {
    // Up to its sixth character a binary list may be a plain word.
    for (std::size_t length = 6; length < list.size(); ++length)
      EXPECT_EQ(descriptionOf(list.substr(0, length)), "null");
  }
}

TEST(PropertyList, DepthEndsAt64InEveryForm) {
  const auto nestedXML = [](int depth) { return xml(repeated("<array>", depth) + repeated("</array>", depth)); };
  const auto nestedText = [](int depth) { return repeated("(", depth) + repeated(")", depth); };
  EXPECT_NE(descriptionOf(nestedXML(64)), "null");
  EXPECT_NE(descriptionOf(nestedText(64)), "null");
  EXPECT_NE(descriptionOf(nestedBinary(64)), "null");
  for (const int depth : {65, 60'000}) {
    EXPECT_EQ(descriptionOf(nestedXML(depth)), "null");
    EXPECT_EQ(descriptionOf(nestedText(depth)), "null");
    EXPECT_EQ(descriptionOf(repeated("{a=", depth)), "null");
    EXPECT_EQ(descriptionOf(nestedBinary(depth)), "null");
  }
}

TEST(PropertyList, ExpansionIsCountedWithSharing) {
  EXPECT_LT(expandingBinary().size(), 200U);
  EXPECT_EQ(descriptionOf(expandingBinary()), "null");
  // 300 references to one string of 128 KiB.
  const std::string text = "\x5F\x12" + BinaryList::number(128 << 10, 4) + std::string(128 << 10, 'x');
  EXPECT_FALSE(isSoundBinaryList(BinaryList().add("\xAF\x11\x01\x2C" + std::string(300, '\1')).add(text).list()));
  EXPECT_TRUE(isSoundBinaryList(BinaryList().add("\xA3\1\1\1").add("\x51x").list()));
  EXPECT_EQ(descriptionOf(xml("<array>" + repeated("<true/>", 200'000) + "</array>")), "null");
  EXPECT_EQ(descriptionOf("(" + repeated("a,", 200'000) + ")"), "null");
}

TEST(PropertyList, TheLongestListsTakeLinearTime) {
  const AutoreleasePool pool;
  const int megabytes = 12 << 20;
  const std::string lists[] = {
      xml("<string>" + std::string(megabytes, 'a') + "</string>"),
      xml("<array>" + repeated("<!-- -->", megabytes / 8) + "</array>"),
      xml("<string>" + repeated("&lt;", megabytes / 4) + "</string>"),
      "(" + std::string(megabytes, '\n') + ")",
      "(" + repeated("/**/", megabytes / 4) + ")",
      "(\"" + repeated("\\n", megabytes / 2) + "\")",
      std::string(megabytes, '<'),
      xml(std::string(megabytes, '<')),
      std::string(megabytes, '/'),
  };
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& list : lists) static_cast<void>(parsePropertyList(list));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

TEST(PropertyList, OnlyRegularFilesOfABearableSizeAreRead) {
  const AutoreleasePool pool;
  const std::string folder = session::privateFolder() + "/lists";
  std::filesystem::create_directories(folder + "/folder");
  support::writeFile(folder + "/good", "{ k = v; }");
  support::writeFile(folder + "/large", "");
  std::filesystem::resize_file(folder + "/large", 100U << 20U);
  support::writeFile(folder + "/padded", std::string(kLargestPropertyList - 1, ' ') + "a");
  support::writeFile(folder + "/overPadded", std::string(kLargestPropertyList, ' ') + "a");
  ASSERT_EQ(::mkfifo((folder + "/pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink(folder + "/good", folder + "/link");
  std::filesystem::create_symlink(folder + "/loop", folder + "/loop");
  for (const char* name : {"/good", "/link", "/padded"}) EXPECT_TRUE(readPropertyList((folder + name).c_str())) << name;
  for (const char* name : {"/folder", "/large", "/overPadded", "/pipe", "/loop", "/absent", ""}) {
    EXPECT_FALSE(readPropertyList((folder + name).c_str())) << name;
  }
  for (const char* path : {"", "/dev/zero"}) EXPECT_FALSE(readPropertyList(path)) << path;
}

TEST(PropertyList, ContainersAreMutableWhenAskedFor) {
  const AutoreleasePool pool;
  for (const std::string& list : {xml("<dict><key>k</key><dict/></dict>"), std::string("{ k = {}; }")}) {
    const auto made = parsePropertyList(list, PropertyListOptions::kMutableContainers);
    const auto inner = as<NSMutableDictionary>(as<NSDictionary>(made.get()).objectForKey(string("k")));
    ASSERT_TRUE(inner);
    inner.setObject(string("b"), string("a"));
    EXPECT_EQ(inner.count(), 1U);
  }
}

}  // namespace
}  // namespace velura
