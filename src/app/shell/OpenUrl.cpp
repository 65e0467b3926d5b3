// URLs and files from outside.

#include <fmt/format.h>

#include <array>

#include "app/shell/ZenivoAppDelegate.h"
#include "foundation/LocalizedString.h"

namespace zenivo {
namespace {

struct Route {
  std::string_view host;
  std::string_view controller;
  std::string_view titleKey;
};

constexpr Route kPlannerRoute{"planner", "PlannerViewController", "menu_tessels_planner"};

constexpr std::array kRoutes{
    Route{"sun", "SunInfoViewController", "menu_tessels_sun"},
    Route{"moon", "MoonInfoViewController", "menu_tessels_moon"},
    Route{"plans", "ProjectPlanningsViewController", "menu_stuff_plans"},
};

std::string text(std::string_view key) {
  return localizedString(key, "Common");
}

}  // namespace

bool ZenivoAppDelegate::applicationOpenURL(const Url& url) {
  if (!url.isFileURL()) return url.scheme() == kUrlScheme && followRoute(url);
  fileToImport_ = url.path();
  askToImportFile();
  return true;
}

bool ZenivoAppDelegate::followRoute(const Url& url) {
  for (const Route& route : kRoutes) {
    if (url.host() != route.host) continue;
    toggleToController(std::string(route.controller), route.titleKey);
    return true;
  }
  if (url.host() == kPlannerRoute.host) {
    url.hasQuery() ? loadPlanFromUrl(url) : loadLastItem();
    return true;
  }
  if (url.host() != "plan") return false;
  if (const auto id = url.parameters().find("id"); id != url.parameters().end()) {
    loadPlanById(id->second);
  }
  return true;
}

void ZenivoAppDelegate::toggleToController(const std::string& controller,
                                           std::string_view titleKey) {
  menu_->toggleToController(controller, text(titleKey));
}

void ZenivoAppDelegate::loadPlanFromUrl(const Url& url) {
  reportPlanOutcome(tools_.plans.loadPlanFromUrl(url, *contexts_.userContext));
}

void ZenivoAppDelegate::loadPlanById(const std::string& uri) {
  reportPlanOutcome(tools_.plans.loadPlanById(uri, *contexts_.userContext));
}

void ZenivoAppDelegate::reportPlanOutcome(PlanLoader::Outcome outcome) {
  switch (outcome) {
    case PlanLoader::Outcome::handedOver:
      return loadLastItem();
    case PlanLoader::Outcome::notFound:
      return;
    case PlanLoader::Outcome::unavailable:
      platform_.dialogs.showMessage(text("tool_missing_title"), text("tool_missing_plans"));
  }
}

void ZenivoAppDelegate::loadLastItem() {
  toggleToController(std::string(kPlannerRoute.controller), kPlannerRoute.titleKey);
}

void ZenivoAppDelegate::askToImportFile() {
  platform_.dialogs.ask(
      {text("import_data_title"), text("import_data_message"), text("yes"), text("no")},
      [this, alive = weak_from_this()](bool yes) {
        if (yes && !alive.expired()) processDataImport();
      });
}

void ZenivoAppDelegate::processDataImport() {
  if (!fileToImport_.empty()) startImportingData();
}

void ZenivoAppDelegate::startImportingData() {
  platform_.dialogs.showProgress();
  tools_.import.importFile(
      std::exchange(fileToImport_, {}), *contexts_.userContext,
      [this, alive = weak_from_this()](const DataImport::Result& result) {
        if (alive.expired()) return;
        if (!result.error) return showCompleteMessageWithCount(result.count);
        platform_.dialogs.endProgress(std::nullopt);
        platform_.dialogs.showMessage(
            text("import_data_title"),
            fmt::format(fmt::runtime(text("kml_import_error")), result.error->description));
      });
}

void ZenivoAppDelegate::showCompleteMessageWithCount(std::size_t count) {
  platform_.dialogs.endProgress(fmt::format(fmt::runtime(text("import_data_completed")), count));
}

}  // namespace zenivo
