// Which cameras there are, and all about one; the user's own are described here.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "answers/common/CalculatorSession.h"
#include "answers/common/Moments.h"
#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/CameraForm.h"
#include "input/InputError.h"

namespace zenivo {

// A camera is named by its model, with its maker or without, or by a part that no other has.

struct CamerasQuestion {
  std::string text = {};  ///< part of the brand or model; empty for all
};

/// The user's own first.
struct CamerasReport {
  std::vector<AbstractCamera> cameras;
  std::optional<AbstractCamera> chosen = {};
};

struct CameraQuestion {
  std::optional<std::string> name = {};  ///< none: the chosen one
};

struct CameraReport {
  AbstractCamera camera;
  bool isChosen = false;
};

/// What was said of an own camera; the rest stays as it is.
struct CameraDescription {
  std::optional<std::string> name = {};
  std::optional<SensorSize> sensor = {};
  std::optional<bool> isFilm = {};
  std::optional<float> megapixels = {};
  /// Lengths in millimetres.  An inner nullopt takes away what was there: the circle of
  /// confusion follows the sensor, or the lens can be changed.
  std::optional<std::optional<float>> coc = {};
  std::optional<std::optional<float>> focalLength = {};
  std::optional<std::optional<float>> fstop = {};
};

struct AddCamera {
  CameraDescription description;
};

struct EditCamera {
  std::string name = {};  ///< as it was
  CameraDescription description;
};

struct RemoveCamera {
  std::string name = {};
};

struct RemovedCameraReport {
  AbstractCamera removed;
  bool wasChosen = false;
  std::optional<AbstractCamera> chosen = {};  ///< now
};

/// Chooses the camera of the calculators.
struct UseCamera {
  std::string name = {};
};

/// What stands against keeping a description.
class CameraFault : public InputError {
 public:
  explicit CameraFault(const CameraFormFault& fault);
  CameraFormField field() const { return field_; }

 private:
  CameraFormField field_;
};

// All throw InputError for a name that is not one camera's, and std::runtime_error when a
// store cannot be read or written; then nothing is changed.

CamerasReport answer(const CamerasQuestion& question, CalculatorSession& session);
/// Throws std::runtime_error too when the chosen camera has gone.
CameraReport answer(const CameraQuestion& question, CalculatorSession& session);
/// These two throw CameraFault for a description that cannot be kept, and InputError for a
/// camera of the catalogue.
CameraReport answer(const AddCamera& question, CalculatorSession& session);
CameraReport answer(const EditCamera& question, CalculatorSession& session);
RemovedCameraReport answer(const RemoveCamera& question, CalculatorSession& session);
CameraReport answer(const UseCamera& question, CalculatorSession& session);

Json json(const CamerasReport& report);
Json json(const CameraReport& report);
Json json(const RemovedCameraReport& report);

}  // namespace zenivo
