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
  EXPECT_FALSE(preset(5).isFixedAperture()) << "a stored 0 is none";
  CustomCameraRecord record = stored("Mine");
  EXPECT_EQ(AbstractCamera::fromRecord(record).coc, kApsC.circleOfConfusion());
  record.coc = 0.015F;
  EXPECT_EQ(AbstractCamera::fromRecord(record).coc, 0.015F);
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
  cameras.custom.clear();
  EXPECT_EQ(recents().size(), 4U) << "a camera that has gone is left out";
}

TEST_F(Cameras, AFailedDeletionLeavesTheChoice) {
  struct : CameraChooserDelegate {
    void didSelectCamera(const AbstractCamera& camera) override { told = camera.modelString(); }
    std::string told;
  } delegate;
  CameraChooser chooser(defaults, cameras, kSecondCameraKeys, &delegate);
  const auto mine = stored("Mine");
  chooser.selectCamera(AbstractCamera::fromRecord(mine));
  cameras.isBroken = true;
  std::string error;
  EXPECT_FALSE(chooser.deleteCustomCamera(mine, &error));
  EXPECT_EQ(error, "disk full");
  EXPECT_EQ(chooser.camera()->modelString(), "Mine");
  EXPECT_EQ(delegate.told, "");
  cameras.isBroken = false;
  EXPECT_TRUE(chooser.deleteCustomCamera(mine));
  EXPECT_EQ(chooser.camera()->modelString(), "Alpha FF");
  EXPECT_EQ(delegate.told, "Alpha FF");
}

TEST_F(Cameras, AFormShowsWhatItDerives) {
  CameraForm form;
  EXPECT_EQ(form.cropFactorText() + ", " + form.cocText(), "--, -- mm");
  form.setSensorSize(kApsC);
  EXPECT_EQ(form.cropFactorText() + ", " + form.cocText(), "1.6, 0.019 mm");
}

}  // namespace
}  // namespace zenivo
