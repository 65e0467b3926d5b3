#include "commands/common/PlaceText.h"

#include "input/CoordinateParser.h"
#include "input/GeoNames.h"
#include "input/InputError.h"
#include "input/PlaceFinder.h"

namespace zenivo::cli {

ZVLocation placeFrom(const std::string& text, const std::string& option) {
  if (text.empty() || text.starts_with("--")) throw InputError(option + " needs a place");
  return looksLikeCoordinates(text) ? parseCoordinates(text) : findPlace(GeoNames(), text).location;
}

}  // namespace zenivo::cli
