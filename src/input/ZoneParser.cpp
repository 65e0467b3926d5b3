#include "input/ZoneParser.h"

#include <fmt/format.h>

#include <map>
#include <string>
#include <vector>

#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo {
namespace {

/// Edits between what was typed and a zone's name, or its last part alone.
int distanceToZone(TextFolder& folder, std::u32string_view typed, std::string_view zone,
                   int limit) {
  const int whole = editDistance(typed, folder.fold(zone), limit);
  const std::string_view city = zone.substr(zone.rfind('/') + 1);
  return std::min(whole, editDistance(typed, folder.fold(city), limit));
}

std::vector<std::string> similarZones(std::string_view name) {
  constexpr std::size_t kListed = 3;
  constexpr int kMaxEdits = 3;
  TextFolder folder;
  const std::u32string typed = folder.fold(name);
  std::multimap<int, std::string> ranked;
  for (const std::string& zone : TimeZone::knownTimeZoneNames()) {
    const int edits = distanceToZone(folder, typed, zone, kMaxEdits);
    if (edits <= kMaxEdits && static_cast<std::size_t>(edits) * 2 < typed.size()) {
      ranked.emplace(edits, zone);
    }
  }
  std::vector<std::string> closest;
  for (const auto& [edits, zone] : ranked) {
    if (closest.size() < kListed) closest.push_back(zone);
  }
  return closest;
}

}  // namespace

TimeZone parseZone(std::string_view name) {
  if (const auto zone = TimeZone::timeZoneWithName(name)) return *zone;
  const std::vector<std::string> similar = similarZones(name);
  throw InputError(fmt::format(
      "no time zone named {} is known{}", inQuotes(name),
      similar.empty() ? "; write an IANA name, for example Europe/Paris" : didYouMean(similar)));
}

}  // namespace zenivo
