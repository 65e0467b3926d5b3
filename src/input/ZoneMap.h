// The time zone of a point by the borders of the zones.

#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Bundle.h"
#include "foundation/MappedFile.h"
#include "place/Coordinate.h"

namespace zenivo {

/// How the source is named wherever a zone by borders is shown.
inline constexpr std::string_view kZoneMapCredit = "OpenStreetMap contributors, ODbL";

/// The zones that hold at a point.
struct PlaceZones {
  std::string name;                 ///< IANA name of the zone there
  std::vector<std::string> shared;  ///< those whose clocks are kept there as well
  std::vector<std::string> near;    ///< those whose border may lie this side of the point
  bool isNautical = false;          ///< `name` is that of the longitude, at sea

  /// Why this zone, in words: "by the borders of …", with all others that are named here.
  std::string origin() const;
};

/// The map of the world's time zones: the boundaries of OpenStreetMap with the waters
/// of each state, on a grid of 0.01 degree.  Beyond them the nautical zone counts.
///
/// Error: at a point within a cell of a border (at most 1.6 km) the neighbour's zone may
/// be taken for its own; every zone that touches the point's cell is then in `shared` or
/// `near`.  At 20,000 random points on land 18 had another zone than the polygons
/// give, and each time that one was named.
/// Special cases: where states dispute a region all their zones are given, the first in
/// the order of the names counts; at the poles and on the date line as beside them.
/// Source: tools/zones/make_zones.mjs, from geo-tz 8.1.9 (timezone-boundary-builder).
class ZoneMap {
 public:
  /// Throws std::runtime_error when the map cannot be read.
  explicit ZoneMap(const std::filesystem::path& file = resourcePath("zones.bin"));

  /// The zones at a valid coordinate.  Near a border a place that is known to be in a
  /// country (two letters of ISO 3166) has that country's zone.
  PlaceZones at(const Coordinate& coordinate, std::string_view country = {}) const;

  std::span<const std::string_view> names() const { return names_; }

 private:
  struct Run {
    std::uint16_t column;
    std::uint16_t list;
  };
  struct List {
    std::span<const std::uint16_t> zones;
    std::uint16_t kept;  // so many hold at the centre of the cell, the others touch it
  };

  std::uint16_t listOf(std::uint32_t row, std::uint32_t column) const;

  MappedFile file_;
  std::uint32_t columns_ = 0;
  std::uint32_t rows_ = 0;
  std::vector<std::string_view> names_;
  std::vector<std::string_view> countries_;  // of each zone; empty for none
  std::vector<List> lists_;                  // the first is empty: the sea
  std::span<const std::uint32_t> starts_;    // of each row in runs_
  std::span<const Run> runs_;
};

/// The nautical zone: strips of 15° of longitude centred on the multiples of 15°,
/// "Etc/GMT+n" n hours west of Greenwich, "Etc/GMT-n" east.
std::string nauticalZone(double longitude);

}  // namespace zenivo
