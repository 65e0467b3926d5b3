// What objects of the user and of the catalogue have in common.

#pragma once

#include "data/stores/TypedKeys.h"

namespace zenivo {

/// A camera, whoever's: sensor and lens in millimetres.
struct CameraAttributes {
  static constexpr Attribute<std::string> model{"model"};
  static constexpr Attribute<double> sensorWidth{"sensorWidth"};
  static constexpr Attribute<double> sensorHeight{"sensorHeight"};
  static constexpr Attribute<double> megapixels{"megapixels"};
  /// Of a lens that cannot be changed; the user's cameras may have 0 for none.
  static constexpr Attribute<double> aperture{"aperture"};
  static constexpr Attribute<double> focalLength{"focalLength"};
};

/// A point of interest, whoever's.
struct PoiAttributes {
  static constexpr Attribute<std::string> name{"name"};
  static constexpr Attribute<std::string> notes{"notes"};
  static constexpr Attribute<std::string> link{"link"};
  static constexpr Attribute<std::string> country{"country"};
  static constexpr Attribute<double> latitude{"latitude"};    ///< degrees
  static constexpr Attribute<double> longitude{"longitude"};  ///< degrees
};

}  // namespace zenivo
