// What the program writes to.

#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace zenivo::cli {

struct Terminal {
  bool isTerminal = false;  ///< a person reads along; otherwise a file or a pipe
  bool hasColour = false;
  int width = 80;  ///< columns

  /// Standard output.  Colour only on a terminal that is not "dumb", and not when
  /// NO_COLOR is set to anything; the width is the terminal's.
  static Terminal ofStandardOutput();
};

/// How a piece of text stands out on a terminal with colour.
enum class Style {
  plain,
  heading,
  faint,
  sun,
  moon,
  milkyWay,
  // The lights of the day.
  daylight,
  goldenHour,
  blueHour,
  nauticalTwilight,
  astronomicalTwilight,
  night,
};

/// The text in that style, or as it is without colour.
std::string styled(std::string_view text, Style style, const Terminal& terminal);

/// Columns that a text takes on a terminal; it must be of narrow characters.
int displayWidth(std::string_view text);

/// Thrown when nobody reads the output any more, as when a pager was left.
class ReaderGone : public std::system_error {
 public:
  using std::system_error::system_error;
};

/// Writes the text to standard output and sees it through.  Throws ReaderGone, and
/// std::system_error when that fails otherwise, as with a full disk.
void writeToStandardOutput(std::string_view text);

}  // namespace zenivo::cli
