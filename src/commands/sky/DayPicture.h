// The day of light as a picture of characters.

#pragma once

#include <string>
#include <vector>

#include "answers/sky/Day.h"
#include "commands/common/Clock.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// How many samples a picture of this width takes, one a column of its plot; they are
/// spread evenly over the day, each in the middle of its column.
int samplesForWidth(int width);

/// Draws a day: the elevation of both bodies over the hours of the local clock,
/// and below it the light of each moment.  Readable without colour.
std::string dayPicture(const std::vector<SkySample>& samples, const DayClock& day,
                       const Terminal& terminal);

}  // namespace zenivo::cli
