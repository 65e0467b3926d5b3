#include "calculators/ExposureValues.h"

#include <charconv>

#include "foundation/Bundle.h"
#include "foundation/KeyedArchive.h"
#include "foundation/LocalizedString.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

constexpr const char* kTable = "ExposureValues";

ExposureValueSection sectionFrom(const PropertyList& each) {
  const KeyedUnarchiver entry(each);
  ExposureValueSection section{entry.decodeString("Title"), {}};
  for (const PropertyList& value : entry.decodeArray("Values")) {
    const KeyedUnarchiver fields(value);
    ExposureValueRow row{fields.decodeString("LightCondition"), fields.decodeString("EV100")};
    if (!row.lightCondition.empty() && !row.ev100.empty()) section.rows.push_back(std::move(row));
  }
  return section;
}

}  // namespace

std::string ExposureValueRow::lightConditionText() const {
  return localizedString(lightCondition, kTable);
}

std::string ExposureValueRow::ev100Text() const {
  return localizedString(ev100, kTable);
}

std::string ExposureValueSection::titleText() const {
  return title.empty() ? "" : localizedString(title, kTable);
}

std::vector<ExposureValueSection> exposureValueSections() {
  return exposureValueSections(resourcePath("exposureValues.plist"));
}

std::vector<ExposureValueSection> exposureValueSections(const std::filesystem::path& file) {
  std::vector<ExposureValueSection> sections;
  const auto list = readPropertyListFile(file);
  if (!list || list->array() == nullptr) return sections;
  for (const PropertyList& entry : *list->array()) {
    ExposureValueSection section = sectionFrom(entry);
    if (!section.rows.empty()) sections.push_back(std::move(section));
  }
  return sections;
}

std::int64_t getEVValue(std::string_view ev100) {
  return evValueOfText(localizedString(ev100, kTable));
}

std::int64_t evValueOfText(std::string_view text) {
  const auto isDigitAt = [text](std::size_t i) {
    return i < text.size() && text[i] >= '0' && text[i] <= '9';
  };
  std::int64_t sum = 0;
  std::int64_t count = 0;
  for (std::size_t i = 0; i < text.size();) {
    if (!isDigitAt(i) && !(text[i] == '-' && isDigitAt(i + 1))) {
      ++i;
      continue;
    }
    int number = 0;  // what no int holds counts 0
    const char* end = text.data() + text.size();
    i = static_cast<std::size_t>(std::from_chars(text.data() + i, end, number).ptr - text.data());
    sum += number;
    ++count;
  }
  return count == 0 ? 0 : sum / count;
}

}  // namespace zenivo
