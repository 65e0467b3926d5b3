#include "cli/library/Stores.h"

#include <stdexcept>
#include <system_error>

#include "foundation/Log.h"

namespace zenivo::cli {

/// Keeps the message until it can be thrown: the database goes on without a store.
struct Stores::Listener : DatabaseDelegate {
  void databasePersistentStoreCoordinatorDidGetError(const std::string& text,
                                                     const std::string& /*title*/) override {
    message = text;
  }
  std::string message;
};

Stores::Stores() : database_(Database::sharedInstance()), listener_(std::make_shared<Listener>()) {
  // The message says all that the log would.
  setLogThreshold(LogLevel::none);
  database_.setDelegate(listener_);
}

ManagedObjectContext& Stores::opened(const std::shared_ptr<ManagedObjectContext>& context) {
  if (!listener_->message.empty()) throw std::runtime_error(listener_->message);
  return *context;
}

ManagedObjectContext& Stores::catalogue() {
  return opened(database_.staticManagedObjectContext());
}

ManagedObjectContext& Stores::own() {
  return opened(database_.managedObjectContext());
}

bool Stores::hasOwn() const {
  std::error_code ignored;
  return std::filesystem::exists(database_.groupStoreURL(), ignored);
}

}  // namespace zenivo::cli
