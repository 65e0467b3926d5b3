#include "commands/common/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace zenivo::cli {
namespace {

bool isSetAndNotEmpty(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool isDumb() {
  const char* terminal = std::getenv("TERM");
  return terminal == nullptr || std::string_view(terminal) == "dumb";
}

/// Escape sequence parameters, of the 256 colours that terminals share.
const char* parametersOf(Style style) {
  switch (style) {
    case Style::plain:
      return "";
    case Style::heading:
      return "1";
    case Style::faint:
      return "2";
    case Style::sun:
      return "38;5;220";
    case Style::moon:
      return "38;5;153";
    case Style::milkyWay:
      return "38;5;183";
    case Style::daylight:
      return "38;5;229";
    case Style::goldenHour:
      return "38;5;214";
    case Style::blueHour:
      return "38;5;33";
    case Style::nauticalTwilight:
      return "38;5;26";
    case Style::astronomicalTwilight:
      return "38;5;24";
    case Style::night:
      return "38;5;236";
  }
  return "";
}

}  // namespace

Terminal Terminal::ofStandardOutput() {
  Terminal terminal;
  terminal.isTerminal = ::isatty(STDOUT_FILENO) == 1;
  terminal.hasColour = terminal.isTerminal && !isDumb() && !isSetAndNotEmpty("NO_COLOR");
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    terminal.width = size.ws_col;
  }
  return terminal;
}

std::string styled(std::string_view text, Style style, const Terminal& terminal) {
  const std::string_view parameters = parametersOf(style);
  if (!terminal.hasColour || parameters.empty()) return std::string(text);
  return std::string("\x1b[").append(parameters).append("m").append(text).append("\x1b[0m");
}

int displayWidth(std::string_view text) {
  // Every byte of UTF-8 but those that continue a character.
  const auto isFirst = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  return static_cast<int>(std::count_if(text.begin(), text.end(), isFirst));
}

void writeToStandardOutput(std::string_view text) {
  const std::size_t written = std::fwrite(text.data(), 1, text.size(), stdout);
  if (written == text.size() && std::fflush(stdout) == 0) return;
  const std::error_code reason(errno, std::generic_category());
  if (reason == std::errc::broken_pipe) throw ReaderGone(reason);
  throw std::system_error(reason, "the output cannot be written");
}

}  // namespace zenivo::cli
