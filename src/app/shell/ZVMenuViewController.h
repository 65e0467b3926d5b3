// The menu: sections of tools, read from the resource "navigation.plist".

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/stores/ManagedObjectContexts.h"
#include "foundation/Error.h"
#include "foundation/PropertyList.h"

namespace zenivo {

class Window;

/// One tool.
struct MenuItem {
  std::string titleKey;               ///< of the table Common
  std::string controller;             ///< class of its screen
  std::vector<std::string> commands;  ///< commands of the program that answer the same

  std::string title() const;
};

struct MenuSection {
  std::string titleKey;
  std::vector<MenuItem> items;

  std::string title() const;
};

/// The sections of a navigation list, a dictionary with "Sections".  Nullopt with the
/// reason in `error` when it has none, or an item is without a title or a controller.
std::optional<std::vector<MenuSection>> menuFromNavigation(const PropertyList& navigation,
                                                           Error* error = nullptr);

/// The menu of the program, the root of all screens.
class ZVMenuViewController {
 public:
  /// Reads "navigation.plist"; one that cannot be read is logged, and the menu is empty.
  /// The window must outlive the menu.
  ZVMenuViewController(Window& window, ZVManagedObjectContexts contexts);

  const std::vector<MenuSection>& sections() const { return sections_; }
  /// The item of a screen; nullptr when the menu has none.
  const MenuItem* itemOfController(std::string_view controller) const;

  /// The contexts that each screen receives.
  const ZVManagedObjectContexts& contexts() const { return contexts_; }

  /// Swaps the detail screen for one of that class.
  void toggleToController(const std::string& controller, const std::string& title);

 private:
  Window& window_;
  ZVManagedObjectContexts contexts_;
  std::vector<MenuSection> sections_;
};

}  // namespace zenivo
