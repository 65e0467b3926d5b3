#include "CsvTable.h"

#include <fmt/format.h>

#include <charconv>
#include <fstream>
#include <stdexcept>

namespace zenivo::catalogue {
namespace {

std::vector<std::string> fieldsOf(std::string_view line) {
  std::vector<std::string> fields;
  for (;;) {
    const std::size_t comma = line.find(',');
    fields.emplace_back(line.substr(0, comma));
    if (comma == std::string_view::npos) return fields;
    line.remove_prefix(comma + 1);
  }
}

}  // namespace

void CsvRow::reject(const std::string& why) const {
  throw std::runtime_error(fmt::format("{}: {}", place_, why));
}

const std::string& CsvRow::text(std::string_view column) const {
  const auto field = fields_.find(column);
  if (field == fields_.end()) reject(fmt::format("there is no column {}", column));
  return field->second;
}

std::optional<std::string> CsvRow::textIfAny(std::string_view column) const {
  const std::string& field = text(column);
  return field.empty() ? std::nullopt : std::optional(field);
}

std::optional<double> CsvRow::number(std::string_view column) const {
  const std::string& field = text(column);
  if (field.empty()) return std::nullopt;
  double value = 0;
  const char* end = field.data() + field.size();
  const auto parsed = std::from_chars(field.data(), end, value);
  if (parsed.ec != std::errc() || parsed.ptr != end) {
    reject(fmt::format("{} is no number: {}", column, field));
  }
  return value;
}

std::int32_t CsvRow::whole(std::string_view column) const {
  const std::optional<double> value = number(column);
  if (!value || *value != static_cast<std::int32_t>(*value)) {
    reject(fmt::format("{} is no whole number", column));
  }
  return static_cast<std::int32_t>(*value);
}

std::vector<CsvRow> readCsv(const std::filesystem::path& file) {
  std::ifstream stream(file);
  std::string line;
  if (!std::getline(stream, line)) {
    throw std::runtime_error(fmt::format("{}: cannot be read", file.string()));
  }
  const std::vector<std::string> heading = fieldsOf(line);
  std::vector<CsvRow> rows;
  for (int number = 2; std::getline(stream, line); ++number) {
    const std::string place = fmt::format("{}:{}", file.string(), number);
    const std::vector<std::string> values = fieldsOf(line);
    if (values.size() != heading.size()) throw std::runtime_error(place + ": fields are missing");
    std::map<std::string, std::string, std::less<>> fields;
    for (std::size_t i = 0; i < heading.size(); ++i) fields.emplace(heading[i], values[i]);
    rows.emplace_back(place, std::move(fields));
  }
  return rows;
}

}  // namespace zenivo::catalogue
