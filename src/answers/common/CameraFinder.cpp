#include "answers/common/CameraFinder.h"

#include <fmt/format.h>

#include <algorithm>

#include "answers/common/Stores.h"
#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo {
namespace {

using Cameras = std::vector<AbstractCamera>;

/// Sony's cameras are called α7, Alpha 7 or A7.
constexpr std::string_view kAlpha = "Alpha ";

/// A name and its short form, where it has one.
std::vector<std::string> spellingsOf(const std::string& name) {
  std::vector<std::string> spellings{name};
  const auto alpha = name.find(kAlpha);
  if (alpha == std::string::npos) return spellings;
  for (const char* letter : {"A", "α"}) {
    spellings.push_back(std::string(name).replace(alpha, kAlpha.size(), letter));
  }
  return spellings;
}

std::vector<std::string> wordsOf(std::string_view name) {
  std::vector<std::string> words(1);
  for (const char c : name) {
    const bool isSeparator = std::string_view(" \t-_/(),").find(c) != std::string_view::npos;
    if (!isSeparator) {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

/// The names of cameras, folded to what is compared.
class NameSearch {
 public:
  explicit NameSearch(std::string_view text) : text_(text), folded_(folder_.fold(text)) {
    for (const std::string& word : wordsOf(text)) {
      if (auto folded = folder_.fold(word); !folded.empty()) words_.push_back(std::move(folded));
    }
  }

  bool isEmpty() const { return folded_.empty(); }

  bool isName(const AbstractCamera& camera) {
    return std::ranges::any_of(namesOf(camera), [&](const auto& name) { return name == folded_; });
  }
  bool beginsName(const AbstractCamera& camera) {
    return std::ranges::any_of(namesOf(camera),
                               [&](const auto& name) { return name.starts_with(folded_); });
  }
  /// Whether the name ends in the last words of the text, and the others are found before:
  /// "fuji xt5" in "Fujifilm X-T5".
  bool endsName(const AbstractCamera& camera) {
    return std::ranges::any_of(spellingsOf(camera.modelString()), [&](const std::string& name) {
      std::vector<std::u32string> known;
      for (const std::string& word : wordsOf(name)) known.push_back(folder_.fold(word));
      std::u32string end;
      for (std::size_t first = known.size(); first-- > 0;) {
        end.insert(0, known[first]);
        if (endsWith(end, {known.begin(), known.begin() + static_cast<std::ptrdiff_t>(first)})) {
          return true;
        }
      }
      return false;
    });
  }
  bool hasWords(const AbstractCamera& camera) {
    return hasAll(camera, [](const auto& known, const auto& word) { return known == word; });
  }
  bool hasWordsThatBeginSo(const AbstractCamera& camera) {
    return hasAll(camera,
                  [](const auto& known, const auto& word) { return known.starts_with(word); });
  }

  [[noreturn]] void failAmbiguous(const Cameras& found) const {
    std::vector<std::string> names;
    for (const AbstractCamera& camera : found) names.push_back('"' + camera.modelString() + '"');
    throw InputError(
        fmt::format("{} is ambiguous: name one of {}", inQuotes(text_), listOf(names)));
  }

  /// Names those that are nearest to what was typed.
  [[noreturn]] void failUnknown(const Cameras& cameras) {
    constexpr std::size_t kListed = 3;
    int fewest = std::min(2, static_cast<int>(folded_.size() - 1) / 2);
    std::vector<std::string> nearest;
    for (const AbstractCamera& camera : cameras) {
      int edits = fewest + 1;
      for (const auto& name : namesOf(camera)) {
        edits = std::min(edits, editDistance(folded_, name, fewest));
      }
      if (edits > fewest) continue;
      if (edits < fewest) nearest.clear();
      fewest = edits;
      nearest.push_back(camera.modelString());
    }
    if (nearest.size() > kListed) nearest.resize(kListed);
    throw InputError(fmt::format("no camera named {}{}", inQuotes(text_),
                                 nearest.empty() ? "; see zenivo cameras" : didYouMean(nearest)));
  }

 private:
  /// Whether each word of the text fits one of the camera's.
  template <class Fits>
  bool hasAll(const AbstractCamera& camera, Fits fits) {
    return std::ranges::any_of(spellingsOf(camera.modelString()), [&](const std::string& name) {
      std::vector<std::u32string> known;
      for (const std::string& word : wordsOf(name)) known.push_back(folder_.fold(word));
      return std::ranges::all_of(words_, [&](const std::u32string& word) {
        return std::ranges::any_of(known, [&](const auto& other) { return fits(other, word); });
      });
    });
  }

  /// Whether some last words of the text make up `end`, and each before them begins one of
  /// `others`.
  bool endsWith(const std::u32string& end, const std::vector<std::u32string>& others) const {
    std::u32string last;
    for (std::size_t first = words_.size(); first-- > 0;) {
      last.insert(0, words_[first]);
      if (last.size() >= end.size()) {
        return last == end &&
               std::all_of(words_.begin(), words_.begin() + static_cast<std::ptrdiff_t>(first),
                           [&](const std::u32string& word) {
                             return std::ranges::any_of(others, [&](const auto& other) {
                               return other.starts_with(word);
                             });
                           });
      }
    }
    return false;
  }

  std::vector<std::u32string> namesOf(const AbstractCamera& camera) {
    std::vector<std::u32string> names;
    for (const std::string& name : {camera.modelString(), camera.shortModelString()}) {
      for (const std::string& spelling : spellingsOf(name)) names.push_back(folder_.fold(spelling));
    }
    return names;
  }

  std::string_view text_;
  TextFolder folder_;
  std::u32string folded_;
  std::vector<std::u32string> words_;
};

template <class Records>
Cameras camerasFrom(const Records& records) {
  Cameras cameras;
  for (const auto& record : records) cameras.push_back(AbstractCamera::fromRecord(record));
  return cameras;
}

using Condition = bool (NameSearch::*)(const AbstractCamera&);

Cameras those(const Cameras& cameras, NameSearch& search, Condition condition) {
  Cameras found;
  std::ranges::copy_if(cameras, std::back_inserter(found),
                       [&](const AbstractCamera& camera) { return (search.*condition)(camera); });
  return found;
}

}  // namespace

bool isOwn(const AbstractCamera& camera) {
  return camera.cameraId && std::holds_alternative<std::string>(*camera.cameraId);
}

Cameras ownCameras(const DatabaseCameraStore& store, std::string_view text) {
  Error error;
  return camerasFrom(expectFetched(store.loadCustomCameras(text, &error), error));
}

Cameras catalogueCameras(const DatabaseCameraStore& store, std::string_view text) {
  Error error;
  return camerasFrom(expectFetched(store.loadCameras(text, &error), error));
}

Cameras allCameras(const DatabaseCameraStore& store) {
  Cameras cameras = ownCameras(store);
  std::ranges::copy(catalogueCameras(store), std::back_inserter(cameras));
  return cameras;
}

Cameras camerasWithWords(const Cameras& cameras, std::string_view text) {
  NameSearch search(text);
  return those(cameras, search, &NameSearch::hasWordsThatBeginSo);
}

AbstractCamera findCamera(const Cameras& cameras, std::string_view text) {
  expectPrintable(text, "the name of a camera");
  const auto same = std::ranges::find(cameras, text, &AbstractCamera::modelString);
  if (same != cameras.end()) return *same;
  NameSearch search(text);
  if (search.isEmpty()) throw InputError(fmt::format("no camera named {}", inQuotes(text)));
  for (const Condition condition :
       {&NameSearch::isName, &NameSearch::endsName, &NameSearch::beginsName, &NameSearch::hasWords,
        &NameSearch::hasWordsThatBeginSo}) {
    const Cameras found = those(cameras, search, condition);
    if (found.size() == 1) return found.front();
    if (!found.empty()) search.failAmbiguous(found);
  }
  search.failUnknown(cameras);
}

}  // namespace zenivo
