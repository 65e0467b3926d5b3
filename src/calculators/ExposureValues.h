// The table of exposure values for lights and scenes.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo {

/// A light and its exposure value at ISO 100, both keys of the table ExposureValues.
struct ExposureValueRow {
  std::string lightCondition;
  std::string ev100;

  std::string lightConditionText() const;
  /// A text for people, such as "12 to 15".
  std::string ev100Text() const;
};

struct ExposureValueSection {
  std::string title;  ///< a key of the table ExposureValues; empty for none
  std::vector<ExposureValueRow> rows;

  std::string titleText() const;
};

/// The sections of `file`, by default the resource exposureValues.plist.  Empty for a
/// file that is missing or is no such table; what is broken inside is left out.
std::vector<ExposureValueSection> exposureValueSections();
std::vector<ExposureValueSection> exposureValueSections(const std::filesystem::path& file);

/// The mean of the whole numbers in the text behind an "EV100" key, without its
/// fraction; 0 for a text without any.
std::int64_t getEVValue(std::string_view ev100);
/// The same of the text itself.
std::int64_t evValueOfText(std::string_view text);

}  // namespace zenivo
