// A small model that has one of everything: inheritance, every attribute type, every
// kind of relationship and both delete rules.

#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "store/file/PersistentStore.h"
#include "store/file/PersistentStoreCoordinator.h"
#include "store/graph/ManagedObjectContext.h"
#include "store/model/ManagedObjectModel.h"
#include "support/TemporaryFolder.h"

namespace zenivo::testing {

/// Shelf <->> Book (cascade), Series <->> Book (ordered), Author <<->> Book,
/// Reader (ordered) <<->> Book, Jacket <-> Book (cascade from the book).
/// Book and Magazine are Publications.
std::vector<EntityDeclaration> libraryDeclarations();
std::shared_ptr<const ManagedObjectModel> libraryModel();

/// A coordinator on a store in a folder, migrating where it must.
std::shared_ptr<PersistentStoreCoordinator> openStore(
    const std::filesystem::path& file,
    std::shared_ptr<const ManagedObjectModel> model = libraryModel(), StoreOptions options = {});

std::shared_ptr<ManagedObjectContext> contextOn(
    const std::shared_ptr<PersistentStoreCoordinator>& coordinator,
    ConcurrencyType type = ConcurrencyType::confinement);

std::shared_ptr<ManagedObjectContext> childOf(const std::shared_ptr<ManagedObjectContext>& parent,
                                              ConcurrencyType type = ConcurrencyType::confinement);

/// A new object of an entity with a name (or title).
ManagedObjectPtr insertNamed(ManagedObjectContext& context, const char* entity,
                             const std::string& name);

/// Fails the test with the error's words unless the context saves.
void saveOrFail(ManagedObjectContext& context);

/// Result of a fetch that must not fail.
ManagedObjects fetchAll(ManagedObjectContext& context, const FetchRequest& request);

std::string contentOf(const std::filesystem::path& file);

/// Nothing when PRAGMA integrity_check and foreign_key_check find nothing, else what.
std::string integrityOf(const std::filesystem::path& file);

}  // namespace zenivo::testing
