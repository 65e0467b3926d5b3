// Random sequences of everything that can be done to contexts, against plain
// containers.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <random>
#include <sstream>

#include "foundation/NotificationCenter.h"
#include "store/LibraryModel.h"
#include "store/LibraryOracle.h"

namespace zenivo::testing {
namespace {

const char* const kEntities[] = {"Shelf",  "Book",   "Magazine", "Series",
                                 "Author", "Reader", "Jacket"};

std::string nameOf(int id) {
  return "n" + std::to_string(id);
}

const char* nameKey(const std::string& entity) {
  return entity == "Book" || entity == "Magazine" ? "title" : "name";
}

/// The attributes that change; names stay, they tell which object it is.
std::vector<std::string> attributesOf(const std::string& entity) {
  if (entity == "Shelf") return {"rank"};
  if (entity == "Book") return {"year", "price", "isRare", "added", "isbn"};
  if (entity == "Magazine") return {"weight", "remarks", "issue"};
  if (entity == "Jacket") return {"image"};
  return {};
}

int numberOf(const ManagedObject& object) {
  const std::string name = object.valueForKey(nameKey(object.entity().name())).string();
  return name.empty() ? 0 : std::stoi(name.substr(1));
}

/// A real context beside its plain one.
struct Pair {
  std::shared_ptr<ManagedObjectContext> real;
  PlainContext plain;
  ManagedObjects held;  ///< some objects stay in memory, others do not
};

class Checker {
 public:
  Checker(const std::filesystem::path& file, std::uint32_t seed, bool checksOrder)
      : file_(file), random_(seed), checksOrder_(checksOrder) {}

  void open(int contexts) {
    pairs_.clear();
    for (int i = 0; i < contexts; ++i) {
      pairs_.push_back({contextOn(openStore(file_)), PlainContext(world_), {}});
    }
  }

  void run(int steps) {
    for (int i = 0; i < steps && !::testing::Test::HasFailure(); ++i) step();
    for (Pair& pair : pairs_) compare(pair);
    if (::testing::Test::HasFailure()) std::cout << history_.str();
  }

 private:
  template <class... Parts>
  void note(const Parts&... parts) {
    ((history_ << parts << ' '), ...) << '\n';
  }

  int below(std::size_t bound) {
    return static_cast<int>(random_() % static_cast<std::uint32_t>(bound));
  }
  bool chance(int percent) { return below(100) < percent; }

  /// A number of an object in the view, or 0.
  int pick(const PlainWorld& view, const std::string& entity) {
    const std::vector<int> ids = view.objectsOf(entity);
    return ids.empty() ? 0 : ids[static_cast<std::size_t>(below(ids.size()))];
  }

  Value randomValue(const ManagedObject& object, const std::string& key) {
    if (chance(15)) return {};
    const AttributeDescription& attribute = *object.entity().attributeNamed(key);
    switch (attribute.type) {
      case AttributeType::floatNumber:
      case AttributeType::doubleNumber:
        return *attribute.coerced(below(1000) / 8.0);
      case AttributeType::date:
        return Date::withTimeIntervalSinceReferenceDate(below(1000) / 4.0);
      case AttributeType::binary:
      case AttributeType::transformable:
        return Data(static_cast<std::size_t>(below(20)), static_cast<std::uint8_t>(below(256)));
      case AttributeType::boolean:
        return chance(50);
      default:
        return below(50);
    }
  }

  ManagedObjectPtr find(Pair& pair, const PlainWorld& view, int id) {
    const std::string& entity = view.objects.at(id).entity;
    const auto predicate = std::string(nameKey(entity)) + " = %@";
    const auto found =
        fetchAll(*pair.real, {.entityName = entity,
                              .predicate = Predicate::predicateWithFormat(predicate, nameOf(id)),
                              .includesPropertyValues = chance(50)});
    EXPECT_EQ(found.size(), 1U) << entity << " " << id;
    if (found.size() != 1) return nullptr;
    if (chance(30)) pair.held.push_back(found.front());
    return found.front();
  }

  void step() {
    Pair& pair = pairs_[static_cast<std::size_t>(below(pairs_.size()))];
    const int kind = below(100);
    note("context", &pair - pairs_.data());
    if (kind < 70) {
      edit(pair);
    } else if (kind < 80) {
      save(pair);
    } else if (kind < 84) {
      note("rollback");
      pair.plain.rollback();
      pair.real->rollback();
    } else if (kind < 92) {
      child(pair);
    } else if (kind < 94) {
      pair.held.clear();
    } else if (kind < 95) {
      note("reset");
      pair.plain.rollback();
      pair.held.clear();
      pair.real->reset();
    } else if (kind < 96) {
      note("permanent identities");
      EXPECT_TRUE(pair.real->obtainPermanentIDsForObjects(pair.real->insertedObjects()));
    } else if (kind < 97) {
      note("open again");
      open(static_cast<int>(pairs_.size()));
    } else {
      compare(pair);
    }
  }

  void edit(Pair& pair) {
    const PlainWorld view = pair.plain.view();
    const int kind = below(100);
    if (kind < 20 || view.objects.size() < 6) {
      insert(pair);
    } else if (kind < 35) {
      setAttribute(pair, view);
    } else if (kind < 60) {
      setToOne(pair, view);
    } else if (kind < 75) {
      setPair(pair, view);
    } else if (kind < 82) {
      place(pair, view);
    } else if (kind < 90 || view.objects.size() > 40) {
      remove(pair, view);
    } else {
      refresh(pair, view);
    }
  }

  void insert(Pair& pair) {
    const std::string entity = kEntities[below(std::size(kEntities))];
    const int id = next_++;
    const auto object = insertNamed(*pair.real, entity.c_str(), nameOf(id));
    std::map<std::string, Value> attributes;
    for (const std::string& key : attributesOf(entity)) {
      attributes[key] = randomValue(*object, key);
      object->setValue(attributes[key], key);
    }
    note("insert", entity, id);
    pair.plain.insert(id, entity, std::move(attributes));
  }

  void setAttribute(Pair& pair, const PlainWorld& view) {
    const int id = pick(view, kEntities[below(std::size(kEntities))]);
    const auto keys =
        id != 0 ? attributesOf(view.objects.at(id).entity) : std::vector<std::string>();
    if (keys.empty()) return;
    const std::string key = keys[static_cast<std::size_t>(below(keys.size()))];
    const auto object = find(pair, view, id);
    if (object == nullptr) return;
    const Value value = randomValue(*object, key);
    note("set", id, key);
    object->setValue(value, key);
    pair.plain.setAttribute(id, key, value);
  }

  /// From either side.
  void setToOne(Pair& pair, const PlainWorld& view) {
    const std::string column = kColumns[below(std::size(kColumns))];
    const int book = pick(view, "Book");
    std::string entity = column;
    entity[0] = static_cast<char>(std::toupper(entity[0]));
    const int to = chance(25) ? 0 : pick(view, entity);
    if (book == 0) return;
    const auto bookObject = find(pair, view, book);
    const auto other = to != 0 ? find(pair, view, to) : nullptr;
    if (bookObject == nullptr) return;
    note("lead", column, "of", book, "to", to);
    const std::string inverse =
        bookObject->entity().relationshipNamed(column)->inverseRelationship->name;
    if (other == nullptr || chance(50)) {
      bookObject->setRelatedObject(other, column);
    } else if (column == "jacket") {
      other->setRelatedObject(bookObject, inverse);
      // From the jacket's side the book that had it loses it first.
      for (const int rival : view.booksBy(column, to)) {
        if (rival != book) pair.plain.setToOne(rival, column, 0);
      }
    } else {
      other->addRelatedObject(bookObject, inverse);
    }
    pair.plain.setToOne(book, column, to);
  }

  void setPair(Pair& pair, const PlainWorld& view) {
    const std::string entity = kPairs[below(std::size(kPairs))];
    const int owner = pick(view, entity);
    const int book = pick(view, "Book");
    if (owner == 0 || book == 0) return;
    const auto ownerObject = find(pair, view, owner);
    const auto bookObject = find(pair, view, book);
    if (ownerObject == nullptr || bookObject == nullptr) return;
    const bool present = chance(60);
    const bool fromBook = chance(50);
    note(present ? "pair" : "part", entity, owner, "and", book);
    const auto& object = fromBook ? bookObject : ownerObject;
    const auto& member = fromBook ? ownerObject : bookObject;
    const std::string forth = entity == "Author" ? "books" : "favorites";
    const std::string key =
        fromBook ? ownerObject->entity().relationshipNamed(forth)->inverseRelationship->name
                 : forth;
    if (present) {
      object->addRelatedObject(member, key);
    } else {
      object->removeRelatedObject(member, key);
    }
    pair.plain.setPair(entity, owner, book, present);
  }

  void place(Pair& pair, const PlainWorld& view) {
    const bool isSeries = chance(50);
    const std::string relationship = isSeries ? "series" : "Reader";
    const int owner = pick(view, isSeries ? "Series" : "Reader");
    const int book = pick(view, "Book");
    if (owner == 0 || book == 0) return;
    const auto ownerObject = find(pair, view, owner);
    const auto bookObject = find(pair, view, book);
    if (ownerObject == nullptr || bookObject == nullptr) return;
    const auto index = static_cast<std::size_t>(below(6));
    note("place", book, "in", relationship, owner, "at", index);
    ownerObject->insertRelatedObject(bookObject, isSeries ? "volumes" : "favorites", index);
    if (isSeries) {
      pair.plain.setToOne(book, "series", owner);
    } else {
      pair.plain.setPair("Reader", owner, book, true);
    }
    std::vector<int> order = pair.plain.ordered(relationship, owner);
    std::erase(order, book);
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(std::min(index, order.size())), book);
    pair.plain.setOrder(relationship, owner, order);
  }

  void remove(Pair& pair, const PlainWorld& view) {
    const int id = pick(view, kEntities[below(std::size(kEntities))]);
    const auto object = id != 0 ? find(pair, view, id) : nullptr;
    if (object == nullptr) return;
    note("delete", id);
    pair.real->deleteObject(object);
    EXPECT_TRUE(object->isDeleted());
    pair.plain.remove(id);
  }

  void refresh(Pair& pair, const PlainWorld& view) {
    const int id = pick(view, kEntities[below(std::size(kEntities))]);
    const auto object = id != 0 ? find(pair, view, id) : nullptr;
    if (object == nullptr) return;
    const bool mergeChanges = chance(50);
    note(mergeChanges ? "refresh" : "revert", id);
    pair.real->refreshObject(object, mergeChanges);
    if (!mergeChanges) pair.plain.revert(id);
  }

  void save(Pair& pair) {
    note("save");
    const auto observer = defaultCenter().addObserver(
        kManagedObjectContextDidSaveNotification, pair.real.get(),
        [&](const Notification& notification) {
          const auto& saved = std::any_cast<const SaveNotification&>(notification.userInfo);
          for (Pair& other : pairs_) {
            if (&other != &pair) other.real->mergeChangesFromContextDidSaveNotification(saved);
          }
        });
    saveOrFail(*pair.real);
    EXPECT_FALSE(pair.real->hasChanges());
    world_ = pair.plain.save();
    for (Pair& other : pairs_) {
      if (&other != &pair) other.plain.rebase(world_);
    }
  }

  /// A scratch pad on top of a context, used for a while and saved or thrown away.
  void child(Pair& parent) {
    note("child begins");
    Pair pair{childOf(parent.real), PlainContext(parentWorld(parent.plain)), {}};
    for (int i = below(8); i >= 0 && !::testing::Test::HasFailure(); --i) edit(pair);
    if (chance(50)) compare(pair);
    note("child ends");
    if (chance(30)) return;
    note("child saves");
    saveOrFail(*pair.real);
    parent.plain.takeSaveOf(pair.plain);
    compare(pair);
  }

  static PlainWorld parentWorld(const PlainContext& parent) {
    PlainContext copy = parent;
    return copy.save();
  }

  /// Every value and every relationship, from both of its ends.
  void compare(Pair& pair) {
    SCOPED_TRACE("context " + std::to_string(&pair - pairs_.data()));
    const PlainWorld view = pair.plain.view();
    std::map<int, ManagedObjectPtr> objects;
    for (const char* entity : kEntities) {
      FetchRequest request{.entityName = entity, .sortDescriptors = {{nameKey(entity)}}};
      if (chance(30)) request.fetchBatchSize = 3;
      const ManagedObjects found = fetchAll(*pair.real, request);
      EXPECT_EQ(found.size(), view.objectsOf(entity).size()) << entity;
      for (const ManagedObjectPtr& object : found) objects[numberOf(*object)] = object;
    }
    ASSERT_EQ(objects.size(), view.objects.size());
    for (const auto& [id, plain] : view.objects) {
      ASSERT_TRUE(objects.contains(id)) << id;
      const ManagedObject& object = *objects.at(id);
      EXPECT_EQ(object.entity().name(), plain.entity);
      for (const auto& [key, value] : plain.attributes) {
        EXPECT_EQ(object.valueForKey(key), value) << plain.entity << " " << id << " " << key;
      }
      if (plain.entity == "Book") compareBook(pair, view, object, id);
      if (plain.entity == "Shelf") compareSet(object, "books", view.booksBy("shelf", id));
      if (plain.entity == "Series") {
        compareList(object, "volumes", pair.plain.ordered("series", id));
      }
      if (plain.entity == "Author") compareSet(object, "books", booksOf(view, "Author", id));
      if (plain.entity == "Reader") {
        compareList(object, "favorites", pair.plain.ordered("Reader", id));
      }
      if (plain.entity == "Jacket") compareOne(object, "book", view.booksBy("jacket", id));
    }
    if (!pair.real->hasChanges() && pair.real->parentContext() == nullptr) compareOrders(objects);
  }

  /// Who has no changes shows the order that the file has.
  void compareOrders(const std::map<int, ManagedObjectPtr>& objects) {
    const auto fresh = contextOn(openStore(file_));
    for (const auto& [entity, key] : {std::pair("Series", "volumes"), {"Reader", "favorites"}}) {
      for (const ManagedObjectPtr& object : fetchAll(*fresh, {.entityName = entity})) {
        const int id = numberOf(*object);
        EXPECT_EQ(membersOf(*objects.at(id), key), membersOf(*object, key)) << entity << " " << id;
      }
    }
  }

  void compareBook(Pair&, const PlainWorld& view, const ManagedObject& book, int id) {
    for (const char* column : kColumns) {
      const int to = view.objects.at(id).toOne.at(column);
      compareOne(book, column, to != 0 ? std::vector{to} : std::vector<int>());
    }
    for (const char* entity : kPairs) {
      std::vector<int> owners;
      for (const auto& [of, owner, member] : view.pairs) {
        if (of == entity && member == id) owners.push_back(owner);
      }
      compareSet(book, entity == std::string("Author") ? "authors" : "readers", owners);
    }
  }

  static std::vector<int> booksOf(const PlainWorld& view, const std::string& entity, int owner) {
    std::vector<int> books;
    for (const auto& [of, from, book] : view.pairs) {
      if (of == entity && from == owner) books.push_back(book);
    }
    return books;
  }

  static std::vector<int> membersOf(const ManagedObject& object, const char* key) {
    std::vector<int> members;
    for (const auto& each : object.relatedObjectsForKey(key)) members.push_back(numberOf(*each));
    return members;
  }

  void compareOne(const ManagedObject& object, const char* key, const std::vector<int>& wanted) {
    const ManagedObjectPtr to = object.relatedObjectForKey(key);
    const std::vector<int> found = to != nullptr ? std::vector{numberOf(*to)} : std::vector<int>();
    EXPECT_EQ(found, wanted) << object.entity().name() << " " << numberOf(object) << " " << key;
  }

  void compareSet(const ManagedObject& object, const char* key, std::vector<int> wanted) {
    std::vector<int> found = membersOf(object, key);
    std::ranges::sort(found);
    std::ranges::sort(wanted);
    EXPECT_EQ(found, wanted) << object.entity().name() << " " << numberOf(object) << " " << key;
  }

  void compareList(const ManagedObject& object, const char* key, const std::vector<int>& wanted) {
    if (!checksOrder_) return compareSet(object, key, wanted);
    EXPECT_EQ(membersOf(object, key), wanted)
        << object.entity().name() << " " << numberOf(object) << " " << key;
  }

  const std::filesystem::path file_;
  std::mt19937 random_;
  const bool checksOrder_;
  int next_ = 1;
  std::ostringstream history_;  // printed when something fails
  PlainWorld world_;
  std::vector<Pair> pairs_;
};

int sequences() {
  const char* wanted = std::getenv("ZENIVO_STORE_SEQUENCES");
  return wanted != nullptr ? std::atoi(wanted) : 400;
}

void check(int contexts, bool checksOrder) {
  for (int seed = 1; seed <= sequences() && !::testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const TemporaryFolder folder;
    Checker checker(folder / "library.sqlite", static_cast<std::uint32_t>(seed), checksOrder);
    checker.open(contexts);
    checker.run(60);
    EXPECT_EQ(integrityOf(folder / "library.sqlite"), "");
  }
}

TEST(ModelCheck, OneContextWithChildrenShowsWhatPlainContainersShow) {
  check(1, true);
}

// The order of members that several contexts place at once is theirs to agree on.
TEST(ModelCheck, ThreeContextsThatMergeEachOthersSavesShowTheSame) {
  check(3, false);
}

/// Two contexts that do not hear of each other's saves give the same jackets to books and
/// read books between setting and saving.
class Jackets {
 public:
  explicit Jackets(const std::filesystem::path& file, std::uint32_t seed)
      : file_(file), random_(seed) {
    for (auto& context : contexts_) {
      context = contextOn(openStore(file_));
      context->setMergePolicy(MergePolicy::mergeByPropertyObjectTrump);
    }
    for (int i = 0; i < 4; ++i) {
      insertNamed(*contexts_[0], "Book", nameOf(i));
      insertNamed(*contexts_[0], "Jacket", nameOf(i));
    }
    saveOrFail(*contexts_[0]);
  }

  void step() {
    ManagedObjectContext& context = *contexts_[random_() % 2];
    const std::uint32_t kind = random_() % 4;
    if (kind == 0) return save(context);
    if (kind == 1) return expectOneOwner(context);
    const auto book = pick(context, "Book");
    const auto jacket = random_() % 4 == 0 ? nullptr : pick(context, "Jacket");
    if (kind == 2 || jacket == nullptr) {
      book->setRelatedObject(jacket, "jacket");
    } else {
      jacket->setRelatedObject(book, "book");
    }
  }

 private:
  /// Only what is picked is read.
  ManagedObjectPtr pick(ManagedObjectContext& context, const char* entity) {
    const auto predicate = Predicate::predicateWithFormat(std::string(nameKey(entity)) + " = %@",
                                                          nameOf(static_cast<int>(random_() % 4)));
    return fetchAll(context, {.entityName = entity, .predicate = predicate}).front();
  }

  static void expectOneOwner(ManagedObjectContext& context) {
    std::map<ManagedObjectPtr, ManagedObjectPtr> owners;
    for (const auto& book : fetchAll(context, {.entityName = "Book"})) {
      const auto jacket = book->relatedObjectForKey("jacket");
      if (jacket == nullptr) continue;
      EXPECT_TRUE(owners.emplace(jacket, book).second) << numberOf(*jacket) << " has two books";
      EXPECT_EQ(jacket->relatedObjectForKey("book"), book);
    }
  }

  std::map<std::string, Value> jacketsInFile() {
    std::map<std::string, Value> jackets;
    for (const auto& book : fetchAll(*contextOn(openStore(file_)), {.entityName = "Book"})) {
      jackets[book->objectID().URIRepresentation()] = book->valueForKey("jacket");
    }
    return jackets;
  }

  /// Whoever was given or lost a jacket is told of.
  void save(ManagedObjectContext& context) {
    auto before = jacketsInFile();
    std::set<std::string> told;
    const auto observer = defaultCenter().addObserver(
        kManagedObjectContextDidSaveNotification, &context, [&](const Notification& notification) {
          const auto& saved = std::any_cast<const SaveNotification&>(notification.userInfo);
          for (const ObjectID& id : saved.updatedObjectIDs) told.insert(id.URIRepresentation());
        });
    saveOrFail(context);
    for (const auto& [book, jacket] : jacketsInFile()) {
      EXPECT_TRUE(before[book] == jacket || told.contains(book)) << book;
    }
  }

  const std::filesystem::path file_;
  std::mt19937 random_;
  std::shared_ptr<ManagedObjectContext> contexts_[2];
};

TEST(ModelCheck, AJacketHasOneBookInContextsThatDoNotHearOfEachOther) {
  for (int seed = 1; seed <= 40 && !::testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const TemporaryFolder folder;
    Jackets jackets(folder / "library.sqlite", static_cast<std::uint32_t>(seed));
    for (int i = 0; i < 40 && !::testing::Test::HasFailure(); ++i) jackets.step();
  }
}

}  // namespace
}  // namespace zenivo::testing
