#include "commands/common/PlaceText.h"

#include "answers/common/PlaceLookup.h"
#include "input/InputError.h"

namespace zenivo::cli {

ZVLocation placeFrom(const std::string& text, const std::string& option) {
  if (text.empty() || text.starts_with("--")) throw InputError(option + " needs a place");
  return zenivo::placeFrom(text).location;
}

}  // namespace zenivo::cli
