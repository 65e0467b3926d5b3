#include "store/file/StoreCheck.h"

#include <fmt/format.h>

#include "store/sqlite/StoreFile.h"

namespace zenivo {
namespace {

void addBrokenPages(sqlite::Connection& connection, std::vector<std::string>& faults) {
  const auto rows = connection.prepare("PRAGMA integrity_check(100)");
  while (rows->step()) {
    if (rows->text(0) != "ok") faults.emplace_back(rows->text(0));
  }
}

void addMissingDestinations(sqlite::Connection& connection, std::vector<std::string>& faults) {
  const auto rows = connection.prepare("SELECT * FROM pragma_foreign_key_check LIMIT 100");
  while (rows->step()) {
    faults.push_back(fmt::format("row {} of {} refers to a missing row of {}", rows->integer(1),
                                 rows->text(0), rows->text(2)));
  }
}

}  // namespace

std::optional<std::vector<std::string>> faultsOfStore(const std::filesystem::path& file,
                                                      Error* error) {
  try {
    sqlite::FileOptions options;
    options.readOnly = true;
    const auto opened = sqlite::StoreFile::open(file, options);
    sqlite::StoreFile::Reading reading(*opened);
    reading.snapshot();
    std::vector<std::string> faults;
    addBrokenPages(*reading, faults);
    if (faults.empty()) addMissingDestinations(*reading, faults);
    return faults;
  } catch (...) {
    fail(error, errorOfCurrentException());
    return std::nullopt;
  }
}

}  // namespace zenivo
