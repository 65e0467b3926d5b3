#include "data/cameras/DatabaseCameraStore.h"

#include <gtest/gtest.h>

#include <fstream>

#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/CameraForm.h"
#include "foundation/Bundle.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

class CameraDatabase : public testing::Test {
 protected:
  Database::Locations locations() const {
    return {folder_ / "home/Zenivo.sqlite", resourcePath("ZenivoStatic.sqlite")};
  }

  static CustomCameraRecord pinhole() {
    CustomCameraRecord camera;
    camera.model = "Pinhole";
    camera.sensorSize = {60, 45};
    camera.coc = 0.05F;
    camera.focalLength = 40.5F;
    camera.aperture = 138.0F;
    camera.isFilm = true;
    return camera;
  }
  static CustomCameraRecord plain(const char* model) {
    CustomCameraRecord camera;
    camera.model = model;
    camera.sensorSize = {23.5F, 15.6F};
    camera.megapixels = 26.1F;
    return camera;
  }

  std::vector<std::string> models() const {
    std::vector<std::string> names;
    for (const auto& camera : store_.loadCustomCameras()) names.push_back(camera.model);
    return names;
  }

  /// The same files as another process sees them.
  CustomCameraRecord reread(std::string_view model) const {
    Database other(locations());
    return DatabaseCameraStore(other).loadCameraWithModel(model).value_or(CustomCameraRecord());
  }

  const TemporaryFolder folder_;
  Database database_{locations()};
  DatabaseCameraStore store_{database_};
  Error error_;
};

TEST_F(CameraDatabase, ReadingMakesNoStoreOfTheUser) {
  EXPECT_TRUE(store_.loadCustomCameras().empty());
  EXPECT_FALSE(store_.loadCameraWithModel("Pinhole"));
  EXPECT_FALSE(store_.existsCameraWithModel(pinhole()));
  EXPECT_TRUE(store_.deleteCustomCamera("never there", &error_)) << error_.description;
  EXPECT_TRUE(store_.loadCameraWithId(1));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "home"));
}

// Nikon's data sheet of the D850: 35.9 by 23.9 mm, 45.7 megapixels.
TEST_F(CameraDatabase, PresetsComeWithTheirBrand) {
  const auto d850 = store_.loadCameras("d850");
  ASSERT_EQ(d850->size(), 1U);
  const AbstractCamera camera = AbstractCamera::fromRecord(d850->front());
  EXPECT_EQ(camera.modelString(), "Nikon D850");
  EXPECT_EQ(camera.sensorSize, (SensorSize{35.9F, 23.9F}));
  EXPECT_EQ(camera.megapixels, 45.7F);
  EXPECT_FALSE(camera.isFixedFocalLength());
  EXPECT_EQ(AbstractCamera::cameraWithId(*camera.cameraId, store_), camera);

  EXPECT_EQ(store_.loadDefaultCameraWhenSettingsNull()->cameraId, 1);
  EXPECT_FALSE(store_.loadCameraWithId(0));
  EXPECT_FALSE(store_.loadCameraWithId((std::int64_t{1} << 32) + 1)) << "beyond the catalogue's";
}

TEST_F(CameraDatabase, KeepsEveryValueAndTheirAbsence) {
  ASSERT_TRUE(store_.saveCustomCamera(pinhole(), &error_)) << error_.description;
  ASSERT_TRUE(store_.saveCustomCamera(plain("Kit"), &error_)) << error_.description;
  EXPECT_EQ(models(), (std::vector<std::string>{"Kit", "Pinhole"}));
  const CustomCameraRecord film = reread("Pinhole");
  EXPECT_EQ(film.uniqueIdentifier.size(), 36U);
  EXPECT_EQ(film.sensorSize, pinhole().sensorSize);
  EXPECT_EQ(film.megapixels, std::nullopt);
  EXPECT_EQ(film.coc, 0.05F);
  EXPECT_EQ(film.focalLength, 40.5F);
  EXPECT_EQ(film.aperture, 138.0F);
  EXPECT_TRUE(film.isFilm);
  const CustomCameraRecord digital = reread("Kit");
  EXPECT_EQ(digital.megapixels, 26.1F);
  EXPECT_EQ(digital.coc, std::nullopt);
  EXPECT_FALSE(AbstractCamera::fromRecord(digital).isFixedFocalLength());
  EXPECT_FALSE(AbstractCamera::fromRecord(digital).isFixedAperture());
}

TEST_F(CameraDatabase, EditsRenamesAndDeletes) {
  ASSERT_TRUE(store_.saveCustomCamera(pinhole(), &error_)) << error_.description;
  ASSERT_TRUE(store_.saveCustomCamera(plain("Kit"), &error_)) << error_.description;
  CustomCameraRecord camera = *store_.loadCameraWithModel("Pinhole");
  camera.model = "Kit";
  EXPECT_EQ(CameraForm(camera).validate(store_)->messageKey, "camera_validate_duplicate");
  camera.model = "Obscura";
  EXPECT_FALSE(CameraForm(camera).validate(store_));
  camera.focalLength.reset();
  ASSERT_TRUE(store_.saveCustomCamera(camera, &error_)) << error_.description;
  EXPECT_EQ(models(), (std::vector<std::string>{"Kit", "Obscura"}));
  EXPECT_EQ(reread("Obscura").uniqueIdentifier, camera.uniqueIdentifier) << "the same camera";
  EXPECT_EQ(reread("Obscura").focalLength, std::nullopt);

  ASSERT_TRUE(store_.deleteCustomCamera(camera.uniqueIdentifier, &error_)) << error_.description;
  EXPECT_TRUE(store_.deleteCustomCamera(camera.uniqueIdentifier, &error_)) << "gone already";
  EXPECT_EQ(models(), std::vector<std::string>{"Kit"});
  EXPECT_FALSE(store_.saveCustomCamera(camera, &error_));
  EXPECT_EQ(error_.description, "the camera has been deleted meanwhile");
  EXPECT_EQ(models(), std::vector<std::string>{"Kit"});
}

/// Stores of old versions hold cameras without an identifier.
TEST_F(CameraDatabase, OldCamerasCanBeChangedToo) {
  ASSERT_TRUE(store_.saveCustomCamera(plain("Old"), &error_)) << error_.description;
  ASSERT_TRUE(store_.saveCustomCamera(plain("Older"), &error_)) << error_.description;
  auto& context = *database_.managedObjectContext();
  FetchRequest request;
  request.entityName = CustomCamera::kEntityName;
  for (const auto& each : objectsOfClass<CustomCamera>(*context.executeFetchRequest(request))) {
    each->set(CustomCamera::uniqueIdentifier, std::nullopt);
  }
  ASSERT_TRUE(context.save());
  CustomCameraRecord camera = *store_.loadCameraWithModel("Older");
  EXPECT_FALSE(store_.existsCameraWithModel(camera)) << "itself";
  camera.model = "Renamed";
  ASSERT_TRUE(store_.saveCustomCamera(camera, &error_)) << error_.description;
  EXPECT_EQ(models(), (std::vector<std::string>{"Old", "Renamed"}));
  ASSERT_TRUE(store_.deleteCustomCamera(camera.uniqueIdentifier, &error_)) << error_.description;
  EXPECT_EQ(models(), std::vector<std::string>{"Old"});
}

TEST_F(CameraDatabase, AFailedSaveTakesBackItsOwnChangeAlone) {
  ASSERT_TRUE(store_.saveCustomCamera(plain("Kit"), &error_)) << error_.description;
  CustomCameraRecord camera = *store_.loadCameraWithModel("Kit");
  ManagedObjectContext& context = *database_.managedObjectContext();
  const ManagedObjectPtr plan = context.insertNewObjectForEntityForName(Planning::kEntityName);
  const auto file = database_.groupStoreURL();
  std::filesystem::rename(file, file.string() + ".away");
  std::ofstream{file};  // another file, to which nothing may be saved
  camera.model = "Mine";
  EXPECT_FALSE(store_.saveCustomCamera(camera, &error_));
  EXPECT_FALSE(store_.saveCustomCamera(plain("New"), &error_));
  EXPECT_FALSE(store_.deleteCustomCamera(camera.uniqueIdentifier, &error_));
  EXPECT_NE(error_.description, "");
  std::filesystem::rename(file.string() + ".away", file);
  EXPECT_EQ(context.insertedObjects(), ManagedObjects{plan});
  EXPECT_TRUE(context.updatedObjects().empty() && context.deletedObjects().empty());
  EXPECT_EQ(models(), std::vector<std::string>{"Kit"});
  ASSERT_TRUE(store_.saveCustomCamera(camera, &error_)) << error_.description;
  EXPECT_EQ(models(), std::vector<std::string>{"Mine"});
}

TEST_F(CameraDatabase, AStoreThatCannotBeOpenedIsAFailure) {
  std::filesystem::create_directories(folder_ / "home");
  std::ofstream(folder_ / "home/Zenivo.sqlite") << "no store at all";
  EXPECT_TRUE(store_.loadCustomCameras().empty());
  Error reason;
  EXPECT_FALSE(store_.loadCustomCameras("", &reason));
  EXPECT_FALSE(store_.saveCustomCamera(plain("Kit"), &error_));
  EXPECT_NE(error_.description, "");
  EXPECT_FALSE(database_.managedObjectContext()->hasChanges());
  EXPECT_FALSE(store_.deleteCustomCamera("any", &error_));
}

}  // namespace
}  // namespace zenivo
