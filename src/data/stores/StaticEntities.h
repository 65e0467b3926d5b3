// The objects of the static store: the catalogues that come with the program.

#pragma once

#include "data/stores/CommonAttributes.h"

namespace zenivo {

class Camera;
class Eclipse;
class Poi;

class CameraBrand : public StoredObject {
 public:
  static constexpr std::string_view kEntityName = "CameraBrand";

  static constexpr Attribute<std::string> name{"name"};
  static constexpr ToMany<Camera> cameras{"cameras"};
};

/// A camera of the catalogue.
class Camera : public StoredObject, public CameraAttributes {
 public:
  static constexpr std::string_view kEntityName = "Camera";

  static constexpr Attribute<std::int32_t> cameraId{"cameraId"};
  static constexpr Attribute<bool> film{"film"};
  static constexpr ToOne<CameraBrand> brand{"brand"};
};

class PoiCategory : public StoredObject {
 public:
  static constexpr std::string_view kEntityName = "PoiCategory";

  static constexpr Attribute<std::int32_t> cid{"cid"};
  /// A key of the localisation table "PoiCategories".
  static constexpr Attribute<std::string> name{"name"};
  static constexpr ToMany<Poi> pois{"pois"};
};

/// A point of interest of the catalogue.
class Poi : public StoredObject, public PoiAttributes {
 public:
  static constexpr std::string_view kEntityName = "Poi";

  static constexpr Attribute<std::int32_t> pid{"pid"};
  static constexpr ToOne<PoiCategory> category{"category"};
};

/// Besselian elements of a solar eclipse: x, y, l1, l2 in Earth radii, angles in
/// degrees, polynomials in hours from `t0`.
class EclipseSolar : public StoredObject {
 public:
  static constexpr std::string_view kEntityName = "EclipseSolar";

  static constexpr Attribute<double> deltaT{"deltaT"}, deltaT2{"deltaT2"};
  static constexpr Attribute<double> dummy1{"dummy1"}, dummy2{"dummy2"};
  static constexpr Attribute<double> t0{"t0"}, tanf1{"tanf1"}, tanf2{"tanf2"};
  static constexpr Attribute<double> n0_x{"n0_x"}, n1_x{"n1_x"}, n2_x{"n2_x"}, n3_x{"n3_x"};
  static constexpr Attribute<double> n0_y{"n0_y"}, n1_y{"n1_y"}, n2_y{"n2_y"}, n3_y{"n3_y"};
  static constexpr Attribute<double> n0_d{"n0_d"}, n1_d{"n1_d"}, n2_d{"n2_d"};
  static constexpr Attribute<double> n0_u{"n0_u"}, n1_u{"n1_u"}, n2_u{"n2_u"};
  static constexpr Attribute<double> n0_l1{"n0_l1"}, n1_l1{"n1_l1"}, n2_l1{"n2_l1"};
  static constexpr Attribute<double> n0_l2{"n0_l2"}, n1_l2{"n1_l2"}, n2_l2{"n2_l2"};
  static constexpr Attribute<std::string> duration{"duration"};
  static constexpr ToOne<Eclipse> eclipse{"eclipse"};
};

/// Contact times of a lunar eclipse, hours from `i1`, and the Moon's coordinates.
class EclipseLunar : public StoredObject {
 public:
  static constexpr std::string_view kEntityName = "EclipseLunar";

  static constexpr Attribute<double> i1{"i1"}, i2{"i2"}, i3{"i3"}, i4{"i4"};
  static constexpr Attribute<double> i5{"i5"}, i6{"i6"}, i7{"i7"}, i8{"i8"};
  static constexpr Attribute<double> p1{"p1"}, u1{"u1"}, u2{"u2"}, mid{"mid"};
  static constexpr Attribute<double> u3{"u3"}, u4{"u4"}, p4{"p4"};
  static constexpr Attribute<double> i16{"i16"}, i17{"i17"}, i18{"i18"};
  static constexpr Attribute<double> i19{"i19"}, i20{"i20"}, i21{"i21"};
  static constexpr ToOne<Eclipse> eclipse{"eclipse"};
};

/// An eclipse of the catalogue.
class Eclipse : public StoredObject {
 public:
  static constexpr std::string_view kEntityName = "Eclipse";

  static constexpr Attribute<std::string> name{"name"};
  static constexpr Attribute<std::string> filename{"filename"};
  /// Despite its name the Julian date of greatest eclipse, in dynamical time.
  static constexpr Attribute<double> mjd{"mjd"};
  static constexpr Attribute<std::int32_t> type{"type"};
  static constexpr Attribute<std::int32_t> eclipseType{"eclipseType"};  ///< 0 solar, else lunar
  static constexpr ToOne<EclipseLunar> lunarEclipse{"lunarEclipse"};
  static constexpr ToOne<EclipseSolar> solarEclipse{"solarEclipse"};
};

}  // namespace zenivo
