#include "cli/Program.h"

int main(int argc, char** argv) {
  return zenivo::cli::runProgram(argc, argv);
}
