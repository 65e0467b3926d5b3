#include "foundation/Log.h"

#include <fmt/format.h>

#include <atomic>
#include <cstdio>
#include <string>

namespace zenivo {
namespace {

std::atomic<LogLevel> threshold = LogLevel::warning;

}  // namespace

void log(LogLevel level, std::string_view message) {
  if (level == LogLevel::none || level > threshold) return;
  const std::string line = fmt::format("zenivo: {}\n", message);
  std::fwrite(line.data(), 1, line.size(), stderr);  // the stream locks itself for one call
}

LogLevel logThreshold() {
  return threshold;
}
void setLogThreshold(LogLevel level) {
  threshold = level;
}

}  // namespace zenivo
