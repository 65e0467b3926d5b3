#include "data/stores/Declarations.h"
#include "data/stores/Models.h"
#include "data/stores/UserEntities.h"

namespace zenivo {
namespace {

EntityDeclaration planning() {
  using P = Planning;
  return declareEntity<P>({declareKey(P::uniqueIdentifier),
                           declare(P::name),
                           declare(P::notes),
                           declareKey(P::date),
                           declare(P::timezone),
                           declare(P::latitude),
                           declare(P::longitude),
                           declare(P::altitude),
                           declare(P::altitudeOffset),
                           declare(P::altitudeManual),
                           declare(P::horizonLat),
                           declare(P::horizonLng),
                           declare(P::horizonAltitude),
                           declare(P::obstacleEnabled),
                           declare(P::obstacleLat),
                           declare(P::obstacleLon),
                           declare(P::obstacleAltitude),
                           declare(P::obstacleAltitudeOffset),
                           declare(P::obstacleAltitudeManual),
                           declare(P::mapCenterLat),
                           declare(P::mapCenterLng),
                           declare(P::mapDeltaLat),
                           declare(P::mapDeltaLng),
                           declare(P::mapHeading),
                           declare(P::mapState),
                           declare(P::mapSettings)},
                          {declare(P::images, PlanningImage::planning, DeleteRule::cascade),
                           declare(P::project, Project::plannings)});
}

EntityDeclaration project() {
  return declareEntity<Project>(
      {declareKey(Project::uniqueIdentifier), declare(Project::name), declare(Project::isArchived)},
      {declare(Project::plannings, Planning::project)});
}

EntityDeclaration customImage() {
  return declareEntity<CustomImage>(
      {declareKey(CustomImage::uniqueIdentifier), declare(CustomImage::image),
       declare(CustomImage::date), declare(CustomImage::mediaType)},
      {});
}

template <class Image, class Owner, class Images>
EntityDeclaration imageOf(ToOne<Owner> owner, Images images) {
  EntityDeclaration declaration = declareEntity<Image>({}, {declare(owner, images)});
  declaration.superentity = CustomImage::kEntityName;
  return declaration;
}

EntityDeclaration customPoi() {
  using P = CustomPoi;
  return declareEntity<P>(
      {declareKey(P::uniqueIdentifier), declare(P::name), declare(P::notes), declare(P::link),
       declare(P::country), declare(P::latitude), declare(P::longitude), declare(P::cid)},
      {declare(P::images, CustomPoiImage::poi, DeleteRule::cascade)});
}

EntityDeclaration customCamera() {
  using C = CustomCamera;
  return declareEntity<C>(
      {declareKey(C::uniqueIdentifier), declareKey(C::model), declare(C::sensorWidth),
       declare(C::sensorHeight), declare(C::megapixels), declare(C::aperture),
       declare(C::focalLength), declare(C::coc), declare(C::isFilm)},
      {});
}

/// The version hashes of the models of all releases; stores of these are brought up to date.
/// Before a release its own is added.
const std::vector<std::string> kReleasedVersions{
    "3c86c1d5dffe3a16f4c391676f476db53ab0ffa964547618187562a91b43554f",  // 1.0
};

}  // namespace

const std::shared_ptr<const ManagedObjectModel>& userModel() {
  static const auto model =
      ManagedObjectModel::make({planning(), project(), customImage(),
                                imageOf<PlanningImage>(PlanningImage::planning, Planning::images),
                                imageOf<CustomPoiImage>(CustomPoiImage::poi, CustomPoi::images),
                                customPoi(), customCamera()},
                               kReleasedVersions);
  return model;
}

}  // namespace zenivo
