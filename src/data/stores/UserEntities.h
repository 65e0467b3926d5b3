// The objects of the user store: what the user makes.

#pragma once

#include "data/stores/CommonAttributes.h"

namespace zenivo {

class CustomPoi;
class CustomPoiImage;
class PoiCategory;
class Planning;
class PlanningImage;
class Project;

/// An object that is the same on all devices of its user: it carries an upper-case
/// UUID in text form, given when it is inserted.
class SynchronizedObject : public StoredObject {
 public:
  static constexpr Attribute<std::string> uniqueIdentifier{"uniqueIdentifier"};

  void awakeFromInsert() override;
};

/// A saved plan.
class Planning : public SynchronizedObject {
 public:
  static constexpr std::string_view kEntityName = "Planning";

  static constexpr Attribute<std::string> name{"name"};
  static constexpr Attribute<std::string> notes{"notes"};
  static constexpr Attribute<Date> date{"date"};
  /// Name of a fixed time zone; none: the zone follows the position.
  static constexpr Attribute<std::string> timezone{"timezone"};

  // The observer: degrees and metres.
  static constexpr Attribute<double> latitude{"latitude"};
  static constexpr Attribute<double> longitude{"longitude"};
  static constexpr Attribute<float> altitude{"altitude"};
  static constexpr Attribute<float> altitudeOffset{"altitudeOffset"};
  static constexpr Attribute<bool> altitudeManual{"altitudeManual"};

  // The point of the visible horizon.
  static constexpr Attribute<double> horizonLat{"horizonLat"};
  static constexpr Attribute<double> horizonLng{"horizonLng"};
  static constexpr Attribute<float> horizonAltitude{"horizonAltitude"};

  // The obstacle.
  static constexpr Attribute<bool> obstacleEnabled{"obstacleEnabled"};
  static constexpr Attribute<double> obstacleLat{"obstacleLat"};
  static constexpr Attribute<double> obstacleLon{"obstacleLon"};
  static constexpr Attribute<float> obstacleAltitude{"obstacleAltitude"};
  static constexpr Attribute<float> obstacleAltitudeOffset{"obstacleAltitudeOffset"};
  static constexpr Attribute<bool> obstacleAltitudeManual{"obstacleAltitudeManual"};

  // The map view: degrees.
  static constexpr Attribute<double> mapCenterLat{"mapCenterLat"};
  static constexpr Attribute<double> mapCenterLng{"mapCenterLng"};
  static constexpr Attribute<double> mapDeltaLat{"mapDeltaLat"};
  static constexpr Attribute<double> mapDeltaLng{"mapDeltaLng"};
  static constexpr Attribute<double> mapHeading{"mapHeading"};
  /// Packed state of two buttons, of old plans.
  static constexpr Attribute<std::int32_t> mapState{"mapState"};
  /// Layers and calculator as JSON; none in old plans.
  static constexpr Attribute<std::string> mapSettings{"mapSettings"};

  static constexpr ToMany<PlanningImage> images{"images"};
  static constexpr ToOne<Project> project{"project"};
};

/// A group of plans.
class Project : public SynchronizedObject {
 public:
  static constexpr std::string_view kEntityName = "Project";

  static constexpr Attribute<std::string> name{"name"};
  static constexpr Attribute<bool> isArchived{"isArchived"};
  static constexpr ToMany<Planning> plannings{"plannings"};
};

/// A photograph or film that is attached to something.
class CustomImage : public SynchronizedObject {
 public:
  static constexpr std::string_view kEntityName = "CustomImage";

  static constexpr Attribute<Data> image{"image"};
  static constexpr Attribute<Date> date{"date"};
  /// Uniform type identifier; only an image's gives a picture.
  static constexpr Attribute<std::string> mediaType{"mediaType"};
};

class PlanningImage : public CustomImage {
 public:
  static constexpr std::string_view kEntityName = "PlanningImage";

  static constexpr ToOne<Planning> planning{"planning"};
};

class CustomPoiImage : public CustomImage {
 public:
  static constexpr std::string_view kEntityName = "CustomPoiImage";

  static constexpr ToOne<CustomPoi> poi{"poi"};
};

/// A point of interest of the user's own.
class CustomPoi : public SynchronizedObject, public PoiAttributes {
 public:
  static constexpr std::string_view kEntityName = "CustomPoi";

  /// The `cid` of its category in the static store.
  static constexpr Attribute<std::int32_t> cid{"cid"};
  static constexpr ToMany<CustomPoiImage> images{"images"};

  /// The category is not stored: it is nullptr until someone sets it, which also
  /// sets `cid`.
  const std::shared_ptr<PoiCategory>& category() const { return category_; }
  void setCategory(const std::shared_ptr<PoiCategory>& category);

 private:
  std::shared_ptr<PoiCategory> category_;
};

/// A camera of the user's own.  Lengths in millimetres; 0 or none in `aperture` and
/// `focalLength` means that the lens can be changed.
class CustomCamera : public SynchronizedObject, public CameraAttributes {
 public:
  static constexpr std::string_view kEntityName = "CustomCamera";

  static constexpr Attribute<double> coc{"coc"};
  static constexpr Attribute<bool> isFilm{"isFilm"};

  void awakeFromInsert() override;
};

}  // namespace zenivo
