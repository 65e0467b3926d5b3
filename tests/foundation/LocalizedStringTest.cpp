#include "foundation/LocalizedString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "foundation/AtomicFile.h"
#include "foundation/Bundle.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

TEST(LocalizedString, TextsOfKeys) {
  EXPECT_EQ(localizedString("event_sun_rise", "Ephemeris"), "Sunrise");
  EXPECT_EQ(localizedString("no_such_key", "Common"), "no_such_key");
}

TEST(LocalizedString, AMissingTableIsReportedOnce) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(localizedString("key", "NoSuchTable"), "key");
  EXPECT_EQ(localizedString("other", "NoSuchTable"), "other");
  const std::string report = testing::internal::GetCapturedStderr();
  EXPECT_NE(report.find("NoSuchTable.strings"), std::string::npos) << report;
  EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 1);
}

// A table that is not sorted, or has a key twice, invites merges that lose texts.
TEST(LocalizedString, TablesAreSortedListsOfTexts) {
  int tables = 0;
  for (const auto& entry : std::filesystem::directory_iterator(resourcePath("en.lproj"))) {
    Error error;
    const auto xml = readFile(entry.path(), kPropertyListMaximumBytes, &error);
    const auto table = parsePropertyList(xml.value_or(""), &error);
    ASSERT_TRUE(table && table->dictionary()) << entry.path() << ": " << error.description;
    EXPECT_EQ(xml, formatPropertyList(*table)) << entry.path();
    for (const auto& [key, text] : *table->dictionary()) {
      EXPECT_FALSE(text.string().value_or("").empty()) << entry.path() << ": " << key;
    }
    ++tables;
  }
  EXPECT_GE(tables, 2);
}

TEST(Bundle, TheVariableNamesTheFolder) {
  ::setenv("ZENIVO_RESOURCES", "/elsewhere", 1);
  EXPECT_EQ(resourcePath("meteors.json"), "/elsewhere/meteors.json");
  ::unsetenv("ZENIVO_RESOURCES");
}

}  // namespace
}  // namespace zenivo
