// The catalogue of the static store for tests and benchmarks.

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "eclipses/EclipseRow.h"
#include "eclipses/EclipseType.h"

namespace zenivo {

/// Column to text.
using CsvRow = std::map<std::string, std::string>;

/// A table of comma-separated values without quotes.  Throws when it cannot be
/// read.
std::vector<CsvRow> readCsv(const std::filesystem::path& path);

/// Every eclipse, by its `mjd` ascending.
const std::vector<EclipseRow>& catalogueRows();

/// Those of one kind, in the same order.
std::vector<const EclipseRow*> eclipsesOfKind(EclipseKind kind);

/// Throws when there is none of this name.
const EclipseRow& eclipseNamed(const std::string& name);

/// Seconds from "hh:mm:ss" UT to the moment's time of day.
double secondsAfter(const char* time, double mjd);

}  // namespace zenivo
