// zenivo_catalogue TABLES STORE: builds the static store from the tables in the
// folder TABLES.  Equal tables give equal bytes.

#include <fmt/format.h>

#include <exception>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "CsvTable.h"
#include "data/stores/Models.h"
#include "data/stores/StaticEntities.h"
#include "store/file/PersistentStoreCoordinator.h"
#include "store/graph/ManagedObjectContext.h"

namespace zenivo::catalogue {
namespace {

template <class T>
using ByName = std::map<std::string, std::shared_ptr<T>, std::less<>>;

/// Fills a context from the tables of a folder.
class Builder {
 public:
  Builder(std::filesystem::path tables, ManagedObjectContext& context)
      : tables_(std::move(tables)), context_(context) {}

  void build() {
    addCameras();
    addPois();
    addEclipses();
  }

 private:
  std::vector<CsvRow> rows(std::string_view entity) const {
    return readCsv(tables_ / fmt::format("{}.csv", entity));
  }

  template <class T>
  std::shared_ptr<T> insert() {
    return std::static_pointer_cast<T>(context_.insertNewObjectForEntityForName(T::kEntityName));
  }

  template <class T>
  static const std::shared_ptr<T>& find(const ByName<T>& objects, const CsvRow& row,
                                        std::string_view column) {
    const auto found = objects.find(row.text(column));
    if (found == objects.end()) row.reject(fmt::format("nothing is named {}", row.text(column)));
    return found->second;
  }

  /// Sets every number of the entity from the column of its name.
  static void setNumbers(StoredObject& object, const CsvRow& row) {
    for (const AttributeDescription* attribute : object.entity().attributes()) {
      if (attribute->type == AttributeType::doubleNumber) {
        object.setValue(Value(row.number(attribute->name)), attribute->name);
      }
    }
  }

  void addCameras() {
    ByName<CameraBrand> brands;
    for (const CsvRow& row : rows(Camera::kEntityName)) {
      std::shared_ptr<CameraBrand>& brand = brands[row.text("brand")];
      if (!brand) {
        brand = insert<CameraBrand>();
        brand->set(CameraBrand::name, row.text("brand"));
      }
      const auto camera = insert<Camera>();
      setNumbers(*camera, row);
      camera->set(Camera::cameraId, row.whole("cameraId"));
      camera->set(Camera::model, row.text("model"));
      camera->set(Camera::film, row.whole("film") != 0);
      camera->set(Camera::brand, brand);
    }
  }

  void addPois() {
    ByName<PoiCategory> categories;
    for (const CsvRow& row : rows(PoiCategory::kEntityName)) {
      const auto category = insert<PoiCategory>();
      category->set(PoiCategory::cid, row.whole("cid"));
      category->set(PoiCategory::name, row.text("name"));
      categories[row.text("name")] = category;
    }
    for (const CsvRow& row : rows(Poi::kEntityName)) {
      const auto poi = insert<Poi>();
      setNumbers(*poi, row);
      poi->set(Poi::pid, row.whole("pid"));
      poi->set(Poi::name, row.text("name"));
      poi->set(Poi::country, row.text("country"));
      poi->set(Poi::category, find(categories, row, "category"));
    }
  }

  void addEclipses() {
    ByName<Eclipse> eclipses;
    for (const CsvRow& row : rows(Eclipse::kEntityName)) {
      const auto eclipse = insert<Eclipse>();
      setNumbers(*eclipse, row);
      eclipse->set(Eclipse::name, row.text("name"));
      eclipse->set(Eclipse::filename, row.text("filename"));
      eclipse->set(Eclipse::type, row.whole("type"));
      eclipse->set(Eclipse::eclipseType, row.whole("eclipseType"));
      eclipses[row.text("name")] = eclipse;
    }
    for (const CsvRow& row : rows(EclipseSolar::kEntityName)) {
      const auto solar = insert<EclipseSolar>();
      setNumbers(*solar, row);
      solar->set(EclipseSolar::duration, row.textIfAny("duration"));
      solar->set(EclipseSolar::eclipse, find(eclipses, row, "eclipse"));
    }
    for (const CsvRow& row : rows(EclipseLunar::kEntityName)) {
      const auto lunar = insert<EclipseLunar>();
      setNumbers(*lunar, row);
      lunar->set(EclipseLunar::eclipse, find(eclipses, row, "eclipse"));
    }
  }

  std::filesystem::path tables_;
  ManagedObjectContext& context_;
};

/// Builds into a file beside the store and puts it in its place when it is whole.
void buildStore(const std::filesystem::path& tables, const std::filesystem::path& store) {
  const std::filesystem::path unfinished = store.string() + ".unfinished";
  std::filesystem::create_directories(store.parent_path());
  std::filesystem::remove(unfinished);
  {
    auto coordinator = std::make_shared<PersistentStoreCoordinator>(staticModel());
    Error error;
    StoreOptions options;
    options.journalMode = JournalMode::rollback;
    options.identifier = "ZENIVO-STATIC-CATALOGUE";
    if (!coordinator->addPersistentStore(unfinished, options, &error)) {
      throw std::runtime_error(error.description);
    }
    ManagedObjectContext context(ConcurrencyType::confinement);
    context.setPersistentStoreCoordinator(coordinator);
    Builder(tables, context).build();
    if (!context.save(&error)) throw std::runtime_error(error.description);
  }
  std::filesystem::remove(unfinished.string() + "-lock");  // of writers, which it has no more
  std::filesystem::rename(unfinished, store);
}

}  // namespace
}  // namespace zenivo::catalogue

int main(int argc, char** argv) {
  if (argc != 3) {
    fmt::print(stderr, "usage: zenivo_catalogue TABLES STORE\n");
    return 2;
  }
  try {
    zenivo::catalogue::buildStore(argv[1], argv[2]);
  } catch (const std::exception& failure) {
    fmt::print(stderr, "zenivo_catalogue: {}\n", failure.what());
    return 1;
  }
  return 0;
}
