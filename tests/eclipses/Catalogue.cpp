#include "eclipses/Catalogue.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "data/stores/Database.h"
#include "eclipses/StoredEclipseCatalogue.h"
#include "foundation/Bundle.h"

namespace zenivo {
namespace {

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line + ",");  // so that an empty last one counts
  for (std::string field; std::getline(stream, field, ',');) fields.push_back(field);
  return fields;
}

StoredEclipseCatalogue& catalogue() {
  static Database database({"", resourcePath("ZenivoStatic.sqlite")});
  static StoredEclipseCatalogue stored(database.staticManagedObjectContext());
  return stored;
}

}  // namespace

std::vector<CsvRow> readCsv(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::string line;
  std::getline(file, line);
  const auto columns = fieldsOf(line);
  std::vector<CsvRow> rows;
  while (std::getline(file, line)) {
    const auto fields = fieldsOf(line);
    CsvRow& row = rows.emplace_back();
    for (std::size_t i = 0; i < columns.size(); ++i) row[columns[i]] = fields.at(i);
  }
  return rows;
}

const std::vector<EclipseRow>& catalogueRows() {
  static const std::vector<EclipseRow> rows = catalogue().eclipses();
  return rows;
}

std::vector<const EclipseRow*> eclipsesOfKind(EclipseKind kind) {
  std::vector<const EclipseRow*> found;
  for (const EclipseRow& row : catalogueRows()) {
    if (kindOf(row) == kind) found.push_back(&row);
  }
  return found;
}

const EclipseRow& eclipseNamed(const std::string& name) {
  for (const EclipseRow& row : catalogueRows()) {
    if (row.name == name) return row;
  }
  throw std::runtime_error("no eclipse " + name);
}

double secondsAfter(const char* time, double mjd) {
  int hour = 0, minute = 0, second = 0;
  if (std::sscanf(time, "%d:%d:%d", &hour, &minute, &second) != 3) return NAN;
  return (mjd - std::floor(mjd)) * 86400 - (hour * 3600 + minute * 60 + second);
}

}  // namespace zenivo
