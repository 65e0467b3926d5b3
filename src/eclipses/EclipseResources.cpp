#include "eclipses/EclipseResources.h"

#include "foundation/UserFolder.h"

namespace zenivo {

std::filesystem::path parentAbsoluteResourceDirectory() {
  return userFolder() / "eclipses";
}

std::filesystem::path relativeResourceDirectory(const EclipseRow& eclipse) {
  return eclipse.filename;
}

std::filesystem::path absoluteResourceDirectory(const EclipseRow& eclipse) {
  return parentAbsoluteResourceDirectory() / relativeResourceDirectory(eclipse);
}

std::filesystem::path relativeKmzResourcePath(const EclipseRow& eclipse) {
  return relativeResourceDirectory(eclipse) / (eclipse.filename + ".kmz");
}

std::filesystem::path absoluteKmzResourcePath(const EclipseRow& eclipse) {
  return parentAbsoluteResourceDirectory() / relativeKmzResourcePath(eclipse);
}

}  // namespace zenivo
