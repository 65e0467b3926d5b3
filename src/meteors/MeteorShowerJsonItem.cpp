#include "meteors/MeteorShowerJsonItem.h"

#include <limits>
#include <nlohmann/json.hpp>

namespace zenivo {
namespace {

using Json = nlohmann::json;

/// The array, its objects, and their values.
constexpr int kMaximumDepth = 2;

/// A value that is discarded when the text is no JSON, or nested too deep.
Json parse(std::string_view text) {
  bool tooDeep = false;
  const auto watchDepth = [&](int depth, Json::parse_event_t event, Json&) {
    const bool opens =
        event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start;
    if (opens && depth >= kMaximumDepth) tooDeep = true;
    return !tooDeep;
  };
  Json json = Json::parse(text, watchDepth, /*allow_exceptions=*/false);
  return tooDeep ? Json(Json::value_t::discarded) : json;
}

/// Takes the values of one object; a missing or unfit one spoils the whole.
class ItemReader {
 public:
  explicit ItemReader(const Json& object) : object_(object), fits_(object.is_object()) {}

  bool fits() const { return fits_; }

  ItemReader& read(const char* key, std::string& value) {
    const Json* found = find(key);
    if (found == nullptr || !found->is_string()) return spoil();
    value = found->get<std::string>();
    return *this;
  }
  ItemReader& read(const char* key, double& value) {
    const Json* found = find(key);
    if (found == nullptr || !found->is_number()) return spoil();
    value = found->get<double>();
    return *this;
  }
  template <std::signed_integral Integer>
  ItemReader& read(const char* key, Integer& value) {
    const Json* found = find(key);
    if (found == nullptr || !found->is_number_integer()) return spoil();
    // Beyond the signed range the file's number is an unsigned one and would wrap.
    if (found->is_number_unsigned() && found->get<std::uint64_t>() > kLargest<Integer>) {
      return spoil();
    }
    const auto wide = found->get<std::int64_t>();
    value = static_cast<Integer>(wide);
    return value == wide ? *this : spoil();
  }

 private:
  template <class Integer>
  static constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<Integer>::max());

  const Json* find(const char* key) const {
    if (!fits_) return nullptr;
    const auto found = object_.find(key);
    return found == object_.end() ? nullptr : &*found;
  }
  ItemReader& spoil() {
    fits_ = false;
    return *this;
  }

  const Json& object_;
  bool fits_;
};

std::optional<MeteorShowerJsonItem> itemFromJson(const Json& object) {
  MeteorShowerJsonItem item;
  ItemReader reader(object);
  reader.read("id", item.id)
      .read("name", item.name)
      .read("iau", item.iau)
      .read("imo", item.imo)
      .read("constellation", item.constellation)
      .read("month", item.month)
      .read("starts", item.starts)
      .read("ends", item.ends)
      .read("sl", item.sl)
      .read("showerClass", item.showerClass)
      .read("w", item.w)
      .read("zhr", item.zhr)
      .read("ra", item.ra)
      .read("dec", item.dec)
      .read("raDrift", item.raDrift)
      .read("decDrift", item.decDrift)
      .read("speed", item.speed)
      .read("r", item.r)
      .read("parent", item.parent);
  if (!reader.fits()) return std::nullopt;
  return item;
}

}  // namespace

std::optional<std::vector<MeteorShowerJsonItem>> meteorShowerItemsFromJson(std::string_view json) {
  const Json list = parse(json);
  if (!list.is_array()) return std::nullopt;
  std::vector<MeteorShowerJsonItem> items;
  items.reserve(list.size());
  for (const Json& object : list) {
    auto item = itemFromJson(object);
    if (!item) return std::nullopt;
    items.push_back(*std::move(item));
  }
  return items;
}

}  // namespace zenivo
