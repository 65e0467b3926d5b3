#include "data/stores/Cameras.h"

#include <fmt/format.h>

#include <algorithm>

#include "foundation/Log.h"

namespace zenivo {
namespace {

template <class Object>
std::optional<std::vector<std::shared_ptr<Object>>> fetch(ManagedObjectContext& context,
                                                          FetchRequest request, Error* error) {
  request.entityName = Object::kEntityName;
  Error reason;
  const auto objects = context.executeFetchRequest(request, &reason);
  if (objects) return objectsOfClass<Object>(*objects);
  if (error == nullptr)
    log(LogLevel::error, fmt::format("Unresolved error ({})", reason.description));
  fail(error, reason);
  return std::nullopt;
}

template <class Object>
std::shared_ptr<Object> fetchFirst(ManagedObjectContext& context,
                                   std::optional<Predicate> predicate) {
  FetchRequest request;
  request.predicate = std::move(predicate);
  request.fetchLimit = 1;
  const auto objects = fetch<Object>(context, request, nullptr);
  return objects && !objects->empty() ? objects->front() : nullptr;
}

}  // namespace

std::shared_ptr<Camera> loadDefaultCameraWhenSettingsNull(ManagedObjectContext& context) {
  return fetchFirst<Camera>(context, std::nullopt);
}

std::shared_ptr<Camera> loadCameraWithId(std::int32_t cameraId, ManagedObjectContext& context) {
  return fetchFirst<Camera>(context, Predicate::predicateWithFormat("cameraId = %d", cameraId));
}

std::optional<std::vector<std::shared_ptr<Camera>>> loadCameras(std::string_view text,
                                                                ManagedObjectContext& context,
                                                                Error* error) {
  FetchRequest request;
  if (!text.empty()) {
    request.predicate = Predicate::predicateWithFormat(
        "(brand.name contains[cd] %@) OR (model contains[cd] %@)", text, text);
  }
  request.sortDescriptors = {{std::string(Camera::model.key)}};
  request.relationshipKeyPathsForPrefetching = {std::string(Camera::brand.key)};
  return fetch<Camera>(context, request, error);
}

std::optional<std::vector<std::shared_ptr<CustomCamera>>> loadCustomCameras(
    std::string_view text, ManagedObjectContext& context, Error* error) {
  FetchRequest request;
  if (!text.empty())
    request.predicate = Predicate::predicateWithFormat("model contains[cd] %@", text);
  request.sortDescriptors = {{std::string(CustomCamera::model.key)}};
  return fetch<CustomCamera>(context, request, error);
}

std::shared_ptr<CustomCamera> loadCameraWithModel(std::string_view model,
                                                  ManagedObjectContext& context) {
  return fetchFirst<CustomCamera>(context, Predicate::predicateWithFormat("model = %@", model));
}

bool existsCameraWithModel(std::string_view model, const CustomCamera* candidate,
                           ManagedObjectContext& context) {
  FetchRequest request;
  request.predicate = Predicate::predicateWithFormat("model = %@", model);
  const auto cameras = fetch<CustomCamera>(context, request, nullptr);
  return cameras &&
         std::ranges::any_of(*cameras, [&](const auto& c) { return c.get() != candidate; });
}

}  // namespace zenivo
