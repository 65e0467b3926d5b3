#include "input/PlaceFinder.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <vector>

#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"
#include "place/GreatCircle.h"

namespace zenivo {
namespace {

constexpr double kStandsOut = 10;
constexpr double kStandsOutWhenNarrowed = 5;
constexpr double kSamePlaceKilometres = 25;  // a city listed again as its municipality

struct Candidate {
  City city;
  bool isCalledSo;  // by its own name, not only by another one
  double prominence() const { return (city.population() + 1) * (city.isCapital() ? 10 : 1); }
};

/// Calls `visit` with each piece between commas until it returns true.
template <typename Visitor>
bool anyPiece(std::string_view list, Visitor visit) {
  for (;;) {
    const std::size_t comma = list.find(',');
    if (visit(list.substr(0, comma))) return true;
    if (comma == std::string_view::npos) return false;
    list.remove_prefix(comma + 1);
  }
}

/// The countries and regions that a qualifier can mean.
class Qualifier {
 public:
  Qualifier(const GeoNames& geoNames, TextFolder& folder, std::string_view text) {
    const std::u32string folded = folder.fold(text);
    const auto means = [&](std::string_view name) {
      return !name.empty() && folder.foldsTo(name, folded);
    };
    geoNames.countries().forEachRow([&](const TabTable::Row& row) {
      const std::string_view internetDomain = row[9];  // ".uk", where the ISO code is GB
      if (means(row[0]) || means(row[1]) || means(row[4]) || means(internetDomain)) {
        countries_.insert(row[0]);
      }
    });
    geoNames.regions().forEachRow([&](const TabTable::Row& row) {
      const std::string_view code = row[0].substr(row[0].find('.') + 1);
      if (means(code) || means(row[1]) || means(row[2])) regions_.emplace(row[0]);
    });
  }

  bool admits(const City& city) const {
    return countries_.contains(city.country()) ||
           regions_.contains(fmt::format("{}.{}", city.country(), city.region()));
  }

 private:
  std::set<std::string_view> countries_;
  std::set<std::string, std::less<>> regions_;
};

class Search {
 public:
  Search(const GeoNames& geoNames, std::string_view query) : geoNames_(geoNames), query_(query) {}

  City city() {
    // A few names have a comma of their own: "Washington, D.C.".
    collect(query_, {});
    bool isNarrowed = false;
    if (candidates_.empty()) isNarrowed = collectNarrowed();
    if (candidates_.empty()) failUnknown();
    std::stable_sort(candidates_.begin(), candidates_.end(),
                     [](const auto& a, const auto& b) { return a.prominence() > b.prominence(); });
    preferOwnNames();
    joinSamePlaces();
    const double factor = isNarrowed ? kStandsOutWhenNarrowed : kStandsOut;
    if (candidates_.size() > 1 &&
        candidates_[0].prominence() < factor * candidates_[1].prominence()) {
      failAmbiguous();
    }
    return candidates_.front().city;
  }

 private:
  void collect(std::string_view name, const std::vector<Qualifier>& qualifiers) {
    const std::u32string folded = folder_.fold(name);
    if (folded.empty()) return;
    const auto matches = [&](std::string_view text) { return folder_.foldsTo(text, folded); };
    geoNames_.forEachCity([&](const City& city) {
      const bool isCalledSo = matches(city.name()) || matches(city.asciiName());
      if (!isCalledSo && !anyPiece(city.alternateNames(), matches)) return;
      const bool isAdmitted = std::all_of(qualifiers.begin(), qualifiers.end(),
                                          [&](const Qualifier& q) { return q.admits(city); });
      if (isAdmitted) candidates_.push_back({city, isCalledSo});
    });
  }

  bool collectNarrowed() {
    const std::size_t comma = query_.find(',');
    if (comma == std::string_view::npos) return false;
    std::vector<Qualifier> qualifiers;
    anyPiece(query_.substr(comma + 1), [&](std::string_view piece) {
      if (!folder_.fold(piece).empty()) qualifiers.emplace_back(geoNames_, folder_, piece);
      return false;
    });
    collect(query_.substr(0, comma), qualifiers);
    return !qualifiers.empty();
  }

  void preferOwnNames() {
    const auto isCalledSo = [](const Candidate& candidate) { return candidate.isCalledSo; };
    const auto own = std::find_if(candidates_.begin(), candidates_.end(), isCalledSo);
    if (own == candidates_.end()) return;
    if (candidates_.front().prominence() >= kStandsOut * own->prominence()) return;
    std::erase_if(candidates_, std::not_fn(isCalledSo));
  }

  void joinSamePlaces() {
    const City best = candidates_.front().city;
    const auto isAgain = [&](const Candidate& candidate) {
      return greatCircleKilometres(best.latitude(), best.longitude(), candidate.city.latitude(),
                                   candidate.city.longitude()) < kSamePlaceKilometres;
    };
    candidates_.erase(std::remove_if(candidates_.begin() + 1, candidates_.end(), isAgain),
                      candidates_.end());
  }

  [[noreturn]] void failAmbiguous() const {
    std::map<std::string, int> uses;
    for (const Candidate& c : candidates_) ++uses[placeLabel(geoNames_, c.city)];
    std::vector<std::string> names;
    for (const auto& [city, isCalledSo] : candidates_) {
      const std::string label = placeLabel(geoNames_, city);
      names.push_back('"' + label + '"');
      if (uses[label] > 1)
        names.back() += fmt::format(" at {},{}", city.latitude(), city.longitude());
    }
    throw InputError(
        fmt::format("{} is ambiguous: name one of {}", inQuotes(query_), listOf(names)));
  }

  [[noreturn]] void failUnknown() {
    constexpr std::size_t kListed = 3;
    constexpr int kMaxEdits = 2;
    const std::string_view name = query_.substr(0, query_.find(','));
    const std::u32string folded = folder_.fold(name);
    std::multimap<std::pair<int, double>, City> similar;  // fewest edits first, then the largest
    geoNames_.forEachCity([&](const City& city) {
      const std::u32string other = folder_.fold(city.asciiName());
      const bool begins = folded.size() > kMaxEdits && other.starts_with(folded);
      const int edits = begins ? 1 : editDistance(folded, other, kMaxEdits);
      if (edits <= kMaxEdits && folded.size() > static_cast<std::size_t>(edits)) {
        similar.emplace(std::pair(edits, -city.population()), city);
      }
    });
    std::vector<std::string> suggestions;
    for (const auto& [rank, city] : similar) {
      if (suggestions.size() < kListed) suggestions.push_back(placeLabel(geoNames_, city));
    }
    throw InputError(
        fmt::format("no city named {} is known{}", inQuotes(query_), didYouMean(suggestions)));
  }

  const GeoNames& geoNames_;
  std::string_view query_;
  TextFolder folder_;
  std::vector<Candidate> candidates_;
};

}  // namespace

std::string placeLabel(const GeoNames& geoNames, const City& city) {
  const std::string key = fmt::format("{}.{}", city.country(), city.region());
  std::string_view region;
  geoNames.regions().forEachRow([&](const TabTable::Row& row) {
    if (row[0] == key) region = row[1];
  });
  if (region.empty() || region == city.name()) {
    return fmt::format("{}, {}", city.name(), city.country());
  }
  return fmt::format("{}, {}, {}", city.name(), region, city.country());
}

NamedPlace findPlace(const GeoNames& geoNames, std::string_view query) {
  const City city = Search(geoNames, query).city();
  return {.location = ZVLocation({city.latitude(), city.longitude()}, city.altitude()),
          .label = placeLabel(geoNames, city),
          .timeZone = std::string(city.timeZone())};
}

}  // namespace zenivo
