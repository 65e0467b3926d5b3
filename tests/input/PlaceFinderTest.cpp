#include "input/PlaceFinder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "input/InputError.h"
#include "input/TextFolding.h"
#include "place/LocationUtils.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class Places : public testing::Test {
 protected:
  static std::string found(std::string_view query) {
    try {
      return findPlace(Gazetteer(), query).label;
    } catch (const InputError& error) {
      return error.what();
    }
  }
};

TEST_F(Places, NamesMeanWhatPeopleMean) {
  const std::pair<const char*, const char*> cases[] = {
      {"Paris", "Paris, Île-de-France, FR"},  // and not the one in Texas
      {"PARIS", "Paris, Île-de-France, FR"},
      {"Paris, TX", "Paris, Texas, US"},
      {"paris,texas,usa", "Paris, Texas, US"},
      {"London", "London, England, GB"},
      {"London, UK", "London, England, GB"},
      {"London, Canada", "London, Ontario, CA"},
      {"London, ON", "London, Ontario, CA"},
      {"Vancouver, BC", "Vancouver, British Columbia, CA"},
      {"Perth, WA", "Perth, Western Australia, AU"},
      {"Portland, US", "Portland, Oregon, US"},
      {"Portland, ME", "Portland, Maine, US"},  // also the code of Montenegro
      {"Athens", "Athens, Attica, GR"},         // a capital beats the namesakes
      {"Rome", "Rome, Lazio, IT"},              // though Lomé is called so in some tongue
      {"München", "Munich, Bavaria, DE"},
      {"munchen", "Munich, Bavaria, DE"},
      {"Genève", "Geneva, CH"},
      {"GVA", "Geneva, CH"},
      {"Санкт-Петербург", "Saint Petersburg, St.-Petersburg, RU"},
      {"東京", "Tokyo, JP"},
      {"st louis", "St. Louis, Missouri, US"},
      {"Tromso", "Tromsø, Troms, NO"},
      {"New York", "New York City, New York, US"},
      {"Washington, DC", "Washington, District of Columbia, US"},
      {"Washington, D.C.", "Washington, District of Columbia, US"},
      {"Monaco", "Monaco, Municipality of Monaco, MC"},
      {"Zermatt", "Zermatt, Valais, CH"},
      {"Chamonix", "Chamonix-Mont-Blanc, Auvergne-Rhône-Alpes, FR"},
      {"Banff, Alberta", "Banff, Alberta, CA"},
      {"Moab", "Moab, Utah, US"},
      {"San Pedro de Atacama", "San Pedro de Atacama, Antofagasta, CL"},
      {"etretat", "Étretat, Normandy, FR"},
      {"Queenstown, NZ", "Queenstown, Otago, NZ"},
      {"Eiffel Tower", "Eiffel Tower, FR"},
      {"Eiffel Tower, France", "Eiffel Tower, FR"},
      {"Petra", "Petra, JO"},  // and not the town of 2,900 on Majorca
  };
  for (const auto& [query, label] : cases) EXPECT_EQ(found(query), label) << query;
}

// No town is taken in place of a larger one that is called so as well, in whatever tongue.
TEST_F(Places, AmbiguousNamesListTheirCandidates) {
  const std::vector<std::string> cases[] = {
      {"Springfield", "Springfield, Missouri, US", "Springfield, Massachusetts, US"},
      {"San Jose", "San Jose, California, US", "San José, CR"},
      {"Geneva", "Geneva, CH", "Geneva, Illinois, US"},
      {"Victoria", "Hong Kong, HK", "Victoria, British Columbia, CA"},
      {"Zion", "Jerusalem, IL", "Zion, Illinois, US"},
      {"La Palma", "La Palma, California, US", "La Palma, Darién, PA"},
      {"Roma", "Rome, Lazio, IT", "Roma, Queensland, AU"},
      {"Banff", "Banff, Alberta, CA", "Banff, Scotland, GB"},
  };
  for (const auto& names : cases) {
    const std::string message = found(names[0]);
    EXPECT_THAT(message, HasSubstr('"' + names[0] + "\" is ambiguous: name one of "));
    EXPECT_THAT(message, HasSubstr('"' + names[1] + '"'));
    EXPECT_THAT(message, HasSubstr('"' + names[2] + '"'));
  }
}

TEST_F(Places, WhatIsNotFoundIsToldWithWhatToDo) {
  const std::pair<const char*, const char*> cases[] = {
      {"Pariss", "did you mean \"Paris, Île-de-France, FR\""},
      {"Paris, Atlantis", "did you mean \"Paris, Île-de-France, FR\""},
      {"Los", "no place named \"Los\""},           // is no code of Lagos
      {"nyc", "\"New York City, New York, US\""},  // which is NYC
      {"Xqzzy", "no place named \"Xqzzy\" is known; write"},
      {"", "no place named"},
      {", FR", "no place named"},
  };
  for (const auto& [query, reason] : cases) {
    EXPECT_THAT(found(query), HasSubstr(reason)) << query;
    EXPECT_THAT(found(query), EndsWith("; write LAT,LON, or look in zenivo pois")) << query;
  }
}

// A label that a message shows can be typed back; it may be ambiguous only with a
// namesake of the same region.
TEST_F(Places, LabelsLeadBackToTheirPlace) {
  const Gazetteer gazetteer;
  ASSERT_GT(gazetteer.size(), 171'000U);
  for (std::uint32_t i = 0; i < gazetteer.size(); i += 500) {
    const std::string label = gazetteer.place(i).label();
    EXPECT_THAT(found(label), HasSubstr(label));
  }
}

TEST_F(Places, TheNearestIsThatOfAllPlaces) {
  const Gazetteer gazetteer;
  std::mt19937 random(171'153);  // fixed, so that a failure repeats
  std::uniform_real_distribution<double> latitude(30, 60), longitude(-5, 40);
  for (int i = 0; i < 20; ++i) {
    const Coordinate here{latitude(random), longitude(random)};
    double nearest = 50;
    for (std::uint32_t p = 0; p < gazetteer.size(); ++p) {
      const GazetteerPlace place = gazetteer.place(p);
      if (place.kind == gazetteer::Kind::pointOfInterest) continue;
      nearest =
          std::min(nearest, LocationUtils::greatCircleDistanceWithSource(here, place.coordinate));
    }
    const auto near = gazetteer.nearest(here, 50);
    EXPECT_EQ(near ? near->kilometres : 50, nearest);
  }
}

TEST_F(Places, AMissingOrDamagedFileIsSaid) {
  EXPECT_THROW(Gazetteer("/nowhere"), std::runtime_error);
  const TemporaryFolder folder;
  const auto copy = folder / "places.index";
  for (const std::uintmax_t size : {0U, 4U, 20U, 100'000U}) {
    std::filesystem::copy_file(resourcePath("places.index"), copy,
                               std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(copy, size);
    EXPECT_THROW(Gazetteer{copy}, std::runtime_error) << size;
  }
}

TEST(TextFolding, LettersWithoutCaseAndAccents) {
  TextFolder folder;
  EXPECT_EQ(folder.fold("  Saint-Étienne (42)"), U"saintetienne42");
  EXPECT_EQ(folder.fold("GROSSE STRAẞE"), folder.fold("große strasse"));
  EXPECT_EQ(folder.fold("ŁÓDŹ Æon Øst Þór"), U"lodzaeonostthor");
  EXPECT_EQ(folder.fold("ΑΘΉΝΑ"), folder.fold("αθήνα"));
  EXPECT_NE(folder.fold("दिल्ली"), folder.fold("दल्ला"));  // vowel signs are letters
  EXPECT_EQ(folder.fold("\xff\xc3"), U"");
  EXPECT_EQ(folder.foldToUtf8("Αθήνα 東京 𝒜"), "αθηνα東京a");
  EXPECT_TRUE(folder.foldsTo("Île", folder.fold("ile")));
  EXPECT_FALSE(folder.foldsTo("Île", folder.fold("il")));
  EXPECT_FALSE(folder.foldsTo("Il", folder.fold("ile")));
}

}  // namespace
}  // namespace zenivo
