// zenivo store: the files that hold what the user makes, and the catalogues.

#include <fmt/format.h>

#include <set>
#include <stdexcept>
#include <system_error>

#include "answers/common/Moments.h"
#include "answers/common/Stores.h"
#include "commands/common/Table.h"
#include "commands/library/Commands.h"
#include "data/stores/Duplicates.h"
#include "data/stores/UserEntities.h"
#include "foundation/Bundle.h"
#include "foundation/LocalizedString.h"
#include "foundation/MainQueue.h"
#include "store/file/StoreCheck.h"

namespace zenivo::cli {
namespace {

struct StoreInfo {
  std::string_view name;
  std::filesystem::path file;
  std::optional<std::uintmax_t> bytes;  // none while there is no file
  std::string identifier;
  bool isCurrent = true;
  std::vector<std::pair<std::string, std::size_t>> counts;  // by entity
};

std::optional<std::uintmax_t> sizeOf(const std::filesystem::path& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  return error ? std::nullopt : std::optional(size);
}

/// Everything but the number of objects, without opening the store for use.
StoreInfo infoOf(std::string_view name, const std::filesystem::path& file,
                 const ManagedObjectModel& model) {
  StoreInfo info{name, file, sizeOf(file), "", true, {}};
  if (!info.bytes) return info;
  if (const auto metadata = PersistentStoreCoordinator::metadataForPersistentStore(file)) {
    info.identifier = metadata->identifier;
    info.isCurrent = isModelCompatibleWithStoreMetadata(model, *metadata);
  }
  return info;
}

void countObjects(StoreInfo& info, const ManagedObjectModel& model, ManagedObjectContext& context) {
  for (const auto& entity : model.entities()) {
    FetchRequest request;
    request.entityName = entity->name();
    request.includesSubentities = false;
    Error error;
    const auto count = expectFetched(context.countForFetchRequest(request, &error), error);
    info.counts.emplace_back(entity->name(), count);
  }
}

std::vector<StoreInfo> infosOf(Stores& stores) {
  Database& database = stores.database();
  std::vector<StoreInfo> infos{
      infoOf("user", database.groupStoreURL(), *database.managedObjectModel()),
      infoOf("static", resourcePath("ZenivoStatic.sqlite"), *database.staticManagedObjectModel())};
  if (infos[0].bytes) countObjects(infos[0], *database.managedObjectModel(), stores.own());
  countObjects(infos[1], *database.staticManagedObjectModel(), stores.catalogue());
  return infos;
}

std::string infoJson(const std::vector<StoreInfo>& infos) {
  Json json;
  for (const StoreInfo& info : infos) {
    Json counts = Json::object();
    for (const auto& [entity, count] : info.counts) counts[entity] = count;
    json[std::string(info.name)] = {
        {"file", info.file.string()},      {"exists", info.bytes.has_value()},
        {"bytes", info.bytes.value_or(0)}, {"identifier", info.identifier},
        {"migrated", !info.isCurrent},     {"objects", std::move(counts)}};
  }
  return json.dump(2) + "\n";
}

std::string infoText(const std::vector<StoreInfo>& infos, const Terminal& terminal) {
  std::string text;
  for (const StoreInfo& info : infos) {
    text +=
        (text.empty() ? "" : "\n") + styled(info.file.string(), Style::heading, terminal) + "\n";
    if (!info.bytes) {
      text += "  nothing is saved yet\n";
      continue;
    }
    text += fmt::format("  {} kB, {}\n", (*info.bytes + 1023) / 1024, info.identifier);
    if (!info.isCurrent) text += "  of an older version; it has now been brought up to date\n";
    Table table({{""}, {"", Align::right}});
    for (const auto& [entity, count] : info.counts) {
      table.addRow({entity, fmt::format("{}", count)});
    }
    text += table.text(terminal);
  }
  return text;
}

/// The words by which a user knows an object.
std::string nameOf(const ManagedObject& object) {
  const bool isCamera = object.entity().name() == CustomCamera::kEntityName;
  const auto key = isCamera ? CustomCamera::model.key : Planning::name.key;
  return object.valueForKey(key).string();
}

class StoreCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("store", "What is saved: look it over, clean it up");
    app->footer(
        "The user's store is Zenivo.sqlite in $ZENIVO_HOME, else in $XDG_DATA_HOME/zenivo.\n"
        "\n"
        "Examples:\n"
        "  zenivo store info\n"
        "  zenivo store check --json");
    app->require_subcommand(1);
    info_ = app->add_subcommand("info", "Where the stores are and what they hold");
    check_ = app->add_subcommand("check", "Look the files over for damage");
    dedupe_ = app->add_subcommand("dedupe", "List plans, places and cameras that repeat others");
    dedupe_->add_flag("--yes", deletes_, "Delete them; this cannot be undone");
    for (CLI::App* each : {info_, check_, dedupe_}) {
      each->add_flag("--json", wantsJson_, "Print JSON");
    }
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    Stores stores;
    if (check_->parsed()) return check(stores);
    if (dedupe_->parsed()) return dedupe(stores, terminal);
    const auto infos = infosOf(stores);
    return wantsJson_ ? infoJson(infos) : infoText(infos, terminal);
  }

 private:
  std::string check(Stores& stores) const;
  std::string dedupe(Stores& stores, const Terminal& terminal) const;

  CLI::App* info_ = nullptr;
  CLI::App* check_ = nullptr;
  CLI::App* dedupe_ = nullptr;
  bool deletes_ = false;
  bool wantsJson_ = false;
};

std::string StoreCommand::check(Stores& stores) const {
  std::vector<std::filesystem::path> files{resourcePath("ZenivoStatic.sqlite")};
  if (stores.hasOwn()) files.insert(files.begin(), stores.database().groupStoreURL());
  Json json = Json::array();
  std::string text;
  for (const auto& file : files) {
    Error error;
    const auto faults = faultsOfStore(file, &error);
    if (!faults) throw std::runtime_error(file.string() + ": " + error.description);
    if (!faults->empty()) {
      throw std::runtime_error(fmt::format("{} is damaged: {} ({} in all)", file.string(),
                                           faults->front(), faults->size()));
    }
    json.push_back({{"file", file.string()}, {"sound", true}});
    text += file.string() + " is sound\n";
  }
  return wantsJson_ ? Json{{"stores", std::move(json)}}.dump(2) + "\n" : text;
}

void removeDuplicates(Database& database) {
  bool isDone = false;
  std::optional<Error> failure;
  database.removeDuplicatesWithCompletion([&](std::optional<Error> error) {
    failure = std::move(error);
    isDone = true;
  });
  mainQueue().runUntil([&] { return isDone; });
  if (failure) throw std::runtime_error(failure->description);
}

std::string StoreCommand::dedupe(Stores& stores, const Terminal& terminal) const {
  ManagedObjects duplicates;
  if (stores.hasOwn()) {
    Error error;
    duplicates = expectFetched(duplicateObjects(stores.own(), &error), error);
  }
  Json json = Json::array();
  Table table({{""}, {""}});
  std::set<const ManagedObject*> seen;
  for (const ManagedObjectPtr& object : duplicates) {
    if (!seen.insert(object.get()).second) continue;
    const std::string entity(object->entity().name());
    json.push_back({{"entity", entity}, {"name", nameOf(*object)}});
    table.addRow({entity, nameOf(*object)});
  }
  if (deletes_ && !duplicates.empty()) removeDuplicates(stores.database());
  if (wantsJson_) {
    return Json{{"duplicates", std::move(json)}, {"deleted", deletes_ && !duplicates.empty()}}.dump(
               2) +
           "\n";
  }
  if (duplicates.empty()) return "Nothing repeats.\n";
  return table.text(terminal) +
         (deletes_ ? "Deleted.\n"
                   : localizedString("database_sync_clean_database_warning", "Common") +
                         " Do it with --yes.\n");
}

}  // namespace

std::unique_ptr<Command> makeStoreCommand() {
  return std::make_unique<StoreCommand>();
}

}  // namespace zenivo::cli
