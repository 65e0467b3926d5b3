#include "app/shell/ZVMenuViewController.h"

#include "app/shell/Platform.h"
#include "foundation/Bundle.h"
#include "foundation/Failure.h"
#include "foundation/LocalizedString.h"
#include "foundation/Log.h"

namespace zenivo {
namespace {

std::string textForKey(const PropertyList& entry, std::string_view key) {
  const PropertyList* value = entry.valueForKey(key);
  return value != nullptr ? value->string().value_or("") : "";
}

const PropertyList::Array& listForKey(const PropertyList& entry, std::string_view key) {
  static const PropertyList::Array kNone;
  const PropertyList* value = entry.valueForKey(key);
  return value != nullptr && value->array() != nullptr ? *value->array() : kNone;
}

MenuItem itemFrom(const PropertyList& entry) {
  MenuItem item{textForKey(entry, "Title"), textForKey(entry, "Controller"), {}};
  for (const PropertyList& command : listForKey(entry, "Commands")) {
    item.commands.push_back(command.string().value_or(""));
  }
  return item;
}

std::vector<MenuSection> menuOfBundle() {
  std::string error;
  if (const auto list = readPropertyListFile(resourcePath("navigation.plist"), &error)) {
    if (auto sections = menuFromNavigation(*list, &error)) return *std::move(sections);
  }
  log(LogLevel::error, "The menu cannot be read: " + error);
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
                                                           std::string* error) {
  std::vector<MenuSection> sections;
  for (const PropertyList& entry : listForKey(navigation, "Sections")) {
    MenuSection section{textForKey(entry, "Title"), {}};
    for (const PropertyList& row : listForKey(entry, "Items")) {
      section.items.push_back(itemFrom(row));
      const MenuItem& item = section.items.back();
      if (item.titleKey.empty() || item.controller.empty()) {
        fail(error, "an item of the section " + section.titleKey + " lacks title or controller");
        return std::nullopt;
      }
    }
    sections.push_back(std::move(section));
  }
  if (!sections.empty()) return sections;
  fail(error, "no sections");
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
