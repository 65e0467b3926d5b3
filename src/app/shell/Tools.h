// The tools that the shell hands work to.

#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>

#include "app/shell/Url.h"
#include "foundation/Error.h"
#include "store/graph/ManagedObjectContext.h"

namespace zenivo {

using Completion = std::function<void(const std::optional<Error>&)>;

/// Keeps the user store the same on all devices.  Completions come on the main queue.
class DatabaseSync {
 public:
  virtual ~DatabaseSync() = default;
  virtual void setup(ManagedObjectContext& userContext) = 0;
  /// Whether the user has chosen a cloud service.
  virtual bool canSynchronize() const = 0;
  virtual bool useCellularData() const = 0;
  virtual void synchronizeWithCompletion(Completion completion) = 0;
  virtual void cancelSynchronization() = 0;
  virtual void flushPendingChanges(Completion completion) = 0;
};

/// Brings a saved plan or one that a URL describes to the planner.
class PlanLoader {
 public:
  enum class Outcome {
    handedOver,  ///< the planner loads it when it comes up
    notFound,
    unavailable,  ///< there is no tool for it
  };

  virtual ~PlanLoader() = default;
  /// The plan of the store that the URL means, else one made of the URL and not saved.
  virtual Outcome loadPlanFromUrl(const Url& url, ManagedObjectContext& userContext) = 0;
  /// The plan with that object URI.
  virtual Outcome loadPlanById(const std::string& uri, ManagedObjectContext& userContext) = 0;
};

/// Reads plans and places from KML, KMZ and GPX files into the user store.
class DataImport {
 public:
  struct Result {
    std::size_t count = 0;       ///< objects imported; they stay, whatever the error
    std::optional<Error> error;  ///< its description is fit to be shown
  };

  virtual ~DataImport() = default;
  virtual void importFile(const std::filesystem::path& file, ManagedObjectContext& userContext,
                          std::function<void(const Result&)> completion) = 0;
};

/// The tools of one program; all outlive the program's delegate.
struct Tools {
  DatabaseSync& sync;
  PlanLoader& plans;
  DataImport& import;
};

}  // namespace zenivo
