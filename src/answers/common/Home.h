// Where the program keeps what a user makes.

#pragma once

#include <filesystem>
#include <optional>

#include "data/stores/Database.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// The settings and the stores of one user, each read when it is first asked for.  A program
/// has one; nothing of it is shared with another.
class Home {
 public:
  /// That of a folder, which is made when something is first kept in it.
  explicit Home(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// settings.plist in the folder, with what an older program kept in defaults.plist there.
  UserDefaults& zenivoUserDefaults();
  /// Zenivo.sqlite in the folder, and the catalogue beside the program.
  Database& database();

 private:
  const std::filesystem::path folder_;
  std::optional<UserDefaults> settings_;
  std::optional<Database> database_;
};

}  // namespace zenivo
