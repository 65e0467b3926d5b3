#include "foundation/PropertyList.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "foundation/AtomicFile.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

using Array = PropertyList::Array;
using Data = PropertyList::Data;
using Dictionary = PropertyList::Dictionary;

std::string plist(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n" + body +
         "\n</plist>\n";
}

std::optional<PropertyList> roundTrip(const PropertyList& value) {
  return parsePropertyList(formatPropertyList(value).value());
}

class RandomValues {
 public:
  PropertyList value(int depth) {
    const auto kind = random_() % (depth > 0 ? 8 : 6);
    if (kind == 0) return random_() % 2 == 0;
    if (kind == 1) return static_cast<std::int64_t>(random_() >> (random_() % 64));
    if (kind == 2) return real();
    if (kind == 3) return text();
    if (kind == 4) return Date::withTimeIntervalSinceReferenceDate(seconds_(random_));
    if (kind == 5) return data();
    return kind == 6 ? array(depth) : dictionary(depth);
  }

 private:
  double real() {
    const double bits = std::bit_cast<double>(random_());
    return std::isnan(bits) ? 0.1 : bits;
  }
  std::string text() {
    // What XML has its own ideas about, and characters of one to four bytes.
    static const std::vector<std::string> pieces{"&",    "<",    ">",  "\"", "'",   "\r",
                                                 "\n",   "\r\n", "\t", " ",  "]]>", "&amp;",
                                                 "&#0;", "a",    "é",  "°",  "∞",   "🌘"};
    std::string text;
    for (auto count = random_() % 6; count > 0; --count) text += pieces[random_() % pieces.size()];
    return text;
  }
  Data data() {
    Data bytes(random_() % 100);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random_());
    return bytes;
  }
  PropertyList array(int depth) {
    Array array;
    for (auto count = random_() % 5; count > 0; --count) array.push_back(value(depth - 1));
    return array;
  }
  PropertyList dictionary(int depth) {
    Dictionary dictionary;
    for (auto count = random_() % 5; count > 0; --count) {
      dictionary.insert_or_assign(text(), value(depth - 1));
    }
    return dictionary;
  }

  std::mt19937_64 random_{20010101};
  std::uniform_real_distribution<double> seconds_{-1e11, 1e11};
};

TEST(PropertyList, RandomValuesReadBackEqual) {
  RandomValues random;
  for (int i = 0; i < 10'000; ++i) {
    const PropertyList value = random.value(4);
    EXPECT_EQ(roundTrip(value), value) << formatPropertyList(value).value();
  }
}

TEST(PropertyList, ExtremesReadBackEqual) {
  using Real = std::numeric_limits<double>;
  using Whole = std::numeric_limits<std::int64_t>;
  for (const double real : {Real::max(), Real::lowest(), Real::denorm_min(), Real::infinity(),
                            -Real::infinity(), 0.1}) {
    EXPECT_EQ(roundTrip(real), PropertyList(real)) << real;
  }
  // The last is the first moment of the year 1.
  for (const double seconds : {0.0, -0.25, 1e-300, 803712345.678901, -63114076800.0}) {
    const Date date = Date::withTimeIntervalSinceReferenceDate(seconds);
    EXPECT_EQ(roundTrip(date), PropertyList(date)) << seconds;
  }
  EXPECT_TRUE(std::signbit(roundTrip(-0.0)->real().value()));
  EXPECT_TRUE(std::isnan(roundTrip(Real::quiet_NaN())->real().value()));
  // Nothing of the type changes on the way: 1.0 stays a real, true a boolean.
  const Array numbers{1.0, 1, true, Whole::max(), Whole::min()};
  EXPECT_EQ(roundTrip(numbers), PropertyList(numbers));
  EXPECT_NE(PropertyList(1.0), PropertyList(1));
  EXPECT_NE(PropertyList(-0.0), PropertyList(0.0));
  // One number beyond 64 bits leaves the rest of a file readable.
  EXPECT_EQ(parsePropertyList("<plist><integer>-9223372036854775809</integer></plist>"),
            PropertyList(-9223372036854775808.0));
}

TEST(PropertyList, ATextThatXmlCannotCarryIsRefusedAndNeverAltered) {
  using namespace std::string_literals;
  for (const std::string& text : {"a\0b"s, "\x1F"s, "\xFF"s, "\xC0\x80"s, "\uFFFE"s}) {
    Error error;
    EXPECT_FALSE(formatPropertyList(Dictionary{{"name", text}}, &error));
    EXPECT_EQ(error.description, "the text at \"name\" has a character that XML cannot carry");
    EXPECT_FALSE(formatPropertyList(Dictionary{{text, 1}}));
  }
}

TEST(PropertyList, DatesOutsideTheFormsYearsTakeTheNearest) {
  for (const double seconds : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN(), -1e-20}) {
    const auto date = roundTrip(Date::withTimeIntervalSinceReferenceDate(seconds));
    ASSERT_TRUE(date && date->date()) << seconds;
    EXPECT_LT(std::abs(date->date()->timeIntervalSinceReferenceDate()), 4e11);
  }
}

TEST(PropertyList, ReadsWhatOtherProgramsWrite) {
  const auto value = parsePropertyList(
      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\r\n"
      "<plist version=\"1.0\"><!-- a comment -->\r\n<dict>\r\n"
      "\t<key>data</key><data>\r\n\tAAEC\r\n\tAw==\r\n\t</data>\r\n"
      "\t<key>date</key><date>2026-06-21T05:47:00Z</date>\r\n"
      "\t<key>number</key><real> +1.5e3 </real>\r\n"
      "\t<key>text</key><string>a &lt; b<!-- no --> &#176;<![CDATA[ <c> & ]]></string>\r\n"
      "\t<key>lines</key><string>a\r\nb</string>\r\n"
      "</dict>\r\n</plist>\r\n");
  ASSERT_TRUE(value);
  EXPECT_EQ(value->valueForKey("data")->data(), (Data{0, 1, 2, 3}));
  EXPECT_EQ(value->valueForKey("date")->date()->timeIntervalSince1970(), 1782020820);
  EXPECT_EQ(value->valueForKey("number")->real(), 1500);
  EXPECT_EQ(value->valueForKey("text")->string(), "a < b ° <c> & ");
  EXPECT_EQ(value->valueForKey("lines")->string(), "a\nb");
}

TEST(PropertyList, RefusesWithTheLineAndTheReason) {
  const struct {
    const char* body;  // begins on line 3
    const char* error;
  } cases[] = {
      {"", "line 2: <plist> holds exactly one value"},
      {"<true/>\n<true/>", "line 2: <plist> holds exactly one value"},
      {"\n<number>1</number>", "line 4: <number> is no value of a property list"},
      {"<true>1</true>", "line 3: <true> is no value of a property list"},
      {"<string>a<b/></string>", "line 3: <string> holds text only"},
      {"<string>&#1;</string>", "line 3: a character that XML does not allow"},
      {"<array>\n<true/> x</array>", "line 4: unexpected text in <array>"},
      {"<dict><key>a</key></dict>", "line 3: a <dict> holds a value for each <key>"},
      {"<dict><true/><true/></dict>", "line 3: expected a <key>"},
      {"<dict>\n<key>a</key><true/>\n<key>a</key><true/></dict>",
       "line 5: the key \"a\" stands twice"},
      {"<array>", "line 4: Start-end tags mismatch"},
      {"<string>\xFF</string>", "line 3: not UTF-8, or a character that XML does not allow"},
  };
  Error error;
  for (const auto& [body, expected] : cases) {
    EXPECT_FALSE(parsePropertyList(plist(body), &error)) << body;
    EXPECT_EQ(error.description, expected) << body;
  }
  const std::pair<const char*, std::vector<std::string>> texts[] = {
      {"integer", {"1.5", "9223372036854775808e1", "", "+-1"}},
      {"real", {"1,5", "1e999"}},
      {"date",
       {"2026-06-21", "2026-02-30T00:00:00Z", "2026-06-21T05:47:00.Z",
        "2026-06-21T05:47:00+02:00"}},
      {"data", {"AAA", "A=AA", "===="}}};
  for (const auto& [type, contents] : texts) {
    const std::string tag = std::string("<") + type + ">";
    for (const std::string& text : contents) {
      EXPECT_FALSE(parsePropertyList(plist(tag + text + "</" + type + ">"), &error)) << text;
      EXPECT_EQ(error.description, "line 3: not the text of a " + tag) << text;
    }
  }
}

TEST(PropertyList, RefusesDocumentsThatAreNone) {
  using namespace std::string_literals;
  for (
      const std::string& document :
      {""s, "\0"s, "bplist00"s, "<plist>"s, "<dict/>"s, "<plist/><plist/>"s,
       "<plist><string>a\0b</string></plist>"s,
       // Entities of its own, as in the "billion laughs" and in reading local files.
       "<!DOCTYPE plist [<!ENTITY a \"aa\"><!ENTITY b \"&a;&a;\">]><plist><string>&b;</string></plist>"s,
       "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><plist><string>&a;</string></plist>"s}) {
    Error error;
    EXPECT_FALSE(parsePropertyList(document, &error)) << document;
    EXPECT_TRUE(error.description.starts_with("line ")) << error.description;
  }
}

TEST(PropertyList, NestingIsBounded) {
  const auto nested = [](int arrays) {
    std::string body;
    for (int i = 0; i < arrays; ++i) body += "<array>";
    for (int i = 0; i < arrays; ++i) body += "</array>";
    return plist(body);
  };
  EXPECT_TRUE(parsePropertyList(nested(kPropertyListMaximumDepth)));
  EXPECT_FALSE(parsePropertyList(nested(kPropertyListMaximumDepth + 1)));
  EXPECT_FALSE(parsePropertyList(nested(200'000)));
}

TEST(PropertyList, DamagedFilesNeverCrash) {
  std::mt19937_64 random(7);
  const auto formatted = formatPropertyList(
      Dictionary{{"array", Array{1, 2.5, "text &", Date(), Data{1, 2, 3}, Array{true}}},
                 {"key", Dictionary{}}});
  const std::string& good = formatted.value();
  for (std::size_t length = 0; length <= good.find("</plist>"); ++length) {
    EXPECT_FALSE(parsePropertyList(std::string_view(good).substr(0, length))) << length;
  }
  using namespace std::string_view_literals;
  const std::string_view letters = "<>/&;#!-[]\"' \n=xpdk\0\xC3"sv;
  for (int i = 0; i < 20'000; ++i) {
    std::string damaged = good;
    for (auto count = 1 + random() % 4; count > 0; --count) {
      damaged[random() % damaged.size()] = letters[random() % letters.size()];
    }
    if (const auto value = parsePropertyList(damaged)) {
      EXPECT_EQ(roundTrip(*value), *value) << damaged;
    }
  }
  std::string garbage(1 << 20, '\0');
  for (char& c : garbage) c = static_cast<char>(random());
  EXPECT_FALSE(parsePropertyList(garbage));
  for (char& c : garbage) c = letters[random() % (letters.size() - 2)];
  EXPECT_FALSE(parsePropertyList("<plist>" + garbage));
}

TEST(PropertyList, NumbersConvertAmongThemselves) {
  constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
  const struct {
    PropertyList value;
    bool boolean;
    std::int64_t integer;
    double real;
  } cases[] = {{true, true, 1, 1},           {-7, true, -7, -7},
               {0.75, true, 0, 0.75},        {0.0, false, 0, 0},
               {1e30, true, kLargest, 1e30}, {-1e30, true, -kLargest - 1, -1e30}};
  for (const auto& expected : cases) {
    EXPECT_EQ(expected.value.boolean(), expected.boolean);
    EXPECT_EQ(expected.value.integer(), expected.integer);
    EXPECT_EQ(expected.value.real(), expected.real);
  }
  EXPECT_EQ(PropertyList(std::nan("")).integer(), 0);
  for (const PropertyList& none : Array{"12", Date()}) {
    EXPECT_FALSE(none.boolean() || none.integer() || none.real());
  }
}

TEST(PropertyList, FilesKeepTheirOldContentWhenWritingFails) {
  const TemporaryFolder folder;
  Error error;
  EXPECT_FALSE(writePropertyListFile(folder / "missing/a.plist", 1, &error));
  EXPECT_NE(error.description.find("missing/a.plist: No such file"), std::string::npos)
      << error.description;
  EXPECT_FALSE(readPropertyListFile(folder / "a.plist", &error));
  EXPECT_FALSE(readPropertyListFile(folder.path(), &error));
  EXPECT_NE(error.description.find("not a regular file"), std::string::npos) << error.description;

  // A folder in the file's place cannot be replaced, and no temporary file stays.
  std::filesystem::create_directories(folder / "a.plist/inside");
  EXPECT_FALSE(writePropertyListFile(folder / "a.plist", 1, &error));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);

  ASSERT_TRUE(writeFileAtomically(folder / "b.plist", "<plist>\n<flase/></plist>"));
  EXPECT_FALSE(readPropertyListFile(folder / "b.plist", &error));
  EXPECT_NE(error.description.find("b.plist: line 2: <flase>"), std::string::npos)
      << error.description;
  ASSERT_TRUE(writePropertyListFile(folder / "b.plist", Array{1, "two"}, &error))
      << error.description;
  EXPECT_EQ(readPropertyListFile(folder / "b.plist"), PropertyList(Array{1, "two"}));
  EXPECT_FALSE(readFile(folder / "b.plist", 10, &error));
}

}  // namespace
}  // namespace zenivo
