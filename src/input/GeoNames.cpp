#include "input/GeoNames.h"

#include <fmt/format.h>

#include <charconv>
#include <fstream>
#include <stdexcept>

namespace zenivo {

TabTable::TabTable(const std::filesystem::path& file) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(file, error);
  std::ifstream stream(file, std::ios::binary);
  if (error || !stream) {
    throw std::runtime_error(fmt::format(
        "the list of cities {} cannot be read (package libtimezonemap-data)", file.string()));
  }
  text_.resize(size);
  stream.read(text_.data(), static_cast<std::streamsize>(size));
  text_.resize(static_cast<std::size_t>(stream.gcount()));
}

TabTable::Row TabTable::nextRow(std::string_view& rest) {
  std::string_view line = rest.substr(0, rest.find('\n'));
  rest.remove_prefix(std::min(line.size() + 1, rest.size()));
  Row row;
  for (std::string_view& field : row) {
    field = line.substr(0, line.find('\t'));
    if (field.size() == line.size()) break;
    line.remove_prefix(field.size() + 1);
  }
  return row;
}

double City::number(std::size_t field) const {
  double value = 0;
  const std::string_view text = row_[field];
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

double City::altitude() const {
  constexpr double kNoTerrain = -9999;  // the terrain model's mark for the sea
  const double altitude = row_[15].empty() ? number(16) : number(15);
  return altitude == kNoTerrain ? 0 : altitude;
}

GeoNames::GeoNames(const std::filesystem::path& folder)
    : cities_(folder / "cities15000.txt"),
      regions_(folder / "admin1Codes.txt"),
      countries_(folder / "countryInfo.txt") {}

}  // namespace zenivo
