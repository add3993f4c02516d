#include "gnuplot.hpp"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "error.hpp"

namespace example {

PlotFiles PlotFilesFor(const std::filesystem::path& png) {
    PlotFiles files{.png = png, .data = png, .script = png};
    files.data.replace_extension(".dat");
    files.script.replace_extension(".gp");
    return files;
}

std::ofstream OpenForWriting(const std::filesystem::path& path) {
    std::ofstream stream(path);
    if (!stream) {
        throw Error(ExitCode::kFailed, "cannot write '" + path.string() + "': " +
                                           std::strerror(errno) + "\nName a writable place.");
    }
    return stream;
}

void CloseChecked(std::ofstream& stream, const std::filesystem::path& path) {
    stream.close();
    if (!stream) {
        throw Error(ExitCode::kFailed,
                    "cannot finish '" + path.string() + "'.\nIs there room on the disk?");
    }
}

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    return quoted + "'";
}

void RunGnuplot(const std::filesystem::path& script) {
    std::string program = "gnuplot";
    std::string argument = script.string();
    const std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (error != 0) {
        throw Error(ExitCode::kFailed,
                    std::string("cannot start gnuplot: ") + std::strerror(error) +
                        "\nInstall it (scripts/bootstrap does), then run this again.");
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw Error(ExitCode::kFailed,
                    "gnuplot failed; its own message stands above.\nTry 'gnuplot " + argument +
                        "' by hand.");
    }
}

}  // namespace example
