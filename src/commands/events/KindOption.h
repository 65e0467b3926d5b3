// --kind: which eclipses are meant.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "commands/common/Arguments.h"
#include "eclipses/EclipseType.h"

namespace zenivo::cli {

class KindOption {
 public:
  void addTo(CLI::App& command) {
    command.add_option("--kind", kind_, "solar or lunar")
        ->type_name("KIND")
        ->transform(oneOf({"solar", "lunar"}));
  }

  /// nullopt for both.
  std::optional<EclipseKind> resolve() const {
    if (kind_.empty()) return std::nullopt;
    return kind_ == "solar" ? EclipseKind::solar : EclipseKind::lunar;
  }

 private:
  std::string kind_;
};

}  // namespace zenivo::cli
