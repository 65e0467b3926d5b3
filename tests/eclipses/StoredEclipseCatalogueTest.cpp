// Reading eclipses from the static store.

#include "eclipses/StoredEclipseCatalogue.h"

#include <gtest/gtest.h>

#include "data/stores/Database.h"
#include "eclipses/Catalogue.h"
#include "foundation/Bundle.h"

namespace zenivo {
namespace {

TEST(StoredEclipseCatalogue, FindsARowByItsName) {
  Database database({"", resourcePath("ZenivoStatic.sqlite")});
  const StoredEclipseCatalogue catalogue(database.staticManagedObjectContext());
  for (const char* name : {"SE2024Apr08T", "LE2022May16T"}) {
    const EclipseRow& listed = eclipseNamed(name);
    const auto row = catalogue.getEclipseWithName(name);
    ASSERT_TRUE(row) << name;
    EXPECT_EQ(row->mjd, listed.mjd);
    EXPECT_EQ(row->solarEclipse.has_value(), row->isSolarEclipse());
    EXPECT_EQ(row->lunarEclipse.has_value(), !row->isSolarEclipse());
  }
  EXPECT_FALSE(catalogue.getEclipseWithName("SE2024Apr08"));
  EXPECT_FALSE(catalogue.getEclipseWithName("' OR name LIKE '%"));
}

}  // namespace
}  // namespace zenivo
