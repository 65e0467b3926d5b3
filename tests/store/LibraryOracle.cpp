#include "store/LibraryOracle.h"

#include <algorithm>

namespace zenivo::testing {

std::vector<int> PlainWorld::objectsOf(const std::string& entity) const {
  std::vector<int> ids;
  for (const auto& [id, object] : objects) {
    if (object.entity == entity) ids.push_back(id);
  }
  return ids;
}

std::vector<int> PlainWorld::booksBy(const std::string& column, int to) const {
  std::vector<int> ids;
  for (const auto& [id, object] : objects) {
    const auto found = object.toOne.find(column);
    if (found != object.toOne.end() && found->second == to) ids.push_back(id);
  }
  return ids;
}

PlainWorld PlainContext::view() const {
  PlainWorld view = base_;
  view.objects.insert(inserted_.begin(), inserted_.end());
  for (const auto& [key, value] : attributes_)
    view.objects[key.first].attributes[key.second] = value;
  for (const auto& [key, to] : toOne_) view.objects[key.first].toOne[key.second] = to;
  for (const auto& [pair, present] : pairs_) {
    if (present) {
      view.pairs.insert(pair);
    } else {
      view.pairs.erase(pair);
    }
  }
  for (const int id : deleted_) view.objects.erase(id);
  std::erase_if(view.pairs, [&](const auto& pair) {
    return deleted_.contains(std::get<1>(pair)) || deleted_.contains(std::get<2>(pair));
  });
  return view;
}

std::vector<int> PlainContext::ordered(const std::string& relationship, int owner) const {
  const PlainWorld now = view();
  const auto isMember = [&](int book) {
    if (relationship == "Reader") return now.pairs.contains({"Reader", owner, book});
    const auto found = now.objects.find(book);
    return found != now.objects.end() && found->second.toOne.at("series") == owner;
  };
  std::vector<int> members;
  const auto add = [&](int book) {
    if (isMember(book) && std::ranges::find(members, book) == members.end())
      members.push_back(book);
  };
  const auto stored = base_.orders.find({relationship, owner});
  if (stored != base_.orders.end()) std::ranges::for_each(stored->second, add);
  for (const auto& [of, to, book] : added_) {
    if (of == relationship && to == owner) add(book);
  }
  const auto order = orders_.find({relationship, owner});
  if (order == orders_.end()) return members;
  const std::vector<int> unordered = std::exchange(members, {});
  std::ranges::for_each(order->second, add);
  std::ranges::for_each(unordered, add);
  return members;
}

void PlainContext::insert(int id, const std::string& entity,
                          std::map<std::string, Value> attributes) {
  PlainObject object{entity, std::move(attributes), {}};
  if (entity == "Book") object.toOne = {{"shelf", 0}, {"series", 0}, {"jacket", 0}};
  inserted_[id] = std::move(object);
  insertedOrder_.push_back(id);
}

void PlainContext::setAttribute(int id, const std::string& key, const Value& value) {
  const auto inserted = inserted_.find(id);
  if (inserted != inserted_.end()) {
    inserted->second.attributes[key] = value;
  } else if (base_.objects.at(id).attributes.at(key) == value) {
    attributes_.erase({id, key});
  } else {
    attributes_[{id, key}] = value;
  }
}

int PlainContext::committedToOne(int book, const std::string& column) const {
  const auto found = base_.objects.find(book);
  return found != base_.objects.end() ? found->second.toOne.at(column) : 0;
}

int PlainContext::toOne(int book, const std::string& column) const {
  const auto inserted = inserted_.find(book);
  if (inserted != inserted_.end()) return inserted->second.toOne.at(column);
  const auto changed = toOne_.find({book, column});
  return changed != toOne_.end() ? changed->second : committedToOne(book, column);
}

void PlainContext::setToOne(int book, const std::string& column, int to) {
  if (toOne(book, column) == to) return;
  if (column == "jacket" && to != 0) {
    for (const int rival : view().booksBy("jacket", to)) setToOne(rival, "jacket", 0);
  }
  std::erase_if(added_, [&](const auto& each) {
    return std::get<0>(each) == column && std::get<2>(each) == book;
  });
  const auto inserted = inserted_.find(book);
  if (inserted != inserted_.end()) {
    inserted->second.toOne[column] = to;
  } else if (committedToOne(book, column) == to) {
    toOne_.erase({book, column});
  } else {
    toOne_[{book, column}] = to;
  }
  if (column == "series" && to != 0 && committedToOne(book, column) != to) {
    added_.emplace_back(column, to, book);
  }
}

void PlainContext::setPair(const std::string& entity, int owner, int book, bool present) {
  const std::tuple pair{entity, owner, book};
  if (view().pairs.contains(pair) == present) return;
  const bool committed = base_.pairs.contains(pair);
  if (committed == present) {
    pairs_.erase(pair);
  } else {
    pairs_[pair] = present;
  }
  std::erase(added_, pair);
  if (present && !committed) added_.push_back(pair);
}

void PlainContext::setOrder(const std::string& relationship, int owner,
                            const std::vector<int>& order) {
  if (ordered(relationship, owner) != order) orders_[{relationship, owner}] = order;
}

/// The object leaves the unsaved changes; nothing leads to it or from it any more.
void PlainContext::forget(int id) {
  inserted_.erase(id);
  std::erase(insertedOrder_, id);
  std::erase_if(attributes_, [id](const auto& each) { return each.first.first == id; });
  std::erase_if(toOne_, [id](const auto& each) { return each.first.first == id; });
  std::erase_if(pairs_, [id](const auto& each) {
    return std::get<1>(each.first) == id || std::get<2>(each.first) == id;
  });
  std::erase_if(added_, [id](const auto& each) {
    return std::get<1>(each) == id || std::get<2>(each) == id;
  });
}

void PlainContext::drop(int id) {
  const bool wasInserted = inserted_.contains(id);
  if (toOne_.contains({id, "jacket"})) changedJacket_.insert(id);
  forget(id);
  if (!wasInserted) deleted_.insert(id);
}

void PlainContext::remove(int id) {
  const PlainWorld before = view();
  const auto found = before.objects.find(id);
  if (found == before.objects.end()) return;
  const int jacket = found->second.entity == "Book" ? found->second.toOne.at("jacket") : 0;
  drop(id);
  for (const char* column : kColumns) {
    for (const int book : before.booksBy(column, id)) {
      if (found->second.entity == "Shelf") {
        remove(book);
      } else {
        setToOne(book, column, 0);
      }
    }
  }
  if (jacket != 0) remove(jacket);
}

void PlainContext::rollback() {
  *this = PlainContext(std::move(base_));
}

void PlainContext::revert(int id) {
  if (inserted_.contains(id)) return;
  std::erase_if(attributes_, [id](const auto& each) { return each.first.first == id; });
  for (const char* column : kColumns) {
    const auto changed = toOne_.find({id, column});
    if (changed == toOne_.end()) continue;
    const int before = committedToOne(id, column);
    if (before == 0 || hasObject(before)) setToOne(id, column, before);
  }
  std::erase_if(pairs_, [id](const auto& each) {
    return std::get<1>(each.first) == id || std::get<2>(each.first) == id;
  });
  std::erase_if(added_, [id](const auto& each) {
    return std::get<0>(each) == "Reader" && (std::get<1>(each) == id || std::get<2>(each) == id);
  });
  orders_.erase({"series", id});
  orders_.erase({"Reader", id});
}

PlainWorld PlainContext::save() {
  PlainWorld saved = view();
  saved.orders.clear();
  for (const int id : saved.objectsOf("Series"))
    saved.orders[{"series", id}] = ordered("series", id);
  for (const int id : saved.objectsOf("Reader"))
    saved.orders[{"Reader", id}] = ordered("Reader", id);
  *this = PlainContext(saved);
  return saved;
}

void PlainContext::takeSaveOf(const PlainContext& child) {
  for (const int id : child.insertedOrder_) {
    const PlainObject& object = child.inserted_.at(id);
    insert(id, object.entity, object.attributes);
  }
  for (const int id : child.insertedOrder_) {
    for (const auto& [column, to] : child.inserted_.at(id).toOne) setToOne(id, column, to);
  }
  for (const auto& [key, value] : child.attributes_) setAttribute(key.first, key.second, value);
  for (const auto& [key, to] : child.toOne_) setToOne(key.first, key.second, to);
  for (const auto& [pair, present] : child.pairs_) {
    setPair(std::get<0>(pair), std::get<1>(pair), std::get<2>(pair), present);
  }
  std::set<std::pair<std::string, int>> changed;
  for (const auto& [relationship, owner, book] : child.added_)
    changed.insert({relationship, owner});
  for (const auto& [owner, order] : child.orders_) changed.insert(owner);
  for (const auto& [relationship, owner] : changed) {
    if (!child.hasObject(owner)) continue;
    const std::vector<int> order = child.ordered(relationship, owner);
    // The members that came, come as the child has them.
    for (const int book : order) {
      const std::tuple member{relationship, owner, book};
      if (std::erase(added_, member) != 0) added_.push_back(member);
    }
    setOrder(relationship, owner, order);
  }
  // What the child's delete rules reached, it tells itself.
  for (const int id : child.deleted_) drop(id);
  changedJacket_.insert(child.changedJacket_.begin(), child.changedJacket_.end());
}

void PlainContext::rebase(const PlainWorld& base) {
  std::set<int> lost;
  for (const auto& [id, object] : base_.objects) {
    if (!base.objects.contains(id)) lost.insert(id);
  }
  // Deletions come first: what was to lead there is as if it had been cleared before.
  for (const int id : lost) {
    forget(id);
    deleted_.erase(id);
    for (auto& [other, object] : inserted_) {
      for (auto& [column, to] : object.toOne) {
        if (to == id) to = 0;
      }
    }
    const std::map<Key, int> changed = toOne_;
    for (const auto& [key, to] : changed) {
      if (to == id) setToOne(key.first, key.second, 0);
    }
  }
  base_ = base;
  std::erase_if(attributes_, [&](const auto& each) {
    return base_.objects.at(each.first.first).attributes.at(each.first.second) == each.second;
  });
  std::erase_if(toOne_, [&](const auto& each) {
    return committedToOne(each.first.first, each.first.second) == each.second;
  });
  std::erase_if(pairs_,
                [&](const auto& each) { return base_.pairs.contains(each.first) == each.second; });
  // A jacket that was given away here stays there, whatever others did with it.
  const PlainWorld now = view();
  for (const int jacket : now.objectsOf("Jacket")) {
    const std::vector<int> books = now.booksBy("jacket", jacket);
    for (const int book : books) {
      const bool givenHere = toOne_.contains({book, "jacket"}) || inserted_.contains(book);
      if (books.size() > 1 && !givenHere) setToOne(book, "jacket", 0);
    }
  }
  applyPendingDeletions();
}

void PlainContext::applyPendingDeletions() {
  const std::set<int> deleted = deleted_;
  for (const int id : deleted) {
    const PlainWorld now = view();
    for (const char* column : kColumns) {
      for (const int book : now.booksBy(column, id)) {
        if (base_.objects.at(id).entity == "Shelf") {
          remove(book);
        } else {
          setToOne(book, column, 0);
        }
      }
    }
    const PlainObject& object = base_.objects.at(id);
    const bool goesAlong = object.entity == "Book" && !changedJacket_.contains(id);
    const int jacket = goesAlong ? object.toOne.at("jacket") : 0;
    if (jacket != 0) remove(jacket);
  }
}

}  // namespace zenivo::testing
