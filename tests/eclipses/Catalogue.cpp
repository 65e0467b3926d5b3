#include "eclipses/Catalogue.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "foundation/Bundle.h"

namespace zenivo {
namespace {

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

double number(const CsvRow& row, const std::string& column) {
  const std::string& text = row.at(column);
  return text.empty() ? 0 : std::stod(text);
}

template <class Row>
using Columns = std::vector<std::pair<const char*, double Row::*>>;

template <class Row>
Row rowOf(const CsvRow& csv, const Columns<Row>& columns) {
  Row row;
  for (const auto& [column, field] : columns) row.*field = number(csv, column);
  return row;
}

const Columns<EclipseSolarRow>& solarColumns() {
  using R = EclipseSolarRow;
  static const Columns<R> columns{
      {"t0", &R::t0},         {"dummy1", &R::dummy1},   {"dummy2", &R::dummy2},
      {"deltaT", &R::deltaT}, {"deltaT2", &R::deltaT2}, {"n0_x", &R::n0_x},
      {"n1_x", &R::n1_x},     {"n2_x", &R::n2_x},       {"n3_x", &R::n3_x},
      {"n0_y", &R::n0_y},     {"n1_y", &R::n1_y},       {"n2_y", &R::n2_y},
      {"n3_y", &R::n3_y},     {"n0_d", &R::n0_d},       {"n1_d", &R::n1_d},
      {"n2_d", &R::n2_d},     {"n0_u", &R::n0_u},       {"n1_u", &R::n1_u},
      {"n2_u", &R::n2_u},     {"n0_l1", &R::n0_l1},     {"n1_l1", &R::n1_l1},
      {"n2_l1", &R::n2_l1},   {"n0_l2", &R::n0_l2},     {"n1_l2", &R::n1_l2},
      {"n2_l2", &R::n2_l2},   {"tanf1", &R::tanf1},     {"tanf2", &R::tanf2}};
  return columns;
}

const Columns<EclipseLunarRow>& lunarColumns() {
  using R = EclipseLunarRow;
  static const Columns<R> columns{
      {"i1", &R::i1},   {"i2", &R::i2},   {"i3", &R::i3},   {"i4", &R::i4},   {"i5", &R::i5},
      {"i6", &R::i6},   {"i7", &R::i7},   {"i8", &R::i8},   {"p1", &R::p1},   {"u1", &R::u1},
      {"u2", &R::u2},   {"mid", &R::mid}, {"u3", &R::u3},   {"u4", &R::u4},   {"p4", &R::p4},
      {"i16", &R::i16}, {"i17", &R::i17}, {"i18", &R::i18}, {"i19", &R::i19}, {"i20", &R::i20},
      {"i21", &R::i21}};
  return columns;
}

std::vector<EclipseRow> readCatalogue() {
  std::map<std::string, EclipseSolarRow> solar;
  for (const CsvRow& csv : readCsv(resourcePath("catalogue/EclipseSolar.csv"))) {
    EclipseSolarRow& row = solar[csv.at("eclipse")] = rowOf(csv, solarColumns());
    row.duration = csv.at("duration");
  }
  std::map<std::string, EclipseLunarRow> lunar;
  for (const CsvRow& csv : readCsv(resourcePath("catalogue/EclipseLunar.csv"))) {
    lunar[csv.at("eclipse")] = rowOf(csv, lunarColumns());
  }
  std::vector<EclipseRow> rows;
  for (const CsvRow& csv : readCsv(resourcePath("catalogue/Eclipse.csv"))) {
    EclipseRow& row = rows.emplace_back();
    row.name = csv.at("name");
    row.filename = csv.at("filename");
    row.eclipseType = std::stoi(csv.at("eclipseType"));
    row.type = std::stoi(csv.at("type"));
    row.mjd = number(csv, "mjd");
    if (row.isSolarEclipse()) {
      row.solarEclipse = solar.at(row.name);
    } else {
      row.lunarEclipse = lunar.at(row.name);
    }
  }
  return rows;
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
  static const std::vector<EclipseRow> rows = readCatalogue();
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
