// The program zenivo.

#pragma once

namespace zenivo::cli {

// Exit codes.
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;        ///< something went wrong inside, or the output is lost
inline constexpr int kBadInput = 2;       ///< the arguments make no sense
inline constexpr int kReaderGone = 141;   ///< silently, as if the closed pipe's signal had ended it
inline constexpr int kInterrupted = 130;  ///< stopped by Ctrl-C; what was found is printed

/// Runs the command that the arguments name: prints its answer to standard output, or
/// one line to standard error, and returns the exit code.
int runProgram(int argc, const char* const* argv);

}  // namespace zenivo::cli
