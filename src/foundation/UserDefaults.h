// The settings store: values under keys, kept in one file of the user.

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Error.h"
#include "foundation/PropertyList.h"

namespace zenivo {

/// A key-value store with defaults.  A key reads as the value set for it, else
/// as its registered default, else as zero, empty or nullopt.  Values are read as
/// the type the reader asks for: numbers convert among each other (a real loses
/// its fraction when read as an integer), a text gives the number it begins with
/// ("12" gives 12) and is true when it begins with Y, T or a digit but 0, and a
/// number gives its text.
///
/// Sets and removals are seen at once by every reader of this object and reach
/// the file with synchronize().  All operations may be called from any thread.
class UserDefaults {
 public:
  /// The store of a property list file, read now; of no file with an empty path.
  /// A file that is missing is an empty store.  One that cannot be read is
  /// reported and taken as empty, and see synchronize().
  explicit UserDefaults(std::filesystem::path file = {});

  /// Adds defaults for keys; they are never stored.
  void registerDefaults(const PropertyList::Dictionary& defaults);

  std::int64_t integerForKey(std::string_view key) const;
  float floatForKey(std::string_view key) const;
  double doubleForKey(std::string_view key) const;
  bool boolForKey(std::string_view key) const;
  std::string stringForKey(std::string_view key) const;
  std::optional<PropertyList> objectForKey(std::string_view key) const;

  void setInteger(std::int64_t value, std::string_view key);
  void setFloat(float value, std::string_view key);  ///< 0.05F is kept as 0.05, not its double
  void setDouble(double value, std::string_view key);
  void setBool(bool value, std::string_view key);
  void setObject(PropertyList value, std::string_view key);
  /// Sets the value, or removes the key's value when there is none.
  void setValue(std::optional<PropertyList> value, std::string_view key);
  void removeObjectForKey(std::string_view key);

  /// Brings memory and file together: takes over what others have stored since,
  /// and stores the keys set and removed here, and no others, so that processes
  /// sharing the file lose nothing of each other.  The new file replaces the old
  /// one in a single step.  A file that is no property list is kept beside it
  /// under a name ending in ".broken", never overwritten.
  ///
  /// False when that failed, with the reason in `error`, or in the log where none
  /// is given; the changes then wait for the next call.  Without a file: true.
  bool synchronize(Error* error = nullptr);

 private:
  using Dictionary = PropertyList::Dictionary;
  using Changes = std::map<std::string, std::optional<PropertyList>, std::less<>>;

  struct Content;

  void record(std::optional<PropertyList> value, std::string_view key);
  Content readContent() const;
  bool storeChanges(const Changes& changes, Content& content, Error* error) const;
  bool mergeWithFile(Error* error);

  const std::filesystem::path file_;
  std::mutex fileMutex_;  // taken before mutex_
  mutable std::mutex mutex_;
  Dictionary registered_;
  Dictionary stored_;  // what the file held when last seen, with the changes applied
  Changes changes_;    // since the last synchronize(); nullopt removes
};

/// The one settings store of the program, settings.plist in the user's folder.
UserDefaults& zenivoUserDefaults();

}  // namespace zenivo
