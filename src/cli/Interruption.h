// Ctrl-C during long work.

#pragma once

#include <csignal>

namespace zenivo::cli {

/// While one lives, SIGINT does not end the program but is noted.  Its end gives the
/// signal back what it did before.  One at a time, on the main thread.
class Interruption {
 public:
  Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  bool hasCome() const;

 private:
  struct sigaction before_ {};
};

}  // namespace zenivo::cli
