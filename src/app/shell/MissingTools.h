// What stands in for tools that the program does not have.

#pragma once

#include "app/shell/Tools.h"

namespace zenivo {

/// No cloud service can be chosen, so nothing is ever synchronised.
class MissingSync : public DatabaseSync {
 public:
  void setup(ManagedObjectContext&) override {}
  bool canSynchronize() const override { return false; }
  bool useCellularData() const override { return false; }
  void synchronizeWithCompletion(Completion completion) override { completion(std::nullopt); }
  void cancelSynchronization() override {}
  void flushPendingChanges(Completion completion) override { completion(std::nullopt); }
};

class MissingPlanLoader : public PlanLoader {
 public:
  Outcome loadPlanFromUrl(const Url&, ManagedObjectContext&) override {
    return Outcome::unavailable;
  }
  Outcome loadPlanById(const std::string&, ManagedObjectContext&) override {
    return Outcome::unavailable;
  }
};

/// Every import fails and says why.
class MissingImport : public DataImport {
 public:
  void importFile(const std::filesystem::path& file, ManagedObjectContext& userContext,
                  std::function<void(const Result&)> completion) override;
};

/// The three of them.
struct MissingTools {
  MissingSync sync;
  MissingPlanLoader plans;
  MissingImport import;

  Tools tools() { return {sync, plans, import}; }
};

}  // namespace zenivo
