// Objects as property lists: each field under its key, each object with the name
// of its class.
//
// A class takes part with
//
//   static constexpr std::string_view kClassName = "...";
//   void encodeWithCoder(KeyedArchiver& coder) const;
//   static std::optional<T> initWithCoder(const KeyedUnarchiver& coder);
//
// where initWithCoder may return any pointer-like type instead, and nothing for
// an archive that it cannot read.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "foundation/PropertyList.h"

namespace zenivo {

/// The key under which an archive holds the name of its class.
inline constexpr std::string_view kArchiveClassKey = "$class";

class KeyedArchiver;
class KeyedUnarchiver;

template <class Object>
PropertyList archivedObject(const Object& object);

/// The object in an archive; nothing when the archive is of another class.
template <class Object>
auto unarchivedObject(const PropertyList& archive)
    -> decltype(Object::initWithCoder(std::declval<const KeyedUnarchiver&>()));

/// Takes the fields of one object.
class KeyedArchiver {
 public:
  explicit KeyedArchiver(std::string_view className)
      : fields_{{std::string(kArchiveClassKey), className}} {}

  /// Keeps a value under a key, in place of an older one.
  void encode(std::string_view key, PropertyList value) {
    fields_.insert_or_assign(std::string(key), std::move(value));
  }

  /// Keeps an object that takes part in archiving.
  template <class Object>
  void encodeObject(std::string_view key, const Object& object) {
    encode(key, archivedObject(object));
  }

  const PropertyList::Dictionary& fields() const { return fields_; }

 private:
  PropertyList::Dictionary fields_;
};

/// Gives the fields of one object back, or of any dictionary, such as a row of a resource
/// file.  A field that is missing or of another type reads as `absent`, or as 0, false,
/// empty or nothing.  The archive must outlive it.
class KeyedUnarchiver {
 public:
  explicit KeyedUnarchiver(const PropertyList& archive) : archive_(archive) {}

  bool containsValueForKey(std::string_view key) const { return decode(key) != nullptr; }

  std::int64_t decodeInteger(std::string_view key) const;
  double decodeDouble(std::string_view key, double absent = 0) const;
  /// `absent` too for what is no finite float.
  float decodeFloat(std::string_view key, float absent = 0) const;
  bool decodeBool(std::string_view key) const;
  std::string decodeString(std::string_view key) const;
  std::optional<Date> decodeDate(std::string_view key) const;
  const PropertyList::Array& decodeArray(std::string_view key) const;

  /// The value as it was encoded, nullptr when there is none.
  const PropertyList* decode(std::string_view key) const { return archive_.valueForKey(key); }

  template <class Object>
  auto decodeObject(std::string_view key) const
      -> decltype(Object::initWithCoder(std::declval<const KeyedUnarchiver&>())) {
    const PropertyList* archive = decode(key);
    if (archive == nullptr) return {};
    return unarchivedObject<Object>(*archive);
  }

 private:
  const PropertyList& archive_;
};

template <class Object>
PropertyList archivedObject(const Object& object) {
  KeyedArchiver archiver(Object::kClassName);
  object.encodeWithCoder(archiver);
  return archiver.fields();
}

template <class Object>
auto unarchivedObject(const PropertyList& archive)
    -> decltype(Object::initWithCoder(std::declval<const KeyedUnarchiver&>())) {
  const KeyedUnarchiver unarchiver(archive);
  if (unarchiver.decodeString(kArchiveClassKey) != Object::kClassName) return {};
  return Object::initWithCoder(unarchiver);
}

}  // namespace zenivo
