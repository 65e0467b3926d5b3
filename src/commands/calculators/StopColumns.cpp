#include "commands/calculators/StopColumns.h"

#include <fmt/format.h>

#include <set>

#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/NearestLookup.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

constexpr double kFullStops[] = {2.8, 4, 5.6, 8, 11, 16};

}  // namespace

void StopColumns::addTo(CLI::App& command) {
  CLI::Option* list =
      command.add_option("--aperture", texts_, "Stops to show (default: f/2.8 to f/16)")
          ->delimiter(',')
          ->expected(1, CLI::detail::expected_max_vector_size)
          ->type_name("f/4,f/8,f/11");
  command.add_flag("--all", wantsAll_, "Show every stop")->excludes(list);
}

std::vector<std::size_t> StopColumns::chosenFrom(const std::vector<Aperture>& stops) const {
  std::set<std::size_t> chosen;
  const auto choose = [&](double fstop) {
    const auto& nearest = nearestElement(stops, fstop, &Aperture::fstop);
    chosen.insert(static_cast<std::size_t>(&nearest - stops.data()));
  };
  if (wantsAll_) {
    for (std::size_t i = 0; i < stops.size(); ++i) chosen.insert(i);
  } else if (texts_.empty()) {
    for (const double fstop : kFullStops) choose(fstop);
  }
  for (const std::string& text : texts_) {
    const auto fstop = CameraValuesParser::parseAperture(text);
    if (!fstop) {
      throw InputError(
          fmt::format("--aperture cannot be {}; write it as in f/4,f/8", inQuotes(text)));
    }
    choose(*fstop);
  }
  return {chosen.begin(), chosen.end()};
}

}  // namespace zenivo::cli
