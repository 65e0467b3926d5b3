// What a context on the library model should show, in plain containers.

#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "store/model/Value.h"

namespace zenivo::testing {

/// An object by its number, which its name tells ("n17").
struct PlainObject {
  std::string entity;
  std::map<std::string, Value> attributes;
  std::map<std::string, int> toOne;  ///< 0: none

  friend bool operator==(const PlainObject&, const PlainObject&) = default;
};

/// To-one relationships of a Book and where they lead; the truth of all but `authors`
/// and `readers`.
inline constexpr const char* kColumns[] = {"shelf", "series", "jacket"};
/// The two many-to-manys by the side that is no Book.
inline constexpr const char* kPairs[] = {"Author", "Reader"};

struct PlainWorld {
  std::map<int, PlainObject> objects;
  std::set<std::tuple<std::string, int, int>> pairs;               ///< entity, its object, book
  std::map<std::pair<std::string, int>, std::vector<int>> orders;  ///< books by ordered owner

  std::vector<int> objectsOf(const std::string& entity) const;
  /// Books whose column leads to the object.
  std::vector<int> booksBy(const std::string& column, int to) const;
};

/// A context: a world that others share, and unsaved changes on top.
class PlainContext {
 public:
  explicit PlainContext(PlainWorld base) : base_(std::move(base)) {}

  PlainWorld view() const;
  /// Members of Series.volumes ("series") or Reader.favorites ("Reader") in their order.
  std::vector<int> ordered(const std::string& relationship, int owner) const;

  void insert(int id, const std::string& entity, std::map<std::string, Value> attributes);
  void setAttribute(int id, const std::string& key, const Value& value);
  void setToOne(int book, const std::string& column, int to);
  void setPair(const std::string& entity, int owner, int book, bool present);
  void setOrder(const std::string& relationship, int owner, const std::vector<int>& order);
  void remove(int id);
  void rollback();
  /// Drops the unsaved changes that belong to one object alone.
  void revert(int id);

  /// What the context's ground becomes when it saves; then it has no changes.
  PlainWorld save();
  /// Does to this context what a child with these changes saves to it.
  void takeSaveOf(const PlainContext& child);
  /// The ground changed by a save of others.
  void rebase(const PlainWorld& base);

  bool hasObject(int id) const { return view().objects.contains(id); }

 private:
  using Key = std::pair<int, std::string>;

  int committedToOne(int book, const std::string& column) const;
  int toOne(int book, const std::string& column) const;
  void forget(int id);
  void drop(int id);
  void applyPendingDeletions();

  PlainWorld base_;
  std::map<int, PlainObject> inserted_;
  std::vector<int> insertedOrder_;
  std::set<int> deleted_;
  std::set<int> changedJacket_;  ///< books that were given another jacket, then deleted
  std::map<Key, Value> attributes_;
  std::map<Key, int> toOne_;
  std::map<std::tuple<std::string, int, int>, bool> pairs_;
  std::vector<std::tuple<std::string, int, int>> added_;  ///< to ordered owners, as they came
  std::map<std::pair<std::string, int>, std::vector<int>> orders_;
};

}  // namespace zenivo::testing
