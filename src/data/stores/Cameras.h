// Cameras of the catalogue and of the user, as they are looked up.

#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "data/stores/StaticEntities.h"
#include "data/stores/UserEntities.h"
#include "store/graph/ManagedObjectContext.h"

namespace zenivo {

// Fetches of the static context.  What cannot be fetched is logged and counts as not
// there, unless the caller wants the error.

/// The camera for a user who has chosen none: the first of the catalogue.
std::shared_ptr<Camera> loadDefaultCameraWhenSettingsNull(ManagedObjectContext& context);
std::shared_ptr<Camera> loadCameraWithId(std::int32_t cameraId, ManagedObjectContext& context);
/// The cameras whose brand or model contains the text, whatever case and accents, by
/// model.  Nullopt when the fetch failed.
std::optional<std::vector<std::shared_ptr<Camera>>> loadCameras(std::string_view text,
                                                                ManagedObjectContext& context,
                                                                Error* error = nullptr);

// Fetches of the user context.

/// The cameras whose model contains the text, all for an empty one, by model.
std::optional<std::vector<std::shared_ptr<CustomCamera>>> loadCustomCameras(
    std::string_view text, ManagedObjectContext& context, Error* error = nullptr);
std::shared_ptr<CustomCamera> loadCameraWithModel(std::string_view model,
                                                  ManagedObjectContext& context);
/// Whether another camera than the candidate bears the name; any, for nullptr.
bool existsCameraWithModel(std::string_view model, const CustomCamera* candidate,
                           ManagedObjectContext& context);

}  // namespace zenivo
