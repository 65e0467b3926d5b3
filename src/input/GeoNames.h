// The cities of GeoNames (CC BY 4.0): places above 15,000 inhabitants and
// capitals, with their countries and regions.

#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace zenivo {

/// How the source is named wherever one of its names or zones is shown.
inline constexpr std::string_view kGeoNamesCredit = "GeoNames, CC BY 4.0";

/// A file of tab-separated rows, held in memory and split as it is walked.
class TabTable {
 public:
  static constexpr std::size_t kMaxFields = 19;
  using Row = std::array<std::string_view, kMaxFields>;

  /// Throws std::runtime_error when the file cannot be read.
  explicit TabTable(const std::filesystem::path& file);

  /// Calls `visit(row)` for each line that is no comment; fields beyond a
  /// line's end are empty.
  template <typename Visitor>
  void forEachRow(Visitor visit) const {
    std::string_view rest = text_;
    while (!rest.empty()) {
      const Row row = nextRow(rest);
      if (!row[0].empty() && row[0][0] != '#') visit(row);
    }
  }

 private:
  static Row nextRow(std::string_view& rest);

  std::string text_;
};

/// One city: a view into the table's row, good as long as the table.
class City {
 public:
  explicit City(const TabTable::Row& row) : row_(row) {}

  std::string_view name() const { return row_[1]; }
  std::string_view asciiName() const { return row_[2]; }
  /// Other names, former ones and those in other languages, between commas.
  std::string_view alternateNames() const { return row_[3]; }
  std::string_view country() const { return row_[8]; }  ///< ISO 3166, two letters
  std::string_view region() const { return row_[10]; }  ///< code within the country
  std::string_view timeZone() const { return row_[17]; }
  bool isCapital() const { return row_[7] == "PPLC"; }
  double latitude() const { return number(4); }
  double longitude() const { return number(5); }
  double population() const { return number(14); }
  /// Metres: as measured, else that of the terrain model, else 0.
  double altitude() const;

 private:
  double number(std::size_t field) const;

  TabTable::Row row_;
};

class GeoNames {
 public:
  /// The folder of the package libtimezonemap-data.
  static constexpr std::string_view kFolder = "/usr/share/libtimezonemap/ui";

  explicit GeoNames(const std::filesystem::path& folder = kFolder);

  template <typename Visitor>
  void forEachCity(Visitor visit) const {
    cities_.forEachRow([&](const TabTable::Row& row) { visit(City(row)); });
  }

  const TabTable& regions() const { return regions_; }  ///< "US.OR", name, name in ASCII
  const TabTable& countries() const {
    return countries_;
  }  ///< ISO code of 2 letters, of 3, number, FIPS, name, …

 private:
  TabTable cities_;
  TabTable regions_;
  TabTable countries_;
};

}  // namespace zenivo
