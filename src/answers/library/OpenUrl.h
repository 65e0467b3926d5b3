// What a URL of the program, or a file, leads to.

#pragma once

#include <string>
#include <vector>

#include "answers/common/Home.h"
#include "answers/common/Moments.h"

namespace zenivo {

struct OpenQuestion {
  std::string url;             ///< or the name of a file
  std::string programVersion;  ///< "1.2.0"
};

struct OpenReport {
  std::string url;
  std::string controller;             ///< class of the screen that comes up; empty for none
  std::string title;                  ///< of that screen
  std::vector<std::string> commands;  ///< of the program, that answer what the screen does
  std::string completed;              ///< what was done without a screen
};

/// Brings the program up and hands it the URL.  Throws InputError for what is no URL, no
/// file, or leads nowhere, and std::runtime_error with the message that a user would see.
OpenReport answer(const OpenQuestion& question, Home& home);
Json json(const OpenReport& report);

}  // namespace zenivo
