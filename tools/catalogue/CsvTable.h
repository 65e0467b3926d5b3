// A table of comma-separated values with a heading, without quoted fields.

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo::catalogue {

/// One line of a table, read by the names of its columns.  What is missing or no
/// number where one is wanted ends the program with the file and line.
class CsvRow {
 public:
  CsvRow(std::string place, std::map<std::string, std::string, std::less<>> fields)
      : place_(std::move(place)), fields_(std::move(fields)) {}

  const std::string& text(std::string_view column) const;
  /// nullopt for an empty field.
  std::optional<std::string> textIfAny(std::string_view column) const;
  std::optional<double> number(std::string_view column) const;
  std::int32_t whole(std::string_view column) const;

  /// Throws std::runtime_error naming this line.
  [[noreturn]] void reject(const std::string& why) const;

 private:
  std::string place_;
  std::map<std::string, std::string, std::less<>> fields_;
};

/// The lines of a file.  Throws std::runtime_error for a file that cannot be read
/// and a line with another number of fields than the heading.
std::vector<CsvRow> readCsv(const std::filesystem::path& file);

}  // namespace zenivo::catalogue
