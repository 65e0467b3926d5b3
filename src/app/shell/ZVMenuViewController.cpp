#include "app/shell/ZVMenuViewController.h"

#include "app/shell/Platform.h"
#include "foundation/Bundle.h"
#include "foundation/Error.h"
#include "foundation/KeyedArchive.h"
#include "foundation/LocalizedString.h"
#include "foundation/Log.h"

namespace zenivo {
namespace {

MenuItem itemFrom(const PropertyList& row) {
  const KeyedUnarchiver entry(row);
  MenuItem item{entry.decodeString("Title"), entry.decodeString("Controller"), {}};
  for (const PropertyList& command : entry.decodeArray("Commands")) {
    item.commands.push_back(command.string().value_or(""));
  }
  return item;
}

std::vector<MenuSection> menuOfBundle() {
  Error error;
  if (const auto list = readPropertyListFile(resourcePath("navigation.plist"), &error)) {
    if (auto sections = menuFromNavigation(*list, &error)) return *std::move(sections);
  }
  log(LogLevel::error, "The menu cannot be read: " + error.description);
  return {};
}

}  // namespace

std::string MenuItem::title() const {
  return localizedString(titleKey, "Common");
}

std::string MenuSection::title() const {
  return localizedString(titleKey, "Common");
}

std::optional<std::vector<MenuSection>> menuFromNavigation(const PropertyList& navigation,
                                                           Error* error) {
  std::vector<MenuSection> sections;
  for (const PropertyList& each : KeyedUnarchiver(navigation).decodeArray("Sections")) {
    const KeyedUnarchiver entry(each);
    MenuSection section{entry.decodeString("Title"), {}};
    for (const PropertyList& row : entry.decodeArray("Items")) {
      section.items.push_back(itemFrom(row));
      const MenuItem& item = section.items.back();
      if (item.titleKey.empty() || item.controller.empty()) {
        fail(error, {.description = "an item of the section " + section.titleKey +
                                    " lacks title or controller"});
        return std::nullopt;
      }
    }
    sections.push_back(std::move(section));
  }
  if (!sections.empty()) return sections;
  fail(error, {.description = "no sections"});
  return std::nullopt;
}

ZVMenuViewController::ZVMenuViewController(Window& window, ZVManagedObjectContexts contexts)
    : window_(window), contexts_(std::move(contexts)), sections_(menuOfBundle()) {}

const MenuItem* ZVMenuViewController::itemOfController(std::string_view controller) const {
  for (const MenuSection& section : sections_) {
    for (const MenuItem& item : section.items) {
      if (item.controller == controller) return &item;
    }
  }
  return nullptr;
}

void ZVMenuViewController::toggleToController(const std::string& controller,
                                              const std::string& title) {
  window_.showDetail(controller, title);
}

}  // namespace zenivo
