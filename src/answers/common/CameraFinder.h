// The camera that a user means.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calculators/camera/AbstractCamera.h"
#include "data/cameras/DatabaseCameraStore.h"

namespace zenivo {

/// Whether the camera is one that the user described.
bool isOwn(const AbstractCamera& camera);

// The cameras whose brand or model contains the text, all for an empty one, by model.
// Both throw std::runtime_error when they cannot be fetched.
std::vector<AbstractCamera> ownCameras(const DatabaseCameraStore& store,
                                       std::string_view text = "");
std::vector<AbstractCamera> catalogueCameras(const DatabaseCameraStore& store,
                                             std::string_view text = "");

/// The user's own before those of the catalogue.
std::vector<AbstractCamera> allCameras(const DatabaseCameraStore& store);

/// The cameras in whose name, brand and model, every word of the text is found as a whole
/// word or the beginning of one.  Case, accents and punctuation count nothing; "A7" is found
/// in "Alpha 7".
std::vector<AbstractCamera> camerasWithWords(const std::vector<AbstractCamera>& cameras,
                                             std::string_view text);

/// The camera of that name, with its brand or without; else the only one whose name ends with
/// the text's last words and has those before ("Canon R6"); else the only one whose name begins
/// with the text; else the only one with all its words.  Names that are the same to the
/// letter come first, and of those the first camera is meant.  Throws InputError, with names
/// that may be meant, when there is none or more than one.
AbstractCamera findCamera(const std::vector<AbstractCamera>& cameras, std::string_view text);

}  // namespace zenivo
