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
#include "place/LocationUtils.h"

namespace zenivo {
namespace {

constexpr double kStandsOut = 10;
constexpr double kStandsOutWhenNarrowed = 5;
constexpr double kSamePlaceKilometres = 25;  // a city listed again as its municipality
constexpr double kInterest = 30'000;         // of a point of interest, in inhabitants

double prominence(const GazetteerPlace& place) {
  if (place.kind == gazetteer::Kind::pointOfInterest) return kInterest;
  return (place.population + 1) * (place.kind == gazetteer::Kind::capital ? 10 : 1);
}

struct Candidate {
  GazetteerPlace place;
  bool isCalledSo;  // by its own name, not only by another one
  double prominence;
};

/// The pieces of a list between commas.
std::vector<std::string_view> piecesOf(std::string_view list) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t comma = list.find(',');
    pieces.push_back(list.substr(0, comma));
    if (comma == std::string_view::npos) return pieces;
    list.remove_prefix(comma + 1);
  }
}

/// True when the words with which `name` begins fold to `folded`.
bool beginsWithWords(TextFolder& folder, std::string_view name, std::string_view folded) {
  for (std::size_t end = 0; end < name.size(); ++end) {
    const bool isBreak = name[end] == ' ' || name[end] == '-' || name[end] == '\'';
    if (isBreak && folder.foldToUtf8(name.substr(0, end)) == folded) return true;
  }
  return false;
}

/// A code as it is written, of an airport for example.
bool isCode(std::string_view name) {
  return name.size() == 3 && std::ranges::all_of(name, [](char c) { return c >= 'A' && c <= 'Z'; });
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// The countries and regions that a qualifier can mean.
class Qualifier {
 public:
  Qualifier(const Gazetteer& gazetteer, TextFolder& folder, std::string_view text)
      : folder_(folder), folded_(folder.fold(text)) {
    for (const gazetteer::Country& country : gazetteer.countries()) {
      if (means(gazetteer.text(country.code)) || means(gazetteer.text(country.code3)) ||
          means(gazetteer.text(country.name)) || means(gazetteer.text(country.domain))) {
        countries_.insert(gazetteer.text(country.code));
      }
    }
  }

  bool isEmpty() const { return folded_.empty(); }

  bool admits(const GazetteerPlace& place) const {
    return countries_.contains(place.country) || means(place.region) || means(place.regionCode) ||
           means(place.regionPostal);
  }

 private:
  bool means(std::string_view name) const {
    return !name.empty() && folder_.foldsTo(name, folded_);
  }

  TextFolder& folder_;
  std::u32string folded_;
  std::set<std::string_view> countries_;
};

class Search {
 public:
  Search(const Gazetteer& gazetteer, std::string_view query)
      : gazetteer_(gazetteer), query_(query), name_(trimmed(query.substr(0, query.find(',')))) {}

  GazetteerPlace place() {
    const double factor = collect();
    if (candidates_.empty()) failUnknown();
    std::ranges::stable_sort(candidates_, std::greater(), &Candidate::prominence);
    passOverOtherNames();
    joinSamePlaces();
    const Candidate& best = candidates_.front();
    const bool isRivalled =
        candidates_.size() > 1 && best.prominence < factor * candidates_[1].prominence;
    const bool isOtherwiseCalled =
        !best.isCalledSo && std::ranges::any_of(candidates_, &Candidate::isCalledSo);
    if (isRivalled || isOtherwiseCalled) failAmbiguous();
    return best.place;
  }

 private:
  /// Tries one way after the other in which the query may be meant, until one finds
  /// something.  By what factor that must stand out.
  double collect() {
    // A few names have a comma of their own: "Washington, D.C.".
    collectNamed(trimmed(query_), {});
    if (!candidates_.empty()) return kStandsOut;
    std::vector<Qualifier> qualifiers;
    for (const std::string_view piece : piecesOf(query_)) {
      if (piece.data() == query_.data()) continue;
      Qualifier qualifier(gazetteer_, folder_, piece);
      if (!qualifier.isEmpty()) qualifiers.push_back(std::move(qualifier));
    }
    if (!qualifiers.empty()) collectNamed(name_, qualifiers);
    if (candidates_.empty()) collectBeginning(qualifiers);
    return qualifiers.empty() ? kStandsOut : kStandsOutWhenNarrowed;
  }

  void add(gazetteer::Entry entry, const std::vector<Qualifier>& qualifiers) {
    const GazetteerPlace place = gazetteer_.place(entry.place());
    const auto admits = [&](const Qualifier& qualifier) { return qualifier.admits(place); };
    if (!std::ranges::all_of(qualifiers, admits)) return;
    candidates_.push_back({place, entry.isOwn(), prominence(place)});
  }

  void collectNamed(std::string_view name, const std::vector<Qualifier>& qualifiers) {
    const std::string folded = folder_.foldToUtf8(name);
    for (const gazetteer::Entry entry : gazetteer_.named(folded)) {
      if (!entry.isCode() || isCode(name)) add(entry, qualifiers);
    }
  }

  void collectBeginning(const std::vector<Qualifier>& qualifiers) {
    constexpr std::size_t kShortest = 4;
    const std::string folded = folder_.foldToUtf8(name_);
    if (folded.size() < kShortest) return;
    gazetteer_.forEachNameFrom(folded, [&](std::string_view, const auto& entries) {
      for (const gazetteer::Entry entry : entries) {
        if (!entry.isOwn()) continue;
        if (beginsWithWords(folder_, gazetteer_.place(entry.place()).name, folded)) {
          add(entry, qualifiers);
        }
      }
    });
  }

  void passOverOtherNames() {
    const auto own = std::ranges::find_if(candidates_, &Candidate::isCalledSo);
    if (own == candidates_.end()) return;
    const double least = own->prominence;
    std::erase_if(candidates_, [&](const Candidate& candidate) {
      return !candidate.isCalledSo && candidate.prominence < least;
    });
  }

  void joinSamePlaces() {
    const Coordinate best = candidates_.front().place.coordinate;
    const auto isAgain = [&](const Candidate& candidate) {
      return LocationUtils::greatCircleDistanceWithSource(best, candidate.place.coordinate) <
             kSamePlaceKilometres;
    };
    candidates_.erase(std::remove_if(candidates_.begin() + 1, candidates_.end(), isAgain),
                      candidates_.end());
  }

  [[noreturn]] void failAmbiguous() const {
    std::map<std::string, int> uses;
    for (const Candidate& candidate : candidates_) ++uses[candidate.place.label()];
    std::vector<std::string> names;
    for (const Candidate& candidate : candidates_) {
      const std::string label = candidate.place.label();
      names.push_back('"' + label + '"');
      const Coordinate& coordinate = candidate.place.coordinate;
      if (uses[label] > 1) {
        names.back() += fmt::format(" at {},{}", coordinate.latitude, coordinate.longitude);
      }
    }
    throw InputError(
        fmt::format("{} is ambiguous: name one of {}", inQuotes(query_), listOf(names)));
  }

  [[noreturn]] void failUnknown() {
    const std::vector<std::string> similar = similarPlaces();
    throw InputError(
        fmt::format("no place named {} is known{}; write LAT,LON, or look in zenivo pois",
                    inQuotes(query_), didYouMean(similar)));
  }

  /// The labels of the places with the most similar names, the largest first.
  std::vector<std::string> similarPlaces() {
    constexpr std::size_t kListed = 3;
    constexpr int kMaxEdits = 2;
    constexpr std::ptrdiff_t kMaxBytes = 8;  // by which so many edits change the length
    const std::u32string folded = folder_.fold(name_);
    const std::string beginning = folder_.foldToUtf8(name_);
    std::map<std::pair<int, double>, std::string> similar;
    gazetteer_.forEachNameFrom("", [&](std::string_view key, const auto& entries) {
      const bool begins = folded.size() > kMaxEdits && key.starts_with(beginning);
      if (!begins && std::abs(std::ssize(key) - std::ssize(beginning)) > kMaxBytes) return;
      const int edits = begins ? key.size() == beginning.size() ? 0 : 1
                               : editDistance(folded, folder_.fold(key), kMaxEdits);
      if (edits > kMaxEdits || folded.size() <= static_cast<std::size_t>(edits)) return;
      for (const gazetteer::Entry entry : entries) {
        if (!entry.isOwn() && edits > 0) continue;
        const GazetteerPlace place = gazetteer_.place(entry.place());
        similar.try_emplace({edits, -prominence(place)}, place.label());
        if (similar.size() > kListed) similar.erase(std::prev(similar.end()));
      }
    });
    std::vector<std::string> labels;
    labels.reserve(similar.size());
    for (const auto& [rank, label] : similar) labels.push_back(label);
    return labels;
  }

  const Gazetteer& gazetteer_;
  std::string_view query_;
  std::string_view name_;  // what stands before the first comma
  TextFolder folder_;
  std::vector<Candidate> candidates_;
};

}  // namespace

NamedPlace findPlace(const Gazetteer& gazetteer, std::string_view query) {
  const GazetteerPlace place = Search(gazetteer, query).place();
  return {.location = place.altitude ? ZVLocation(place.coordinate, *place.altitude)
                                     : ZVLocation(place.coordinate),
          .label = place.label(),
          .country = std::string(place.country),
          .isPointOfInterest = place.kind == gazetteer::Kind::pointOfInterest};
}

}  // namespace zenivo
