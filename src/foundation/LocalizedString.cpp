#include "foundation/LocalizedString.h"

#include <fmt/format.h>

#include <map>
#include <mutex>

#include "foundation/Bundle.h"
#include "foundation/Log.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

PropertyList loadTable(std::string_view name) {
  Error error;
  auto table = readPropertyListFile(resourcePath(fmt::format("en.lproj/{}.strings", name)), &error);
  if (table && table->dictionary() != nullptr) return *std::move(table);
  log(LogLevel::error, fmt::format("no texts: {}", table ? std::string(name) : error.description));
  return PropertyList::Dictionary();
}

/// A table, read on first use and kept; it never changes.
const PropertyList& tableWithName(std::string_view name) {
  static std::mutex mutex;
  static std::map<std::string, PropertyList, std::less<>> tables;
  const std::lock_guard lock(mutex);
  auto found = tables.find(name);
  if (found == tables.end()) found = tables.emplace(name, loadTable(name)).first;
  return found->second;
}

}  // namespace

std::string localizedString(std::string_view key, std::string_view table) {
  const PropertyList* text = tableWithName(table).valueForKey(key);
  return (text != nullptr ? text->string() : std::nullopt).value_or(std::string(key));
}

}  // namespace zenivo
