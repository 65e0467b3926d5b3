// Every text that the calculators can ask for exists, and every text is asked for.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "calculators/ExposureCalculator.h"
#include "calculators/TimelapseCalculator.h"
#include "foundation/Bundle.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

std::set<std::string> keysOfTable(const std::string& table) {
  std::set<std::string> keys;
  const auto list = readPropertyListFile(resourcePath("en.lproj/" + table + ".strings"));
  if (!list || list->dictionary() == nullptr) return keys;
  for (const auto& [key, text] : *list->dictionary()) {
    EXPECT_FALSE(text.string().value_or("").empty()) << table << ": " << key;
    keys.insert(key);
  }
  return keys;
}

/// The quoted words with underscores in the sources: keys of texts, and of archives.
std::set<std::string> keysInSources() {
  std::set<std::string> keys;
  const std::regex quoted("\"([a-z0-9]+(_[a-z0-9]+)+)\"");
  for (const char* folder : {"/calculators", "/answers/calculators", "/commands/calculators"}) {
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(ZENIVO_SOURCE_DIR + std::string(folder))) {
      if (!entry.is_regular_file()) continue;
      std::stringstream text;
      text << std::ifstream(entry.path()).rdbuf();
      const std::string source = text.str();
      for (std::sregex_iterator match(source.begin(), source.end(), quoted), end; match != end;
           ++match) {
        keys.insert((*match)[1]);
      }
    }
  }
  return keys;
}

TEST(Texts, EveryKeyInTheSourcesHasAText) {
  std::set<std::string> known = keysOfTable("Calculators");
  known.merge(keysOfTable("Common"));
  known.insert({"coc_eyesight", "coc_print_width", "coc_print_height", "coc_viewing_distance",
                "coc_autocalculate", "coc_adjusted"});  // of an archive
  const auto used = keysInSources();
  EXPECT_GT(used.size(), 80U);
  for (const std::string& key : used) EXPECT_TRUE(known.contains(key)) << key;
}

TEST(Texts, EveryTextIsUsed) {
  auto used = keysInSources();
  used.insert({"aperture", "iso", "filter", "angle", "hemisphere", "fps"});  // single words
  for (const std::string& key : keysOfTable("Calculators")) {
    EXPECT_TRUE(used.contains(key)) << key;
  }
}

TEST(Texts, RowsOfTheTablesHaveTheirs) {
  const auto sections = exposureValueSections();
  const auto lights = keysOfTable("ExposureValues");
  std::set<std::string> used;
  ASSERT_GT(sections.size(), 4U);
  for (const ExposureValueSection& section : sections) {
    used.insert(section.title);
    for (const ExposureValueRow& row : section.rows) {
      used.insert({row.lightCondition, row.ev100});
      // The value that is computed lies in the range that is read.
      const std::int64_t value = getEVValue(row.ev100);
      const std::string text = row.ev100Text();
      const int first = std::stoi(text);
      const auto to = text.find(" to ");
      const int last = to == std::string::npos ? first : std::stoi(text.substr(to + 4));
      EXPECT_TRUE(first <= value && value <= last) << text;
    }
  }
  EXPECT_EQ(used, lights);

  used.clear();
  for (const TimelapseIntervalRow& row : timelapseIntervals()) {
    used.insert({row.event, row.interval, row.eventDuration});
  }
  EXPECT_EQ(used, keysOfTable("TimelapseIntervals"));
}

TEST(Texts, IntervalsAndDurationsSayWhatIsSet) {
  for (const TimelapseIntervalRow& row : timelapseIntervals()) {
    const auto seconds = [](const std::string& text) {
      std::istringstream words(text);
      double number = 0;
      std::string unit;
      words >> number >> unit;
      return number * (unit == "d" ? 86400 : unit == "h" ? 3600 : unit == "min" ? 60 : 1);
    };
    EXPECT_DOUBLE_EQ(seconds(row.eventDurationText()), row.eventDurationValue * 3600) << row.event;
    const std::string text = row.intervalText();
    const auto to = text.find(" to ");
    EXPECT_LE(seconds(text), row.intervalValue) << row.event;
    EXPECT_GE(to == std::string::npos ? seconds(text) : seconds(text.substr(to + 4)),
              row.intervalValue)
        << row.event;
  }
}

}  // namespace
}  // namespace zenivo
