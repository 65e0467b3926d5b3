#include "data/stores/Duplicates.h"

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "data/stores/UserEntities.h"

namespace zenivo {
namespace {

/// Within a hundredth of a metre.  A coordinate that is missing is like another
/// that is missing.
bool isSameAngle(std::optional<double> a, std::optional<double> b) {
  constexpr double kTolerance = 1e-7;  // degrees
  return a && b ? std::abs(*a - *b) < kTolerance : a.has_value() == b.has_value();
}

template <class Object>
bool isSamePlace(const Object& a, const Object& b) {
  return isSameAngle(a.get(Object::latitude), b.get(Object::latitude)) &&
         isSameAngle(a.get(Object::longitude), b.get(Object::longitude));
}

// Whether one object repeats another that bears the same name.

bool repeats(const Planning& a, const Planning& b) {
  return isSamePlace(a, b) && a.get(Planning::date) == b.get(Planning::date) &&
         a.count(Planning::images) == b.count(Planning::images);
}

bool repeats(const CustomPoi& a, const CustomPoi& b) {
  return isSamePlace(a, b) && a.count(CustomPoi::images) == b.count(CustomPoi::images);
}

bool repeats(const CustomCamera& a, const CustomCamera& b) {
  return a.get(CustomCamera::sensorWidth) == b.get(CustomCamera::sensorWidth) &&
         a.get(CustomCamera::sensorHeight) == b.get(CustomCamera::sensorHeight) &&
         a.get(CustomCamera::megapixels) == b.get(CustomCamera::megapixels);
}

template <class Object>
bool collect(ManagedObjectContext& context, Attribute<std::string> name, ManagedObjects& duplicates,
             Error* error) {
  FetchRequest request;
  request.entityName = Object::kEntityName;
  const auto fetched = context.executeFetchRequest(request, error);
  if (!fetched) return false;
  std::map<std::optional<std::string>, std::vector<std::shared_ptr<Object>>> byName;
  for (const auto& object : objectsOfClass<Object>(*fetched)) {
    auto& earlier = byName[object->get(name)];
    for (const auto& original : earlier) {
      if (repeats(*original, *object)) duplicates.push_back(object);
    }
    earlier.push_back(object);
  }
  return true;
}

}  // namespace

std::optional<ManagedObjects> duplicateObjects(ManagedObjectContext& context, Error* error) {
  ManagedObjects duplicates;
  const bool done = collect<Planning>(context, Planning::name, duplicates, error) &&
                    collect<CustomPoi>(context, CustomPoi::name, duplicates, error) &&
                    collect<CustomCamera>(context, CustomCamera::model, duplicates, error);
  return done ? std::optional(std::move(duplicates)) : std::nullopt;
}

}  // namespace zenivo
