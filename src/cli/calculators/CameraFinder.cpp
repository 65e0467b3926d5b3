#include "cli/calculators/CameraFinder.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "cli/common/Stores.h"
#include "cli/input/InputError.h"
#include "cli/input/Suggestions.h"
#include "cli/input/TextFolding.h"

namespace zenivo::cli {
namespace {

constexpr std::size_t kMostSuggestions = 4;

struct Candidate {
  AbstractCamera camera;
  std::u32string name;   // folded, with the maker
  std::u32string model;  // folded, without
};

/// The user's cameras first.
std::vector<Candidate> allCandidates(const DatabaseCameraStore& cameras, TextFolder& folder) {
  std::vector<Candidate> candidates;
  const auto add = [&](const AbstractCamera& camera) {
    candidates.push_back(
        {camera, folder.fold(camera.modelString()), folder.fold(camera.shortModelString())});
  };
  Error error;
  for (const auto& record : expectFetched(cameras.loadCustomCameras("", &error), error)) {
    add(AbstractCamera::fromRecord(record));
  }
  for (const auto& record : expectFetched(cameras.loadCameras("", &error), error)) {
    add(AbstractCamera::fromRecord(record));
  }
  return candidates;
}

template <class Matches>
std::vector<const Candidate*> thoseThat(Matches matches, const std::vector<Candidate>& all) {
  std::vector<const Candidate*> found;
  for (const Candidate& candidate : all) {
    if (matches(candidate)) found.push_back(&candidate);
  }
  return found;
}

std::vector<std::string> namesOf(const std::vector<const Candidate*>& candidates) {
  std::vector<std::string> names;
  for (const Candidate* candidate : candidates) names.push_back(candidate->camera.modelString());
  if (names.size() > kMostSuggestions) names.resize(kMostSuggestions);
  return names;
}

/// Those whose names are the fewest edits away, at most a third of what was typed.
std::vector<const Candidate*> similar(std::u32string_view typed,
                                      const std::vector<Candidate>& all) {
  int limit = static_cast<int>(typed.size() / 3);
  std::vector<const Candidate*> nearest;
  for (const Candidate& candidate : all) {
    const int edits = std::min(editDistance(typed, candidate.name, limit),
                               editDistance(typed, candidate.model, limit));
    if (edits > limit) continue;
    if (edits < limit) nearest.clear();
    limit = edits;
    nearest.push_back(&candidate);
  }
  return nearest;
}

}  // namespace

AbstractCamera findCamera(const DatabaseCameraStore& cameras, std::string_view name) {
  TextFolder folder;
  const std::u32string typed = folder.fold(name);
  if (typed.empty()) throw InputError(fmt::format("no camera is named {}", inQuotes(name)));
  const auto all = allCandidates(cameras, folder);
  const auto isName = [&](const Candidate& c) { return c.name == typed; };
  const auto isModel = [&](const Candidate& c) { return c.model == typed; };
  const auto isPart = [&](const Candidate& c) { return c.name.find(typed) != c.name.npos; };
  auto found = thoseThat(isName, all);
  if (found.empty()) found = thoseThat(isModel, all);
  // A camera of the user stands before a preset of the same name.
  const bool isExact = !found.empty();
  if (!isExact) found = thoseThat(isPart, all);
  if (found.size() == 1 || (isExact && !found.front()->camera.brand)) {
    return found.front()->camera;
  }
  if (found.empty()) {
    throw InputError(fmt::format("no camera is named {}{}", inQuotes(name),
                                 didYouMean(namesOf(similar(typed, all)))));
  }
  throw InputError(fmt::format("{} cameras are named {}{}", found.size(), inQuotes(name),
                               didYouMean(namesOf(found))));
}

}  // namespace zenivo::cli
