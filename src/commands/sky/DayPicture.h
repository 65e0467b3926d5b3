// The day of light as a picture of characters.

#pragma once

#include <string>
#include <vector>

#include "answers/common/Moments.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// Elevations of Sun and Moon at one moment, degrees.
struct SkySample {
  double sunElevation = 0;
  double moonElevation = 0;
};

/// How many samples a picture of this width takes, one a column of its plot; they are
/// spread evenly over the day, each in the middle of its column.
int samplesForWidth(int width);

/// Draws a day: the elevation of both bodies over the hours of the local clock,
/// and below it the light of each moment.  Readable without colour.
std::string dayPicture(const std::vector<SkySample>& samples, const DayClock& day,
                       const Terminal& terminal);

}  // namespace zenivo::cli
