#include "answers/events/Eclipse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "answers/events/EclipseList.h"
#include "eclipses/Catalogue.h"
#include "input/InputError.h"
#include "support/Times.h"

namespace zenivo {
namespace {

class RowsCatalogue : public EclipseCatalogue {
 public:
  std::vector<EclipseRow> eclipses() const override { return catalogueRows(); }
  std::optional<EclipseRow> getEclipseWithName(std::string_view name) const override {
    for (const EclipseRow& row : catalogueRows()) {
      if (row.name == name) return row;
    }
    return std::nullopt;
  }
};

Scene sceneOfParis() {
  Scene scene;
  scene.location = ZVLocation(Coordinate{48.8534, 2.3488});
  scene.zone = zoneNamed("Europe/Paris");
  return scene;
}

template <class Question>
std::string faultOf(const Question& question) {
  try {
    answer(question, RowsCatalogue());
    return {};
  } catch (const InputError& error) {
    return error.what();
  }
}

// Every way of asking says what the catalogue holds, and none denies an eclipse beyond.
TEST(Eclipse, OutsideTheCatalogueItsYearsAreNamed) {
  const auto ask = [](auto which) {
    return EclipseQuestion{.scene = sceneOfParis(), .which = which, .kind = {}};
  };
  EclipsesQuestion before{.scene = {}, .zone = {}, .from = {}, .to = utc(1801, 1, 1), .kind = {}};
  EclipsesQuestion after = before;
  after.to = std::nullopt;
  after.from = utc(2201, 1, 1);
  for (const std::string& fault :
       {faultOf(ask(DateComponents{1715, 5, 3})), faultOf(ask(DateComponents{2201, 1, 1})),
        faultOf(ask(std::string("SE1715May03T"))), faultOf(ask(NextEclipse{utc(1715, 1, 1)})),
        faultOf(ask(NextEclipse{utc(2201, 1, 1)})), faultOf(ask(NextEclipse{utc(2200, 12, 31)})),
        faultOf(before), faultOf(after)}) {
    EXPECT_THAT(fault, testing::HasSubstr("the catalogue holds the eclipses of 1801 to 2200"));
  }
  before.from = utc(1790, 1, 1);
  before.to = utc(1802, 1, 1);
  const auto cut = answer(before, RowsCatalogue());
  EXPECT_TRUE(cut.isCut());
  EXPECT_EQ(json(cut)["catalogue"]["firstYear"], 1801);
  EXPECT_FALSE(cut.eclipses.empty());
}

// On 2025 March 14 the Moon sets at 7:12 over Paris, in the middle of its eclipse.
TEST(Eclipse, TheNextOneHasSomethingLeftAboveTheHorizon) {
  const auto next = [](int hour) {
    const auto after = NextEclipse{dateIn("Europe/Paris", 2025, 3, 14, hour)};
    return answer(EclipseQuestion{sceneOfParis(), after, EclipseKind::lunar}, RowsCatalogue())
        .eclipse.name;
  };
  EXPECT_EQ(next(7), "LE2025Mar14T");
  EXPECT_EQ(next(8), "LE2025Sep07T");
}

}  // namespace
}  // namespace zenivo
