// The description of a camera on the command line.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "answers/library/Cameras.h"

namespace zenivo::cli {

/// --sensor, --megapixels, --film, --digital, --coc, --focal and --aperture.
class CameraFormOptions {
 public:
  void addTo(CLI::App& command);

  /// What was given.  Throws InputError for what cannot be read.
  CameraDescription description() const;

 private:
  std::optional<std::string> sensor_;
  std::optional<std::string> megapixels_;
  bool isFilm_ = false;
  bool isDigital_ = false;
  std::optional<std::string> coc_;
  std::optional<std::string> focalLength_;
  std::optional<std::string> aperture_;
};

/// The option that mends a fault there; empty for that of the name.
std::string_view optionOf(CameraFormField field);

}  // namespace zenivo::cli
