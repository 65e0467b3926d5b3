// The places of the world by their names: those of GeoNames (CC BY 4.0) with more than
// 1,000 inhabitants, and the catalogue's points of interest.

#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "foundation/Bundle.h"
#include "foundation/MappedFile.h"
#include "input/GazetteerFormat.h"
#include "place/Coordinate.h"

namespace zenivo {

/// How the source is named wherever one of its names or places is shown.
inline constexpr std::string_view kGeoNamesCredit = "GeoNames, CC BY 4.0";

/// One place: a view into the file, good as long as the Gazetteer.
struct GazetteerPlace {
  std::string_view name;
  std::string_view region;        ///< its name; empty for none
  std::string_view regionCode;    ///< within the country
  std::string_view regionPostal;  ///< what is written for it in addresses, if not its code
  std::string_view country;       ///< ISO 3166, two letters; empty for none
  Coordinate coordinate;
  std::optional<double> altitude;  ///< metres
  double population = 0;           ///< 0 where it is not known
  gazetteer::Kind kind = gazetteer::Kind::place;

  /// "Paris, Île-de-France, FR"
  std::string label() const;
};

/// Opening costs some ten microseconds; what is asked for is read from the file then.
class Gazetteer {
 public:
  /// The file that the build makes.  Throws std::runtime_error when it cannot be read.
  explicit Gazetteer(const std::filesystem::path& file = resourcePath("places.index"));

  GazetteerPlace place(std::uint32_t index) const;
  std::uint32_t size() const { return static_cast<std::uint32_t>(places_.size()); }

  /// The places that bear a name, folded by TextFolder, in UTF-8.
  std::span<const gazetteer::Entry> named(std::string_view folded) const;

  /// Calls `visit(key, entries)` with each name that begins so, all of them for none.
  template <typename Visitor>
  void forEachNameFrom(std::string_view beginning, Visitor visit) const {
    for (std::size_t i = firstKeyFrom(beginning); i < keyCount_; ++i) {
      const std::string_view key = text(keys_[i].text);
      if (!key.starts_with(beginning)) return;
      visit(key, entriesOf(i));
    }
  }

  std::span<const gazetteer::Country> countries() const { return countries_; }
  std::string_view text(gazetteer::Text text) const { return texts_ + text; }

  /// The place of GeoNames nearest to a point and its distance in kilometres; none
  /// beyond `reach` kilometres.
  struct Near {
    std::uint32_t place;
    double kilometres;
  };
  std::optional<Near> nearest(const Coordinate& coordinate, double reach) const;

 private:
  std::size_t firstKeyFrom(std::string_view beginning) const;
  std::span<const gazetteer::Entry> entriesOf(std::size_t key) const {
    return entries_.subspan(keys_[key].firstEntry,
                            keys_[key + 1].firstEntry - keys_[key].firstEntry);
  }

  MappedFile file_;
  std::size_t keyCount_ = 0;
  std::span<const gazetteer::Place> places_;  // from south to north
  std::span<const gazetteer::Key> keys_;      // in the order of their bytes, and one more
  std::span<const gazetteer::Entry> entries_;
  std::span<const gazetteer::Region> regions_;
  std::span<const gazetteer::Country> countries_;
  const char* texts_ = nullptr;
};

}  // namespace zenivo
