#include "answers/common/Scene.h"

namespace zenivo {

Json placeJson(const Location& location) {
  return {{"latitude", location.latitude},
          {"longitude", location.longitude},
          {"altitude", location.altitude}};
}

}  // namespace zenivo
