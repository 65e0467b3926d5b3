// Conditions on objects, written as text.

#pragma once

#include <concepts>
#include <memory>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/model/Value.h"

namespace zenivo {

class ManagedObject;

/// What stands for a placeholder: a value, an object (its identity) or a list.
class PredicateArgument {
 public:
  template <class T>
  requires std::constructible_from<Value, T> PredicateArgument(T&& value)
      : value_(std::forward<T>(value)),
        isList_(value_.holds<ObjectIDs>()),
        values_(value_.objectIDs().begin(), value_.objectIDs().end()) {}
  PredicateArgument(const ManagedObject& object);
  template <std::derived_from<ManagedObject> T>
  PredicateArgument(const std::shared_ptr<T>& object)
      : PredicateArgument(object ? PredicateArgument(*object) : PredicateArgument(nullptr)) {}
  template <std::ranges::input_range R>
  requires(!std::constructible_from<Value, const R&>) PredicateArgument(const R& list)
      : isList_(true) {
    for (const auto& each : list) values_.push_back(PredicateArgument(each).value_);
  }

  bool isList() const { return isList_; }
  const Value& value() const { return value_; }
  const std::vector<Value>& values() const { return values_; }

 private:
  Value value_;
  bool isList_ = false;
  std::vector<Value> values_;
};

enum class PredicateOperator {
  equal,
  notEqual,
  less,
  lessOrEqual,
  greater,
  greaterOrEqual,
  in,
  beginsWith,
  contains,
};

/// One node of a parsed condition.
struct PredicateNode {
  enum class Kind { conjunction, disjunction, comparison };

  Kind kind = Kind::comparison;
  std::vector<PredicateNode> parts = {};  ///< of a conjunction or disjunction

  bool any = false;                       ///< one member of the to-many is enough
  std::vector<std::string> keyPath = {};  ///< empty: the object itself
  bool counts = false;                    ///< compares the number of members
  PredicateOperator comparison = PredicateOperator::equal;
  bool ignoresCase = false;
  bool ignoresMarks = false;  ///< accents and other diacritics
  Value value = {};
  std::vector<Value> values = {};  ///< of `in`
};

/// A condition on the objects of an entity.  Text:
///
///   date >= %@ AND date <= %@            brand.name contains[cd] %@
///   type IN %@                           name BEGINSWITH %@
///   ANY objectChanges IN %@              objectChanges.@count == 0
///   uniqueIdentifier = NIL               SELF IN %@
///
/// Comparisons: = == != <> < <= > >= IN BEGINSWITH CONTAINS, the last two with [c],
/// [d] or [cd]; joined by AND (&&), OR (||) and parentheses, AND binding tighter.
/// On the right stands a number, quoted text, TRUE, FALSE, NIL or a placeholder:
/// %@ takes any argument, %d and its like (%lld, %lu, %f, …) a number.  Words are
/// read in either case.
///
/// Meaning, the same against the file and against objects in memory: an empty value
/// equals NIL alone, is in a list that holds NIL, and satisfies no other comparison
/// but "!=".  A path over an empty relationship is empty.  Text compares by its
/// bytes unless case or marks are ignored; the empty text is contained in every text.
class Predicate {
 public:
  /// Parses the text and fills in the arguments.  Throws std::invalid_argument with
  /// the place and the reason when the text does not parse or the number or kind of
  /// the arguments does not fit.
  template <class... Arguments>
  static Predicate predicateWithFormat(std::string_view format, const Arguments&... arguments) {
    return parse(format, {PredicateArgument(arguments)...});
  }
  static Predicate parse(std::string_view format, const std::vector<PredicateArgument>& arguments);

  /// True where all of them are; of none: everywhere.
  static Predicate andPredicateWithSubpredicates(const std::vector<Predicate>& predicates);

  /// Whether the object, with its unsaved changes, meets the condition.  Throws
  /// std::invalid_argument for keys that its entity does not have and values that
  /// cannot be compared.
  bool evaluateWithObject(const ManagedObject& object) const;

  const PredicateNode& root() const { return *root_; }

 private:
  explicit Predicate(PredicateNode root)
      : root_(std::make_shared<const PredicateNode>(std::move(root))) {}

  std::shared_ptr<const PredicateNode> root_;
};

}  // namespace zenivo
