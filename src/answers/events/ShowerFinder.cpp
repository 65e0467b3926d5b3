#include "answers/events/ShowerFinder.h"

#include <fmt/format.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo {
namespace {

bool isCalled(const MeteorShower& shower, TextFolder& folder, std::u32string_view folded) {
  for (const std::string& name : {shower.name, shower.translatedName(), shower.iauCode,
                                  shower.imoCode, std::to_string(shower.meteorId)}) {
    if (folder.foldsTo(name, folded)) return true;
  }
  return false;
}

/// How far a name is from what was typed: 0 when that is a word of it, 1 when it is a piece,
/// else the edits and 1; nullopt for another name.
std::optional<int> distance(const std::string& name, TextFolder& folder,
                            std::u32string_view folded) {
  constexpr std::size_t kLeastPiece = 3;
  constexpr int kMostEdits = 2;
  const std::u32string whole = folder.fold(name);
  if (folded.size() >= kLeastPiece && whole.find(folded) != std::u32string::npos) {
    const std::size_t blank = name.rfind(' ');
    const std::string lastWord = blank == std::string::npos ? name : name.substr(blank + 1);
    return folder.foldsTo(lastWord, folded) ? 0 : 1;
  }
  const int edits = editDistance(folded, whole, kMostEdits);
  if (edits > kMostEdits || folded.size() <= 2 * kMostEdits) return std::nullopt;
  return edits + 1;
}

/// The names nearest to what was typed.
std::vector<std::string> similarNames(const MeteorShowers& catalogue, TextFolder& folder,
                                      std::u32string_view folded) {
  constexpr std::size_t kListed = 4;
  std::multimap<int, std::string> byDistance;
  for (const auto& shower : catalogue.showers()) {
    if (const auto far = distance(shower->name, folder, folded)) {
      byDistance.emplace(*far, shower->name);
    }
  }
  std::vector<std::string> names;
  for (const auto& [far, name] : byDistance) {
    if (far == byDistance.begin()->first && names.size() < kListed) names.push_back(name);
  }
  return names;
}

/// The one major shower whose last word was typed: the Lyrids are those of April.
std::shared_ptr<MeteorShower> majorShowerOf(const MeteorShowers& catalogue, TextFolder& folder,
                                            std::u32string_view folded) {
  std::shared_ptr<MeteorShower> found;
  for (const auto& shower : catalogue.majorShowers()) {
    const std::string& name = shower->name;
    if (!folder.foldsTo(name.substr(name.rfind(' ') + 1), folded)) continue;
    if (found) return nullptr;
    found = shower;
  }
  return found;
}

}  // namespace

std::shared_ptr<MeteorShower> findShower(const MeteorShowers& catalogue, std::string_view text) {
  TextFolder folder;
  const std::u32string folded = folder.fold(text);
  if (!folded.empty()) {
    for (const auto& shower : catalogue.showers()) {
      if (isCalled(*shower, folder, folded)) return shower;
    }
  }
  if (const auto major = majorShowerOf(catalogue, folder, folded)) return major;
  std::string message = fmt::format("no meteor shower named {} is known", inQuotes(text));
  if (!folded.empty()) message += didYouMean(similarNames(catalogue, folder, folded));
  throw InputError(message);
}

}  // namespace zenivo
