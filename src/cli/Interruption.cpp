#include "cli/Interruption.h"

namespace zenivo::cli {
namespace {

// All that a signal handler may touch.
volatile std::sig_atomic_t noted = 0;

void note(int) {
  noted = 1;
}

}  // namespace

Interruption::Interruption() {
  noted = 0;
  struct sigaction action {};
  action.sa_handler = note;
  action.sa_flags = SA_RESTART;  // a write in progress goes on
  ::sigemptyset(&action.sa_mask);
  ::sigaction(SIGINT, &action, &before_);
}

Interruption::~Interruption() {
  ::sigaction(SIGINT, &before_, nullptr);
}

bool Interruption::hasCome() const {
  return noted != 0;
}

}  // namespace zenivo::cli
