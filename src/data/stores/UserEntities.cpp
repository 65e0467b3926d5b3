#include "data/stores/UserEntities.h"

#include "data/stores/StaticEntities.h"
#include "foundation/Uuid.h"

namespace zenivo {

void SynchronizedObject::awakeFromInsert() {
  if (getOr(uniqueIdentifier, std::string()).empty()) set(uniqueIdentifier, uuidString());
}

void CustomPoi::setCategory(const std::shared_ptr<PoiCategory>& category) {
  category_ = category;
  set(cid, category ? category->get(PoiCategory::cid) : std::nullopt);
}

void CustomCamera::awakeFromInsert() {
  SynchronizedObject::awakeFromInsert();
  set(aperture, 0.0);
  set(focalLength, 0.0);
  set(isFilm, false);
}

}  // namespace zenivo
