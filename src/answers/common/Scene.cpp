#include "answers/common/Scene.h"

namespace zenivo {

Json placeJson(const ZVLocation& location) {
  return {{"latitude", location.coordinate.latitude},
          {"longitude", location.coordinate.longitude},
          {"altitude", location.altitude}};
}

}  // namespace zenivo
