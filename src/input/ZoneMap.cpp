#include "input/ZoneMap.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zenivo {
namespace {

constexpr std::string_view kMagic = "ZVZONES1";
constexpr std::uint16_t kSea = 0;  // the list without a zone

/// `a`, `a and b`, `a, b and c`.
std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    text += i == 0 ? "" : i + 1 == names.size() ? " and " : ", ";
    text += names[i];
  }
  return text;
}

}  // namespace

std::string nauticalZone(double longitude) {
  const int hours = static_cast<int>(std::lround(longitude / 15));
  // The names count westward, against the sign of the offset.
  return hours == 0 ? "Etc/GMT" : fmt::format("Etc/GMT{:+d}", -hours);
}

std::string PlaceZones::origin() const {
  std::string text = isNautical ? "nautical, at sea" : "by its borders";
  if (!shared.empty()) text += fmt::format(", where {} is kept too", joined(shared));
  if (!near.empty()) text += fmt::format(", near the border of {}", joined(near));
  return fmt::format("{}; {}", text, kZoneMapCredit);
}

ZoneMap::ZoneMap(const std::filesystem::path& file) : file_(file, kMagic) {
  const auto header = file_.next<std::uint32_t>(5);
  columns_ = header[0];
  rows_ = header[1];
  const auto text = file_.next<char>(header[2]);
  std::string_view rest(text.data(), text.size());
  for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos;) {
    const std::size_t tab = rest.find('\t');
    names_.push_back(rest.substr(0, tab));
    countries_.push_back(rest.substr(tab + 1, end - tab - 1));
    rest.remove_prefix(end + 1);
  }
  const auto lists = file_.next<std::uint16_t>(header[4]);
  lists_.reserve(header[3]);
  for (std::size_t i = 0; i < lists.size(); i += 2 + lists_.back().zones.size()) {
    lists_.push_back({lists.subspan(i + 2, lists[i]), lists[i + 1]});
  }
  starts_ = file_.next<std::uint32_t>(rows_ + 1);
  runs_ = file_.next<Run>(starts_[rows_]);
}

std::uint16_t ZoneMap::listOf(std::uint32_t row, std::uint32_t column) const {
  const auto runs = runs_.subspan(starts_[row], starts_[row + 1] - starts_[row]);
  const auto after = std::ranges::upper_bound(runs, column, {}, &Run::column);
  return std::prev(after)->list;
}

PlaceZones ZoneMap::at(const Coordinate& coordinate, std::string_view country) const {
  const auto cell = [&](double degrees, std::uint32_t count) {
    return static_cast<std::uint32_t>(std::clamp(degrees * columns_ / 360, 0.0, count - 1.0));
  };
  const std::uint32_t row = cell(coordinate.latitude + 90, rows_);
  const std::uint32_t column = cell(coordinate.longitude + 180, columns_);

  const std::uint16_t here = listOf(row, column);
  std::vector<std::uint16_t> zones(lists_[here].zones.begin(), lists_[here].zones.end());
  std::uint16_t kept = lists_[here].kept;
  bool isSeaNear = false;
  for (std::uint32_t r = row == 0 ? 0 : row - 1; r <= std::min(row + 1, rows_ - 1); ++r) {
    for (const std::uint32_t step : {columns_ - 1, 0U, 1U}) {
      const std::uint16_t list = listOf(r, (column + step) % columns_);
      if (list == here) continue;
      isSeaNear = isSeaNear || list == kSea;
      for (const std::uint16_t zone : lists_[list].zones) {
        if (std::ranges::find(zones, zone) == zones.end()) zones.push_back(zone);
      }
    }
  }
  const auto isOfCountry = [&](std::uint16_t zone) { return countries_[zone] == country; };
  if (!country.empty() && std::none_of(zones.begin(), zones.begin() + kept, isOfCountry)) {
    const auto own = std::ranges::find_if(zones, isOfCountry);
    if (own != zones.end()) {
      std::rotate(zones.begin(), own, own + 1);
      kept = 1;
    }
  }

  PlaceZones result;
  result.isNautical = kept == 0;
  result.name = result.isNautical ? nauticalZone(coordinate.longitude) : names_[zones.front()];
  for (std::size_t i = result.isNautical ? 0 : 1; i < zones.size(); ++i) {
    (i < kept ? result.shared : result.near).emplace_back(names_[zones[i]]);
  }
  if (isSeaNear && !result.isNautical) result.near.push_back(nauticalZone(coordinate.longitude));
  return result;
}

}  // namespace zenivo
