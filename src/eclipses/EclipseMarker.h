// Markers of an eclipse's map file.

#pragma once

#include <optional>
#include <string_view>

namespace zenivo {

/// How a placemark of the map file is shown.  Fields that do not apply are empty.
struct EclipseMarker {
  std::string_view identifier;
  std::string_view icon;      ///< name of an image
  std::string_view label;     ///< text to be drawn in place of an image
  std::string_view titleKey;  ///< localisation key, table "Ephemeris"
};

/// The marker that a placemark's name tells, in any case of its letters; nullopt
/// for a placemark that is none.
std::optional<EclipseMarker> eclipseMarkerForPlacemark(std::string_view name);

}  // namespace zenivo
