#pragma once

#include <stdexcept>
#include <string>

namespace example {

enum class ExitCode : int {
    kOk = 0,
    kFailed = 1,   ///< no output, or none that may be trusted
    kBadInput = 2  ///< wrong use, or a file that can't be read
};

/** A failure the user can do something about; the message says what. */
class Error : public std::runtime_error {
  public:
    Error(ExitCode exit_code, const std::string& message)
        : std::runtime_error(message), exit_code_(exit_code) {}

    ExitCode exit_code() const { return exit_code_; }

  private:
    ExitCode exit_code_;
};

}  // namespace example
