// Messages to whoever runs the program.

#pragma once

#include <string_view>

namespace zenivo {

/// How much a message matters; more urgent first.
enum class LogLevel { none, error, warning, info, trace, verbose };

/// Writes one line to the standard error stream, unless the level lies beyond the
/// threshold.  Lines of different threads never mix.
void log(LogLevel level, std::string_view message);

/// The last level that is written; `warning` at first.
LogLevel logThreshold();
void setLogThreshold(LogLevel threshold);

}  // namespace zenivo
