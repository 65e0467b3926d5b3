// The choice of a camera and the cameras chosen lately.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/CameraStore.h"
#include "foundation/Error.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// The two settings under which a tool keeps its camera: the identity and the name.
struct CameraKeys {
  std::string_view camera;
  std::string_view model;
};

/// The camera of the calculators, the second one of the equivalent lens, and the drone's.
inline constexpr CameraKeys kCurrentCameraKeys{settings::global_camera,
                                               settings::global_camera_model};
inline constexpr CameraKeys kSecondCameraKeys{settings::equivalentFocalLength_Camera2,
                                              settings::equivalentFocalLength_Camera2Model};

inline constexpr CameraKeys kDroneCameraKeys{settings::drone_camera, settings::drone_camera_model};

/// The camera chosen under a pair of keys, or the catalogue's default while nothing is
/// chosen.  Nullopt when the chosen one has gone.
std::optional<AbstractCamera> chosenCamera(const UserDefaults& defaults, const CameraStore& store,
                                           const CameraKeys& keys);

/// Chooses the catalogue's default for the calculators and the second camera of a user who
/// has chosen none, and synchronises.  Does nothing when one is chosen, or none is there.
void chooseFirstCamera(UserDefaults& defaults, const CameraStore& store);

/// Told what becomes of a choice.
class CameraChooserDelegate {
 public:
  virtual ~CameraChooserDelegate() = default;
  virtual void didSelectCamera(const AbstractCamera&) {}
};

/// Chooses a camera under a pair of keys.  Settings, store and delegate must outlive
/// the chooser.
class CameraChooser {
 public:
  CameraChooser(UserDefaults& defaults, CameraStore& store, CameraKeys keys = kCurrentCameraKeys,
                CameraChooserDelegate* delegate = nullptr);

  std::optional<AbstractCamera> camera() const { return chosenCamera(defaults_, store_, keys_); }

  /// Stores the choice and puts it at the head of the recent cameras.
  /// REQUIRES: the camera has an identity.
  void selectCamera(const AbstractCamera& camera);

  /// The last five cameras chosen, the latest first, without those that have gone.
  std::vector<AbstractCamera> recentCameras() const;

  /// Stores a camera of the user, new or changed.  Where a changed name was chosen in
  /// the settings, the choice follows it.  False and the reason when storing failed.
  bool saveCustomCamera(const CustomCameraRecord& camera, Error* error = nullptr);

  /// Deletes a camera of the user.  If it was the chosen one, the first of his others
  /// by name is chosen, without any the catalogue's default, and the delegate is told.
  /// False and the reason when deleting failed.
  bool deleteCustomCamera(const CustomCameraRecord& camera, Error* error = nullptr);

 private:
  void remember(const AbstractCamera& camera);
  void selectFirstCamera();
  void follow(const std::string& oldModel, const std::string& newModel);

  UserDefaults& defaults_;
  CameraStore& store_;
  CameraKeys keys_;
  CameraChooserDelegate* delegate_;
};

}  // namespace zenivo
