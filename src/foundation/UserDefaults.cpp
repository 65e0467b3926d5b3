#include "foundation/UserDefaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

#include "foundation/AtomicFile.h"
#include "foundation/Error.h"
#include "foundation/FileLock.h"
#include "foundation/Log.h"
#include "foundation/ShortestDecimal.h"
#include "foundation/UserFolder.h"

namespace zenivo {
namespace {

std::string_view withoutLeadingSpace(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
}

double realAtStartOf(std::string_view text) {
  text = withoutLeadingSpace(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::isfinite(number) ? number : 0;
}

bool startsLikeTrue(std::string_view text) {
  text = withoutLeadingSpace(text);
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  text = text.substr(std::min(text.find_first_not_of('0'), text.size()));
  return !text.empty() && std::string_view("YyTt123456789").find(text[0]) != std::string_view::npos;
}

void apply(const std::optional<PropertyList>& change, const std::string& key,
           PropertyList::Dictionary& values) {
  if (change) {
    values.insert_or_assign(key, *change);
  } else {
    values.erase(key);
  }
}

}  // namespace

/// What a look at the file gave.
struct UserDefaults::Content {
  enum class State { good, broken, unreadable };
  State state = State::good;
  Dictionary values;
  Error error;  ///< why it is not good
};

UserDefaults::UserDefaults(std::filesystem::path file) : file_(std::move(file)) {
  if (file_.empty()) return;
  Content content = readContent();
  if (content.state != Content::State::good) log(LogLevel::error, content.error.description);
  stored_ = std::move(content.values);
}

void UserDefaults::registerDefaults(const Dictionary& defaults) {
  const std::lock_guard lock(mutex_);
  for (const auto& [key, value] : defaults) registered_.insert_or_assign(key, value);
}

std::optional<PropertyList> UserDefaults::objectForKey(std::string_view key) const {
  const std::lock_guard lock(mutex_);
  if (const auto found = stored_.find(key); found != stored_.end()) return found->second;
  if (const auto found = registered_.find(key); found != registered_.end()) return found->second;
  return std::nullopt;
}

std::int64_t UserDefaults::integerForKey(std::string_view key) const {
  const std::optional<PropertyList> value = objectForKey(key);
  if (!value) return 0;
  if (const auto text = value->string()) return std::strtoll(text->c_str(), nullptr, 10);
  return value->integer().value_or(0);
}

double UserDefaults::doubleForKey(std::string_view key) const {
  const std::optional<PropertyList> value = objectForKey(key);
  if (!value) return 0;
  if (const auto text = value->string()) return realAtStartOf(*text);
  return value->real().value_or(0);
}

float UserDefaults::floatForKey(std::string_view key) const {
  return static_cast<float>(doubleForKey(key));
}

bool UserDefaults::boolForKey(std::string_view key) const {
  const std::optional<PropertyList> value = objectForKey(key);
  if (!value) return false;
  if (const auto text = value->string()) return startsLikeTrue(*text);
  return value->boolean().value_or(false);
}

std::string UserDefaults::stringForKey(std::string_view key) const {
  const std::optional<PropertyList> value = objectForKey(key);
  if (!value) return {};
  if (auto text = value->string()) return *std::move(text);
  const std::optional<double> real = value->real();
  const std::optional<std::int64_t> whole = value->integer();
  if (!real) return {};
  const bool isWhole = *real == static_cast<double>(*whole) && !(*real == 0 && std::signbit(*real));
  return isWhole ? fmt::to_string(*whole) : fmt::format("{}", *real);
}

void UserDefaults::setInteger(std::int64_t value, std::string_view key) {
  record(value, key);
}
void UserDefaults::setFloat(float value, std::string_view key) {
  record(shortestDecimal(value), key);
}
void UserDefaults::setDouble(double value, std::string_view key) {
  record(value, key);
}
void UserDefaults::setBool(bool value, std::string_view key) {
  record(value, key);
}
void UserDefaults::setObject(PropertyList value, std::string_view key) {
  record(std::move(value), key);
}
void UserDefaults::setValue(std::optional<PropertyList> value, std::string_view key) {
  record(std::move(value), key);
}
void UserDefaults::removeObjectForKey(std::string_view key) {
  record(std::nullopt, key);
}

void UserDefaults::record(std::optional<PropertyList> value, std::string_view key) {
  const std::lock_guard lock(mutex_);
  std::string name(key);
  apply(value, name, stored_);
  if (!file_.empty()) changes_.insert_or_assign(std::move(name), std::move(value));
}

bool UserDefaults::synchronize(Error* error) {
  Error reason;
  if (file_.empty() || mergeWithFile(&reason)) return true;
  if (error == nullptr) log(LogLevel::error, "settings are not stored: " + reason.description);
  return fail(error, std::move(reason));
}

bool UserDefaults::mergeWithFile(Error* error) {
  const std::lock_guard lockFile(fileMutex_);
  Changes changes;
  {
    const std::lock_guard lock(mutex_);
    changes = changes_;
  }
  Content content;
  if (changes.empty()) {
    content = readContent();
    if (content.state != Content::State::good) return fail(error, content.error);
  } else if (!storeChanges(changes, content, error)) {
    return false;
  }
  // Other threads may have set more meanwhile: that stays in memory, and waits.
  const std::lock_guard lock(mutex_);
  std::erase_if(changes_, [&](const auto& change) {
    const auto written = changes.find(change.first);
    return written != changes.end() && written->second == change.second;
  });
  stored_ = std::move(content.values);
  for (const auto& [key, change] : changes_) apply(change, key, stored_);
  return true;
}

/// Puts the changes into the file, and what it then holds into `content`.
bool UserDefaults::storeChanges(const Changes& changes, Content& content, Error* error) const {
  std::error_code failure;
  std::filesystem::create_directories(file_.parent_path(), failure);
  const std::filesystem::path file = symlinkTarget(file_);
  const auto lock = FileLock::open(file, ".lock", failure);
  if (!lock) return fail(error, {.description = file_.string() + ".lock: " + failure.message()});
  if (!lock->acquire()) {
    return fail(error, {.description = file_.string() + ": another process keeps it locked"});
  }

  removeLeftovers(file);
  content = readContent();
  if (content.state == Content::State::unreadable) return fail(error, content.error);
  if (content.state == Content::State::broken) {
    const std::filesystem::path aside = freeNameBeside(file, ".broken");
    std::filesystem::rename(file, aside, failure);
    if (failure)
      return fail(error, {.description = content.error.description + "; " + failure.message()});
    log(LogLevel::error, fmt::format("{}; kept as {}", content.error.description, aside.string()));
    const std::lock_guard memory(mutex_);
    content.values = stored_;  // the best that is left of it
  }
  for (const auto& [key, change] : changes) apply(change, key, content.values);
  return writePropertyListFile(file_, content.values, error);
}

UserDefaults::Content UserDefaults::readContent() const {
  Content content;
  std::error_code failure;
  if (!std::filesystem::exists(file_, failure) && !failure) return content;
  const std::optional<std::string> xml = readFile(file_, kPropertyListMaximumBytes, &content.error);
  if (!xml) {
    content.state = Content::State::unreadable;
    return content;
  }
  const std::optional<PropertyList> list = parsePropertyList(*xml, &content.error);
  if (list && list->dictionary() != nullptr) {
    content.values = *list->dictionary();
    return content;
  }
  content.state = Content::State::broken;
  content.error.description =
      fmt::format("{}: {}", file_.string(), list ? "no dictionary" : content.error.description);
  return content;
}

UserDefaults& zenivoUserDefaults() {
  static UserDefaults defaults(userFolder() / "settings.plist");
  return defaults;
}

}  // namespace zenivo
