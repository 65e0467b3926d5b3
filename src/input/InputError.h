// What is wrong with something the user typed.

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace zenivo {

/// Thrown for bad input.  `what()` is one line, without a full stop, that says
/// what was wrong and how it is written right.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `text` in double quotes for a message: control characters and broken UTF-8
/// become "?", and a long text is cut, so that the message stays one short line.
std::string inQuotes(std::string_view text);

/// Throws InputError for a text that is to be kept but holds control characters or broken
/// UTF-8; `what` it is begins the message.
void expectPrintable(std::string_view text, std::string_view what);

/// Throws InputError for a text with bytes that are no character.
void expectUtf8(std::string_view text);

}  // namespace zenivo
