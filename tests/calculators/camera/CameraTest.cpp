#include <gtest/gtest.h>

#include "app/settings/SettingsKeys.h"
#include "calculators/CalculatorFixture.h"
#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/CameraChooser.h"
#include "calculators/camera/CameraForm.h"

namespace zenivo {
namespace {

struct Cameras : testing::Test, CalculatorFixture {
  AbstractCamera preset(std::int64_t id) const {
    return *AbstractCamera::cameraWithId(id, cameras);
  }

  CustomCameraRecord stored(const char* model) {
    CustomCameraRecord camera;
    camera.model = model;
    camera.sensorSize = kApsC;
    camera.megapixels = 20.0F;
    EXPECT_TRUE(cameras.saveCustomCamera(camera, nullptr));
    return *cameras.loadCameraWithModel(model);
  }

  std::vector<std::string> recents() {
    std::vector<std::string> names;
    for (const auto& camera : CameraChooser(defaults, cameras).recentCameras()) {
      names.push_back(camera.modelString());
    }
    return names;
  }
};

// CIPA's crop factor of an APS-C sensor of that make is 1.6; its circle of confusion is
// given as 0.019 mm, that of full frame as 0.030 mm.
TEST_F(Cameras, DeriveTheirValuesFromTheSensor) {
  EXPECT_NEAR(preset(1).cropFactor, 1, 1e-6);
  EXPECT_NEAR(preset(1).coc, 0.030, 0.0005);
  EXPECT_NEAR(preset(2).cropFactor, 1.61, 0.005);
  EXPECT_NEAR(preset(2).coc, 0.019, 0.0005);
  EXPECT_EQ(SensorSize().cropFactor(), 0) << "not an infinity";
  EXPECT_EQ(preset(2).modelString(), "Beta C");
  EXPECT_EQ(preset(2).shortModelString(), "C");
  EXPECT_FALSE(preset(3).isDigital);
  EXPECT_EQ(preset(3).megapixels, 0);
  EXPECT_FLOAT_EQ(preset(4).fixedFocalLengthInMetres(), 0.035F);
  EXPECT_FALSE(preset(5).isFixedAperture()) << "a stored 0 is none";
}

TEST_F(Cameras, OwnCirclesOfConfusionHold) {
  CustomCameraRecord record = stored("Mine");
  EXPECT_EQ(AbstractCamera::fromRecord(record).coc, kApsC.circleOfConfusion());
  record.coc = 0.015F;
  EXPECT_EQ(AbstractCamera::fromRecord(record).coc, 0.015F);
  EXPECT_EQ(AbstractCamera::fromRecord(record).modelString(), "Mine");
}

TEST_F(Cameras, TheSettingTellsPresetsFromOwn) {
  EXPECT_EQ(AbstractCamera::currentCamera(defaults, cameras), preset(1)) << "none chosen yet";
  stored("5");
  defaults.setInteger(5, settings::global_camera);
  EXPECT_EQ(AbstractCamera::currentCamera(defaults, cameras)->modelString(), "Delta Lens");
  defaults.setObject("5", settings::global_camera);
  EXPECT_EQ(AbstractCamera::currentCamera(defaults, cameras)->modelString(), "5");
  defaults.setObject("sold", settings::global_camera);
  EXPECT_FALSE(AbstractCamera::currentCamera(defaults, cameras));
}

TEST_F(Cameras, RecentOnesAreFiveTheLatestFirst) {
  CameraChooser chooser(defaults, cameras);
  EXPECT_FALSE(defaults.objectForKey(settings::global_camera_recents));
  const CustomCameraRecord mine = stored("Mine");
  for (const int id : {1, 2, 3, 4, 5}) chooser.selectCamera(preset(id));
  chooser.selectCamera(AbstractCamera::fromRecord(mine));
  chooser.selectCamera(preset(3));
  EXPECT_EQ(recents(),
            (std::vector<std::string>{"Gamma Film", "Mine", "Delta Lens", "Delta Fix", "Beta C"}));
  EXPECT_EQ(AbstractCamera::currentCameraModel(defaults), "Gamma Film");
  cameras.custom.clear();
  EXPECT_EQ(recents().size(), 4U) << "a camera that has gone is left out";
}

TEST_F(Cameras, DeletingTheChosenOneChoosesAnother) {
  struct : CameraChooserDelegate {
    void didSelectCamera(const AbstractCamera& camera) override { told = camera.modelString(); }
    std::string told;
  } delegate;
  CameraChooser chooser(defaults, cameras, kCurrentCameraKeys, &delegate);
  const auto b = stored("B"), a = stored("A"), c = stored("C");
  chooser.selectCamera(AbstractCamera::fromRecord(b));
  EXPECT_TRUE(chooser.deleteCustomCamera(c));
  EXPECT_EQ(delegate.told, "") << "another one";
  EXPECT_TRUE(chooser.deleteCustomCamera(b));
  EXPECT_EQ(chooser.camera()->modelString(), "A");
  cameras.isBroken = true;
  Error error;
  EXPECT_FALSE(chooser.deleteCustomCamera(a, &error));
  EXPECT_EQ(error.description, "disk full");
  EXPECT_EQ(chooser.camera()->modelString(), "A");
  cameras.isBroken = false;
  EXPECT_TRUE(chooser.deleteCustomCamera(a));
  EXPECT_EQ(chooser.camera()->modelString(), "Alpha FF");
  EXPECT_EQ(delegate.told, "Alpha FF");
}

TEST_F(Cameras, AChoiceFollowsAChangedName) {
  CameraChooser chooser(defaults, cameras, kSecondCameraKeys);
  CustomCameraRecord camera = stored("Old");
  chooser.selectCamera(AbstractCamera::fromRecord(camera));
  camera.model = "New";
  EXPECT_TRUE(chooser.saveCustomCamera(camera));
  EXPECT_EQ(chooser.camera()->modelString(), "New");
  EXPECT_EQ(defaults.stringForKey(settings::equivalentFocalLength_Camera2Model), "New");
  EXPECT_EQ(recents(), std::vector<std::string>{"New"});
}

TEST_F(Cameras, AFormTellsItsFaultsInOrder) {
  const CustomCameraRecord taken = stored("Taken");
  CameraForm form;
  const auto fault = [&] {
    const auto found = form.validate(cameras);
    return found ? std::string(found->messageKey) : "";
  };
  form.setName(" \t\r\n");
  form.setCocAutomatic(false);
  form.setHasFixedFocalLength(true);
  EXPECT_EQ(fault(), "camera_validate_no_name");
  form.setName(" Taken\n");
  EXPECT_EQ(fault(), "camera_validate_duplicate");
  form.setName("Free");
  EXPECT_EQ(fault(), "camera_validate_no_sensor_width");
  form.setSensorSize({36, 0});
  EXPECT_EQ(fault(), "camera_validate_no_sensor_height");
  form.setSensorSize(kFullFrame);
  EXPECT_EQ(fault(), "camera_validate_no_mpx");
  form.setMegapixels(24);
  EXPECT_EQ(fault(), "camera_validate_no_coc");
  form.setCoc(0.025F);
  EXPECT_EQ(fault(), "camera_validate_no_focal_length");
  form.setFocalLength(35);
  EXPECT_EQ(fault(), "");
  EXPECT_EQ(form.camera().coc, 0.025F);
  form.setIsFilm(true);
  EXPECT_EQ(fault(), "") << "film has no pixels";
  EXPECT_FALSE(form.camera().megapixels);
  form.setHasFixedFocalLength(false);
  EXPECT_FALSE(form.camera().focalLength);

  CameraForm same(taken);
  EXPECT_FALSE(same.validate(cameras)) << "its own name is free";
}

TEST_F(Cameras, AFormShowsWhatItDerives) {
  CameraForm form;
  EXPECT_EQ(form.cropFactorText(), "--");
  EXPECT_EQ(form.cocText(), "-- mm");
  form.setSensorSize(kApsC);
  EXPECT_EQ(form.cropFactorText(), "1.6");
  EXPECT_EQ(form.cocText(), "0.019 mm");
  form.setName("Mine");
  form.setMegapixels(20);
  EXPECT_FALSE(form.validate(cameras));
  EXPECT_FALSE(form.camera().coc) << "cleared, so that it follows the sensor";
}

}  // namespace
}  // namespace zenivo
