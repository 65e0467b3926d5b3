// The camera of a calculator.

#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "answers/common/CalculatorSession.h"
#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/CameraChooser.h"

namespace zenivo::cli {

/// --camera, or another name for a second camera.
class CameraOption {
 public:
  explicit CameraOption(std::string name = "--camera", CameraKeys keys = kCurrentCameraKeys)
      : name_(std::move(name)), keys_(keys) {}

  void addTo(CLI::App& command, const std::string& description);

  /// Chooses the camera given in the session's settings, and answers the one that is
  /// chosen then.  Throws InputError for a name that is not one camera's, and when the one
  /// chosen earlier has gone.
  AbstractCamera applyTo(CalculatorSession& session) const;

 private:
  std::string name_;
  CameraKeys keys_;
  std::string text_;
  const CLI::Option* option_ = nullptr;
};

}  // namespace zenivo::cli
