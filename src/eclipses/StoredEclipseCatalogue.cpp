#include "eclipses/StoredEclipseCatalogue.h"

#include <string>
#include <utility>

#include "data/stores/StaticEntities.h"
#include "foundation/Log.h"

namespace zenivo {
namespace {

template <class Row>
struct Column {
  Attribute<double> attribute;
  double Row::*field;
};

using S = EclipseSolar;
using SRow = EclipseSolarRow;
constexpr Column<SRow> kSolarColumns[] = {
    {S::t0, &SRow::t0},         {S::dummy1, &SRow::dummy1},   {S::dummy2, &SRow::dummy2},
    {S::deltaT, &SRow::deltaT}, {S::deltaT2, &SRow::deltaT2}, {S::n0_x, &SRow::n0_x},
    {S::n1_x, &SRow::n1_x},     {S::n2_x, &SRow::n2_x},       {S::n3_x, &SRow::n3_x},
    {S::n0_y, &SRow::n0_y},     {S::n1_y, &SRow::n1_y},       {S::n2_y, &SRow::n2_y},
    {S::n3_y, &SRow::n3_y},     {S::n0_d, &SRow::n0_d},       {S::n1_d, &SRow::n1_d},
    {S::n2_d, &SRow::n2_d},     {S::n0_u, &SRow::n0_u},       {S::n1_u, &SRow::n1_u},
    {S::n2_u, &SRow::n2_u},     {S::n0_l1, &SRow::n0_l1},     {S::n1_l1, &SRow::n1_l1},
    {S::n2_l1, &SRow::n2_l1},   {S::n0_l2, &SRow::n0_l2},     {S::n1_l2, &SRow::n1_l2},
    {S::n2_l2, &SRow::n2_l2},   {S::tanf1, &SRow::tanf1},     {S::tanf2, &SRow::tanf2}};

using L = EclipseLunar;
using LRow = EclipseLunarRow;
constexpr Column<LRow> kLunarColumns[] = {
    {L::i1, &LRow::i1},   {L::i2, &LRow::i2},   {L::i3, &LRow::i3},   {L::i4, &LRow::i4},
    {L::i5, &LRow::i5},   {L::i6, &LRow::i6},   {L::i7, &LRow::i7},   {L::i8, &LRow::i8},
    {L::p1, &LRow::p1},   {L::u1, &LRow::u1},   {L::u2, &LRow::u2},   {L::mid, &LRow::mid},
    {L::u3, &LRow::u3},   {L::u4, &LRow::u4},   {L::p4, &LRow::p4},   {L::i16, &LRow::i16},
    {L::i17, &LRow::i17}, {L::i18, &LRow::i18}, {L::i19, &LRow::i19}, {L::i20, &LRow::i20},
    {L::i21, &LRow::i21}};

template <class Row, std::size_t N>
Row numbersOf(const StoredObject& object, const Column<Row> (&columns)[N]) {
  Row row;
  for (const Column<Row>& column : columns) {
    row.*column.field = object.getOr(column.attribute, 0.0);
  }
  return row;
}

EclipseRow rowOf(const Eclipse& eclipse) {
  EclipseRow row;
  row.name = eclipse.getOr(Eclipse::name, {});
  row.filename = eclipse.getOr(Eclipse::filename, {});
  row.eclipseType = eclipse.getOr(Eclipse::eclipseType, 0);
  row.type = eclipse.getOr(Eclipse::type, 0);
  row.mjd = eclipse.getOr(Eclipse::mjd, 0.0);
  if (row.isSolarEclipse()) {
    if (const auto solar = eclipse.get(Eclipse::solarEclipse)) {
      row.solarEclipse = numbersOf(*solar, kSolarColumns);
      row.solarEclipse->duration = solar->getOr(EclipseSolar::duration, {});
    }
  } else if (const auto lunar = eclipse.get(Eclipse::lunarEclipse)) {
    row.lunarEclipse = numbersOf(*lunar, kLunarColumns);
  }
  return row;
}

}  // namespace

StoredEclipseCatalogue::StoredEclipseCatalogue(std::shared_ptr<ManagedObjectContext> context)
    : context_(std::move(context)) {}

std::vector<EclipseRow> StoredEclipseCatalogue::rowsFor(FetchRequest request) const {
  request.entityName = Eclipse::kEntityName;
  request.relationshipKeyPathsForPrefetching = {std::string(Eclipse::solarEclipse.key),
                                                std::string(Eclipse::lunarEclipse.key)};
  Error error;
  const auto fetched = context_->executeFetchRequest(request, &error);
  if (!fetched) {
    log(LogLevel::error, "The eclipses cannot be read: " + error.description);
    return {};
  }
  std::vector<EclipseRow> rows;
  rows.reserve(fetched->size());
  for (const auto& eclipse : objectsOfClass<Eclipse>(*fetched)) rows.push_back(rowOf(*eclipse));
  return rows;
}

std::vector<EclipseRow> StoredEclipseCatalogue::eclipses() const {
  FetchRequest request;
  request.sortDescriptors = {{std::string(Eclipse::mjd.key)}};
  return rowsFor(std::move(request));
}

std::optional<EclipseRow> StoredEclipseCatalogue::getEclipseWithName(std::string_view name) const {
  FetchRequest request;
  request.predicate = Predicate::predicateWithFormat("name = %@", std::string(name));
  auto rows = rowsFor(std::move(request));
  if (rows.empty()) return std::nullopt;
  return std::move(rows.front());
}

}  // namespace zenivo
