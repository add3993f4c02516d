#include "program.hpp"

#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "environment.hpp"

namespace bench {

#ifdef __clang__
const char* const kOwnCompiler = __VERSION__;
#else
const char* const kOwnCompiler = "GCC " __VERSION__;
#endif

bool ReadOptions(int argc, char** argv, const char* usage, const TextOptions& texts,
                 const FlagOptions& flags) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        bool known = false;
        if (argument == "--help") {
            std::cout << usage;
            return false;
        }
        for (const auto& [name, flag] : flags) {
            if (argument != name) continue;
            *flag = true;
            known = true;
        }
        for (const auto& [name, text] : texts) {
            if (!argument.starts_with(name)) continue;
            *text = argument.substr(name.size());
            known = true;
        }
        if (!known) throw std::invalid_argument("unknown option '" + std::string(argument) + "'");
    }
    return true;
}

bool ReadOptions(int argc, char** argv, const char* usage, const TextOptions& texts, bool& quick) {
    return ReadOptions(argc, argv, usage, texts, FlagOptions{{"--quick", &quick}});
}

void PrintEnvironment(const TransformLibrary& library) {
    std::cout << "cpu             " << CpuName() << "\npinned          "
              << (AllowedCpus() == 1 ? "yes" : "no") << "\nours            " << library.path()
              << "\nours built by   " << library.Compiler() << '\n';
}

void PrintRounds(bool quick) {
    if (quick) std::cout << "rounds          few: a first look, not a result\n";
}

std::ofstream Created(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder);
    return std::ofstream(path);
}

void Finish(std::ofstream& file, const std::string& path) {
    if (!file.flush()) throw std::runtime_error("cannot write '" + path + "'");
}

int Run(const char* name, const char* usage, int (*main_part)(int, char**), int argc, char** argv) {
    try {
        return main_part(argc, argv);
    } catch (const std::invalid_argument& error) {
        std::cerr << name << ": " << error.what() << '\n' << usage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << name << ": " << error.what() << '\n';
        return 1;
    }
}

}  // namespace bench
