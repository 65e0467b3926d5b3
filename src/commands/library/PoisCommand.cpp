// zenivo pois: points of interest.

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "answers/common/Moments.h"
#include "answers/common/Stores.h"
#include "answers/common/Words.h"
#include "commands/common/Table.h"
#include "commands/library/Commands.h"
#include "data/stores/StaticEntities.h"
#include "data/stores/UserEntities.h"
#include "foundation/LocalizedString.h"
#include "input/CoordinateParser.h"
#include "input/GeoNames.h"
#include "input/InputError.h"
#include "input/PlaceFinder.h"
#include "place/GreatCircle.h"

namespace zenivo::cli {
namespace {

constexpr std::size_t kNearestShown = 20;

struct Interest {
  std::optional<std::int32_t> pid;  // none for the user's own
  std::string name;
  std::string country;
  std::string category;  // key of the table PoiCategories; empty for none
  double latitude = 0;
  double longitude = 0;
  std::optional<double> kilometres;  // from the place asked for
};

template <class Object>
Interest interestFrom(const Object& object) {
  Interest interest;
  interest.name = object.getOr(Object::name, std::string());
  interest.country = object.getOr(Object::country, std::string());
  interest.latitude = object.getOr(Object::latitude, 0.0);
  interest.longitude = object.getOr(Object::longitude, 0.0);
  return interest;
}

/// The objects that meet the condition, all without one, by name.
template <class Object>
std::vector<std::shared_ptr<Object>> fetch(ManagedObjectContext& context,
                                           std::optional<Predicate> predicate) {
  FetchRequest request;
  request.entityName = Object::kEntityName;
  request.predicate = std::move(predicate);
  request.sortDescriptors = {{std::string(Object::name.key)}};
  Error error;
  return objectsOfClass<Object>(expectFetched(context.executeFetchRequest(request, &error), error));
}

void addCatalogue(Stores& stores, const std::string& text, std::vector<Interest>& interests) {
  std::optional<Predicate> predicate;
  if (!text.empty()) {
    predicate = Predicate::predicateWithFormat(
        "(name contains[cd] %@) OR (country contains[cd] %@) OR (category.name contains[cd] %@)",
        text, text, text);
  }
  for (const auto& poi : fetch<Poi>(stores.catalogue(), std::move(predicate))) {
    interests.push_back(interestFrom(*poi));
    interests.back().pid = poi->get(Poi::pid);
    if (const auto category = poi->get(Poi::category)) {
      interests.back().category = category->getOr(PoiCategory::name, std::string());
    }
  }
}

void addOwn(Stores& stores, const std::string& text, std::vector<Interest>& interests) {
  if (!stores.hasOwn()) return;
  std::map<std::optional<std::int32_t>, std::string> categories;
  for (const auto& category : fetch<PoiCategory>(stores.catalogue(), std::nullopt)) {
    categories[category->get(PoiCategory::cid)] = category->getOr(PoiCategory::name, std::string());
  }
  std::optional<Predicate> predicate;
  if (!text.empty()) {
    predicate = Predicate::predicateWithFormat(
        "(name contains[cd] %@) OR (country contains[cd] %@)", text, text);
  }
  for (const auto& poi : fetch<CustomPoi>(stores.own(), std::move(predicate))) {
    interests.push_back(interestFrom(*poi));
    const auto category = categories.find(poi->get(CustomPoi::cid));
    if (category != categories.end()) interests.back().category = category->second;
  }
}

Json interestJson(const Interest& interest) {
  return {{"pid", interest.pid ? Json(*interest.pid) : Json(nullptr)},
          {"name", interest.name},
          {"country", interest.country},
          {"category", interest.category},
          {"latitude", interest.latitude},
          {"longitude", interest.longitude},
          {"distance", interest.kilometres ? Json(*interest.kilometres) : Json(nullptr)}};
}

Location placeFrom(const std::string& text) {
  return looksLikeCoordinates(text) ? parseCoordinates(text) : findPlace(GeoNames(), text).location;
}

class PoisCommand : public Command {
 public:
  void addTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("pois", "Points of interest, of the catalogue and own");
    app->add_option("TEXT", text_, "Only those whose name, country or category contains this")
        ->type_name("");
    app->add_option("--near", near_, "The nearest first: LAT,LON or a city's name")
        ->type_name("PLACE");
    app->add_option("--limit", limit_, "At most so many (default: all, with --near 20)")
        ->type_name("N")
        ->check(CLI::Range(1, 1'000'000));
    app->add_flag("--json", wantsJson_, "Print JSON");
    app->footer(
        "Distances hold to 0.6 %.\n"
        "\n"
        "Examples:\n"
        "  zenivo pois lighthouse\n"
        "  zenivo pois --near 46.5,7.9 --limit 5\n"
        "  zenivo pois --near Reykjavik waterfall --json");
  }

  std::string run(const Terminal& terminal, const GoOn&) override {
    std::optional<Location> near;
    if (!near_.empty()) near = placeFrom(near_);
    const std::vector<Interest> interests = find(near);
    if (!wantsJson_) return text(interests, terminal);
    Json json = Json::array();
    for (const Interest& interest : interests) json.push_back(interestJson(interest));
    return Json{{"pois", std::move(json)}}.dump(2) + "\n";
  }

 private:
  std::vector<Interest> find(const std::optional<Location>& near) const {
    Stores stores;
    std::vector<Interest> interests;
    addOwn(stores, text_, interests);
    addCatalogue(stores, text_, interests);
    if (near) {
      for (Interest& each : interests) {
        each.kilometres =
            greatCircleKilometres(near->latitude, near->longitude, each.latitude, each.longitude);
      }
      std::ranges::stable_sort(interests, {}, &Interest::kilometres);
    }
    const std::size_t most = limit_ != 0 ? limit_ : near ? kNearestShown : interests.size();
    if (interests.size() > most) interests.resize(most);
    return interests;
  }

  std::string text(const std::vector<Interest>& interests, const Terminal& terminal) const {
    if (interests.empty()) {
      return fmt::format("No point of interest contains {}.\n", inQuotes(text_));
    }
    Table table({{"name"},
                 {"country"},
                 {"category"},
                 {"latitude", Align::right},
                 {"longitude", Align::right},
                 {near_.empty() ? "" : "distance", Align::right}});
    for (const Interest& each : interests) {
      table.addRow({each.name, each.country,
                    each.category.empty() ? "" : localizedString(each.category, "PoiCategories"),
                    fmt::format("{:.4f}", each.latitude), fmt::format("{:.4f}", each.longitude),
                    each.kilometres ? kilometres(*each.kilometres) : ""},
                   each.pid ? Style::plain : Style::heading);
    }
    return table.text(terminal);
  }

  std::string text_;
  std::string near_;
  std::size_t limit_ = 0;
  bool wantsJson_ = false;
};

}  // namespace

std::unique_ptr<Command> makePoisCommand() {
  return std::make_unique<PoisCommand>();
}

}  // namespace zenivo::cli
