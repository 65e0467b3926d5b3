// Where the map file of an eclipse lies once it has been fetched.

#pragma once

#include <filesystem>

#include "eclipses/EclipseRow.h"

namespace zenivo {

/// The folder below the user's files that holds a folder for each eclipse.
std::filesystem::path parentAbsoluteResourceDirectory();

/// The eclipse's folder, from the parent on and in full.
std::filesystem::path relativeResourceDirectory(const EclipseRow& eclipse);
std::filesystem::path absoluteResourceDirectory(const EclipseRow& eclipse);

/// Its map file, from the parent on and in full.
std::filesystem::path relativeKmzResourcePath(const EclipseRow& eclipse);
std::filesystem::path absoluteKmzResourcePath(const EclipseRow& eclipse);

}  // namespace zenivo
