// zenivo_gazetteer TABLES POIS FILE: builds the file of places from the tables in the
// folder TABLES and the catalogue's points of interest in the table POIS.  Equal tables
// give equal bytes.

#include <fmt/format.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "../catalogue/CsvTable.h"
#include "input/GazetteerFormat.h"
#include "input/TextFolding.h"

namespace zenivo::gazetteer {
namespace {

/// The text of a file, compressed or not.
std::string contents(const std::filesystem::path& file) {
  gzFile opened = gzopen(file.c_str(), "rb");
  if (opened == nullptr) throw std::runtime_error(fmt::format("cannot read {}", file.string()));
  std::string text;
  std::array<char, 1 << 16> piece;
  int size = 0;
  while ((size = gzread(opened, piece.data(), piece.size())) > 0) {
    text.append(piece.data(), static_cast<std::size_t>(size));
  }
  gzclose(opened);
  if (size < 0) throw std::runtime_error(fmt::format("{} is damaged", file.string()));
  return text;
}

/// Calls `visit(piece)` with each piece of a text between separators.
template <typename Visitor>
void forEachPiece(std::string_view text, char separator, Visitor visit) {
  while (!text.empty()) {
    const std::string_view piece = text.substr(0, text.find(separator));
    visit(piece);
    text.remove_prefix(std::min(piece.size() + 1, text.size()));
  }
}

template <typename Visitor>
void forEachRow(const std::filesystem::path& file, std::size_t columns, Visitor visit) {
  const std::string text = contents(file);
  std::vector<std::string_view> row;
  forEachPiece(text, '\n', [&](std::string_view line) {
    row.clear();
    forEachPiece(line, '\t', [&](std::string_view field) { row.push_back(field); });
    if (row.empty() || row.size() > columns) {
      throw std::runtime_error(fmt::format("{}: no row: {}", file.string(), line));
    }
    row.resize(columns);  // fields at the end may be empty
    visit(row);
  });
}

double number(std::string_view text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

bool isCode(std::string_view name) {
  return name.size() == 3 && std::ranges::all_of(name, [](char c) { return c >= 'A' && c <= 'Z'; });
}

class Builder {
 public:
  void addCountries(const std::filesystem::path& file) {
    forEachRow(file, 4, [&](const auto& row) {
      countryNumbers_[std::string(row[0])] = countryNumbers_[std::string(row[2])] =
          static_cast<std::uint16_t>(countries_.size());
      countries_.push_back({text(row[0]), text(row[1]), text(row[2]), text(row[3])});
    });
  }

  void addRegions(const std::filesystem::path& file) {
    forEachRow(file, 3, [&](const auto& row) {
      const std::size_t dot = row[0].find('.');
      regionNumbers_[std::string(row[0])] = static_cast<std::uint16_t>(regions_.size());
      regions_.push_back({text(row[0].substr(dot + 1)), text(row[1]), text(row[2]),
                          numberOf(countryNumbers_, row[0].substr(0, dot))});
    });
  }

  void addPlaces(const std::filesystem::path& file) {
    forEachRow(file, 9, [&](const auto& row) {
      const auto altitude = static_cast<std::int16_t>(number(row[6]));
      add({.latitude = units(row[3]),
           .longitude = units(row[4]),
           .population = static_cast<std::uint32_t>(number(row[5])),
           .name = text(row[0]),
           .altitude = row[6].empty() ? kUnknownAltitude : altitude,
           .region = numberOf(regionNumbers_, fmt::format("{}.{}", row[1], row[2])),
           .country = numberOf(countryNumbers_, row[1]),
           .kind = row[7] == "C" ? Kind::capital : Kind::place},
          row[0]);
      forEachPiece(row[8], '|', [&](std::string_view name) {
        const bool isOwn = name.starts_with('=');
        if (isOwn) name.remove_prefix(1);
        addName(name, isOwn ? Entry::kOwn : isCode(name) ? Entry::kCode : 0);
      });
    });
  }

  void addPointsOfInterest(const std::filesystem::path& file) {
    for (const catalogue::CsvRow& row : catalogue::readCsv(file)) {
      const std::string& name = row.text("name");
      add({.latitude = units(row.text("latitude")),
           .longitude = units(row.text("longitude")),
           .population = 0,
           .name = text(name),
           .altitude = kUnknownAltitude,
           .region = kNone,
           .country = numberOf(countryNumbers_, row.text("country")),
           .kind = Kind::pointOfInterest},
          name);
    }
  }

  void write(const std::filesystem::path& file) {
    const std::vector<std::uint32_t> placed = sortPlaces();
    std::vector<Key> keys;
    std::vector<Entry> entries;
    for (const auto& [name, bearers] : names_) {
      keys.push_back({text(name), static_cast<std::uint32_t>(entries.size())});
      for (const auto& [place, flags] : bearers) entries.push_back({placed[place] | flags});
    }
    keys.push_back({0, static_cast<std::uint32_t>(entries.size())});

    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << kMagic;
    const auto put = [&](const auto& rows) {
      stream.write(reinterpret_cast<const char*>(rows.data()),
                   static_cast<std::streamsize>(rows.size() * sizeof(rows[0])));
    };
    const auto count = [](const auto& rows) { return static_cast<std::uint32_t>(rows.size()); };
    put(std::array{Header{count(places_), count(keys) - 1, count(entries), count(regions_),
                          count(countries_), count(texts_)}});
    put(places_);
    put(keys);
    put(entries);
    put(regions_);
    put(countries_);
    put(texts_);
    stream.close();
    if (!stream) throw std::runtime_error(fmt::format("cannot write {}", file.string()));
  }

 private:
  using Bearers = std::map<std::uint32_t, std::uint32_t>;  // flags by the number of the place

  static std::int32_t units(std::string_view degrees) {
    return static_cast<std::int32_t>(std::lround(number(degrees) * 1e5));
  }

  template <typename Key>
  static std::uint16_t numberOf(const std::map<std::string, std::uint16_t, std::less<>>& numbers,
                                const Key& key) {
    const auto found = numbers.find(key);
    return found == numbers.end() ? kNone : found->second;
  }

  Text text(std::string_view characters) {
    const auto [found, isNew] = textNumbers_.try_emplace(std::string(characters), texts_.size());
    if (isNew) {
      texts_ += characters;
      texts_ += '\0';
    }
    return found->second;
  }

  void add(const Place& place, std::string_view name) {
    places_.push_back(place);
    addName(name, Entry::kOwn);
  }

  /// Of a place's names that fold alike the one that counts for more is kept.
  void addName(std::string_view name, std::uint32_t flags) {
    const std::string folded = folder_.foldToUtf8(name);
    if (folded.empty()) return;
    const auto place = static_cast<std::uint32_t>(places_.size() - 1);
    const auto [found, isNew] = names_[folded].try_emplace(place, flags);
    if (!isNew && found->second != Entry::kOwn) found->second = flags;
  }

  /// Sorts the places from south to north and gives the new number of each.
  std::vector<std::uint32_t> sortPlaces() {
    std::vector<std::uint32_t> order(places_.size());
    for (std::uint32_t i = 0; i < order.size(); ++i) order[i] = i;
    std::ranges::stable_sort(order, {}, [&](std::uint32_t i) { return places_[i].latitude; });
    std::vector<std::uint32_t> placed(places_.size());
    std::vector<Place> sorted;
    for (const std::uint32_t i : order) {
      placed[i] = static_cast<std::uint32_t>(sorted.size());
      sorted.push_back(places_[i]);
    }
    places_ = std::move(sorted);
    return placed;
  }

  TextFolder folder_;
  std::vector<Place> places_;
  std::vector<Region> regions_;
  std::vector<Country> countries_;
  std::map<std::string, std::uint16_t, std::less<>> regionNumbers_, countryNumbers_;
  std::map<std::string, Bearers, std::less<>> names_;
  std::map<std::string, Text, std::less<>> textNumbers_;
  std::string texts_;
};

}  // namespace
}  // namespace zenivo::gazetteer

int main(int argc, char** argv) {
  try {
    if (argc != 4) throw std::runtime_error("usage: zenivo_gazetteer TABLES POIS FILE");
    const std::filesystem::path tables = argv[1];
    zenivo::gazetteer::Builder builder;
    builder.addCountries(tables / "countries.tsv");
    builder.addRegions(tables / "regions.tsv");
    builder.addPlaces(tables / "places.tsv.gz");
    builder.addPointsOfInterest(argv[2]);
    builder.write(argv[3]);
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "zenivo_gazetteer: {}\n", error.what());
    return 1;
  }
}
