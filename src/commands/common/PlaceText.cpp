#include "commands/common/PlaceText.h"

#include "answers/common/Home.h"
#include "answers/common/PlaceLookup.h"
#include "foundation/UserFolder.h"
#include "input/InputError.h"

namespace zenivo::cli {

ZVLocation placeFrom(const std::string& text, const std::string& option) {
  if (text.empty() || text.starts_with("--")) throw InputError(option + " needs a place");
  Home home(userFolder());
  return zenivo::placeFrom(text, home.database()).location;
}

}  // namespace zenivo::cli
