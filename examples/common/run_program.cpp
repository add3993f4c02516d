#include "run_program.hpp"

#include <exception>
#include <iostream>

#include "error.hpp"

namespace example {

int RunProgram(const char* name, const std::function<void()>& work) {
    try {
        work();
        return static_cast<int>(ExitCode::kOk);
    } catch (const Error& error) {
        std::cerr << name << ": " << error.what() << '\n';
        return static_cast<int>(error.exit_code());
    } catch (const std::exception& error) {
        std::cerr << name << ": " << error.what() << '\n';
        return static_cast<int>(ExitCode::kFailed);
    }
}

}  // namespace example
