#include "answers/common/Stores.h"

#include <string>

#include "foundation/Log.h"

namespace zenivo {

/// Ends the command: the database would go on without a store, and the answer would be wrong.
struct Stores::Listener : DatabaseDelegate {
  void databasePersistentStoreCoordinatorDidGetError(const std::string& message,
                                                     const std::string& /*title*/) override {
    throw std::runtime_error(message);
  }
};

Stores::Stores(Database& database) : database_(database), listener_(std::make_shared<Listener>()) {
  // The message says all that the log would.
  setLogThreshold(LogLevel::none);
  database_.setDelegate(listener_);
}

}  // namespace zenivo
