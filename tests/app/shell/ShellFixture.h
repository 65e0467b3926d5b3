// A program in a folder of its own, whose platform and tools note what they are asked.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/settings/SettingsKeys.h"
#include "app/shell/HeadlessPlatform.h"
#include "app/shell/ZenivoAppDelegate.h"
#include "data/stores/UserEntities.h"
#include "foundation/Bundle.h"
#include "support/TemporaryFolder.h"

namespace zenivo {

/// A platform whose network, user and visibility a test decides.
class StagedPlatform : public HeadlessPlatform {
 public:
  NetworkStatus status = NetworkStatus::notReachable;
  bool active = false;
  bool answersYes = true;
  std::optional<bool> allowsAnalytics;

  NetworkStatus currentStatus() const override { return status; }
  bool isActive() const override { return active; }
  void ask(const Question& question, std::function<void(bool)> completion) override {
    record("ask " + question.title);
    completion(answersYes);
  }
  void askUserToTrackAnalytics(std::function<void(std::optional<bool>)> completion) override {
    record("askUserToTrackAnalytics");
    completion(allowsAnalytics);
  }
};

class StagedTools : public DatabaseSync, public PlanLoader, public DataImport {
 public:
  explicit StagedTools(HeadlessPlatform& platform) : platform_(platform) {}

  bool hasService = false;
  bool usesCellular = false;
  std::optional<Error> syncError;
  Outcome planOutcome = Outcome::handedOver;
  Result importResult;
  std::function<void(ManagedObjectContext&)> onSetup = [](ManagedObjectContext&) {};

  void setup(ManagedObjectContext& context) override {
    platform_.record("sync.setup");
    onSetup(context);
  }
  bool canSynchronize() const override { return hasService; }
  bool useCellularData() const override { return usesCellular; }
  void synchronizeWithCompletion(Completion completion) override {
    platform_.record("synchronize");
    completion(syncError);
  }
  void cancelSynchronization() override { platform_.record("cancelSynchronization"); }
  void flushPendingChanges(Completion completion) override {
    platform_.record("flushPendingChanges");
    completion(std::nullopt);
  }
  Outcome loadPlanFromUrl(const Url& url, ManagedObjectContext&) override {
    platform_.record("loadPlanFromUrl " + url.parameters().at("d"));
    return planOutcome;
  }
  Outcome loadPlanById(const std::string& uri, ManagedObjectContext&) override {
    platform_.record("loadPlanById " + uri);
    return planOutcome;
  }
  void importFile(const std::filesystem::path& file, ManagedObjectContext&,
                  std::function<void(const Result&)> completion) override {
    platform_.record("importFile " + file.string());
    completion(importResult);
  }

 private:
  HeadlessPlatform& platform_;
};

class ShellTest : public testing::Test {
 protected:
  void launch() { delegate_->applicationDidFinishLaunchingWithOptions(); }

  /// What was noted since the call before.
  std::vector<std::string> news() {
    const auto& journal = platform_.journal();
    std::vector<std::string> latest(journal.begin() + static_cast<std::ptrdiff_t>(told_),
                                    journal.end());
    told_ = journal.size();
    return latest;
  }

  template <class T>
  std::shared_ptr<T> insert() {
    return std::static_pointer_cast<T>(
        database_.managedObjectContext()->insertNewObjectForEntityForName(T::kEntityName));
  }

  const TemporaryFolder folder_;
  Database database_{{folder_ / "Zenivo.sqlite", resourcePath("ZenivoStatic.sqlite")}};
  UserDefaults settings_;
  StagedPlatform platform_;
  StagedTools tools_{platform_};
  std::shared_ptr<ZenivoAppDelegate> delegate_ = std::make_shared<ZenivoAppDelegate>(
      ShellConfiguration{"key", "2.0", "host.example", folder_ / "defaults.plist"}, database_,
      settings_, platform_.platform(), Tools{tools_, tools_, tools_});

 private:
  std::size_t told_ = 0;
};

}  // namespace zenivo
