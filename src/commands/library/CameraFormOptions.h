// The description of a camera on the command line.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "calculators/camera/CameraForm.h"

namespace zenivo::cli {

/// --sensor, --megapixels, --film, --digital, --coc, --focal and --aperture.
class CameraFormOptions {
 public:
  void addTo(CLI::App& command);

  /// Fills in what was given and leaves the rest.  Throws InputError for what cannot be read.
  void fill(CameraForm& form) const;

 private:
  std::optional<std::string> sensor_;
  std::optional<std::string> megapixels_;
  bool isFilm_ = false;
  bool isDigital_ = false;
  std::optional<std::string> coc_;
  std::optional<std::string> focalLength_;
  std::optional<std::string> aperture_;
};

/// The fault as the user reads it, with the option that mends it.
std::string textOfFault(const CameraFormFault& fault);

}  // namespace zenivo::cli
